#include "voxi2_qt/kernel/qtobject2.h"

#include "qtapplicationwatch.h"
#include "qttakeout.h"
#include "qttreeend.h"

#include <QLayout>
#include <QObject>
#include <QWidget>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <typeinfo>

namespace VOXI {

namespace {

using E = VXObject2Emitters;
using P = QtObject2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::destroy, &P::doDestroy>(),
    TROV::row<&E::setParent, &P::doSetParent>(),
    TROV::row<&E::getParent, &P::doGetParent>(),
    TROV::row<&E::getChildren, &P::doGetChildren>());
// clang-format on

/// The scheduled parent of the peer scheduled last. Children go one after the other, and finding
/// the peer behind a Qt object is slow. GUI thread only.
const QObject* s_goingParent = nullptr;

/// Its address is what this back end's peers share.
const char s_family = 0;

} // namespace

QtObject2::QtObject2(VXObject2* object, VXObject2Emitters* emitters)
    : m_uid(object ? object->id() : 0),
      m_object(object)
{
    watchApplication();
    addObject();
    QtDeletionHold::peerBegins(m_uid);
    if (emitters)
        bindRequests(emitters, s_requests);
}

QtObject2::~QtObject2()
{
    // For a peer whose derived class did not get as far as `endPeer`.
    m_requests.unbind();
    removeObject();
}

void QtObject2::endPeer()
{
    if (s_goingParent == asQObject())
        s_goingParent = nullptr;
    QtDeletionHold::peerEnds(*this);
    disconnect();
    removeObject();
    QtTreeEnd::prepare(*this);
}

void QtObject2::vxMessageNotify(VXMessageType, QtMessage*) {}

void QtObject2::init()
{
    if (mayBeHeard())
        becomeHeard();
}

void QtObject2::becomeHeard()
{
    if (!std::exchange(m_isConnected, true))
        connectSignals();
}

// Requests ----------------------------------------------------------------------------------------

void QtObject2::doDestroy() { scheduleDelete(); }

void QtObject2::doSetParent(VXObject* parent)
{
    if (!parent) {
        asQObject()->setParent(nullptr);
        return;
    }
    VXObjectDataLocker lock;
    if (!VXObject::isObjectValid(parent))
        return;
    // A widget as a parent of anything else takes it as a plain object; widgets have a way of their
    // own.
    asQObject()->setParent(qObjectOf(lookup(parent)));
}

VXObject* QtObject2::doGetParent() { return abstractObjectOf(asQObject()->parent()); }

std::vector<VXObject*> QtObject2::doGetChildren(bool recursive)
{
    std::vector<VXObject*> result;
    const auto options = recursive ? Qt::FindChildrenRecursively : Qt::FindDirectChildrenOnly;
    for (const QObject* child : asQObject()->findChildren<QObject*>(QString(), options)) {
        if (VXObject* object = abstractObjectOf(child))
            result.push_back(object);
    }
    return result;
}

// Helpers -----------------------------------------------------------------------------------------

VXObject* QtObject2::getHandle() const { return isVXObjectValid() ? m_object : nullptr; }

bool QtObject2::isVXObjectValid() const
{
    return VXObject::objectById(m_uid) == m_object && m_object;
}

const void* QtObject2::family() const noexcept { return &s_family; }

void QtObject2::endService()
{
    const QtReportHold hold;
    scheduleDelete();
}

void QtObject2::scheduleDelete()
{
    disconnect();
    removeObject();
    GuiObject::scheduleDelete();
}

void QtObject2::deferDelete()
{
    // Whoever goes with its parent need not go one by one: that would be quadratic in the parent.
    if (goesWithParent())
        return;
    asQObject()->deleteLater();
    // What the user sees of a stack is true at once, and another page is shown by the program.
    if (QWidget* widget = asQWidget(); widget && stackOfPage(widget))
        takeOut(widget);
    QtTreeEnd::letOthersGo(*this); // last, as it may run anything
}

void QtObject2::endAlone()
{
    if (isDeletionScheduled() && !goesWithParent())
        asQObject()->deleteLater();
}

bool QtObject2::goesWithParent() const
{
    const QObject* parent = asQObject()->parent();
    if (parent && parent == s_goingParent)
        return true;
    const QtObject2* peer = peerOf(parent);
    const bool goes = peer && peer->isDeletionScheduled();
    if (goes)
        s_goingParent = parent;
    return goes;
}

void QtObject2::leave()
{
    // A layout goes with the widget that it fills; Qt knows no way out of it.
    if (!qobject_cast<QLayout*>(asQObject()))
        asQObject()->setParent(nullptr);
}

void QtObject2::disconnect()
{
    m_requests.unbind();
    Listener::disconnect();
}

void QtObject2::addObject()
{
    if (m_uid == 0)
        return;
    VOXI::addObject(m_uid, this);
    m_isRegistered = true;
}

void QtObject2::removeObject()
{
    if (std::exchange(m_isRegistered, false))
        VOXI::removeObject(m_uid, this);
}

QWidget* QtObject2::asQWidget() const noexcept { return nullptr; }

QtObject2* peerOf(const QObject* object) noexcept
{
    // In all objects of one class it lies at the same place. A search through the classes takes
    // many times as long, and whole trees are asked for it.
    struct Place
    {
        const std::type_info* m_class = nullptr;
        std::optional<std::ptrdiff_t> m_offset;
    };
    static thread_local std::array<Place, 16> s_places;
    if (!object)
        return nullptr;
    // Null for what is compiled without it, as parts of the engine of web pages are; the compiler
    // must not conclude that there is no such thing.
    const std::type_info* const volatile known = &typeid(*object);
    const std::type_info* const type = known;
    if (!type)
        return nullptr;
    const auto* const bytes = reinterpret_cast<const char*>(object);
    Place& place = s_places[reinterpret_cast<std::uintptr_t>(type) / 16 % s_places.size()];
    if (place.m_class != type) {
        place.m_class = type;
        place.m_offset.reset();
        if (const auto* peer = dynamic_cast<const QtObject2*>(object))
            place.m_offset = reinterpret_cast<const char*>(peer) - bytes;
    }
    if (!place.m_offset)
        return nullptr;
    return reinterpret_cast<QtObject2*>(const_cast<char*>(bytes + *place.m_offset));
}

VXObject* abstractObjectOf(const QObject* object)
{
    const QtObject2* peer = peerOf(object);
    return peer ? peer->getHandle() : nullptr;
}

QtObject2* qtPeer(GuiObject* peer) noexcept
{
    return peer && peer->family() == &s_family ? static_cast<QtObject2*>(peer) : nullptr;
}

QObject* qObjectOf(GuiObject* peer) noexcept
{
    const QtObject2* mine = qtPeer(peer);
    return mine ? mine->asQObject() : dynamic_cast<QObject*>(peer);
}

QWidget* qWidgetOf(GuiObject* peer) noexcept
{
    const QtObject2* mine = qtPeer(peer);
    return mine ? mine->asQWidget() : dynamic_cast<QWidget*>(peer);
}

bool isWithin(const QWidget* outer, const QWidget* inner) noexcept
{
    for (; inner; inner = inner->parentWidget()) {
        if (inner == outer)
            return true;
    }
    return false;
}

} // namespace VOXI
