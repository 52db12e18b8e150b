#include "qttreeend.h"

#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QLayout>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <unordered_map>

namespace VOXI {

namespace {

/// How many levels Qt may delete by recursion; each takes about half a kilobyte of the stack.
constexpr int MaxDepth = 500;

/// Answers whether an object belongs, over however many owners, to one that goes. It looks at each
/// owner once, whatever their number and depth.
class Owners
{
public:
    /// Null when the one that goes is dead: nothing that lives belongs to it.
    explicit Owners(const VXObject2* going) : m_going(going) {}

    bool lead(const VXObject2* object)
    {
        const VXObject2* parent = object->parent();
        if (parent != m_lastParent || !m_going)
            m_lastAnswer = m_going && search(parent);
        m_lastParent = parent;
        return m_lastAnswer;
    }

private:
    bool search(const VXObject2* from)
    {
        bool answer = false;
        const VXObject2* at = from;
        for (; at; at = at->parent()) {
            if (at == m_going) {
                answer = true;
                break;
            }
            if (const auto found = m_known.find(at); found != m_known.end()) {
                answer = found->second;
                break;
            }
        }
        for (const VXObject2* each = from; each != at; each = each->parent())
            m_known.emplace(each, answer);
        return answer;
    }

    const VXObject2* m_going;
    const VXObject2* m_lastParent = nullptr;
    bool m_lastAnswer = false;
    std::unordered_map<const VXObject2*, bool> m_known;
};

bool isHiddenWidget(const QObject& object)
{
    return object.isWidgetType() && static_cast<const QWidget&>(object).isHidden();
}

bool isVisibleWindow(const QObject& object)
{
    if (!object.isWidgetType())
        return false;
    const auto& widget = static_cast<const QWidget&>(object);
    return widget.isWindow() && widget.isVisible();
}

} // namespace

/// One way through the tree inside a peer, under the object lock: it only looks and takes notes.
class QtTreeEnd::Walk
{
public:
    Walk(QtObject2& top, bool isEnding) : m_isEnding(isEnding)
    {
        const VXObjectDataLocker lock;
        m_owners = Owners(top.isVXObjectValid() ? top.m_object : nullptr);
        m_open.push_back({top.asQObject(), 0});
        while (!m_open.empty()) {
            const Level level = m_open.back();
            m_open.pop_back();
            for (QObject* child : level.m_object->children())
                visit(*child, level);
        }
    }

    void letOthersGo()
    {
        // What is hidden first: a stack would show each of its pages on the way.
        std::stable_partition(m_others.begin(), m_others.end(),
                              [](const Other& other) { return isHiddenWidget(*other.m_object); });
        for (const Other& other : m_others) {
            // Taking one out may run code that has moved or destroyed the next.
            QtObject2* const peer = peerOf(other.m_object);
            if (peer && !peer->isDeletionScheduled() && other.m_object->parent() == other.m_holder)
                peer->leave();
        }
    }

    /// Qt closes windows and pop-ups as it deletes them. The focus then goes on, and Qt may look
    /// for it among what is half gone.
    void hideWindows()
    {
        const QtProgramScope scope;
        for (const QPointer<QObject>& window : m_windows) {
            if (window)
                static_cast<QWidget*>(window.data())->hide();
        }
    }

    void deletePieces()
    {
        for (auto piece = m_pieces.rbegin(); piece != m_pieces.rend(); ++piece)
            delete piece->data();
    }

private:
    struct Level
    {
        QObject* m_object;
        int m_depth; // below the top, or below the piece that it is part of
    };
    struct Other
    {
        QPointer<QObject> m_object;
        const QObject* m_holder;
    };

    void visit(QObject& child, const Level& level)
    {
        QtObject2* const peer = peerOf(&child);
        int depth = level.m_depth + 1;
        if (peer) {
            // One that is scheduled has been through this itself.
            if (peer->isDeletionScheduled() && !m_isEnding)
                return;
            if (isAnothers(*peer)) {
                m_others.push_back({&child, level.m_object});
                return;
            }
            if (m_isEnding)
                cutOff(*peer);
            if (m_isEnding && depth > MaxDepth) {
                m_pieces.emplace_back(&child);
                depth = 0;
            }
        }
        if (m_isEnding && isVisibleWindow(child))
            m_windows.emplace_back(&child);
        if (!child.children().isEmpty())
            m_open.push_back({&child, depth});
    }

    /// Qt hides what it deletes, and a handler must not meet objects that are half gone.
    static void cutOff(QtObject2& peer)
    {
        peer.m_isPrepared = true;
        peer.QtObject2::disconnect();
        peer.removeObject();
        peer.m_object = nullptr;
    }

    bool isAnothers(const QtObject2& peer)
    {
        return !peer.isDeletionScheduled() && peer.isVXObjectValid()
               && !m_owners.lead(peer.m_object);
    }

    Owners m_owners{nullptr};
    bool m_isEnding;
    std::vector<Level> m_open;
    std::vector<Other> m_others;
    std::vector<QPointer<QObject>> m_windows;
    std::vector<QPointer<QObject>> m_pieces; // each before those inside it
};

void QtTreeEnd::letOthersGo(QtObject2& top)
{
    if (!isBackEndGoing() && !top.asQObject()->children().isEmpty())
        Walk(top, false).letOthersGo();
}

void QtTreeEnd::prepare(QtObject2& top)
{
    if (top.m_isPrepared)
        return;
    top.m_isPrepared = true;
    if (top.asQObject()->children().isEmpty())
        return;
    Walk walk(top, true);
    walk.letOthersGo();
    walk.hideWindows();
    walk.deletePieces();
}

} // namespace VOXI
