#pragma once

#include "voxi2/voxi2_export.h"

namespace VOXI {

class VXAbstractViewModel2;

/// Which model a view shows, as its abstract object remembers it. Any thread.
class VOXI2_EXPORT ShownModel
{
public:
    void set(const VXAbstractViewModel2* model);
    /// Null when there is none or it has gone. To be used under the object lock.
    VXAbstractViewModel2* get() const;
    /// Has its views learn what changed in this turn: a row that was just added can be named.
    void flush() const;

private:
    unsigned m_id = 0; // guarded by the object lock
};

} // namespace VOXI
