#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Begins to look at all events of the Qt application, for what no widget of ours gets to see: the
/// deletion of what Qt has made inside peers, the way of the focus from window to window, and keys
/// that nothing wants. Does nothing when it looks already, or where there is no application.
void watchApplication();

/// The program has changed the state of a window: what Qt tells of its showing and hiding, when the
/// window system has carried that out, is not reported until it has settled.
void awaitState(QWidget& window);
void stateSettled(QWidget& window);

} // namespace VOXI
