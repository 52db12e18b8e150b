// 100 groups of 100 rows in an explorer bar, beside a QTreeView with a model made for it.

#include "viewnodes.h"
#include "viewrows.h"
#include "viewsettle.h"
#include "voxi2/modelview/vxexplorerbarview2.h"

#include <QTreeView>

#include <memory>

namespace {

using VOXI::SizeChange2;

constexpr unsigned Groups = 100;
constexpr unsigned Rows = 100;

class VoxiGroups : public VOXI::VXAbstractViewModel2
{
public:
    VoxiGroups()
    {
        changeSize(SizeChange2::appendColumns({1}));
        changeSize(SizeChange2::appendRows(bench::numbers(1, Groups)));
        for (unsigned group = 1; group <= Groups; ++group)
            changeSize(SizeChange2::appendRows(
                bench::numbers(Groups + 1 + (group - 1) * Rows, Rows), group));
    }
    ~VoxiGroups() override { retire(); }

    void query(const VOXI::ViewQuery2& query) override
    {
        VOXI::QueryResult2 result;
        result.reserve(query.rows().size());
        for (const unsigned row : query.rows())
            result.set(row, 1, bench::textAt<std::wstring>(row, 1));
        answer(query, std::move(result));
    }
};

struct VoxiBar
{
    VoxiGroups m_model;
    std::unique_ptr<VOXI::VXExplorerBarView2> m_view = std::make_unique<VOXI::VXExplorerBarView2>();
    QAbstractItemView& m_qView = dynamic_cast<QAbstractItemView&>(*bench::widgetOf(m_view.get()));

    VoxiBar() { m_view->setViewModel(&m_model); }
};

struct QtTree
{
    bench::QtNodes m_model{Groups, Rows, 1};
    QTreeView m_qView;

    QtTree()
    {
        m_qView.setUniformRowHeights(true);
        m_qView.setModel(&m_model);
        m_qView.expandAll();
    }
};

/// Until all is filled and painted.
template <class Side>
void fill(benchmark::State& state)
{
    const auto show = [] {
        auto side = std::make_unique<Side>();
        side->m_qView.resize(bench::ViewWidth / 4, bench::ViewHeight);
        side->m_qView.show();
        bench::settleFilled(side->m_qView);
        return side;
    };
    show(); // what is loaded and made once
    for (auto _ : state) {
        std::unique_ptr<Side> side;
        bench::measure(state, [&] { side = show(); });
        side.reset();
        bench::settle();
    }
}

const bool s_added = bench::addPairs({
    {"ExplorerFill", fill<VoxiBar>, fill<QtTree>},
});

} // namespace
