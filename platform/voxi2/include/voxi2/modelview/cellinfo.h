#pragma once

#include "voxi2/kernel/alignment.h"
#include "voxi2/modelview/celluidata.h"
#include "voxi2/modelview/modelcell2.h"
#include "voxi_util/color.h"
#include "voxi_util/geometry.h"
#include "voxi_util/vxfont.h"

#include <string>

namespace VOXI {

/// A cell as a view draws it, for tests and tools that look at a program from outside.
struct CellInfo
{
    ModelCell2 cell;        ///< null when there is no such cell in the view
    VXRect<int> rect;       ///< in the view's area of cells, in pixels
    bool isKnown = false;   ///< the model has answered what the cell shows
    bool isVisible = false; ///< at least a part of it is in sight
    bool isSelected = false;
    bool isCurrent = false;
    bool isEnabled = false;
    bool isReadOnly = false;
    bool isEdited = false; ///< an editor stands in it
    CellRenderer renderer = CellRenderer::Plain;
    std::wstring text;
    std::wstring rendererText;
    std::wstring toolTip;
    bool hasIcon = false;
    VXFont font;
    Alignment alignment;
    Color background;
    Color foreground;
    unsigned widget = 0; ///< the id of the widget that edits it; 0 for none
};

} // namespace VOXI
