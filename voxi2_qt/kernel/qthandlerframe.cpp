#include "voxi2_qt/kernel/qthandlerframe.h"

#include "voxi2_qt/kernel/qtobject2.h"

#include <QAction>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <utility>
#include <vector>

namespace VOXI {

namespace {

/// What waits for its deletion.
struct Kept
{
    QPointer<QObject> m_object;
    unsigned m_age;
};

std::vector<Kept>& keptObjects()
{
    static auto* objects = new std::vector<Kept>;
    return *objects;
}

unsigned s_youngestKept = 0;

/// The least id of the peers that the object is or holds; 0 for what is no peer and has no age.
unsigned ageOf(const QObject& object)
{
    const QtObject2* const itself = peerOf(&object);
    unsigned age = itself ? itself->getUID() : 0;
    // Not by recursion: widgets may be nested as deep as the application likes.
    std::vector<const QObject*> open{&object};
    while (!open.empty() && age != 0) {
        const QObject* const each = open.back();
        open.pop_back();
        for (const QObject* const child : each->children()) {
            const QtObject2* const peer = peerOf(child);
            if (peer && peer->getUID() != 0)
                age = std::min(age, peer->getUID());
            open.push_back(child);
        }
    }
    return age;
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
unsigned QtDeletionHold::s_newest = 0;
bool QtDeletionHold::s_isKeeping = false;

bool QtDeletionHold::keep(QObject& object)
{
    const unsigned age = ageOf(object);
    if (!isHeld(age))
        return false;
    keptObjects().push_back({&object, age});
    s_youngestKept = std::max(s_youngestKept, age);
    s_isKeeping = true;
    const QtProgramScope scope;
    if (auto* const widget = qobject_cast<QWidget*>(&object))
        widget->hide();
    else if (auto* const action = qobject_cast<QAction*>(&object))
        action->setVisible(false);
    return true;
}

void QtDeletionHold::releaseDeletions()
{
    // Handlers end often while much may wait for one further down the stack.
    if (isHeld(s_youngestKept))
        return;
    s_youngestKept = 0;
    // No application code runs here: what is due is only posted.
    std::erase_if(keptObjects(), [](const Kept& kept) {
        if (!kept.m_object)
            return true;
        if (isHeld(kept.m_age)) {
            s_youngestKept = std::max(s_youngestKept, kept.m_age);
            return false;
        }
        (new LateDeletion(kept.m_object))->deleteLater();
        return true;
    });
    s_isKeeping = !keptObjects().empty();
}

void QtDeletionHold::forget(const QtObject2& peer) noexcept
{
    for (QtDeletionHold* hold = s_innermost; hold; hold = hold->m_outer) {
        if (hold->m_peer == &peer)
            hold->m_peer = nullptr;
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
