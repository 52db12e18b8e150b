// The life of many buttons, time and memory.

#include "benchsupport.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QBoxLayout>
#include <QMainWindow>
#include <QPushButton>

#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>
#include <string>

namespace {

constexpr std::int64_t Buttons = 10'000;

const std::string s_toolTip = "Writes all that was changed";

QString latin1(const std::string& text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

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
            button->setText(latin1(bench::labelText(i % 2)));
            button->setToolTip(latin1(s_toolTip));
            button->setEnabled(i % 4 != 0);
            row->addWidget(button);
        }
    }

    void setPainted(bool on) { m_window->setUpdatesEnabled(on); }
    void show() { m_window->show(); }
    static Panel* makePanel() { return new Panel; }

    /// A button that behaves as the toolkit's does, and whose user hears of the same.
    static void construct(Panel* panel)
    {
        auto* button = new QPushButton(panel);
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setBackgroundRole(QPalette::Button);
        button->setForegroundRole(QPalette::ButtonText);
        QObject::connect(button, &QPushButton::clicked, button, [] {});
        QObject::connect(button, &QPushButton::toggled, button, [](bool) {});
    }
};

/// Less than what the toolkit's buttons are.
struct BareQtWindow : QtWindow
{
    static void construct(Panel* panel) { new QPushButton(panel); }
};

template <class Window>
std::unique_ptr<Window> makeWindow(std::int64_t perPanel, bool isPainted)
{
    auto window = std::make_unique<Window>();
    window->setPainted(isPainted);
    for (std::int64_t made = 0; made < Buttons; made += perPanel)
        window->addPanel(perPanel);
    window->show();
    bench::settle();
    return window;
}

/// Create, configure, lay out, show, destroy; ARG buttons to a panel. What is painted is not
/// counted as the widgets' memory.
template <class Window, bool IsPainted>
void createButtons(benchmark::State& state)
{
    const std::int64_t perPanel = state.range(0);
    bench::settle(); // other benches may have left deletions behind
    const std::size_t before = bench::heapInUse();
    auto window = makeWindow<Window>(perPanel, IsPainted);
    if (!IsPainted) {
        state.counters["bytes_per_widget"] =
            static_cast<double>(bench::heapInUse() - before) / Buttons;
    }
    window.reset();
    bench::settle();
    for (auto _ : state) {
        window = makeWindow<Window>(perPanel, IsPainted);
        window.reset();
        bench::settle();
    }
}

void siblings(benchmark::internal::Benchmark* bench)
{
    bench->Arg(100)->Arg(1'000)->Unit(benchmark::kMillisecond);
}
BENCHMARK(createButtons<VoxiWindow, true>)->Name("CreateButtons/voxi")->Apply(siblings);
BENCHMARK(createButtons<QtWindow, true>)->Name("CreateButtons/qt")->Apply(siblings);
BENCHMARK(createButtons<VoxiWindow, false>)->Name("CreateUnpaintedButtons/voxi")->Apply(siblings);
BENCHMARK(createButtons<QtWindow, false>)->Name("CreateUnpaintedButtons/qt")->Apply(siblings);

/// Construction alone, hidden, 100 to a panel; time per button.
template <class Window>
void constructButtons(benchmark::State& state)
{
    constexpr std::int64_t perPanel = 100;
    double bytes = 0;
    while (state.KeepRunningBatch(Buttons)) {
        std::vector<std::unique_ptr<typename Window::Panel>> panels;
        for (std::int64_t made = 0; made < Buttons; made += perPanel)
            panels.emplace_back(Window::makePanel());
        const std::size_t before = bench::heapInUse();
        const auto begin = bench::Clock::now();
        for (const auto& panel : panels) {
            for (std::int64_t i = 0; i < perPanel; ++i)
                Window::construct(panel.get());
        }
        state.SetIterationTime(bench::seconds(bench::Clock::now() - begin));
        bench::settle();
        bytes = static_cast<double>(bench::heapInUse() - before) / Buttons;
        panels.clear();
        bench::settle();
    }
    state.counters["bytes_per_widget"] = bytes;
}
BENCHMARK(constructButtons<VoxiWindow>)->Name("ConstructButtons/voxi")->UseManualTime();
BENCHMARK(constructButtons<QtWindow>)->Name("ConstructButtons/qt")->UseManualTime();
BENCHMARK(constructButtons<VoxiWindow>)->Name("ConstructButtonsBare/voxi")->UseManualTime();
BENCHMARK(constructButtons<BareQtWindow>)->Name("ConstructButtonsBare/qt")->UseManualTime();

/// Destruction alone of one window with ARG buttons side by side; time per button.
template <class Window>
void destroyButtons(benchmark::State& state)
{
    const std::int64_t buttons = state.range(0);
    while (state.KeepRunningBatch(buttons)) {
        std::unique_ptr<typename Window::Panel> panel(Window::makePanel());
        for (std::int64_t i = 0; i < buttons; ++i)
            Window::construct(panel.get());
        bench::settle();
        const auto begin = bench::Clock::now();
        panel.reset();
        bench::settle();
        state.SetIterationTime(bench::seconds(bench::Clock::now() - begin));
    }
}
BENCHMARK(destroyButtons<VoxiWindow>)
    ->Name("DestroyButtons/voxi")
    ->Arg(1'000)
    ->Arg(Buttons)
    ->UseManualTime();
BENCHMARK(destroyButtons<QtWindow>)
    ->Name("DestroyButtons/qt")
    ->Arg(1'000)
    ->Arg(Buttons)
    ->UseManualTime();

} // namespace
