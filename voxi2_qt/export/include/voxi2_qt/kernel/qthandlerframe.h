#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QEvent>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace VOXI {

class QtObject2;

/// Keeps the deferred deletion of a peer, and of everything that it lies in, waiting: code of
/// theirs is on the stack and goes on when this ends. A local variable; toolkit's thread only.
///
/// Qt deletes what was scheduled inside a nested event loop inside that loop. A handler may open
/// one, with a dialog for example, while the widget whose event it handles has yet to finish it.
class VOXI2_QT_EXPORT QtDeletionHold
{
public:
    /// Null holds nothing.
    explicit QtDeletionHold(const QtObject2* peer) noexcept
        : m_peer(peer),
          m_outer(s_innermost),
          m_isAlive(peer)
    {
        s_innermost = this;
    }
    ~QtDeletionHold()
    {
        if (s_innermost == this) [[likely]]
            s_innermost = m_outer;
        else
            unlink();
        if (s_isKeeping) [[unlikely]]
            releaseDeletions();
    }
    QtDeletionHold(const QtDeletionHold&) = delete;
    QtDeletionHold& operator=(const QtDeletionHold&) = delete;

    /// False for null, and once the peer was deleted at once all the same, as by a Qt parent.
    bool isAlive() const noexcept { return m_isAlive; }

    /// To be asked for each event of a peer's Qt object before it is handled: true for a deferred
    /// deletion that has to wait. It comes again; a widget is hidden meanwhile.
    static bool postpones(QObject& object, const QEvent& event)
    {
        return event.type() == QEvent::DeferredDelete && postpones(object);
    }
    /// The same for the deletion itself.
    static bool postpones(QObject& object) { return s_innermost && keep(object); }

    /// To be told of each widget that is about to have another parent: one that leaves a window in
    /// which a handler runs is kept as if it were still there.
    static void leaves(QObject& widget)
    {
        if (s_innermost) [[unlikely]]
            noteLeaving(widget);
    }

    /// To be told of each peer that ends, while its Qt object is whole.
    static void peerEnds(const QtObject2& peer) noexcept
    {
        if (s_innermost) [[unlikely]]
            forget(peer);
    }

private:
    static bool keep(QObject& object);
    static bool isHeld(const QObject& object) noexcept;
    static void noteLeaving(QObject& widget);
    static void forget(const QtObject2& peer) noexcept;
    static void releaseDeletions();
    void unlink() noexcept;

    static QtDeletionHold* s_innermost;
    static bool s_isKeeping; // whether deletions wait, or might

    const QtObject2* m_peer; // what the peer lay in, once that has gone
    QtDeletionHold* m_outer;
    bool m_isAlive;
};

/// While one lives, what Qt does is the program's doing. A local variable; toolkit's thread only.
///
/// Handlers that it has Qt run are no part of it: they may open a loop in which the user goes on.
class VOXI2_QT_EXPORT QtProgramScope
{
public:
    QtProgramScope() noexcept { link(); }
    virtual ~QtProgramScope()
    {
        if (m_isLinked)
            unlink();
    }
    QtProgramScope(const QtProgramScope&) = delete;
    QtProgramScope& operator=(const QtProgramScope&) = delete;

    /// Whether one lives that no handler interrupts.
    static bool isActive() noexcept { return s_innermost; }

protected:
    struct Inert
    {};
    /// One that does not count.
    explicit QtProgramScope(Inert) noexcept {}

    void link() noexcept
    {
        m_outer = s_innermost;
        s_innermost = this;
        m_isLinked = true;
    }

    /// A handler begins, and has returned.
    virtual void lift() {}
    virtual void resume() {}

private:
    friend class QtHandlerFrame;

    void unlink() noexcept;

    static QtProgramScope* s_innermost;

    QtProgramScope* m_outer = nullptr;
    bool m_isLinked = false;
};

/// To be opened where application code is called while code of a peer, or Qt's code for it, is on
/// the stack: the peer stays until that has returned, and the program's scopes rest.
class VOXI2_QT_EXPORT QtHandlerFrame : public QtDeletionHold
{
public:
    explicit QtHandlerFrame(const QtObject2& peer) : QtDeletionHold(&peer)
    {
        if (QtProgramScope::s_innermost) [[unlikely]]
            liftScopes();
    }
    ~QtHandlerFrame()
    {
        if (m_lifted) [[unlikely]]
            resumeScopes();
    }

private:
    void liftScopes();
    void resumeScopes();

    QtProgramScope* m_lifted = nullptr;
};

} // namespace VOXI
