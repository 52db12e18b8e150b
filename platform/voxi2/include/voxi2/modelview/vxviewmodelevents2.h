#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi2/modelview/sizechange2.h"

#include <map>
#include <set>
#include <utility>
#include <vector>

namespace VOXI {

class VXAbstractViewModel2;

/// Columns by the rows in which they have changed.
using DataChanges = std::map<unsigned, std::set<unsigned>>;

/// What cells of a model show has changed.
class VXDataChangeEvent2 : public VXEvent2<VXAbstractViewModel2, DataChanges>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractViewModel2* model() const noexcept { return sender(); }
    const DataChanges& dataChanges() const noexcept { return value(); }
};

/// Rows and columns of a model came, went or moved; in the order in which that is done.
class VXSizeChangeEvent2 : public VXEvent2<VXAbstractViewModel2, std::vector<SizeChange2>>
{
public:
    using VXEvent2::VXEvent2;
    VXAbstractViewModel2* model() const noexcept { return sender(); }
    const std::vector<SizeChange2>& sizeChanges() const noexcept { return value(); }
};

} // namespace VOXI
