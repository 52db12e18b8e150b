#include "voxi2_qt/containers/qtcolordialog2.h"

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

#include <QLayout>

namespace VOXI {

namespace {

/// Qt's pickers divide by their sides, without what they leave at the edges. They are among those
/// parts that ask for no room, and so might get none.
void keepPickersWide(const QColorDialog& dialog)
{
    constexpr QSize Least(16, 16);
    for (QWidget* const each : dialog.findChildren<QWidget*>()) {
        if (!each->minimumSizeHint().isValid())
            each->setMinimumSize(each->minimumSize().expandedTo(Least));
    }
}

using E = VXColorDialog2Emitters;
using P = QtColorDialog2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setCurrentColor, &P::doSetCurrentColor>(),
    TROV::row<&E::getCurrentColor, &P::doGetCurrentColor>(),
    TROV::row<&E::setAlphaEnabled, &P::doSetAlphaEnabled>(),
    TROV::row<&E::isAlphaEnabled, &P::doIsAlphaEnabled>());
// clang-format on

} // namespace

QtColorDialog2::QtColorDialog2(VXColorDialog2* object, VXColorDialog2Emitters* emitters,
                               QWidget* parent, Qt::WindowFlags flags)
    : QtDialog2Shim(object, emitters, s_requests, parent)
{
    setWindowFlags(flags | Qt::Dialog);
    setOption(DontUseNativeDialog);
    layout()->setSizeConstraint(QLayout::SetDefaultConstraint); // Qt's has one size
    keepPickersWide(*this);
}

// Requests ----------------------------------------------------------------------------------------

void QtColorDialog2::doSetCurrentColor(const Color& color)
{
    const QtSignalBlocker signals(this);
    setCurrentColor(VX2Qt(color));
}

Color QtColorDialog2::doGetCurrentColor() { return Qt2VX(currentColor()); }

void QtColorDialog2::doSetAlphaEnabled(bool enabled)
{
    const QtSignalBlocker signals(this);
    setOption(ShowAlphaChannel, enabled);
}

bool QtColorDialog2::doIsAlphaEnabled() { return testOption(ShowAlphaChannel); }

// Reports -----------------------------------------------------------------------------------------

void QtColorDialog2::connectSignals()
{
    connect(this, &QColorDialog::currentColorChanged, this,
            &QtColorDialog2::slotCurrentColorChanged);
}

void QtColorDialog2::slotCurrentColorChanged(const QColor& color)
{
    report(&E::currentColorChanged, Qt2VX(color));
}

} // namespace VOXI
