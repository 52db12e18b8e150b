#pragma once

#include "voxi2/containers/anchorside.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <vector>

namespace VOXI {

/// The part of a widget that something else is placed beside, and, while it is watched, what
/// happens to it.
class VOXI2_QT_EXPORT QtAnchor : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// An invalid part stands for the whole widget. The widget may go; null is no anchor.
    void set(QWidget* widget, const QRect& part);
    /// Whether there is a widget, or has been one that ended.
    bool isSet() const noexcept { return m_isSet; }
    /// Null when there is none, or when it has ended.
    QWidget* widget() const noexcept { return m_widget; }
    /// The part, or the whole where none was set, in the widget's coordinates.
    QRect part() const;

    /// The part on the screen; empty when nothing of it is to be seen.
    QRect visibleRect() const;

    /// Begins to send the signals; before, and after `unwatch`, none is sent.
    void watch();
    void unwatch();

Q_SIGNALS:
    /// It is, or may be, at another place of the screen.
    void moved();
    /// It was hidden, or is not to be seen any more.
    void gone();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_widget;
    QRect m_part;
    bool m_isSet = false;
    std::vector<QPointer<QWidget>> m_watched; // the widget and all around it
    bool m_isFollowing = false;               // a change is being passed on
};

/// Where a window of that size is placed beside an anchor: on the wanted side, or on the opposite
/// one where there is more room, and inside the screen.
VOXI2_QT_EXPORT QPoint placeBeside(const QRect& anchor, const QSize& size, AnchorSide side,
                                   const QRect& screen, Qt::LayoutDirection direction);

} // namespace VOXI
