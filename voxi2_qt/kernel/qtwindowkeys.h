#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// What keys do in a window of ours when nothing in it wants them: F6 goes to the next tool bar,
/// pane or the window's centre, F8 to the next handle of a splitter, F10 to the menu bar, Shift+F10
/// opens the context menu, Ctrl+Shift+F10 that of the pane around. And what they do on the buttons
/// of tool bars, which Qt does not reach by keys. To be called before `receiver` gets the press of
/// a key; true if it is not to get it any more.
bool passKey(QWidget& receiver, QKeyEvent& event);

/// The focus goes back to where it was before F6 or F8 brought it to a tool bar or handle.
void focusFormer();

} // namespace VOXI
