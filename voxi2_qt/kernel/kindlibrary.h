#pragma once

namespace VOXI {

/// A function of the library `name`, which lies beside this one, wherever that was loaded from, and
/// is loaded for it. Null, and a warning that begins with `missing`, where there is none.
void (*functionOfKindLibrary(const char* name, const char* function, const char* missing))();

} // namespace VOXI
