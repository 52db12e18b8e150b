// Another program for tests of drag and drop: a window of plain Qt that takes text or gives it.
// Says on its output what happens.
//
//     dragpartner target|source <x> <y>

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTextStream>
#include <QWidget>

#include <cstdio>

namespace {

void say(const QString& text)
{
    std::printf("%s\n", qUtf8Printable(text));
    std::fflush(stdout);
}

class Partner : public QWidget
{
public:
    explicit Partner(bool isSource) : m_isSource(isSource) { setAcceptDrops(!isSource); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (std::exchange(m_painted, true))
            return;
        const QPoint middle = mapToGlobal(rect().center());
        say(QStringLiteral("shown %1 %2").arg(middle.x()).arg(middle.y()));
    }
    void mouseMoveEvent(QMouseEvent*) override
    {
        if (!m_isSource || std::exchange(m_started, true))
            return;
        auto* const drag = new QDrag(this);
        auto* const text = new QMimeData;
        text->setText(QStringLiteral("from outside"));
        drag->setMimeData(text);
        say(QStringLiteral("dragging"));
        const auto action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
        say(QStringLiteral("finished %1").arg(static_cast<int>(action)));
    }
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        event->acceptProposedAction();
        say(QStringLiteral("entered"));
    }
    void dropEvent(QDropEvent* event) override
    {
        event->setDropAction(Qt::MoveAction);
        event->accept();
        say(QStringLiteral("dropped %1").arg(event->mimeData()->text()));
    }

private:
    const bool m_isSource;
    bool m_started = false;
    bool m_painted = false;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4)
        return 2;
    Partner partner(arguments[1] == QLatin1String("source"));
    partner.setGeometry(arguments[2].toInt(), arguments[3].toInt(), 200, 150);
    partner.setAttribute(Qt::WA_ShowWithoutActivating);
    partner.show();
    return QApplication::exec();
}
