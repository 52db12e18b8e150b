#pragma once

class QString;

namespace VOXI {

/// The function of that name in a library that lies beside this one, wherever that was loaded from;
/// the library is loaded for it, and stays. Null where there is none, and then `error` says why.
void (*sideLibraryFunction(const char* library, const char* function, QString& error))();
/// The same; where there is none a warning that begins with `missing` says why.
void (*sideLibraryFunction(const char* library, const char* function, const char* missing))();

} // namespace VOXI
