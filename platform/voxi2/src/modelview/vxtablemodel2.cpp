#include "voxi2/modelview/vxtablemodel2.h"

namespace VOXI {

VXTableModel2::VXTableModel2(VXObject2* parent) : VXTableModel2({}, parent) {}

VXTableModel2::VXTableModel2(std::vector<CellUIData> headers, VXObject2* parent)
    : VXMemoryModel2(parent, std::move(headers))
{
    finishBuilding(this);
}

VXTableModel2::~VXTableModel2() { retire(); }

} // namespace VOXI
