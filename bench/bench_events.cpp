// User input on its way to the application; painting is off.

#include "benchsupport.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPushButton>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

/// A button in a panel in a shown window, and a count of its clicks.
struct VoxiButton
{
    std::unique_ptr<VOXI::VXWindow2> m_window = std::make_unique<VOXI::VXWindow2>();
    VOXI::VXPanel2* m_page = new VOXI::VXPanel2(m_window.get());
    VOXI::VXButton2* m_button = new VOXI::VXButton2(m_page);
    long m_clicks = 0;

    VoxiButton()
    {
        m_window->setCentralWidget(m_page);
        m_window->setUpdatesEnabled(false);
        m_window->show();
    }
    void listen()
    {
        m_button->clicked().connect(m_button,
                                    [this](const VOXI::VXButtonClickEvent2&) { ++m_clicks; });
    }
    QWidget* widget() const { return bench::widgetOf(m_button); }
};

struct QtButton
{
    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();
    QWidget* m_page = new QWidget(m_window.get());
    QPushButton* m_button = new QPushButton(m_page);
    long m_clicks = 0;

    QtButton()
    {
        m_window->setCentralWidget(m_page);
        m_window->setUpdatesEnabled(false);
        m_window->show();
    }
    void listen()
    {
        QObject::connect(m_button, &QPushButton::clicked, m_button, [this] { ++m_clicks; });
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
    made.listen();
    bench::settle();
    QWidget* widget = made.widget();
    for (auto _ : state) {
        sendMouse(widget, QEvent::MouseButtonPress, {5, 5}, Qt::LeftButton);
        sendMouse(widget, QEvent::MouseButtonRelease, {5, 5}, Qt::LeftButton);
    }
    if (made.m_clicks != static_cast<long>(state.iterations()))
        state.SkipWithError("clicks were lost");
}
BENCHMARK(clickEvent<VoxiButton>)->Name("ClickEvent/voxi");
BENCHMARK(clickEvent<QtButton>)->Name("ClickEvent/qt");

template <class Button>
void mouseMoveUnheard(benchmark::State& state)
{
    const Button made;
    bench::settle();
    QWidget* widget = made.widget();
    int i = 0;
    for (auto _ : state)
        sendMouse(widget, QEvent::MouseMove, QPointF(5 + ++i % 8, 5), Qt::NoButton);
}
BENCHMARK(mouseMoveUnheard<VoxiButton>)->Name("MouseMoveUnheard/voxi");
BENCHMARK(mouseMoveUnheard<QtButton>)->Name("MouseMoveUnheard/qt");

} // namespace
