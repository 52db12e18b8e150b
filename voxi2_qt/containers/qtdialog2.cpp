#include "voxi2_qt/containers/qtdialog2.h"

#include "../kernel/qtignored.h"
#include "voxi2/controls/vxbutton2.h"

#include <QKeyEvent>
#include <QPushButton>

namespace VOXI {

namespace {

using E = VXDialog2Emitters;
using P = QtDialog2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setDefaultButton, &P::doSetDefaultButton>(),
    TROV::row<&E::setSizeGripEnabled, &P::doSetSizeGripEnabled>(),
    TROV::row<&E::getDefaultButton, &P::doGetDefaultButton>(),
    TROV::row<&E::isSizeGripEnabled, &P::doIsSizeGripEnabled>());
// clang-format on

QPushButton* defaultButtonOf(const QDialog& dialog)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (button->isDefault() && button->window() == &dialog)
            return button;
    }
    return nullptr;
}

} // namespace

QtDialog2::QtDialog2(VXDialog2* object, VXDialog2Emitters* emitters, QWidget* parent,
                     Qt::WindowFlags flags)
    : QtDialog2Shim(object, emitters, s_requests, parent, flags)
{}

// Requests ----------------------------------------------------------------------------------------

void QtDialog2::doSetDefaultButton(VXButton2* button)
{
    withWidgetOrNone(button, [this](QWidget* widget) {
        QPushButton* const changed =
            widget ? qobject_cast<QPushButton*>(widget) : defaultButtonOf(*this);
        if (changed && changed->window() == this)
            changed->setDefault(widget != nullptr);
        else if (widget)
            ignored(*this, "that is no button in this dialog");
    });
}

void QtDialog2::doSetSizeGripEnabled(bool enabled) { setSizeGripEnabled(enabled); }

VXButton2* QtDialog2::doGetDefaultButton()
{
    return abstractObjectOf<VXButton2>(defaultButtonOf(*this));
}

bool QtDialog2::doIsSizeGripEnabled() { return isSizeGripEnabled(); }

// Reports -----------------------------------------------------------------------------------------

void QtDialog2::keyPressEvent(QKeyEvent* event)
{
    // Who has gone to a button with the keyboard means that one, not the default.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* const focused = qobject_cast<QPushButton*>(focusWidget());
    if (isReturn && focused)
        focused->click();
    else
        QDialog::keyPressEvent(event);
}

} // namespace VOXI
