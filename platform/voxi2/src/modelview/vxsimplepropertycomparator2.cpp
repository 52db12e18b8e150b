#include "voxi2/modelview/vxsimplepropertycomparator2.h"

#include "voxi2/modelview/vxsimpleproperty2.h"

namespace VOXI {

namespace {

class ByName final : public VXSimplePropertyComparator2
{
public:
    bool isLess(const VXSimpleProperty2& a, const VXSimpleProperty2& b) const override
    {
        return a.getName() < b.getName();
    }
};

} // namespace

VXSimplePropertyComparator2::~VXSimplePropertyComparator2() = default;

std::shared_ptr<VXSimplePropertyComparator2> VXSimplePropertyComparator2::byName()
{
    return std::make_shared<ByName>();
}

} // namespace VOXI
