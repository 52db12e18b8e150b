#pragma once

#include "voxi2/controls/vxmimicview2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QCursor>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>

namespace VOXI {

class ForeignInput;
class QtMimicSource2;

/// The peer of the mimic view.
class VOXI2_QT_EXPORT QtMimicView2
    : public QtWidget2Shim<VXMimicView2, VXMimicView2Emitters, QtWidget2, QWidget>
{
    Q_OBJECT

public:
    QtMimicView2(VXMimicView2* object, VXMimicView2Emitters* emitters, QWidget* parent);
    ~QtMimicView2() override;

    // Requests, in the order of the emitters table
    virtual void doSetSource(VXMimicSource2* source);
    virtual void doSetAspectKept(bool kept);
    virtual void doSetForwarding(bool forwarding);
    virtual VXMimicSource2* doGetSource();
    virtual bool doIsAspectKept();
    virtual bool doIsForwarding();
    virtual VXRect<int> doGetPictureRect();

    void doSetCursor(const Cursor& cursor) override;
    void doUnsetCursor() override;
    Cursor doGetCursor() override;

    bool shows(const QtMimicSource2& source) const;
    QSize sizeHint() const override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    void slotImageChanged();
    void slotSourceDestroyed();

    void watch();
    QSizeF imageSize() const;
    QRectF pictureRect() const;

    void letGo();
    QWidget* inputWidget() const;
    QPointF toSource(const QPointF& point) const;
    QWidget* widgetAt(QWidget& source, const QPointF& point) const;
    bool isForeign();
    QPointF toPixels(const QPointF& point) const;
    void forwardPointer(QMouseEvent& event);
    void hover(const QPointF& point);
    bool forwardToolTip(QHelpEvent& event);
    void borrowCursor(const QWidget* widget);
    bool forwardKey(QKeyEvent& event);
    bool forwardTab(QKeyEvent& event);
    QWidget* typedWidget() const;
    void setTyped(QWidget* widget);
    void send(QWidget& target, QEvent& event, QEvent& original);

    QPointer<QtMimicSource2> m_source;
    QPointer<QWidget> m_held;                ///< what was pressed, until the buttons are released
    QPointer<QWidget> m_typed;               ///< what keys go to
    std::unique_ptr<ForeignInput> m_foreign; ///< while another program is forwarded to
    std::optional<QCursor> m_ownCursor;      ///< that the program has set
    bool m_isCursorBorrowed = false;         ///< the one that is seen is the source's
    bool m_isAspectKept = true;
    bool m_isForwarding = false;
    bool m_isSending = false; ///< views may lie in what they show
};

} // namespace VOXI
