#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

// What a host finds in the library, linked or by name at run time.
extern "C" {

/// Brings the Qt back end up on the calling thread, which must be the one of the `QApplication`;
/// that has to exist. Again it does nothing, also after `terminate_voxi2_qt`.
VOXI2_QT_EXPORT void initialize_voxi2_qt();

/// Takes the back end down: peers are destroyed, and abstract objects answer with defaults from now
/// on. Call it while the `QApplication` still exists. Again it does nothing.
VOXI2_QT_EXPORT void terminate_voxi2_qt();

/// The version of the interface, and the date that belongs to it.
VOXI2_QT_EXPORT extern const char* const voxi2_qt_version;
VOXI2_QT_EXPORT extern const char* const voxi2_qt_build_date;
}
