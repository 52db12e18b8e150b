#pragma once

#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/vxfont.h"

#include <QFont>

namespace VOXI {

/// The closest scalable family, and the size if it is more than 0; an empty family and other sizes
/// leave Qt's default to be inherited. GUI thread, because families may be looked up.
VOXI2_QT_EXPORT QFont VX2Qt(const VXFont& font);

/// A font whose size is in pixels has the point size -1.
VOXI2_QT_EXPORT VXFont Qt2VX(const QFont& font);

/// Lets Qt's font database answer getClosestScaleableFontName.
VOXI2_QT_EXPORT void installQtFontNameResolver();

} // namespace VOXI
