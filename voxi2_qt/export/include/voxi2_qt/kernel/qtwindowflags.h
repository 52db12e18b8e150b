#pragma once

#include "voxi2/kernel/windowflags.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <Qt>

namespace VOXI {

/// Window flags (see WindowFlag) for a Qt window. Bit 0x0010 means nothing; when all of 0xfff0 are
/// set, all bits of Qt's window type are set too.
VOXI2_QT_EXPORT Qt::WindowFlags voxiFlagToQt(unsigned int flags) noexcept;

/// The window flags that a Qt window may have been made from. Qt's window types share bits and any
/// shared bit counts: a window of any type answers with the flags of a window, dialog, popup,
/// desktop and tool, a frameless one with both names of frameless. Do not expect to get back what
/// was set.
VOXI2_QT_EXPORT unsigned int QtFlagToVoxi(Qt::WindowFlags flags) noexcept;

VOXI2_QT_EXPORT Qt::WindowStates VX2Qt(VXFlags<WindowState> states) noexcept;
VOXI2_QT_EXPORT VXFlags<WindowState> Qt2VX(Qt::WindowStates states) noexcept;

} // namespace VOXI
