// Laying out forms and flows of widgets that exist already.

#include "benchsupport.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxtext2.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int FormRows = 1'000;
constexpr int Forms = 10;
constexpr int FlowItems = 10'000;
constexpr int FlowHeight = 600;
constexpr int FlowWidths[] = {800, 1'000};
constexpr int Spacing = 4;

std::string rowText(int row) { return "Row " + std::to_string(row); }

// Forms -------------------------------------------------------------------------------------------

/// Three columns of widgets on a panel, which a grid lays out.
struct VoxiForm
{
    std::unique_ptr<VOXI::VXPanel2> m_panel = std::make_unique<VOXI::VXPanel2>();
    VOXI::VXGridLayout2* m_grid = new VOXI::VXGridLayout2(m_panel.get());
    std::vector<std::array<VOXI::VXWidget2*, 3>> m_rows;

    VoxiForm() { m_panel->setUpdatesEnabled(false); }

    void makeRow()
    {
        const std::string label = rowText(static_cast<int>(m_rows.size()));
        auto* text = new VOXI::VXText2(m_panel.get());
        auto* box = new VOXI::VXCheckBox2(m_panel.get());
        auto* button = new VOXI::VXButton2(m_panel.get());
        text->setText(label);
        box->setLabel(label);
        button->setLabel(label);
        m_rows.push_back({text, box, button});
    }
    void placeRow(int row)
    {
        int column = 0;
        for (VOXI::VXWidget2* widget : m_rows[static_cast<std::size_t>(row)])
            m_grid->addWidget(widget, row, column++);
    }
    void layOut() { m_grid->refresh(); }
    void show() { m_panel->show(); }
    void change(bool second)
    {
        static_cast<VOXI::VXButton2*>(m_rows[0][2])->setLabel(bench::labelText(second));
        m_grid->refresh();
    }
    QRect lastCell() const { return bench::widgetOf(m_rows.back()[2])->geometry(); }
};

/// The same with plain Qt.
struct QtForm
{
    std::unique_ptr<QWidget> m_panel = std::make_unique<QWidget>();
    QGridLayout* m_grid = new QGridLayout(m_panel.get());
    std::vector<std::array<QWidget*, 3>> m_rows;

    QtForm() { m_panel->setUpdatesEnabled(false); }

    void makeRow()
    {
        const QString label = QString::fromStdString(rowText(static_cast<int>(m_rows.size())));
        auto* text = new QLabel(m_panel.get());
        auto* box = new QCheckBox(m_panel.get());
        auto* button = new QPushButton(m_panel.get());
        text->setText(label);
        box->setText(label);
        button->setText(label);
        m_rows.push_back({text, box, button});
    }
    void placeRow(int row)
    {
        int column = 0;
        for (QWidget* widget : m_rows[static_cast<std::size_t>(row)])
            m_grid->addWidget(widget, row, column++);
    }
    void layOut() { m_grid->activate(); }
    void show() { m_panel->show(); }
    void change(bool second)
    {
        static_cast<QPushButton*>(m_rows[0][2])
            ->setText(QString::fromStdString(bench::labelText(second)));
        m_grid->activate();
    }
    QRect lastCell() const { return m_rows.back()[2]->geometry(); }
};

void check(benchmark::State& state, const QRect& lastCell)
{
    if (lastCell.top() < FormRows * 10)
        state.SkipWithError("the form is not laid out");
}

/// What the layout costs while a program makes a form row by row: adding, and laying all out.
template <class Form>
void layOutForm(benchmark::State& state)
{
    for (auto _ : state) {
        Form form;
        bench::Clock::duration time{};
        for (int row = 0; row < FormRows; ++row) {
            form.makeRow();
            const auto begin = bench::Clock::now();
            form.placeRow(row);
            time += bench::Clock::now() - begin;
        }
        const auto begin = bench::Clock::now();
        form.layOut();
        state.SetIterationTime(bench::seconds(time + (bench::Clock::now() - begin)));
        check(state, form.lastCell());
    }
}
BENCHMARK(layOutForm<VoxiForm>)
    ->Name("FormLayout/voxi")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(layOutForm<QtForm>)
    ->Name("FormLayout/qt")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// The same, all at once, for widgets that were made and shown long ago.
template <class Form>
void layOutShownForm(benchmark::State& state)
{
    // None goes before the end: it is not the heap in pieces that is to be measured.
    std::vector<std::unique_ptr<Form>> forms;
    for (auto _ : state) {
        forms.push_back(std::make_unique<Form>());
        Form& form = *forms.back();
        for (int row = 0; row < FormRows; ++row)
            form.makeRow();
        form.show();
        bench::settle();
        const auto begin = bench::Clock::now();
        for (int row = 0; row < FormRows; ++row)
            form.placeRow(row);
        form.layOut();
        bench::settle();
        state.SetIterationTime(bench::seconds(bench::Clock::now() - begin));
        check(state, form.lastCell());
    }
}
BENCHMARK(layOutShownForm<VoxiForm>)
    ->Name("FormLayoutShown/voxi")
    ->UseManualTime()
    ->Iterations(Forms)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(layOutShownForm<QtForm>)
    ->Name("FormLayoutShown/qt")
    ->UseManualTime()
    ->Iterations(Forms)
    ->Unit(benchmark::kMillisecond);

/// Its whole life: the widgets made, laid out, shown and destroyed.
template <class Form>
void createForm(benchmark::State& state)
{
    for (auto _ : state) {
        {
            Form form;
            for (int row = 0; row < FormRows; ++row) {
                form.makeRow();
                form.placeRow(row);
            }
            form.show();
            bench::settle();
            check(state, form.lastCell());
        }
        bench::settle();
    }
}
BENCHMARK(createForm<VoxiForm>)->Name("FormCreate/voxi")->Unit(benchmark::kMillisecond);
BENCHMARK(createForm<QtForm>)->Name("FormCreate/qt")->Unit(benchmark::kMillisecond);

/// One label changes, and the shown form makes room for it.
template <class Form>
void changeForm(benchmark::State& state)
{
    Form form;
    for (int row = 0; row < FormRows; ++row) {
        form.makeRow();
        form.placeRow(row);
    }
    form.show();
    bench::settle();
    bool second = false;
    for (auto _ : state) {
        second = !second;
        form.change(second);
        bench::settle();
    }
}
BENCHMARK(changeForm<VoxiForm>)->Name("FormChange/voxi")->Unit(benchmark::kMicrosecond);
BENCHMARK(changeForm<QtForm>)->Name("FormChange/qt")->Unit(benchmark::kMicrosecond);

// Flows -------------------------------------------------------------------------------------------

/// A flow as one writes it with plain Qt, by the toolkit's rules.
class QtFlow : public QLayout
{
public:
    using QLayout::QLayout;
    ~QtFlow() override { qDeleteAll(m_items); }

    void addItem(QLayoutItem* item) override { m_items.append(item); }
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override { return m_items.value(index); }
    QLayoutItem* takeAt(int index) override
    {
        return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
    }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override
    {
        return pass(QRect(0, 0, width, 0), true).height();
    }
    QSize sizeHint() const override { return m_size; }
    QSize minimumSize() const override { return m_size; }
    void setGeometry(const QRect& rect) override
    {
        QLayout::setGeometry(rect);
        m_size = pass(rect, false);
    }

private:
    QSize pass(const QRect& rect, bool testOnly) const
    {
        int x = rect.left();
        int y = rect.top();
        int lineHeight = 0;
        int width = 0;
        int usedWidth = 0;
        QSize largest(0, 0);
        for (QLayoutItem* item : m_items) {
            const QSize hint = item->sizeHint();
            int nextX = x + hint.width() + spacing();
            if (nextX - spacing() > rect.right() && lineHeight > 0) {
                x = rect.left();
                y += lineHeight + spacing();
                nextX = x + hint.width() + spacing();
                lineHeight = 0;
                usedWidth = rect.right() - rect.left();
            }
            if (!testOnly)
                item->setGeometry(QRect(QPoint(x, y), hint));
            width = std::max(x - rect.left(), usedWidth);
            largest = largest.expandedTo(hint);
            x = nextX;
            lineHeight = std::max(lineHeight, hint.height());
        }
        return {std::max(width, largest.width()), y + lineHeight - rect.top()};
    }

    QList<QLayoutItem*> m_items;
    QSize m_size{-1, -1};
};

/// The inside of a shown panel: what flows in it.
struct VoxiFlow
{
    std::unique_ptr<VOXI::VXPanel2> m_panel = std::make_unique<VOXI::VXPanel2>();

    VoxiFlow()
    {
        auto* inside = new VOXI::VXPanel2(m_panel.get());
        inside->setUpdatesEnabled(false);
        auto* flow = new VOXI::VXFlowLayout2(inside);
        flow->setSpacing(Spacing);
        for (int i = 0; i < FlowItems; ++i) {
            auto* text = new VOXI::VXText2(inside);
            text->setText(rowText(i));
            flow->addWidget(text);
        }
        m_inside = inside;
    }
    void resize(int width) { m_inside->resize({width, FlowHeight}); }
    QWidget* inside() const { return bench::widgetOf(m_inside); }
    void show() { m_panel->show(); }

    VOXI::VXPanel2* m_inside = nullptr;
};

/// The same with plain Qt.
struct PlainQtFlow
{
    std::unique_ptr<QWidget> m_panel = std::make_unique<QWidget>();
    QWidget* m_inside = new QWidget(m_panel.get());

    PlainQtFlow()
    {
        m_inside->setUpdatesEnabled(false);
        auto* flow = new QtFlow(m_inside);
        flow->setSpacing(Spacing);
        for (int i = 0; i < FlowItems; ++i)
            flow->addWidget(new QLabel(QString::fromStdString(rowText(i)), m_inside));
    }
    void resize(int width) { m_inside->resize(width, FlowHeight); }
    QWidget* inside() const { return m_inside; }
    void show() { m_panel->show(); }
};

/// Between two widths, so that all the lines break anew.
template <class Flow>
void resizeFlow(benchmark::State& state)
{
    Flow flow;
    flow.show();
    bench::settle();
    const auto lastTop = [&flow] {
        return flow.inside()->layout()->itemAt(FlowItems - 1)->geometry().top();
    };
    bool wide = false;
    int former = -1;
    for (auto _ : state) {
        wide = !wide;
        flow.resize(FlowWidths[wide ? 1 : 0]);
        bench::settle();
        const int top = lastTop();
        if (top == former)
            state.SkipWithError("the flow was not laid out anew");
        former = top;
    }
}
BENCHMARK(resizeFlow<VoxiFlow>)->Name("FlowResize/voxi")->Unit(benchmark::kMillisecond);
BENCHMARK(resizeFlow<PlainQtFlow>)->Name("FlowResize/qt")->Unit(benchmark::kMillisecond);

} // namespace
