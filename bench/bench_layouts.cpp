// Laying out forms, boxes and flows of widgets that exist already.

#include "benchsupport.h"
#include "qtform.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxiform.h"

#include <QBoxLayout>
#include <QLayout>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int FormRows = 1'000;
constexpr int Forms = 10;
constexpr int BoxItems = 10'000;
constexpr int FlowItems = 10'000;
constexpr int FlowHeight = 600;
constexpr int FlowWidths[] = {800, 1'000};
constexpr int Spacing = 4;

std::string rowText(int row) { return "Row " + std::to_string(row); }

// Forms -------------------------------------------------------------------------------------------

template <class Form>
void check(benchmark::State& state, const Form& form)
{
    if (bench::widgetOf(form.m_rows.back()[2])->y() < FormRows * 10)
        state.SkipWithError("the form is not laid out");
}

/// What the layout costs while a program makes a form row by row: adding, and laying all out.
template <class Form>
void layOutForm(benchmark::State& state)
{
    for (auto _ : state) {
        Form form;
        for (int row = 0; row < FormRows; ++row) {
            form.makeRow();
            bench::measure(state, [&] { form.placeRow(row); });
        }
        bench::measure(state, [&] { form.layOut(); });
        check(state, form);
    }
}

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
        form.showUnpainted();
        bench::settle();
        bench::measure(state, [&] {
            for (int row = 0; row < FormRows; ++row)
                form.placeRow(row);
            form.layOut();
            bench::settle();
        });
        check(state, form);
    }
}

/// Its whole life: the widgets made, laid out, shown and destroyed.
template <class Form>
void createForm(benchmark::State& state)
{
    bench::repeat(state, [&state] {
        {
            Form form;
            form.addRows(FormRows);
            form.showUnpainted();
            bench::settle();
            check(state, form);
        }
        bench::settle();
    });
}

/// One label changes, and the shown form makes room for it.
template <class Form>
void changeForm(benchmark::State& state)
{
    Form form;
    form.addRows(FormRows);
    form.showUnpainted();
    bench::settle();
    bool second = false;
    bench::repeat(state, [&] {
        form.change(second = !second);
        bench::settle();
    });
}

// Boxes -------------------------------------------------------------------------------------------

struct VoxiBox
{
    std::unique_ptr<VOXI::VXPanel2> m_panel = std::make_unique<VOXI::VXPanel2>();
    VOXI::VXBoxLayout2* m_box = new VOXI::VXBoxLayout2(m_panel.get(), VOXI::Direction::TopToBottom);

    void add(int i) const { m_box->addWidget(new VOXI::VXText2(rowText(i), m_panel.get()), 1); }
};

struct QtBox
{
    std::unique_ptr<QWidget> m_panel = std::make_unique<QWidget>();
    QBoxLayout* m_box = new QBoxLayout(QBoxLayout::TopToBottom, m_panel.get());

    void add(int i) const
    {
        m_box->addWidget(new QLabel(QString::fromStdString(rowText(i)), m_panel.get()), 1);
    }
};

/// Texts are made and added with stretch, one by one.
template <class Box>
void fillBox(benchmark::State& state)
{
    while (state.KeepRunningBatch(BoxItems)) {
        const Box box;
        bench::measure(state, [&box] {
            for (int i = 0; i < BoxItems; ++i)
                box.add(i);
        });
        if (bench::widgetOf(box.m_panel.get())->layout()->count() != BoxItems)
            state.SkipWithError("the box is not full");
    }
}

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
    bool wide = false;
    int former = -1;
    bench::repeat(state, [&] {
        wide = !wide;
        flow.resize(FlowWidths[wide ? 1 : 0]);
        bench::settle();
        const int top = flow.inside()->layout()->itemAt(FlowItems - 1)->geometry().top();
        if (top == former)
            state.SkipWithError("the flow was not laid out anew");
        former = top;
    });
}

const bool s_added = bench::addPairs({
    {"FormLayout", layOutForm<bench::VoxiForm>, layOutForm<bench::QtForm>},
    {"FormLayoutShown", layOutShownForm<bench::VoxiForm>, layOutShownForm<bench::QtForm>, Forms},
    {"FormCreate", createForm<bench::VoxiForm>, createForm<bench::QtForm>},
    {"FormChange", changeForm<bench::VoxiForm>, changeForm<bench::QtForm>},
    {"BoxStretch", fillBox<VoxiBox>, fillBox<QtBox>},
    {"FlowResize", resizeFlow<VoxiFlow>, resizeFlow<PlainQtFlow>},
});

} // namespace
