// A branch of 100 000 rows, beside a QTreeView with a model made for it.

#include "viewnodes.h"
#include "viewrows.h"
#include "viewsettle.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <QTreeView>

#include <memory>

namespace {

using VOXI::SizeChange2;

constexpr unsigned Children = 100'000;

struct VoxiTree
{
    bench::VoxiRows m_model{1};
    std::unique_ptr<VOXI::VXTreeView2> m_view = std::make_unique<VOXI::VXTreeView2>();
    QTreeView& m_qView = dynamic_cast<QTreeView&>(*bench::widgetOf(m_view.get()));

    VoxiTree()
    {
        m_model.changeSize(SizeChange2::appendRows(bench::numbers(2, Children), 1));
        m_view->setViewModel(&m_model);
        m_view->resize({bench::ViewWidth, bench::ViewHeight});
        m_view->show();
    }
};

struct QtTree
{
    bench::QtNodes m_model{1, Children, static_cast<int>(bench::Columns)};
    QTreeView m_qView;

    QtTree()
    {
        m_qView.setModel(&m_model);
        m_qView.resize(bench::ViewWidth, bench::ViewHeight);
        m_qView.show();
    }
};

/// From the click until the branch is painted.
template <class Tree>
void expand(benchmark::State& state)
{
    for (auto _ : state) {
        Tree tree;
        bench::settleFilled(tree.m_qView);
        bench::measure(state, [&] {
            tree.m_qView.expand(tree.m_qView.model()->index(0, 0));
            bench::settleFilled(tree.m_qView);
        });
    }
}

const bool s_added = bench::addPairs({
    {"TreeExpand", expand<VoxiTree>, expand<QtTree>},
});

} // namespace
