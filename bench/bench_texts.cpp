// An area of a hundred thousand lines: a key in their middle, and lines that come from a worker.

#include "benchsupport.h"
#include "voxi2/controls/vxeditarea2.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace {

constexpr int LineCount = 100'000;

QString lineOf(int i)
{
    return QStringLiteral("Line number ") + QString::number(i)
           + QStringLiteral(" of a text that is not short");
}

QString wholeText()
{
    QString text;
    for (int i = 0; i < LineCount; ++i)
        text += lineOf(i) + QLatin1Char('\n');
    return text;
}

struct VoxiArea
{
    VOXI::VXEditArea2 m_area;

    QWidget* widget() const { return bench::widgetOf(&m_area); }
    void fill()
    {
        m_area.setText(wholeText().toStdWString());
        m_area.setCursorPlace({LineCount / 2, 5});
    }
    int length() const { return m_area.length(); }
};

struct QtArea
{
    QPlainTextEdit m_area;

    QWidget* widget() { return &m_area; }
    void fill()
    {
        m_area.setPlainText(wholeText());
        QTextCursor cursor(m_area.document()->findBlockByNumber(LineCount / 2));
        cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, 5);
        m_area.setTextCursor(cursor);
    }
    int length() const { return m_area.document()->characterCount() - 1; }
};

/// A letter, and the key that takes it away again, each until it is painted.
template <class Area>
void typing(benchmark::State& state)
{
    Area made;
    QWidget* const widget = made.widget();
    widget->resize(800, 600);
    widget->show();
    made.fill();
    bench::settle();
    const int length = made.length();
    const auto press = [widget](int key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &event);
        QCoreApplication::processEvents();
    };
    const QString letter = QStringLiteral("a");
    bench::repeat(
        state,
        [&] {
            press(Qt::Key_A, letter);
            press(Qt::Key_Backspace, QString());
        },
        20);
    if (made.length() != length)
        state.SkipWithError("keys were lost");
}

/// Times `work` on the worker, which ends when all is there.
void timeOnWorker(benchmark::State& state, const std::function<void()>& work)
{
    QEventLoop loop;
    bench::Clock::duration time{};
    bench::Worker::instance().runInside(loop, [&] {
        const bench::Clock::time_point begin = bench::Clock::now();
        work();
        time = bench::Clock::now() - begin;
    });
    bench::settle();
    state.SetIterationTime(bench::seconds(time));
}

void appendVoxi(benchmark::State& state)
{
    std::vector<std::wstring> lines;
    for (int i = 0; i < LineCount; ++i)
        lines.push_back(lineOf(i).toStdWString());
    for ([[maybe_unused]] auto _ : state) {
        VoxiArea made;
        made.m_area.setReadOnly(true);
        made.widget()->resize(800, 600);
        made.widget()->show();
        bench::settle();
        timeOnWorker(state, [&] {
            for (const std::wstring& line : lines)
                made.m_area.append(line);
            if (made.m_area.lineCount() != LineCount)
                state.SkipWithError("lines were lost");
        });
    }
}

void appendQt(benchmark::State& state)
{
    QStringList lines;
    for (int i = 0; i < LineCount; ++i)
        lines.push_back(lineOf(i));
    for ([[maybe_unused]] auto _ : state) {
        QtArea made;
        made.m_area.setReadOnly(true);
        made.m_area.resize(800, 600);
        made.m_area.show();
        bench::settle();
        timeOnWorker(state, [&] {
            QPlainTextEdit* const area = &made.m_area;
            for (const QString& line : lines) {
                QMetaObject::invokeMethod(
                    area, [area, line] { area->appendPlainText(line); }, Qt::QueuedConnection);
            }
            int count = 0;
            QMetaObject::invokeMethod(
                area, [area, &count] { count = area->blockCount(); }, Qt::BlockingQueuedConnection);
            if (count != LineCount)
                state.SkipWithError("lines were lost");
        });
    }
}

const bool s_added = bench::addPairs({
    {"AreaTyping", typing<VoxiArea>, typing<QtArea>},
    {"AreaAppend", appendVoxi, appendQt},
});

} // namespace
