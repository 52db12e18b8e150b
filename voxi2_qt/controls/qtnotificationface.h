#pragma once

#include "voxi2/controls/notification.h"

#include <QList>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;
QT_END_NAMESPACE

namespace VOXI {

class QtElidingLabel;

/// What is to be seen of a notification, in the colour of its kind.
class QtNotificationFace : public QWidget
{
    Q_OBJECT

public:
    explicit QtNotificationFace(QWidget* parent);

    void present(const Notification& notification);

    /// What it says, without markup.
    QString text() const;
    /// With the whole text in one line.
    QSize sizeHint() const override;

Q_SIGNALS:
    /// Which of the notification's buttons.
    void buttonClicked(int index);
    void closeClicked();
    void linkActivated(const QString& target);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showText(const QString& text, bool isRich);
    void showIcon();
    void makeButtons(const std::vector<NotificationButton>& buttons);

    NotificationKind m_kind = NotificationKind::Information;
    Icon m_icon;
    QHBoxLayout* m_row;
    QLabel* m_iconLabel;
    QtElidingLabel* m_label;
    QToolButton* m_close;
    QList<QPushButton*> m_buttons;
};

} // namespace VOXI
