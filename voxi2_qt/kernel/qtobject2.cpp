#include "voxi2_qt/kernel/qtobject2.h"

#include <QObject>
#include <QWidget>

namespace VOXI {

namespace {

using E = VXObject2Emitters;
using P = QtObject2;

const auto s_requests = TROV::operations<E>(
    TROV::row<&E::destroy, &P::doDestroy>(),
    TROV::row<&E::setParent, &P::doSetParent>(),
    TROV::row<&E::getParent, &P::doGetParent>(),
    TROV::row<&E::getChildren, &P::doGetChildren>());

}  // namespace

QtObject2::QtObject2(VXObject2* object, VXObject2Emitters* emitters)
    : m_object(object), m_uid(object ? object->id() : 0)
{
    addObject();
    if (emitters)
        bindRequests(emitters, s_requests);
}

QtObject2::~QtObject2()
{
    QtObject2::disconnect();
    removeObject();
}

void QtObject2::endPeer()
{
    disconnect();
    removeObject();
}

void QtObject2::vxMessageNotify(VXMessageType, QtMessage*) {}

void QtObject2::init() {}

// Requests ----------------------------------------------------------------------------------------

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

VXObject* QtObject2::doGetParent()
{
    return abstractObjectOf(asQObject()->parent());
}

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

void QtObject2::doDestroy()
{
    scheduleDelete();
}

// Life --------------------------------------------------------------------------------------------

VXObject* QtObject2::getHandle() const
{
    return isVXObjectValid() ? m_object : nullptr;
}

bool QtObject2::isVXObjectValid() const
{
    return VXObject::objectById(m_uid) == m_object && m_object;
}

void QtObject2::scheduleDelete()
{
    disconnect();
    removeObject();
    GuiObject::scheduleDelete();
}

void QtObject2::deferDelete()
{
    QObject* object = asQObject();
    const QtObject2* parent = peerOf(object->parent());
    // Whoever goes with its parent need not go one by one: that would be quadratic in the parent.
    if (!parent || !parent->isDeletionScheduled())
        object->deleteLater();
}

void QtObject2::disconnect()
{
    m_requests.unbind();
    Listener::disconnect();
}

void QtObject2::addObject()
{
    if (m_uid != 0)
        VOXI::addObject(m_uid, this);
}

void QtObject2::removeObject()
{
    VXObjectDataLocker lock;
    if (m_uid != 0 && lookup(m_uid) == this)
        VOXI::removeObject(m_uid);
}

QWidget* QtObject2::asQWidget() const noexcept
{
    return nullptr;
}

// Finding peers -----------------------------------------------------------------------------------

QtObject2* peerOf(const QObject* object) noexcept
{
    return object ? const_cast<QtObject2*>(dynamic_cast<const QtObject2*>(object)) : nullptr;
}

VXObject* abstractObjectOf(const QObject* object)
{
    const QtObject2* peer = peerOf(object);
    return peer ? peer->getHandle() : nullptr;
}

QObject* qObjectOf(GuiObject* peer) noexcept
{
    // Through the peer base, because that is much faster than a cast across the classes.
    if (const auto* mine = dynamic_cast<QtObject2*>(peer))
        return mine->asQObject();
    return dynamic_cast<QObject*>(peer);
}

QWidget* qWidgetOf(GuiObject* peer) noexcept
{
    if (const auto* mine = dynamic_cast<QtObject2*>(peer))
        return mine->asQWidget();
    return dynamic_cast<QWidget*>(peer);
}

}  // namespace VOXI
