#pragma once

#include <QDockWidget>

namespace VOXI {

/// Opens the menu of a pane that is docked in a window, or torn off it: what its user can do to it
/// with the mouse, and which of the window's panes and tool bars are shown. Does not wait.
void openDockMenu(QDockWidget& dock, const QPoint& globalPlace);

} // namespace VOXI
