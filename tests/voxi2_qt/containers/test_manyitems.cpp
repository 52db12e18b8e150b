// Layouts of ten thousand widgets.

#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxtext2.h"

#include <QLayout>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace VOXI {
namespace {

constexpr int Items = 10'000;

template <class Layout>
class ManyItems : public testing::Test
{
protected:
    VXPanel2 m_window;
    VXPanel2& m_panel = *new VXPanel2(&m_window);
    VXPanel2& m_other = *new VXPanel2(&m_window);
};

using Layouts = testing::Types<VXBoxLayout2, VXGridLayout2, VXFlowLayout2>;
TYPED_TEST_SUITE(ManyItems, Layouts);

TYPED_TEST(ManyItems, areLaidOutAndMayGoOrMove)
{
    auto* layout = new TypeParam(&this->m_panel);
    std::vector<VXText2*> items;
    for (int i = 0; i < Items; ++i) {
        items.push_back(new VXText2(&this->m_panel));
        items.back()->setText("Item");
        layout->addWidget(items.back());
    }
    this->m_window.show();
    layout->refresh();
    const QLayout* const qtLayout = qt(this->m_panel)->layout();
    EXPECT_EQ(qtLayout->count(), Items);
    EXPECT_NE(qt(*items.front())->pos(), qt(*items.back())->pos());
    EXPECT_TRUE(qt(*items.back())->isVisible());

    for (std::size_t i = 0; i < items.size(); i += 2)
        delete items[i];
    runDeletions();
    EXPECT_EQ(qtLayout->count(), Items / 2);

    layout->setParent(&this->m_other);
    EXPECT_EQ(items[1]->peerParent(), &this->m_other);
    EXPECT_EQ(qt(this->m_panel)->layout(), nullptr);
    delete items[3]; // its owner is still the panel
    runDeletions();
    EXPECT_EQ(qtLayout->count(), Items / 2 - 1);

    delete layout; // with all its items
    runDeletions();
    EXPECT_EQ(qt(this->m_other)->layout(), nullptr);
    EXPECT_EQ(items[1]->peerParent(), &this->m_other);
    EXPECT_EQ(items.back()->text(), "Item");
}

} // namespace
} // namespace VOXI
