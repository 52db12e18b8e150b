#pragma once

#include "voxi2/containers/vxtooltipwindow2.h"
#include "voxi2/kernel/vxclock2.h"
#include "voxi2_qt/containers/qtcontainer2.h"
#include "voxi2_qt/kernel/qtanchor.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QPropertyAnimation>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace VOXI {

/// The peer of the tool-tip window.
class VOXI2_QT_EXPORT QtToolTipWindow2
    : public QtWidget2Shim<VXToolTipWindow2, VXToolTipWindow2Emitters, QtContainer2, QWidget>
{
    Q_OBJECT

public:
    QtToolTipWindow2(VXToolTipWindow2* object, VXToolTipWindow2Emitters* emitters, QWidget* parent);

    void doSetParent(VXObject* parent) override;
    void doShow() override;
    void doHide() override;
    void doSetVisible(bool visible) override;
    bool doIsVisible() override;
    void doSetFocus() override;
    void doSetActiveWindow() override;

    // Requests, in the order of the emitters table
    virtual void doSetText(const std::string& text);
    virtual void doSetTextU(const std::wstring& text);
    virtual void doSetRichText(bool rich);
    virtual void doSetIcon(const Icon& icon);
    virtual void doSetAnchor(VXWidget2* widget, VXRect<int> part, AnchorSide side);
    virtual void doSetTimeout(int milliseconds);
    virtual std::string doGetText();
    virtual std::wstring doGetTextU();
    virtual bool doIsRichText();
    virtual Icon doGetIcon();
    virtual VXWidget2* doGetAnchor();
    virtual VXRect<int> doGetAnchorRect();
    virtual AnchorSide doGetAnchorSide();
    virtual int doGetTimeout();

    QString text() const;
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void place();
    void finishVanishing();
    void slotAnchorGone();

private:
    void makeFace();
    void adoptStyle();
    void setShownText(const QString& text);
    void refit();
    void moveBeside(const QWidget& anchor, QPoint position);
    void startTimer();
    int fadeDuration() const;
    void fadeTo(double opacity);
    void vanish(bool byProgram);

    QtAnchor m_anchor;
    std::unique_ptr<VXClock2::Timer> m_timer;
    QPropertyAnimation m_fading;
    QWidget* m_face; // shows text and icon
    QLabel* m_iconLabel;
    QLabel* m_textLabel;
    AnchorSide m_side = AnchorSide::Below;
    int m_timeout = -1;
    bool m_isVanishing = false;
    bool m_byProgram = false; // the vanishing
    bool m_isPressed = false;
    bool m_isMoving = false; // hidden and shown again for it
};

} // namespace VOXI
