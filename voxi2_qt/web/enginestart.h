#pragma once

namespace VOXI {

/// To be called before anything of the engine is made; does its work once. The schemes of the
/// program are registered, which the engine takes no later, and its process is started with the
/// flags that it needs.
void startEngine();

} // namespace VOXI
