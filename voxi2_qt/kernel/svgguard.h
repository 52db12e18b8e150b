#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QByteArray>

namespace VOXI {

/// The drawing that the bytes hold, unpacked, if it can be given to Qt; nothing otherwise. Any
/// thread.
///
/// Qt opens every file that a drawing names, follows elements that contain themselves until the
/// stack ends, and works for as long as it is told to. So what comes through here refers to nothing
/// outside of itself, ends, and is bounded in what it costs in time and memory.
VOXI2_QT_EXPORT QByteArray harmlessSvg(const QByteArray& bytes);

/// Whether the bytes are markup, or something compressed; no picture of pixels begins like that.
VOXI2_QT_EXPORT bool looksLikeSvg(const QByteArray& bytes);

} // namespace VOXI
