#include "voxi2_qt/kernel/qthandlerframe.h"

#include "qtnearestpeer.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

namespace VOXI {

namespace {

/// The window in which the object lies, by its parents; null for none.
const QWidget* windowOf(const QObject* object) noexcept
{
    while (object && !object->isWidgetType())
        object = object->parent();
    return object ? static_cast<const QWidget*>(object)->window() : nullptr;
}

/// The objects whose deletion waits.
std::vector<QPointer<QObject>>& keptObjects()
{
    static auto* objects = new std::vector<QPointer<QObject>>;
    return *objects;
}

/// What has left a window in which a handler runs, and those windows: it may have been the
/// handler's own widget. Until no handler runs any more.
std::vector<QPointer<QObject>>& leftObjects()
{
    static auto* objects = new std::vector<QPointer<QObject>>;
    return *objects;
}

bool contains(const std::vector<QPointer<QObject>>& objects, const QObject* object)
{
    return object && std::find(objects.begin(), objects.end(), object) != objects.end();
}

/// Deletes another object when it is deleted itself. Qt need not take a second request to delete
/// one and the same object later.
class LateDeletion final : public QObject
{
public:
    explicit LateDeletion(QObject* object) : m_object(object) {}
    ~LateDeletion() override
    {
        const QtProgramScope scope;
        if (m_object && !QtDeletionHold::postpones(*m_object))
            delete m_object.data();
    }

private:
    QPointer<QObject> m_object;
};

} // namespace

// Holds -------------------------------------------------------------------------------------------

QtDeletionHold* QtDeletionHold::s_innermost = nullptr;
bool QtDeletionHold::s_isKeeping = false;

bool QtDeletionHold::isHeld(const QObject& object) noexcept
{
    const QWidget* const window = windowOf(&object);
    const QWidget* const parentsWindow = windowOf(object.parent());
    for (const QObject* left : {&object, static_cast<const QObject*>(window),
                                static_cast<const QObject*>(parentsWindow)}) {
        if (contains(leftObjects(), left))
            return true;
    }
    for (const QtDeletionHold* hold = s_innermost; hold; hold = hold->m_outer) {
        const QObject* inner = hold->m_peer ? hold->m_peer->asQObject() : nullptr;
        // Qt goes through all the widgets that lie together when it shows, hides or lays them out,
        // and sends each its events on the way; it also comes by the windows that belong to them.
        const QWidget* const used = windowOf(inner);
        if (used && (used == window || used == parentsWindow))
            return true;
        for (; inner; inner = inner->parent()) {
            if (inner == &object)
                return true;
        }
    }
    return false;
}

void QtDeletionHold::noteLeaving(QObject& widget)
{
    if (!isHeld(widget))
        return;
    std::erase_if(leftObjects(), [](const QPointer<QObject>& object) { return !object; });
    for (QObject* each :
         {&widget, static_cast<QObject*>(const_cast<QWidget*>(windowOf(&widget)))}) {
        if (!contains(leftObjects(), each))
            leftObjects().emplace_back(each);
    }
    s_isKeeping = true;
}

bool QtDeletionHold::keep(QObject& object)
{
    if (!isHeld(object))
        return false;
    keptObjects().emplace_back(&object);
    s_isKeeping = true;
    if (auto* const widget = qobject_cast<QWidget*>(&object)) {
        const QtProgramScope scope;
        widget->hide();
    }
    return true;
}

void QtDeletionHold::releaseDeletions()
{
    if (!s_innermost)
        leftObjects().clear();
    // No application code runs here: what is due is only posted.
    std::erase_if(keptObjects(), [](const QPointer<QObject>& object) {
        if (object && isHeld(*object))
            return false;
        if (object)
            (new LateDeletion(object))->deleteLater();
        return true;
    });
    s_isKeeping = !keptObjects().empty() || !leftObjects().empty();
}

void QtDeletionHold::forget(const QtObject2& peer) noexcept
{
    for (QtDeletionHold* hold = s_innermost; hold; hold = hold->m_outer) {
        if (hold->m_peer != &peer)
            continue;
        hold->m_peer = nearestPeer(peer.asQObject()->parent()); // it is on the stack as before
        hold->m_isAlive = false;
    }
}

void QtDeletionHold::unlink() noexcept
{
    QtDeletionHold** at = &s_innermost;
    while (*at && *at != this)
        at = &(*at)->m_outer;
    if (*at)
        *at = m_outer;
}

// Program scopes ----------------------------------------------------------------------------------

QtProgramScope* QtProgramScope::s_innermost = nullptr;

void QtProgramScope::unlink() noexcept
{
    QtProgramScope** at = &s_innermost;
    while (*at && *at != this)
        at = &(*at)->m_outer;
    if (*at)
        *at = m_outer;
}

// Handler frames ----------------------------------------------------------------------------------

void QtHandlerFrame::liftScopes()
{
    m_lifted = std::exchange(QtProgramScope::s_innermost, nullptr);
    for (QtProgramScope* scope = m_lifted; scope; scope = scope->m_outer)
        scope->lift();
}

void QtHandlerFrame::resumeScopes()
{
    QtProgramScope::s_innermost = m_lifted;
    for (QtProgramScope* scope = m_lifted; scope; scope = scope->m_outer)
        scope->resume();
}

} // namespace VOXI
