#pragma once

#include "voxi2/controls/scenegeometry.h"
#include "voxi2/controls/scenevalues.h"

#include <cstddef>
#include <memory>
#include <unordered_map>
#include <vector>

namespace VOXI {

/// The tree of a scene's nodes. However deep it is, no function calls itself.
class SceneGraph
{
public:
    struct Node
    {
        SceneNode m_value{};
        SceneLook m_look{};
        SceneGeometry m_geometry{};
        std::shared_ptr<const SceneBillboard> m_billboard{}; // null for none

        // Valid in what `drawn()` gives
        Matrix4 m_world{};

        // The tree; the oldest child first
        Node* m_parent = nullptr;
        Node* m_first = nullptr;
        Node* m_last = nullptr;
        Node* m_previous = nullptr;
        Node* m_next = nullptr;
        bool m_isShown = true;
    };

    SceneGraph() = default;
    SceneGraph(const SceneGraph&) = delete;
    SceneGraph& operator=(const SceneGraph&) = delete;

    /// False, and no change, for a node that must not be.
    bool set(const SceneNode& value);
    /// With all below it; false if it is not there.
    bool remove(unsigned uid);
    void clear();

    /// To look at; null for none.
    const Node* find(unsigned uid) const;
    /// To set what it shows.
    Node* change(unsigned uid);

    std::size_t size() const noexcept { return m_nodes.size(); }
    /// Each before what is below it.
    std::vector<unsigned> uids() const;

    /// The visible nodes that show something, in that order.
    const std::vector<const Node*>& drawn() const;
    /// Around what is visible of a node and of what is below it; of all for 0.
    SceneBox bounds(unsigned uid) const;

private:
    void link(Node& node, Node& parent) noexcept;
    static void unlink(Node& node) noexcept;
    static bool isBelow(const Node* node, const Node& other) noexcept;
    static Node* following(const Node& node, const Node& within) noexcept;
    void refresh() const;

    Node m_root{};
    std::unordered_map<unsigned, Node> m_nodes;
    mutable std::vector<const Node*> m_drawn;
    mutable SceneBox m_bounds;
    mutable bool m_isStale = false;
};

} // namespace VOXI
