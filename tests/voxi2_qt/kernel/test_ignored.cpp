#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxformlayout2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vxhgscene2.h"
#include "voxi2/controls/vxmenu2.h"
#include "voxi2/controls/vxprogressbar2.h"
#include "voxi2/controls/vxsvgimage2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxpaletteview2.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"
#include "voxi2/modelview/vxtableview2.h"
#include "voxi2/modelview/vxtreemodel2.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace VOXI {
namespace {

class Ignored : public testing::Test
{
protected:
    Ignored()
    {
        setIgnoredHandler([this](const std::string& line) { m_lines.push_back(line); });
    }
    ~Ignored() override { setIgnoredHandler({}); }

    /// The only line that `act` is answered with, without what names the object's number.
    template <class Act>
    std::string lineOf(const VXObject2& object, Act act)
    {
        m_lines.clear();
        act();
        if (m_lines.size() != 1)
            return std::to_string(m_lines.size()) + " lines";
        const std::string who =
            "ignored: " + std::string(object.kind()) + ' ' + std::to_string(object.id());
        EXPECT_EQ(m_lines.front().substr(0, who.size()), who);
        return m_lines.front().substr(who.size());
    }

    std::vector<std::string> m_lines;
};

TEST_F(Ignored, saysWhichObjectWasAskedForWhatAndWhy)
{
    VXAction2 save;
    save.setObjectName("save");
    EXPECT_EQ(lineOf(save, [&] { save.setAccelerator("Hyper+Nothing"); }),
              " \"save\": setAccelerator: nobody understands \"Hyper+Nothing\"");

    VXPanel2 page;
    VXBoxLayout2 first(&page);
    auto* const second = new VXGridLayout2(&page);
    EXPECT_EQ(m_lines.back(), "ignored: GridLayout " + std::to_string(second->id()) + ": "
                                  + Reason::HasLayout
                                  + "; this one lies nowhere until addLayout takes it");
    auto* const button = new VXButton2(&page);
    EXPECT_EQ(lineOf(*second, [&] { second->addWidget(button, -3, 0); }),
              ": gridAddWidget: there is no such cell");
    EXPECT_EQ(lineOf(first, [&] { first.addWidget(&page); }),
              std::string(": addWidget: ") + Reason::HoldsThis);
    EXPECT_EQ(lineOf(page, [&] { page.setParent(button); }),
              ": setParent: the object owns that one");

    EXPECT_EQ(lineOf(first, [&] { first.addWidget(nullptr); }),
              std::string(": addWidget: ") + Reason::Null);
    VXComboBox2 box;
    EXPECT_EQ(lineOf(box, [&] { box.setCurrentIndex(3); }),
              std::string(": setCurrentIndex: ") + Reason::NoIndex);
    VXWidgetStack2 stack;
    EXPECT_EQ(lineOf(stack, [&] { stack.raiseWidget(button); }),
              std::string(": raiseWidgetWithID: ") + Reason::NoIndex);

    const VXFactory2::Scope noBackEnd{StringID("nobody's")};
    m_lines.clear();
    const VXButton2 early;
    ASSERT_EQ(m_lines.size(), 1u);
    EXPECT_NE(m_lines.front().find("no back end is up"), std::string::npos);
}

TEST_F(Ignored, tellsOfEachThatNamesWhatIsNotThere)
{
    VXWindow2 window;
    VXPanel2 page;
    VXFormLayout2 form(&page);
    VXEdit2 field(&page);
    form.addRow("Name", &field);
    VXHGScene2 scene;
    VXEditArea2 text;
    VXTreeModel2 model({"Name"});
    const unsigned fruit = model.appendRow(0, {"fruit"});
    const unsigned apple = model.appendRow(fruit, {"apple"});
    VXTableView2 table;
    table.setViewModel(&model);
    VXTreeView2 tree;
    tree.setViewModel(&model);
    VXPaletteView2 palette;
    palette.setViewModel(&model);
    const float infinite = std::numeric_limits<float>::infinity();
    const Matrix4 nowhere = Matrix4::translation({infinite, 0, 0});
    VXPanel2 stranger;
    VXBoxLayout2 box(&stranger);
    VXGroupBox2 group;
    VXProgressBar2 bar;
    VXMenu2 menu;
    VXDockWidget2 dock;
    VXToolBar2 tools;
    VXAction2 action;
    VXSvgImage2 drawing;
    VXSimplePropertyBrowser2 properties;
    VXSimpleProperty2 outer("outer");
    VXSimpleProperty2 inner("inner");
    VXSimpleProperty2 unknown("unknown");
    properties.addProperty(&outer);
    properties.addProperty(&inner, &outer);

    const struct
    {
        const VXObject2& m_object;
        const char* m_request;
        std::function<void()> m_act;
    } wrong[] = {
        {form, "insertRow", [&] { form.addRow("again", &field); }},
        {form, "insertRow", [&] { form.insertRow(0, nullptr); }},
        {form, "insertRow", [&] { form.addRow("nothing", nullptr); }},
        {form, "insertRow", [&] { form.addRow("itself", &form); }},
        {form, "removeRow", [&] { form.removeRow(&stranger); }},
        {form, "setRowVisible", [&] { form.setRowVisible(nullptr, true); }},
        {form, "setLabel", [&] { form.setLabel(&stranger, "?"); }},
        {form, "setValidationState",
         [&] { form.setValidationState(&stranger, ValidationState::Good); }},
        {form, "setCell", [&] { form.setCell(&stranger, VXRect<int>::cell(0, 0)); }},
        {form, "setAlignment", [&] { form.setAlignment(&stranger, {}); }},
        {form, "removeWidget", [&] { form.removeWidget(&stranger); }},
        {box, "setStretchFactor", [&] { box.setStretchFactor(&stranger, 1); }},
        {group, "setChecked", [&] { group.setChecked(true); }},
        {bar, "setValue", [&] { bar.setValue(101); }},
        {menu, "addSubMenu", [&] { menu.addMenu("itself", &menu); }},
        {menu, "removeMenuItem", [&] { menu.removeAction(&action); }},
        {menu, "removeSubMenu", [&] { menu.removeMenu(&menu); }},
        {tools, "removeAction", [&] { tools.removeAction(&action); }},
        {tools, "removeWidget", [&] { tools.removeWidget(&stranger); }},
        {drawing, "setHeight", [&] { drawing.setHeight(-1); }},
        {drawing, "setHeight", [&] { drawing.setHeight(10); }},
        {properties, "addProperty", [&] { properties.addProperty(nullptr); }},
        {properties, "addProperty", [&] { properties.addProperty(&inner, &unknown); }},
        {properties, "addProperty", [&] { properties.addProperty(&outer, &inner); }},
        {properties, "removeProperty", [&] { properties.removeProperty(&unknown); }},
        {properties, "setEditor", [&] { properties.setEditor(&unknown, &stranger); }},
        {properties, "setEditor", [&] { properties.setEditor(&inner, &properties); }},
        {properties, "setPropertyToolTip", [&] { properties.setToolTip(&unknown, "?"); }},
        {properties, "edit", [&] { properties.edit(&unknown); }},
        {properties, "setExpanded", [&] { properties.setExpanded(&unknown, true); }},
        {properties, "setCurrent", [&] { properties.setCurrent(&unknown); }},
        {properties, "setExpanded", [&] { properties.imitateExpand(&unknown, true); }},
        {properties, "doubleClick", [&] { properties.imitateDoubleClick(&unknown); }},
        {window, "setDockSize", [&] { window.setDockSize(&dock, 9, Orientation::Vertical); }},
        {window, "setDockCorner",
         [&] { window.setDockCorner(DockCorner::TopLeft, DockArea::Right); }},
        {window, "tabifyDockWidget", [&] { window.tabifyDockWidget(&dock, &dock); }},
        {page, "restoreGeometry", [&] { page.restoreGeometry("AAAA"); }},
        {window, "restoreGeometry", [&] { window.restoreGeometry("voxi-geometry:1:"); }},
        {scene, "setNode", [&] { scene.setNode({.uid = 1, .parent = 7}); }},
        {scene, "setTransform", [&] { scene.setTransform(7, {}); }},
        {scene, "setTransform", [&] { scene.setTransform(7, nowhere); }},
        {scene, "setNodeVisible", [&] { scene.setNodeVisible(7, true); }},
        {scene, "removeNode", [&] { scene.removeNode(7); }},
        {scene, "setLights",
         [&] {
             scene.setLights({{.place = {infinite, 0, 0}}});
         }},
        {scene, "setCamera", [&] { scene.setCamera({.height = 0}); }},
        {scene, "orbit", [&] { scene.orbit(infinite, 0); }},
        {scene, "pan", [&] { scene.pan(0, infinite); }},
        {scene, "zoom", [&] { scene.zoom(0); }},
        {scene, "fit", [&] { scene.fit(7); }},
        {text, "setMark", [&] { text.setMark({}); }},
        {text, "removeMark", [&] { text.removeMark(7); }},
        {model, "setValue", [&] { model.setValue(fruit, 7, "?"); }},
        {model, "setCell", [&] { model.setCell(7, 1, {}); }},
        {model, "addRow", [&] { model.appendRow(7); }},
        {model, "moveRow", [&] { model.moveRow(fruit, apple); }},
        {model, "removeRow", [&] { model.removeRow(7); }},
        {model, "removeColumn", [&] { model.removeColumn(7); }},
        {model, "setSorting", [&] { model.setSorting(7); }},
        {table, "setActiveCell",
         [&] {
             table.setActiveCell({7, 1});
         }},
        {table, "setSelection",
         [&] {
             table.setSelection({{fruit, 1}, {7, 1}});
         }},
        {table, "selectRows",
         [&] {
             table.selectRows({fruit, 7});
         }},
        {table, "selectColumns",
         [&] {
             table.selectColumns({1, 7});
         }},
        {table, "scrollTo",
         [&] {
             table.scrollTo({7, 1});
         }},
        {table, "setEditor", [&] { table.setEditor(7, 1, nullptr); }},
        {table, "triggerEdit", [&] { table.imitateEdit(7, 1, EditTrigger::None); }},
        {table, "setColumnWidth", [&] { table.setColumnWidth(7, 10); }},
        {table, "setColumnOrder",
         [&] {
             table.setColumnOrder({7, 1});
         }},
        {table, "resizeColumnToContents", [&] { table.resizeColumnToContents(7); }},
        {table, "setRowHeight", [&] { table.setRowHeight(7, 10); }},
        {table, "setRowVisible", [&] { table.setRowVisible(7, false); }},
        {tree, "setRowVisible", [&] { tree.setRowVisible(7, false); }},
        {tree, "setRowExpanded", [&] { tree.setRowExpanded(7, true); }},
        {palette, "setGroupFolded", [&] { palette.setGroupFolded(apple); }},
        {palette, "setCurrentRow", [&] { palette.setCurrentRow(7); }},
        {palette, "scrollTo", [&] { palette.scrollTo(7); }},
        {palette, "activate", [&] { palette.imitateActivate(7); }},
        {palette, "setCurrentEntry", [&] { palette.setCurrentEntry(fruit); }},
    };
    for (const auto& each : wrong) {
        const std::string line = lineOf(each.m_object, each.m_act);
        EXPECT_TRUE(line.starts_with(std::string(": ") + each.m_request + ": ")) << line;
    }

    m_lines.clear();
    table.restoreHeaderState("voxi-columns:1:");
    const std::string state = tree.saveHeaderState();
    model.removeColumn(1);
    tree.restoreHeaderState(state);
    form.removeRow(&field);
    EXPECT_EQ(m_lines.size(), 1u) << "columns may have gone since";
}

TEST_F(Ignored, isSilentForWhatIsMeantAndForWhatHasEnded)
{
    VXWindow2 window;
    auto* const page = new VXPanel2(&window);
    window.setCentralWidget(page);
    window.setCentralWidget(page);
    VXAction2 action;
    action.setAccelerator("Ctrl+S");
    VXComboBox2 box;
    box.setCurrentIndex(-1);
    const VXHandle<VXPanel2> gone(page);
    page->destroy();
    gone->setParent(&window);
    runDeletions();
    EXPECT_EQ(m_lines, std::vector<std::string>());
}

TEST_F(Ignored, whatItsHandlerDoesIsItsOwnAffair)
{
    VXAction2 action;
    int told = 0;
    setIgnoredHandler([&](const std::string&) {
        ++told;
        action.setAccelerator("again?");
        throw std::runtime_error("nor does this harm");
    });
    EXPECT_NO_THROW(action.setAccelerator("what?"));
    action.setAccelerator("what?");
    EXPECT_EQ(told, 2);
}

TEST_F(Ignored, aLayoutOfAWindowFillsItsCentralWidget)
{
    VXWindow2 window;
    auto* const rows = new VXBoxLayout2(&window, Direction::TopToBottom);
    auto* const panel = dynamic_cast<VXPanel2*>(window.centralWidget());
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(rows->parent(), panel);
    EXPECT_EQ(panel->parent(), &window);
    auto* const button = new VXButton2("&Go", &window);
    rows->addWidget(button);
    window.show();
    turn();
    EXPECT_EQ(button->peerParent(), panel);
    EXPECT_TRUE(button->isVisible());
    EXPECT_EQ(m_lines, std::vector<std::string>());

    auto* const other = new VXBoxLayout2(&window);
    EXPECT_EQ(window.centralWidget(), panel);
    EXPECT_EQ(m_lines.size(), 1u) << "it has a layout by now";
    VXWindow2 second;
    other->setParent(&second);
    EXPECT_EQ(other->parent(), second.centralWidget());
    EXPECT_NE(other->parent(), nullptr);
}

} // namespace
} // namespace VOXI
