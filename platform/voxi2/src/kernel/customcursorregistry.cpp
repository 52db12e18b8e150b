#include "voxi2/kernel/customcursorregistry.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<CustomCursorRegistry*> s_registry{nullptr};

} // namespace

CustomCursorRegistry::~CustomCursorRegistry() = default;

void CustomCursorRegistry::installCustomCursorRegistry(CustomCursorRegistry* registry)
{
    s_registry.store(registry, std::memory_order_release);
}

CustomCursorRegistry* CustomCursorRegistry::instance()
{
    return s_registry.load(std::memory_order_acquire);
}

} // namespace VOXI
