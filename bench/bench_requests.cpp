// Requests of abstract objects on the GUI thread beside the plain setters behind them.

#include "benchsupport.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QPushButton>
#include <QWidget>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

struct VoxiButton
{
    std::unique_ptr<VOXI::VXPanel2> m_panel = std::make_unique<VOXI::VXPanel2>();
    VOXI::VXButton2* m_button = new VOXI::VXButton2(m_panel.get());
    QPushButton* m_qButton = dynamic_cast<QPushButton*>(bench::widgetOf(m_button));
};

struct QtButton
{
    std::unique_ptr<QWidget> m_panel = std::make_unique<QWidget>();
    QPushButton* m_button = new QPushButton(m_panel.get());
};

void setEnabledVoxi(benchmark::State& state)
{
    const VoxiButton made;
    bool on = true;
    for (auto _ : state) {
        on = !on;
        made.m_button->setEnabled(on);
    }
    if (made.m_qButton->isEnabled() != on)
        state.SkipWithError("the last request did not arrive");
}
BENCHMARK(setEnabledVoxi)->Name("SetEnabled/voxi");

void setEnabledQt(benchmark::State& state)
{
    const QtButton made;
    bool on = true;
    for (auto _ : state) {
        on = !on;
        made.m_button->setEnabled(on);
    }
}
BENCHMARK(setEnabledQt)->Name("SetEnabled/qt");

void setLabelVoxi(benchmark::State& state)
{
    const VoxiButton made;
    bool second = false;
    for (auto _ : state) {
        second = !second;
        made.m_button->setLabel(bench::labelText(second));
    }
    if (made.m_qButton->text() != QString::fromStdString(bench::labelText(second)))
        state.SkipWithError("the last request did not arrive");
}
BENCHMARK(setLabelVoxi)->Name("SetLabel/voxi");

void setLabelQt(benchmark::State& state)
{
    const QtButton made;
    bool second = false;
    for (auto _ : state) {
        second = !second;
        const std::string& text = bench::labelText(second);
        made.m_button->setText(
            QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
    }
}
BENCHMARK(setLabelQt)->Name("SetLabel/qt");

} // namespace
