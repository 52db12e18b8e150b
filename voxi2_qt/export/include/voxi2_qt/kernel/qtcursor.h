#pragma once

#include "voxi2/kernel/cursor.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <Qt>

namespace VOXI {

/// A custom shape becomes the arrow: its picture is with the registry of custom cursors.
VOXI2_QT_EXPORT Qt::CursorShape VX2Qt(const CursorShape& shape) noexcept;

/// A bitmap becomes the arrow.
VOXI2_QT_EXPORT CursorShape Qt2VX(Qt::CursorShape shape) noexcept;

} // namespace VOXI
