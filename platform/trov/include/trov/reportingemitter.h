#pragma once

#include "trov/emission.h"
#include "trov/emitter.h"
#include "trov/types.h"

#include <atomic>

namespace TROV::detail {

/// The emitter of something that is no object of the toolkit: what a listener throws is reported,
/// as that of an event is, and who shares it cuts its connections before it goes.
template <class Signature>
class ReportingEmitter;

template <class... A>
class ReportingEmitter<void(A...)> : public Emitter<void(A...)>
{
public:
    void report(Param<A>... arguments) const
    {
        if (isHeard())
            reportTo<A...>(this->m_site, false, arguments...);
    }

    bool isHeard() const noexcept { return this->m_site.load(std::memory_order_acquire); }

    void cutAll() const { cutAllConnections(this->m_site); }
};

} // namespace TROV::detail
