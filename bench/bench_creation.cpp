// The life of many buttons, time and memory.

#include "benchsupport.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QBoxLayout>
#include <QMainWindow>
#include <QPushButton>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::int64_t Count = 10'000;
constexpr std::int64_t PerPanel = 100;

const std::string s_toolTip = "Writes all that was changed";

/// A window of panels, each with a row of so many buttons, as an application writes it.
struct VoxiWindow
{
    using Panel = VOXI::VXPanel2;

    std::unique_ptr<VOXI::VXWindow2> m_window = std::make_unique<VOXI::VXWindow2>();
    Panel* m_page = new Panel(m_window.get());
    VOXI::VXBoxLayout2* m_column = new VOXI::VXBoxLayout2(m_page, VOXI::Direction::TopToBottom);

    VoxiWindow() { m_window->setCentralWidget(m_page); }

    void addPanel(std::int64_t buttons)
    {
        auto* panel = new Panel(m_page);
        auto* row = new VOXI::VXBoxLayout2(panel, VOXI::Direction::LeftToRight);
        m_column->addWidget(panel);
        for (std::int64_t i = 0; i < buttons; ++i) {
            auto* button = new VOXI::VXButton2(panel);
            button->setLabel(bench::labelText(i % 2));
            button->setToolTip(s_toolTip);
            button->setEnabled(i % 4 != 0);
            row->addWidget(button);
        }
    }

    void setPainted(bool on) { m_window->setUpdatesEnabled(on); }
    void show() { m_window->show(); }
    static Panel* makePanel() { return new Panel; }
    static void construct(Panel* panel) { new VOXI::VXButton2(panel); }
};

/// Of which each button is listened to.
struct HeardVoxiWindow : VoxiWindow
{
    static void construct(Panel* panel)
    {
        auto* button = new VOXI::VXButton2(panel);
        button->clicked().connect(button, [] {});
        button->toggled().connect(button, [] {});
    }
};

/// The same with plain Qt.
struct QtWindow
{
    using Panel = QWidget;

    std::unique_ptr<QMainWindow> m_window = std::make_unique<QMainWindow>();
    Panel* m_page = new Panel(m_window.get());
    QBoxLayout* m_column = new QBoxLayout(QBoxLayout::TopToBottom, m_page);

    QtWindow() { m_window->setCentralWidget(m_page); }

    void addPanel(std::int64_t buttons)
    {
        auto* panel = new Panel(m_page);
        auto* row = new QBoxLayout(QBoxLayout::LeftToRight, panel);
        m_column->addWidget(panel);
        for (std::int64_t i = 0; i < buttons; ++i) {
            auto* button = new QPushButton(panel);
            button->setText(QString::fromStdString(bench::labelText(i % 2)));
            button->setToolTip(QString::fromStdString(s_toolTip));
            button->setEnabled(i % 4 != 0);
            row->addWidget(button);
        }
    }

    void setPainted(bool on) { m_window->setUpdatesEnabled(on); }
    void show() { m_window->show(); }
    static Panel* makePanel() { return new Panel; }
    static void construct(Panel* panel) { new QPushButton(panel); }
};

struct HeardQtWindow : QtWindow
{
    static void construct(Panel* panel)
    {
        auto* button = new QPushButton(panel);
        QObject::connect(button, &QPushButton::clicked, button, [] {});
        QObject::connect(button, &QPushButton::toggled, button, [](bool) {});
    }
};

/// As an application makes them: configured, laid out and shown.
template <class Window>
std::unique_ptr<Window> makeWindow(bool isPainted, std::int64_t buttons = Count)
{
    auto window = std::make_unique<Window>();
    window->setPainted(isPainted);
    for (std::int64_t made = 0; made < buttons; made += PerPanel)
        window->addPanel(std::min(PerPanel, buttons));
    window->show();
    bench::settle();
    return window;
}

/// Their whole life, painting included.
template <class Window>
void createButtons(benchmark::State& state)
{
    bench::repeat(state, [] {
        makeWindow<Window>(true);
        bench::settle();
    });
}

/// Until they are on the screen. What is painted is not counted as the widgets' memory.
template <class Window>
void showButtons(benchmark::State& state)
{
    makeWindow<Window>(false, 1);
    while (state.KeepRunningBatch(Count)) {
        const bench::HeapGrowth growth;
        std::unique_ptr<Window> window;
        bench::measure(state, [&] { window = makeWindow<Window>(false); });
        growth.report(state, Count);
        window.reset();
        bench::settle();
    }
}

/// Construction alone, hidden, 100 to a panel.
template <class Window>
void constructButtons(benchmark::State& state)
{
    const std::unique_ptr<typename Window::Panel> first(Window::makePanel());
    Window::construct(first.get());
    while (state.KeepRunningBatch(Count)) {
        std::vector<std::unique_ptr<typename Window::Panel>> panels;
        for (std::int64_t made = 0; made < Count; made += PerPanel)
            panels.emplace_back(Window::makePanel());
        const bench::HeapGrowth growth;
        bench::measure(state, [&] {
            for (const auto& panel : panels) {
                for (std::int64_t i = 0; i < PerPanel; ++i)
                    Window::construct(panel.get());
            }
        });
        bench::settle();
        growth.report(state, Count);
        panels.clear();
        bench::settle();
    }
}

/// Destruction alone, of one window with all of them side by side.
template <class Window>
void destroyButtons(benchmark::State& state)
{
    const std::unique_ptr<typename Window::Panel> first(Window::makePanel());
    Window::construct(first.get());
    while (state.KeepRunningBatch(Count)) {
        const bench::HeapGrowth growth;
        std::unique_ptr<typename Window::Panel> panel(Window::makePanel());
        for (std::int64_t i = 0; i < Count; ++i)
            Window::construct(panel.get());
        bench::settle();
        bench::measure(state, [&] {
            panel.reset();
            bench::settle();
        });
        growth.report(state, Count);
    }
}

const bool s_added = bench::addPairs({
    {"CreateButtons/100", createButtons<VoxiWindow>, createButtons<QtWindow>},
    {"ShownButton", showButtons<VoxiWindow>, showButtons<QtWindow>},
    {"ConstructBare", constructButtons<VoxiWindow>, constructButtons<QtWindow>},
    {"ConstructHeardButtons", constructButtons<HeardVoxiWindow>, constructButtons<HeardQtWindow>},
    {"DestroyButtons", destroyButtons<VoxiWindow>, destroyButtons<QtWindow>},
});

} // namespace
