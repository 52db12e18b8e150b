#pragma once

// Every conversion between values of the toolkit and values of Qt.
#include "voxi2_qt/kernel/qtcolor.h"
#include "voxi2_qt/kernel/qtcursor.h"
#include "voxi2_qt/kernel/qtdocking.h"
#include "voxi2_qt/kernel/qtenums.h"
#include "voxi2_qt/kernel/qtfont.h"
#include "voxi2_qt/kernel/qtgeometry.h"
#include "voxi2_qt/kernel/qticon.h"
#include "voxi2_qt/kernel/qtimage.h"
#include "voxi2_qt/kernel/qtinput.h"
#include "voxi2_qt/kernel/qtmime.h"
#include "voxi2_qt/kernel/qttext.h"
#include "voxi2_qt/kernel/qtwindowflags.h"
