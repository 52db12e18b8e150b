#pragma once

#include "voxi2/kernel/ignored.h"

namespace VOXI {

/// Passes on what a request is made with that does nothing for null, and tells if it is.
template <class Object>
Object* notNull(const VXObject* asked, Object* given, CallPlace where = CallPlace::current())
{
    if (!given)
        ignored(asked, Reason::Null, where);
    return given;
}

} // namespace VOXI
