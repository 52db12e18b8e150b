#include "voxi2/kernel/post.h"

#include "voxi/vxbridge.h"
#include "voxi2/kernel/vxfactory2.h"

namespace VOXI {

TROV::Thread* toolkitThread() noexcept
{
    const VXFactory2* const factory = VXFactory2::current();
    const VXBridge* const bridge = factory ? factory->getBridge() : nullptr;
    return bridge ? bridge->thread() : nullptr;
}

} // namespace VOXI
