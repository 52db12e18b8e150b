#pragma once

#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxtext2.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// Three columns of widgets on a panel, which a grid lays out.
struct VoxiForm
{
    std::unique_ptr<VOXI::VXPanel2> m_panel;
    VOXI::VXGridLayout2* m_grid;
    std::vector<std::array<VOXI::VXWidget2*, 3>> m_rows;

    explicit VoxiForm(VOXI::VXWindow2* window = nullptr)
        : m_panel(std::make_unique<VOXI::VXPanel2>(window)),
          m_grid(new VOXI::VXGridLayout2(m_panel.get()))
    {}

    void makeRow()
    {
        const std::string label = "Row " + std::to_string(m_rows.size());
        auto* text = new VOXI::VXText2(m_panel.get());
        auto* box = new VOXI::VXCheckBox2(m_panel.get());
        auto* button = new VOXI::VXButton2(m_panel.get());
        text->setText(label);
        box->setLabel(label);
        button->setLabel(label);
        m_rows.push_back({text, box, button});
    }
    void placeRow(int row)
    {
        int column = 0;
        for (VOXI::VXWidget2* widget : m_rows[static_cast<std::size_t>(row)])
            m_grid->addWidget(widget, row, column++);
    }
    void addRows(int rows)
    {
        for (int row = 0; row < rows; ++row) {
            makeRow();
            placeRow(row);
        }
    }
    void layOut() { m_grid->refresh(); }
    void showUnpainted()
    {
        m_panel->setUpdatesEnabled(false);
        m_panel->show();
    }
    void change(bool second)
    {
        static_cast<VOXI::VXButton2*>(m_rows[0][2])->setLabel(second ? "Apply changes" : "Close");
        m_grid->refresh();
    }
};

} // namespace bench
