#pragma once

#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/icon.h"

#include <QIcon>

namespace VOXI {

/// An icon that is composed whenever a size, mode and state is first needed, in the pixels of the
/// screen it is shown on. A null icon becomes a null QIcon. GUI thread.
///
/// Icons in recent use share their pictures, so converting one again is cheap.
VOXI2_QT_EXPORT QIcon VX2Qt(const Icon& icon);

/// A size to show icons with, within `Icon::MaxShownSide`. A negative one stays what Qt takes for
/// the style's own.
VOXI2_QT_EXPORT QSize toQIconSize(const Size<int>& size) noexcept;

VOXI2_QT_EXPORT QIcon::Mode VX2Qt(Icon::IconMode mode) noexcept;
VOXI2_QT_EXPORT QIcon::State VX2Qt(Icon::IconState state) noexcept;

} // namespace VOXI
