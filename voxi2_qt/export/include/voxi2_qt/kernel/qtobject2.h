#pragma once

#include "trov/event.h"
#include "trov/operations.h"
#include "trov/requestbinding.h"
#include "voxi/guiobject.h"
#include "voxi/vxobject.h"
#include "voxi2/kernel/vxobject2.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtreporthold.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <optional>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QObject;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

enum class VXMessageType : int;
class QtMessage;

/// The base of every peer: ties one abstract object to one Qt object.
///
/// The constructor registers the peer under the abstract object's id and binds the requests of the
/// object to the thread it runs on. A peer ends in one of three ways: the abstract object asks, the
/// factory is told to destroy it, or its Qt parent deletes it. In each the requests are cut and the
/// registry entry is gone before the Qt base is destroyed. GUI thread only, but for what is said
/// otherwise.
class VOXI2_QT_EXPORT QtObject2 : public TROV::Listener, public GuiObject
{
public:
    /// Around each request but those whose rows say otherwise.
    using ServingScope = QtReportHold;

    ~QtObject2() override;

    virtual void vxMessageNotify(VXMessageType type, QtMessage* message);

    /// Called by the factory once the peer is whole; an override calls this one.
    virtual void init();

    // Requests, in the order of the emitters table
    void doDestroy();
    virtual void doSetParent(VXObject* parent);
    virtual VXObject* doGetParent();
    virtual std::vector<VXObject*> doGetChildren(bool recursive);

    VXObject* getHandle() const override;
    const void* family() const noexcept override;
    void endService() override;
    void scheduleDelete() override;

    /// Ends all connections and the service of the abstract object's requests.
    void disconnect() override;

    unsigned getUID() const noexcept { return m_uid; }

    /// Whether the abstract object is alive; hold `VXObject::m_lock` to rely on it.
    bool isVXObjectValid() const;

    /// False while nobody has ever listened to the abstract object: a quick look that needs no
    /// lock.
    bool mayBeHeard() const noexcept { return m_requests.mayBeHeard(); }

    /// Has the signals that are reported connected now, if they are not: for whoever connects to
    /// the same signal and wants to come after the report.
    void becomeHeard() override;

    /// The Qt object that this peer is. Null in the constructor and destructor of the peer's bases.
    virtual QObject* asQObject() const noexcept = 0;

    /// The same as a widget; null for peers that are none.
    virtual QWidget* asQWidget() const noexcept;

    /// Takes the Qt object out of whatever holds it: it then stands alone, a widget hidden until it
    /// is shown or put elsewhere. No echoes.
    virtual void leave();

    /// Whether a report of the event would reach anybody: the abstract object is alive, and
    /// somebody listens. Hold `VXObject::m_lock` to rely on it.
    template <class E, class Table>
    bool isHeard(TROV::Event<void(const E&)> Table::*event) const
    {
        VXObjectDataLocker lock;
        return heard(event) != nullptr;
    }

    /// Reports something: sends what `make()` returns, where it is heard, once Qt has finished what
    /// the program has asked for. The handlers run under the object lock and may end anything but
    /// what is on the stack.
    template <class E, class Table, class Make>
    void reportMade(TROV::Event<void(const E&)> Table::*event, Make&& make) const
    {
        if (!QtReportHold::isActive()) [[likely]] {
            askMade(event, std::forward<Make>(make));
            return;
        }
        VXObjectDataLocker lock;
        if (heard(event)) {
            QtReportHold::add(*this, [event, made = E(make())](const QtObject2& peer) {
                peer.sendNow(event, [&] { return made; });
            });
        }
    }

    /// The same for what has to be answered before Qt goes on: at once, whatever Qt is doing. Gives
    /// the event back, which carries the handlers' answer; nothing where it is not heard.
    template <class E, class Table, class Make>
    std::optional<E> askMade(TROV::Event<void(const E&)> Table::*event, Make&& make) const
    {
        if (isDeletionScheduled() || !mayBeHeard())
            return std::nullopt;
        VXObjectDataLocker lock;
        if (QtReportHold::isAnyOverdue() && heard(event) && !catchUp()) [[unlikely]]
            return std::nullopt;
        return sendNow(event, std::forward<Make>(make));
    }

protected:
    QtObject2(VXObject2* object, VXObject2Emitters* emitters);

    /// Lets this peer's operations serve the requests of one of its object's emitters tables.
    template <class Emitters, std::size_t Count>
    void bindRequests(Emitters* emitters, const TROV::Operations<Emitters, Count>& operations)
    {
        m_requests.bind(*emitters, this, operations);
    }

