#include "voxi2/controls/vxnotificationbar2.h"

namespace VOXI {

VXNotificationBar2::VXNotificationBar2(VXObject2* parent)
    : VXWidget2(parent),
      m_emitters(VXWidget2::m_emitters)
{
    createPeer(&VXFactory2::createNotificationBar2, this, &m_emitters, parent);
}

VXNotificationBar2::~VXNotificationBar2() { retire(); }

void VXNotificationBar2::notify(const Notification& notification, NotificationArrival arrival)
{
    m_emitters.notify(notification, arrival);
}

void VXNotificationBar2::notify(const AnyText& text, NotificationKind kind, int timeout)
{
    notify({.text = text.toWide(), .kind = kind, .timeout = timeout});
}

void VXNotificationBar2::dismiss() { m_emitters.dismiss(); }
void VXNotificationBar2::withdraw(unsigned uid) { m_emitters.withdraw(uid); }
void VXNotificationBar2::clear() { m_emitters.clear(); }
Notification VXNotificationBar2::notification() const { return m_emitters.getNotification(); }
int VXNotificationBar2::waitingCount() const { return m_emitters.countWaiting(); }
void VXNotificationBar2::imitateButton(int id) { m_emitters.clickButton(id); }
void VXNotificationBar2::imitateClose() { m_emitters.clickClose(); }

} // namespace VOXI
