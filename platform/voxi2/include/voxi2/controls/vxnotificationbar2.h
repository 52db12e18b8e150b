#pragma once

#include "voxi2/controls/notification.h"
#include "voxi2/controls/vxnotificationevents2.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2/voxi2_export.h"
#include "voxi_util/anytext.h"

namespace VOXI {

struct VXNotificationBar2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<void(Notification, NotificationArrival)> notify{*this};
    TROV::Request<void()> dismiss{*this};
    TROV::Request<void(unsigned)> withdraw{*this};
    TROV::Request<void()> clear{*this};
    TROV::Request<Notification()> getNotification{*this};
    TROV::Request<int()> countWaiting{*this};
    TROV::Request<void(int)> clickButton{*this};
    TROV::Request<void()> clickClose{*this};
    TROV::RequestsEnd requestsEnd{*this};

    TROV::Event<void(const VXNotificationButtonEvent2&)> buttonClicked{*this};
    TROV::Event<void(const VXNotificationLinkEvent2&)> linkActivated{*this};
    TROV::Event<void(const VXNotificationEndEvent2&)> dismissed{*this};
};

/// Tells the user something without stopping him: a bar at the edge of a page, to be put into its
/// layout.
///
/// It is hidden while there is nothing to tell. One notification is shown at a time, others wait
/// until it is dismissed: by its user, by the program, or when its time is up. The time runs while
/// the bar can be seen, and begins anew when the pointer has left it; it does not end while the
/// pointer is over the bar or the keyboard focus in it. Where the style animates the bar slides in
/// and out. Escape in it closes what has a close button.
///
/// Assistive programs read it as an alert. Of a plain text that is longer the first 2000 characters
/// are shown.
class VOXI2_EXPORT VXNotificationBar2 : public VXWidget2
{
public:
    using ToolkitClass = VXNotificationBar2;

    explicit VXNotificationBar2(VXObject2* parent = nullptr);
    ~VXNotificationBar2() override;

    /// Shows the bar, and in it the notification when it is its turn.
    void notify(const Notification& notification,
                NotificationArrival arrival = NotificationArrival::Waits);
    /// A plain text; `timeout` in milliseconds, 0 until it is closed.
    void notify(const AnyText& text, NotificationKind kind = NotificationKind::Information,
                int timeout = 0);

    /// Takes away what is shown; what waits first comes in its place.
    void dismiss();
    /// The same with all notifications of that number, shown or waiting; 0 is nobody's.
    void withdraw(unsigned uid);
    /// Takes away all there are.
    void clear();

    /// What is shown, or would be if the bar were not hidden; an empty one where there is none.
    Notification notification() const;
    /// How many wait for their turn.
    int waitingCount() const;

    // As if the user had done it: reported

    /// Clicks the first button of that number, if there is one.
    void imitateButton(int id);
    /// Clicks the close button, if there is one.
    void imitateClose();

    // Events

    /// The user has clicked a button. If that dismisses the notification, `dismissed` follows.
    TROV::Signal<void(const VXNotificationButtonEvent2&)> buttonClicked() const
    {
        return m_emitters.buttonClicked.signal();
    }
    /// The user has clicked a link of a rich text, or pressed Return on it.
    TROV::Signal<void(const VXNotificationLinkEvent2&)> linkActivated() const
    {
        return m_emitters.linkActivated.signal();
    }
    /// A notification has gone without the program. What comes in its place is there already.
    TROV::Signal<void(const VXNotificationEndEvent2&)> dismissed() const
    {
        return m_emitters.dismissed.signal();
    }

private:
    VXNotificationBar2Emitters m_emitters;
};

} // namespace VOXI
