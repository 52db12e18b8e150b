// The files of a folder, sorted by their sizes, of which those are shown that are searched.

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMainWindow>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Files"));
    auto* page = new QWidget(&window);
    auto* column = new QVBoxLayout(page);
    auto* search = new QLineEdit(page);
    auto* table = new QTableView(page);
    column->addWidget(search);
    column->addWidget(table);

    auto* model = new QStandardItemModel(&window);
    model->setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Size")});
    const auto entries = QDir().entryInfoList(QDir::Files);
    for (const QFileInfo& entry : entries) {
        auto* size = new QStandardItem;
        size->setData(entry.size(), Qt::DisplayRole);
        model->appendRow({new QStandardItem(entry.fileName()), size});
    }
    auto* shown = new QSortFilterProxyModel(&window);
    shown->setSourceModel(model);
    shown->setFilterKeyColumn(-1);
    shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    shown->sort(1, Qt::DescendingOrder);
    table->setModel(shown);
    QObject::connect(search, &QLineEdit::textEdited, shown,
                     &QSortFilterProxyModel::setFilterFixedString);

    window.setCentralWidget(page);
    window.show();
    return QApplication::exec();
}
