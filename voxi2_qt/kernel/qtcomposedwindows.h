#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Windows that the graphics card puts together, since something in them, or in a window that they
/// own, is drawn by it.
///
/// Qt keeps the QWindow of a window whose owner or flags change, also when it becomes a part of
/// another one, and with it what it paints into. Both were made for what the window held then. Once
/// something drawn by the graphics card lies in it, Qt gives what was painted to a card that is not
/// there, or destroys the QWindow with that of the new window and goes on with it. So a window that
/// Qt is to make anew begins without. GUI thread only.
class VOXI2_QT_EXPORT QtComposedWindows
{
public:
    /// To be called before the first widget that is drawn so is made; again does nothing. Programs
    /// that have none keep their QWindows.
    static void begin();

    /// The owner or the flags of this have changed, or it was closed.
    static void settle(QWidget& widget);

private:
    static bool ms_areThere;
};

} // namespace VOXI
