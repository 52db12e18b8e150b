#pragma once

#include "voxi2_qt/kernel/qtreporthold.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QEvent>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace VOXI {

class QtObject2;

/// Keeps deferred deletions waiting while code of a peer is on the stack that goes on when this
/// ends: of all objects that are as old as this, and of what holds one of them. A local variable;
/// toolkit's thread only.
///
/// Qt deletes what was scheduled inside a nested event loop inside that loop. A handler may open
/// one, with a dialog for example, while the widget whose event it handles has yet to finish it;
/// and while Qt goes through the widgets around that one, or on to another window, to show, hide,
/// move or activate them. What is made later is unknown to all of this, so that a program which
/// spends its life in a handler's dialog gets rid of what it makes there.
class VOXI2_QT_EXPORT QtDeletionHold
{
public:
    /// Null holds nothing.
    explicit QtDeletionHold(const QtObject2* peer) noexcept
        : m_peer(peer),
          m_outer(s_innermost),
          m_newest(s_newest)
    {
        if (!peer) [[unlikely]]
            return;
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
    bool isAlive() const noexcept { return m_peer; }

    static bool isActive() noexcept { return s_innermost; }

    /// To be asked for each event of a peer's Qt object before it is handled: true for a deferred
    /// deletion that has to wait. It comes again; a widget or action is hidden meanwhile.
    static bool postpones(QObject& object, const QEvent& event)
    {
        return event.type() == QEvent::DeferredDelete && postpones(object);
    }
    /// The same for the deletion itself.
    static bool postpones(QObject& object) { return s_innermost && keep(object); }

    /// To be told of each peer that is made, whose objects' ids ascend.
    static void peerBegins(unsigned uid) noexcept
    {
        if (uid > s_newest)
            s_newest = uid;
    }

    /// To be told of each peer that ends, while its Qt object is whole.
    static void peerEnds(const QtObject2& peer) noexcept
    {
        if (s_innermost) [[unlikely]]
            forget(peer);
    }

private:
    static bool keep(QObject& object);
    static bool isHeld(unsigned age) noexcept
    {
        return s_innermost && age <= s_innermost->m_newest;
    }
    static void forget(const QtObject2& peer) noexcept;
    static void releaseDeletions();
    void unlink() noexcept;

    static QtDeletionHold* s_innermost;
    static unsigned s_newest;
    static bool s_isKeeping; // whether deletions wait

    const QtObject2* m_peer; // null once it has gone
    QtDeletionHold* m_outer;
    unsigned m_newest; // of the objects there were when it began
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

    QtReportHold::Lift m_lift;
    QtProgramScope* m_lifted = nullptr;
};

} // namespace VOXI
