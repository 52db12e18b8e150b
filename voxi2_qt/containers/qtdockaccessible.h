#pragma once

namespace VOXI {

/// Has assistive technology told the accessible name of dock widgets, which Qt's own interface for
/// them does not know. Again it does nothing.
void makeDockWidgetsAccessible();

} // namespace VOXI
