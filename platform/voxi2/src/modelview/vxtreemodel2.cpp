#include "voxi2/modelview/vxtreemodel2.h"

namespace VOXI {

VXTreeModel2::VXTreeModel2(VXObject2* parent) : VXTreeModel2({}, parent) {}

VXTreeModel2::VXTreeModel2(std::vector<CellUIData> headers, VXObject2* parent)
    : VXMemoryModel2(parent, std::move(headers))
{
    finishBuilding(this);
}

VXTreeModel2::~VXTreeModel2() { retire(); }

} // namespace VOXI
