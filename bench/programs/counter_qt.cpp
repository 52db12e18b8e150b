#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Counter"));
    auto* page = new QWidget(&window);
    auto* row = new QHBoxLayout(page);
    auto* count = new QLabel(QStringLiteral("0"), page);
    auto* button = new QPushButton(QStringLiteral("&Count"), page);
    row->addWidget(count, 1);
    row->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, count,
                     [count, n = 0]() mutable { count->setText(QString::number(++n)); });
    window.setCentralWidget(page);
    window.show();
    return QApplication::exec();
}
