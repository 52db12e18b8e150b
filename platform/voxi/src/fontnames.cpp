#include "voxi/fontnames.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<FontNameResolver> s_resolver{nullptr};

} // namespace

std::string getClosestScaleableFontName(const std::string& family)
{
    const FontNameResolver resolver = s_resolver.load(std::memory_order_acquire);
    return resolver && !family.empty() ? resolver(family) : family;
}

void installFontNameResolver(FontNameResolver resolver)
{
    s_resolver.store(resolver, std::memory_order_release);
}

} // namespace VOXI
