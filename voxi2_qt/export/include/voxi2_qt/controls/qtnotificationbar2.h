#pragma once

#include "voxi2/controls/vxnotificationbar2.h"
#include "voxi2/kernel/vxclock2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QFrame>
#include <QVariantAnimation>

#include <deque>
#include <memory>
#include <optional>

namespace VOXI {

class QtNotificationFace;

/// The peer of the notification bar.
///
/// It is a window onto its face, which is as large as it has to be: where the style animates, the
/// bar grows and shrinks, and more or less of the face's lower part is seen.
class VOXI2_QT_EXPORT QtNotificationBar2
    : public QtWidget2Shim<VXNotificationBar2, VXNotificationBar2Emitters, QtWidget2, QFrame>
{
    Q_OBJECT

public:
    QtNotificationBar2(VXNotificationBar2* object, VXNotificationBar2Emitters* emitters,
                       QWidget* parent);

    void doShow() override;
    void doHide() override;
    void doSetVisible(bool visible) override;
    bool doIsVisible() override;

    // Requests, in the order of the emitters table
    virtual void doNotify(const Notification& notification, NotificationArrival arrival);
    virtual void doDismiss();
    virtual void doWithdraw(unsigned uid);
    virtual void doClear();
    virtual Notification doGetNotification();
    virtual int doCountWaiting();
    virtual void doimClickButton(int id);
    virtual void doimClickClose();

    QString text() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void slotButtonClicked(int index);
    void slotCloseClicked();
    void slotLinkActivated(const QString& target);
    void finishVanishing();

private:
    void timeIsUp();
    void endShown(NotificationEnd how);
    void showNext(bool byProgram);
    void present();
    void startTimer();
    void appear();
    void vanish(bool byProgram);
    void slideTo(double share);
    void setShare(double share);
    /// Of a height of the face, what is seen of it at present, with the margins.
    int seen(int height) const;
    void placeFace();

    std::optional<Notification> m_shown;
    std::deque<Notification> m_waiting;
    std::unique_ptr<VXClock2::Timer> m_timer;
    QVariantAnimation m_sliding;
    QtNotificationFace* m_face;
    double m_share = 1; // of the face that is seen
    bool m_isVanishing = false;
    bool m_byProgram = false; // the vanishing
};

} // namespace VOXI
