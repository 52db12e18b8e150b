#pragma once

#include "viewrows.h"

#include <QAbstractItemModel>
#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

namespace bench {

/// A tree of two levels as the Qt programmer has it: nodes that know their place. Branches are
/// numbered from 1, and what is in them on from there.
class QtNodes : public QAbstractItemModel
{
public:
    QtNodes(unsigned branches, unsigned children, int columns) : m_columns(columns)
    {
        for (unsigned i = 0; i < branches; ++i) {
            Node& branch = add(m_root, 1 + i);
            for (unsigned j = 0; j < children; ++j)
                add(branch, 1 + branches + i * children + j);
        }
    }

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override
    {
        if (!hasIndex(row, column, parent))
            return {};
        return createIndex(row, column, node(parent)->m_children[std::size_t(row)].get());
    }
    QModelIndex parent(const QModelIndex& index) const override
    {
        const Node* const parent = index.isValid() ? node(index)->m_parent : &m_root;
        return parent == &m_root ? QModelIndex() : createIndex(parent->m_place, 0, parent);
    }
    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.column() > 0 ? 0 : static_cast<int>(node(parent)->m_children.size());
    }
    int columnCount(const QModelIndex& = {}) const override { return m_columns; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return textAt<QString>(node(index)->m_number, static_cast<unsigned>(index.column()) + 1);
    }

private:
    struct Node
    {
        unsigned m_number = 0;
        int m_place = 0;
        Node* m_parent = nullptr;
        std::vector<std::unique_ptr<Node>> m_children;
    };

    static Node& add(Node& parent, unsigned number)
    {
        parent.m_children.push_back(std::make_unique<Node>());
        Node& made = *parent.m_children.back();
        made.m_number = number;
        made.m_place = static_cast<int>(parent.m_children.size()) - 1;
        made.m_parent = &parent;
        return made;
    }
    const Node* node(const QModelIndex& index) const
    {
        return index.isValid() ? static_cast<const Node*>(index.constInternalPointer()) : &m_root;
    }

    Node m_root;
    int m_columns;
};

} // namespace bench
