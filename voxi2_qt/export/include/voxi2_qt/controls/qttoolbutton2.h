#pragma once

#include "voxi2/controls/vxtoolbutton2.h"
#include "voxi2_qt/controls/qtabstractbutton2.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QToolButton>

namespace VOXI {

/// The peer of the tool button.
class VOXI2_QT_EXPORT QtToolButton2
    : public QtWidget2Shim<VXToolButton2, VXToolButton2Emitters, QtAbstractButton2, QToolButton>
{
    Q_OBJECT

public:
    QtToolButton2(VXToolButton2* object, VXToolButton2Emitters* emitters, QWidget* parent);

protected:
    // Requests, in the order of the emitters table; QToolButton has an enumeration of that name too
    void doSetMenu(VXMenu2* menu);
    VXMenu2* doGetMenu();
    void doSetDefaultAction(VXAction2* action);
    VXAction2* doGetDefaultAction();
    void doSetPopupMode(VOXI::ToolButtonPopupMode mode);
    VOXI::ToolButtonPopupMode doGetPopupMode();
    void doSetToolButtonStyle(ToolButtonStyle style);
    ToolButtonStyle doGetToolButtonStyle();
    void doClearMenu();
    void doClearDefaultAction();
    void doSetAutoRaise(bool autoRaise);
    bool doIsAutoRaise();

    void actionEvent(QActionEvent* event) override;

private Q_SLOTS:
    void slotClicked();
    void slotToggled(bool checked);

private:
    struct Requests;
};

} // namespace VOXI
