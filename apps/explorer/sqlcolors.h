#pragma once

#include "voxi2/controls/vxeditarea2.h"

namespace explorer {

/// Colours the area's text as SQL.
void colorAsSql(VOXI::VXEditArea2* area);

} // namespace explorer
