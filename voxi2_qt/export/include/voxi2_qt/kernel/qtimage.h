#pragma once

#include "voxi2_qt/voxi2_qt_export.h"
#include "voxi_util/pixmap.h"

#include <QByteArray>
#include <QImage>
#include <QPixmap>
#include <QString>

namespace VOXI {

/// The picture as pixels, decoded at its natural size if need be; null when it is null or cannot be
/// decoded. Any thread.
VOXI2_QT_EXPORT QImage toQImage(const Pixmap& pixmap);

/// The same for the screen. GUI thread.
VOXI2_QT_EXPORT QPixmap toQPixmap(const Pixmap& pixmap);

/// What a file holds, of pictures and drawings; nothing of what is no plain file, such as a device,
/// or larger than `ImageDecoder::fileSizeLimit`. Any thread.
VOXI2_QT_EXPORT QByteArray bytesOfFile(const QString& name);

/// The picture in a file, decoded; null when there is none. At the end of its base name "@2x" to
/// "@9x" say how many pixels it has for each unit of the screen. Any thread.
VOXI2_QT_EXPORT QImage imageOfFile(const QString& name);

/// A raw pixmap of all device pixels, with their ratio; null for a null image.
VOXI2_QT_EXPORT Pixmap Qt2VX(const QImage& image);
VOXI2_QT_EXPORT Pixmap Qt2VX(const QPixmap& pixmap);

/// Installs a decoder of pictures that reads every format Qt knows, and SVG drawings.
VOXI2_QT_EXPORT void installQtImageDecoder();

} // namespace VOXI
