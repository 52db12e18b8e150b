#include "voxi2_qt/containers/qtfontdialog2.h"

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtsignalblocker.h"

namespace VOXI {

namespace {

using E = VXFontDialog2Emitters;
using P = QtFontDialog2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setCurrentFont, &P::doSetCurrentFont>(),
    TROV::row<&E::getCurrentFont, &P::doGetCurrentFont>());
// clang-format on

} // namespace

QtFontDialog2::QtFontDialog2(VXFontDialog2* object, VXFontDialog2Emitters* emitters,
                             QWidget* parent, Qt::WindowFlags flags)
    : QtDialog2Shim(object, emitters, s_requests, parent)
{
    setWindowFlags(flags | Qt::Dialog);
    setOption(DontUseNativeDialog);
}

// Requests ----------------------------------------------------------------------------------------

void QtFontDialog2::doSetCurrentFont(const VXFont& font)
{
    const QtSignalBlocker signals(this);
    setCurrentFont(VX2Qt(font));
}

VXFont QtFontDialog2::doGetCurrentFont() { return Qt2VX(currentFont()); }

// Reports -----------------------------------------------------------------------------------------

void QtFontDialog2::connectSignals()
{
    connect(this, &QFontDialog::currentFontChanged, this, &QtFontDialog2::slotCurrentFontChanged);
}

void QtFontDialog2::slotCurrentFontChanged(const QFont& font)
{
    report(&E::currentFontChanged, Qt2VX(font));
}

} // namespace VOXI
