#include "scenegraph.h"

#include <utility>

namespace VOXI {

bool SceneGraph::set(const SceneNode& value)
{
    if (value.uid == 0 || !value.transform.isFinite())
        return false;
    const auto parentAt = m_nodes.find(value.parent);
    if (value.parent == value.uid || (value.parent != 0 && parentAt == m_nodes.end()))
        return false;
    Node& parent = value.parent != 0 ? parentAt->second : m_root;
    // What is new, or has nothing below it, can make no circle.
    Node* node = change(value.uid);
    if (node && node->m_first && isBelow(&parent, *node))
        return false;
    if (!node)
        node = &m_nodes[value.uid];
    if (node->m_parent != &parent) {
        unlink(*node);
        link(*node, parent);
    }
    node->m_value = value;
    m_isStale = true;
    return true;
}

bool SceneGraph::remove(unsigned uid)
{
    const auto at = m_nodes.find(uid);
    if (at == m_nodes.end())
        return false;
    unlink(at->second);
    std::vector<unsigned> ends;
    for (const Node* node = &at->second; node; node = following(*node, at->second))
        ends.push_back(node->m_value.uid);
    for (const unsigned end : ends)
        m_nodes.erase(end);
    m_isStale = true;
    return true;
}

void SceneGraph::clear()
{
    m_nodes.clear();
    m_root.m_first = m_root.m_last = nullptr;
    m_isStale = true;
}

const SceneGraph::Node* SceneGraph::find(unsigned uid) const
{
    const auto at = m_nodes.find(uid);
    return at == m_nodes.end() ? nullptr : &at->second;
}

SceneGraph::Node* SceneGraph::change(unsigned uid)
{
    m_isStale = true;
    return const_cast<Node*>(find(uid));
}

std::vector<unsigned> SceneGraph::uids() const
{
    std::vector<unsigned> result;
    for (const Node* node = m_root.m_first; node; node = following(*node, m_root))
        result.push_back(node->m_value.uid);
    return result;
}

const std::vector<const SceneGraph::Node*>& SceneGraph::drawn() const
{
    refresh();
    return m_drawn;
}

SceneBox SceneGraph::bounds(unsigned uid) const
{
    refresh();
    if (uid == 0)
        return m_bounds;
    SceneBox box;
    const Node* const top = find(uid);
    for (const Node* node = top; node; node = following(*node, *top)) {
        if (!node->m_isShown)
            continue;
        box.unite(node->m_geometry.box().mapped(node->m_world));
        if (node->m_billboard)
            box.add(node->m_world.map({}));
    }
    return box;
}

void SceneGraph::link(Node& node, Node& parent) noexcept
{
    node.m_parent = &parent;
    node.m_previous = parent.m_last;
    (parent.m_last ? parent.m_last->m_next : parent.m_first) = &node;
    parent.m_last = &node;
}

void SceneGraph::unlink(Node& node) noexcept
{
    Node* const parent = std::exchange(node.m_parent, nullptr);
    if (!parent)
        return;
    (node.m_previous ? node.m_previous->m_next : parent->m_first) = node.m_next;
    (node.m_next ? node.m_next->m_previous : parent->m_last) = node.m_previous;
    node.m_previous = node.m_next = nullptr;
}

/// Also when it is the other itself.
bool SceneGraph::isBelow(const Node* node, const Node& other) noexcept
{
    while (node && node != &other)
        node = node->m_parent;
    return node;
}

/// The next one in the order of the tree, of those below `within`; null after the last one.
SceneGraph::Node* SceneGraph::following(const Node& node, const Node& within) noexcept
{
    if (node.m_first)
        return node.m_first;
    for (const Node* up = &node; up && up != &within; up = up->m_parent)
        if (up->m_next)
            return up->m_next;
    return nullptr;
}

void SceneGraph::refresh() const
{
    if (!std::exchange(m_isStale, false))
        return;
    m_drawn.clear();
    m_bounds = {};
    for (Node* node = m_root.m_first; node; node = following(*node, m_root)) {
        const Node& parent = *node->m_parent;
        node->m_isShown = parent.m_isShown && node->m_value.isVisible;
        if (!node->m_isShown)
            continue;
        node->m_world =
            &parent == &m_root ? node->m_value.transform : parent.m_world * node->m_value.transform;
        if (node->m_geometry.isNull() && !node->m_billboard)
            continue;
        m_drawn.push_back(node);
        m_bounds.unite(node->m_geometry.box().mapped(node->m_world));
        if (node->m_billboard)
            m_bounds.add(node->m_world.map({}));
    }
}

} // namespace VOXI
