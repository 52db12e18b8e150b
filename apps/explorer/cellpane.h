#pragma once

#include "document.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vximage2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <memory>
#include <string>

namespace explorer {

/// Shows one cell whole: as text, as a picture, as bytes.
class CellPane
{
public:
    explicit CellPane(VOXI::VXObject2* parent);

    VOXI::VXPanel2* panel() const noexcept { return m_panel; }

    /// Row 0 for none. What is being read for another cell is given up.
    void show(Document& document, const std::shared_ptr<SQL::RowReader>& reader, unsigned row,
              unsigned column);
    void clear();

private:
    struct Reading;
    void take(const std::shared_ptr<Reading>& reading);
    void showText(const std::shared_ptr<Reading>& reading);
    void showPicture(const Reading& reading);

    VOXI::VXPanel2* const m_panel;
    VOXI::VXText2* const m_summary;
    VOXI::VXTabContainer2* const m_tabs;
    VOXI::VXTab2* const m_textTab;
    VOXI::VXTab2* const m_pictureTab;
    VOXI::VXTab2* const m_bytesTab;
    VOXI::VXEditArea2* const m_text;
    VOXI::VXImage2* const m_picture;
    VOXI::VXTableView2* const m_bytes;
    std::shared_ptr<Reading> m_reading; ///< of the cell that is shown
};

} // namespace explorer
