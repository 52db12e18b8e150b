#pragma once

namespace VOXI {

/// Begins to look at all events of the Qt application, for what no widget of ours gets to see: the
/// deletion of what Qt has made inside peers, and the way of the focus from window to window. Does
/// nothing when it looks already, or where there is no application.
void watchApplication();

} // namespace VOXI
