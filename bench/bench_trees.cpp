// A branch of 100 000 rows, beside a QTreeView with a model made for it.

#include "viewrows.h"
#include "viewsettle.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <QTreeView>

#include <cstddef>
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

/// A tree as the Qt programmer has it: nodes that know their place.
class QtNodes : public QAbstractItemModel
{
public:
    QtNodes()
    {
        m_branch.m_number = 1;
        for (unsigned i = 0; i < Children; ++i) {
            m_branch.m_children.push_back(std::make_unique<Node>());
            *m_branch.m_children.back() = {2 + i, static_cast<int>(i), &m_branch, {}};
        }
    }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override
    {
        if (!hasIndex(row, column, parent))
            return {};
        return createIndex(row, column,
                           parent.isValid() ? m_branch.m_children[std::size_t(row)].get()
                                            : &m_branch);
    }
    QModelIndex parent(const QModelIndex& index) const override
    {
        const Node* const parent = index.isValid() ? node(index)->m_parent : nullptr;
        return parent ? createIndex(parent->m_place, 0, parent) : QModelIndex();
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        if (parent.column() > 0)
            return 0;
        return parent.isValid() ? static_cast<int>(node(parent)->m_children.size()) : 1;
    }
    int columnCount(const QModelIndex& = {}) const override
    {
        return static_cast<int>(bench::Columns);
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return bench::textAt<QString>(node(index)->m_number,
                                      static_cast<unsigned>(index.column()) + 1);
    }

private:
    struct Node
    {
        unsigned m_number = 0;
        int m_place = 0;
        Node* m_parent = nullptr;
        std::vector<std::unique_ptr<Node>> m_children;
    };

    static const Node* node(const QModelIndex& index)
    {
        return static_cast<const Node*>(index.constInternalPointer());
    }

    Node m_branch;
};

struct QtTree
{
    QtNodes m_model;
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
