#pragma once

#include "voxi2/kernel/widgetevent.h"
#include "voxi2/voxi2_export.h"

#include <memory>

namespace VOXI {

class VXWidget2;

/// Keeps the frequent events of one widget from flooding its listeners: at most one of each kind is
/// on its way at a time. What an event is made of belongs to the back end.
class VOXI2_EXPORT EventThrottlerBase
{
public:
    EventThrottlerBase() = default;
    EventThrottlerBase(const EventThrottlerBase&) = delete;
    EventThrottlerBase& operator=(const EventThrottlerBase&) = delete;
    virtual ~EventThrottlerBase();
};

/// Makes throttlers, one for each widget that needs one.
class VOXI2_EXPORT EventThrottlerFactoryBase
{
public:
    virtual ~EventThrottlerFactoryBase();

    /// A throttler for the widget; never null.
    virtual std::unique_ptr<EventThrottlerBase> createEventThrottler(VXWidget2* widget) = 0;

    /// The factory in force replaces the former one, which is not deleted. Null: none.
    static void installEventThrottlerFactory(EventThrottlerFactoryBase* factory);

    /// Null while no back end is up.
    static EventThrottlerFactoryBase* instance();
};

} // namespace VOXI