    /// The abstract object as what it was made as; only to be passed on while it is valid.
    template <class Object>
    Object* abstractObject() const noexcept
    {
        return static_cast<Object*>(m_object);
    }

    /// Called once, when somebody listens to the abstract object for the first time: the place for
    /// the connections of Qt signals that are reported and nothing else. Most widgets are never
    /// listened to, and each connection costs them as much as a layout item.
    virtual void connectSignals() {}

    /// What the destructor of every class that joins a peer base and a Qt class begins with; and of
    /// a derived one that has members which the going of what is inside may still touch.
    void endPeer();

    /// How the Qt object is deleted later: together with its parent where that goes too.
    void deferDelete() override;

    /// To be told that the Qt object has another parent: what was to go with the former one does
    /// not.
    virtual void endAlone();

    /// Whether the Qt object's parent is to be deleted, and this one with it.
    bool goesWithParent() const;

private:
    friend class QtTreeEnd;

    /// The event's emitter; null where it is not heard. Under the object lock.
    template <class E, class Table>
    const TROV::Event<void(const E&)>* heard(TROV::Event<void(const E&)> Table::*event) const
    {
        const Table* table = nullptr;
        if (!isDeletionScheduled() && isVXObjectValid())
            table = m_requests.table<Table>();
        return table && (table->*event).isHeard() ? &(table->*event) : nullptr;
    }

    /// Sends it there and then, where it is heard. Under the object lock.
    template <class E, class Table, class Make>
    std::optional<E> sendNow(TROV::Event<void(const E&)> Table::*event, Make&& make) const
    {
        std::optional<E> made;
        if (const auto* emitter = heard(event)) {
            const QtHandlerFrame frame(*this);
            made.emplace(make());
            (*emitter)(*made);
        }
        return made;
    }

    /// Tells first what is overdue; false if this has ended by that.
    bool catchUp() const
    {
        const QtDeletionHold hold(this);
        QtReportHold::releaseOverdue();
        return hold.isAlive();
    }

    void addObject();
    void removeObject();

    bool m_isRegistered = false; // the first four in the room that the base leaves
    bool m_isConnected = false;
    bool m_isPrepared = false; // for the end: whoever is inside and stays has been let go
    unsigned m_uid;
    VXObject2* m_object;
    TROV::RequestBinding m_requests;
};

/// The peer behind a Qt object; null when it is none, or null itself.
VOXI2_QT_EXPORT QtObject2* peerOf(const QObject* object) noexcept;

/// The live abstract object behind a Qt object, or null.
VOXI2_QT_EXPORT VXObject* abstractObjectOf(const QObject* object);

/// The same as an `Object*`; null for another kind.
template <class Object>
Object* abstractObjectOf(const QObject* object)
{
    // Another thread may be destroying it.
    VXObjectDataLocker lock;
    return dynamic_cast<Object*>(abstractObjectOf(object));
}

/// A peer found in the registry as one of this back end; null for null or another one's.
VOXI2_QT_EXPORT QtObject2* qtPeer(GuiObject* peer) noexcept;

/// The Qt object or widget of a peer found in the registry; null for null or another kind.
VOXI2_QT_EXPORT QObject* qObjectOf(GuiObject* peer) noexcept;
VOXI2_QT_EXPORT QWidget* qWidgetOf(GuiObject* peer) noexcept;

/// Whether `inner` is `outer` or lies inside it; then it cannot hold it. Unlike Qt's own test, also
/// across windows.
VOXI2_QT_EXPORT bool isWithin(const QWidget* outer, const QWidget* inner) noexcept;

/// Calls `function` with the peer of `object` as a `Peer*`, null if it is of another kind, under
/// the object lock; does nothing when `object` is dead or null.
template <class Peer, class Function>
void withPeerOf(const VXObject* object, Function&& function)
{
    VXObjectDataLocker lock;
    if (VXObject::isObjectValid(object))
        function(dynamic_cast<Peer*>(lookup(object->id())));
}

/// The same with the peer's widget, null if it is none.
template <class Function>
void withWidgetOf(const VXObject* object, Function&& function)
{
    VXObjectDataLocker lock;
    if (VXObject::isObjectValid(object))
        function(qWidgetOf(lookup(object->id())));
}

/// The same for a request that takes null as "none": `function` is called with null for null, and
/// not at all for what has no widget.
template <class Function>
void withWidgetOrNone(const VXObject* object, Function&& function)
{
    if (!object)
        function(static_cast<QWidget*>(nullptr));
    withWidgetOf(object, [&](QWidget* widget) {
        if (widget)
            function(widget);
    });
}

} // namespace VOXI
