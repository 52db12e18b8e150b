#include "voxi2/kernel/eventthrottler.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<EventThrottlerFactoryBase*> s_factory{nullptr};

} // namespace

EventThrottlerBase::~EventThrottlerBase() = default;

EventThrottlerFactoryBase::~EventThrottlerFactoryBase() = default;

void EventThrottlerFactoryBase::installEventThrottlerFactory(EventThrottlerFactoryBase* factory)
{
    s_factory.store(factory, std::memory_order_release);
}

EventThrottlerFactoryBase* EventThrottlerFactoryBase::instance()
{
    return s_factory.load(std::memory_order_acquire);
}

} // namespace VOXI
