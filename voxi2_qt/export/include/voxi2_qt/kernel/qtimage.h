#pragma once

#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/pixmap.h"

#include <QImage>
#include <QPixmap>

namespace VOXI {

/// The picture as pixels, decoded at its natural size if need be; null when it is null or cannot be
/// decoded. Any thread.
VOXI2_QT_EXPORT QImage toQImage(const Pixmap& pixmap);

/// The same for the screen. GUI thread.
VOXI2_QT_EXPORT QPixmap toQPixmap(const Pixmap& pixmap);

/// A raw pixmap of all device pixels; null for a null image.
VOXI2_QT_EXPORT Pixmap Qt2VX(const QImage& image);
VOXI2_QT_EXPORT Pixmap Qt2VX(const QPixmap& pixmap);

/// Installs a decoder of pictures that reads every format Qt knows, and SVG drawings.
VOXI2_QT_EXPORT void installQtImageDecoder();

} // namespace VOXI
