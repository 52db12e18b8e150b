#include "toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxspinbox2.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class TabOrder : public testing::Test
{
protected:
    using Widgets = std::vector<VXWidget2*>;

    ~TabOrder() override
    {
        delete m_page;
        runDeletions();
    }

    VXButton2* button(const char* name, VXWidget2* parent)
    {
        auto* const made = new VXButton2(name, parent);
        made->setObjectName(name);
        return made;
    }

    /// Where the Tab key goes from `first`, one step for each widget of the order.
    std::string way(VXWidget2* first, int steps) const
    {
        qt(*m_page)->show();
        QApplication::setActiveWindow(qt(*m_page));
        first->setFocus();
        std::string names = first->objectName();
        for (int i = 1; i < steps; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const auto* const at = abstractObjectOf<VXWidget2>(QApplication::focusWidget());
            names += at ? at->objectName() : "?";
        }
        return names;
    }

    VXPanel2* m_page = new VXPanel2(nullptr);
    VXButton2* m_a = button("a", m_page);
    VXButton2* m_b = button("b", m_page);
    VXSpinBox2* m_c = new VXSpinBox2(m_page);
    VXPanel2* m_box = new VXPanel2(m_page);
    VXButton2* m_d = button("d", m_box);
    VXButton2* m_e = button("e", m_box);
};

TEST_F(TabOrder, isWhatAListSaysAndTheOthersKeepTheirs)
{
    m_c->setObjectName("c");
    EXPECT_EQ(m_page->tabOrder(), (Widgets{m_a, m_b, m_c, m_d, m_e}));
    m_page->setTabOrder({m_e, m_c, m_a, m_d});
    EXPECT_EQ(m_page->tabOrder(), (Widgets{m_b, m_e, m_c, m_a, m_d}));
    EXPECT_EQ(m_box->tabOrder(), (Widgets{m_e, m_d}));
    EXPECT_EQ(way(m_b, 6), "becadb");
    m_page->setTabOrder({});
    m_page->setTabOrder({m_d});
    m_d->setTabOrder({m_a, m_b});
    EXPECT_EQ(way(m_e, 6), "ecabde");
    EXPECT_EQ(VXPanel2().tabOrder(), Widgets());
}

TEST_F(TabOrder, leavesOutWhatCannotBeInIt)
{
    VXPanel2 elsewhere;
    VXButton2* const foreign = button("foreign", &elsewhere);
    VXButton2* const dead = button("dead", m_page);
    delete dead;
    runDeletions();
    m_b->setFocusPolicy(FocusPolicy::None);
    m_page->setTabOrder({nullptr, m_e, foreign, m_b, m_d, m_e, dead, m_a, m_d, m_page});
    EXPECT_EQ(m_page->tabOrder(), (Widgets{m_a, m_c, m_e, m_d})) << "it goes round";
    EXPECT_EQ(elsewhere.tabOrder(), Widgets{foreign});
}

// With both in one list Qt would tear the chain, and go round in the rest of it for ever.
TEST_F(TabOrder, endsWithAWidgetAndThePartThatTakesItsFocus)
{
    m_box->setFocusPolicy(FocusPolicy::Strong);
    m_box->setFocusProxy(m_e);
    m_page->setTabOrder({m_e, m_box, m_a, m_d});
    EXPECT_EQ(m_page->tabOrder().size(), 6u);
    m_page->setTabOrder({m_d, m_a, m_box, m_e});
    EXPECT_EQ(m_page->tabOrder().size(), 6u);
}

} // namespace
} // namespace VOXI
