#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/kernel/ignored.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2/kernel/vxhandle.h"

#include <gtest/gtest.h>
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
