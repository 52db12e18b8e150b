// User input on its way to the application; painting is off.

#include "benchsupport.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPushButton>

#include <functional>
#include <memory>

namespace {

/// A button in a panel in a shown window, and a count of its clicks.
struct VoxiButton
{
    std::unique_ptr<VOXI::VXWindow2> m_window = std::make_unique<VOXI::VXWindow2>();
    VOXI::VXPanel2* m_page = new VOXI::VXPanel2(m_window.get());
    VOXI::VXButton2* m_button = new VOXI::VXButton2(m_page);
    long m_clicks = 0;
    long m_way = 0;

    VoxiButton()
    {
        m_window->setCentralWidget(m_page);
        m_window->setUpdatesEnabled(false);
        m_window->show();
    }
    void hearClicks()
    {
        m_button->clicked().connect(m_button, [this] { ++m_clicks; });
    }
    void trackMouse() const { m_button->setMouseTracking(true); }
    void hearMoves()
    {
        m_button->mouseMoved().connect(
            m_button, [this](const VOXI::VXMouseEvent2& event) { m_way += event.position().x; });
    }
    QWidget* widget() const { return bench::widgetOf(m_button); }
};

/// A button with a handler for what Qt has no signal for.
class MovedButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

    std::function<void(const QMouseEvent&)> m_moved;

protected:
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (m_moved)
            m_moved(*event);
        QPushButton::mouseMoveEvent(event);
    }
};

struct QtButton
{
    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();
    QWidget* m_page = new QWidget(m_window.get());
    MovedButton* m_button = new MovedButton(m_page);
    long m_clicks = 0;
    long m_way = 0;

    QtButton()
    {
        m_window->setCentralWidget(m_page);
        m_window->setUpdatesEnabled(false);
        m_window->show();
    }
    void hearClicks()
    {
        QObject::connect(m_button, &QPushButton::clicked, m_button, [this] { ++m_clicks; });
    }
    void trackMouse() const { m_button->setMouseTracking(true); }
    void hearMoves()
    {
        m_button->m_moved = [this](const QMouseEvent& event) {
            m_way += event.position().toPoint().x();
        };
    }
    QWidget* widget() const { return m_button; }
};

void sendMouse(QWidget* widget, QEvent::Type type, const QPointF& position, Qt::MouseButton button)
{
    const Qt::MouseButtons pressed =
        type == QEvent::MouseButtonPress ? Qt::MouseButtons(button) : Qt::NoButton;
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, pressed,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

template <class Button>
void clickEvent(benchmark::State& state)
{
    Button made;
    made.hearClicks();
    bench::settle();
    QWidget* widget = made.widget();
    const auto click = [widget] {
        sendMouse(widget, QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton);
        sendMouse(widget, QEvent::MouseButtonRelease, {5, 5}, Qt::LeftButton);
    };
    bench::repeat(state, click, bench::ShortJobs);
    if (made.m_clicks != static_cast<long>(state.iterations()))
        state.SkipWithError("clicks were lost");
}

template <class Button, bool IsHeard>
void mouseMove(benchmark::State& state)
{
    Button made;
    made.trackMouse();
    if (IsHeard)
        made.hearMoves();
    bench::settle();
    QWidget* widget = made.widget();
    int i = 0;
    const auto move = [widget, &i] {
        sendMouse(widget, QEvent::MouseMove, QPointF(5 + ++i % 8, 5), Qt::NoButton);
        if (IsHeard) // The toolkit tells it from the event loop, if there is no newer one by then.
            QCoreApplication::processEvents();
    };
    bench::repeat(state, move, bench::ShortJobs);
    if (IsHeard && made.m_way < 5 * static_cast<long>(state.iterations()))
        state.SkipWithError("moves were lost");
}

const bool s_added = bench::addPairs({
    {"ClickEvent", clickEvent<VoxiButton>, clickEvent<QtButton>},
    {"MouseMoveUnheard", mouseMove<VoxiButton, false>, mouseMove<QtButton, false>},
    {"MouseMoveHeard", mouseMove<VoxiButton, true>, mouseMove<QtButton, true>},
});

} // namespace
