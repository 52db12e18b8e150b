// Requests of abstract objects on the GUI thread beside the plain setters behind them.

#include "benchsupport.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QPushButton>
#include <QWidget>

#include <memory>

namespace {

struct VoxiButton
{
    std::unique_ptr<VOXI::VXPanel2> m_panel = std::make_unique<VOXI::VXPanel2>();
    VOXI::VXButton2* m_button = new VOXI::VXButton2(m_panel.get());
    QPushButton* m_qButton = dynamic_cast<QPushButton*>(bench::widgetOf(m_button));

    void setEnabled(bool on) const { m_button->setEnabled(on); }
    void setLabel(bool second) const { m_button->setLabel(bench::labelText(second)); }
};

struct QtButton
{
    std::unique_ptr<QWidget> m_panel = std::make_unique<QWidget>();
    QPushButton* m_qButton = new QPushButton(m_panel.get());

    void setEnabled(bool on) const { m_qButton->setEnabled(on); }
    void setLabel(bool second) const { m_qButton->setText(bench::qtLabelText(second)); }
};

/// Of a program that has its texts as the toolkit's has.
struct ConvertingQtButton : QtButton
{
    void setLabel(bool second) const
    {
        m_qButton->setText(QString::fromStdString(bench::labelText(second)));
    }
};

template <class Button>
void setEnabled(benchmark::State& state)
{
    const Button made;
    bool on = true;
    const auto job = [&] { made.setEnabled(on = !on); };
    bench::repeat(state, job, bench::ShortJobs);
    if (made.m_qButton->isEnabled() != on)
        state.SkipWithError("the last request did not arrive");
}

template <class Button>
void setLabel(benchmark::State& state)
{
    const Button made;
    bool second = false;
    const auto job = [&] { made.setLabel(second = !second); };
    bench::repeat(state, job, bench::ShortJobs);
    if (made.m_qButton->text() != bench::qtLabelText(second))
        state.SkipWithError("the last request did not arrive");
}

const bool s_added = bench::addPairs({
    {"SetEnabled", setEnabled<VoxiButton>, setEnabled<QtButton>},
    {"SetLabel", setLabel<VoxiButton>, setLabel<QtButton>},
    {"SetLabelStd", setLabel<VoxiButton>, setLabel<ConvertingQtButton>},
});

} // namespace
