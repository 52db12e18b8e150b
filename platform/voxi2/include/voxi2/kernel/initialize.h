#pragma once

#include "voxi2/voxi2_export.h"

namespace VOXI {

/// Brings the abstract side up; a back end calls it before it registers its factory. While it is up
/// it does nothing.
VOXI2_EXPORT void initialize_voxi2();

/// Takes the abstract side down: every peer is destroyed, objects live on without one, and new ones
/// get none. While it is down it does nothing; it may be brought up again.
VOXI2_EXPORT void terminate_voxi2();

} // namespace VOXI
