#pragma once

#include "voxi_util/pixmap.h"

#include <QByteArray>
#include <QPixmap>

namespace VOXI {

/// A picture of a page; null where it cannot be read, or is a drawing that refers to anything
/// outside of itself. Qt would open whatever file such a drawing names.
QPixmap pagePicture(const QByteArray& bytes);
QPixmap pagePicture(const Pixmap& picture);

// What stands for pictures that there are not. Where a page has none Qt opens the file of that
// name.
QPixmap pictureToCome();
QPixmap missingPicture();

} // namespace VOXI
