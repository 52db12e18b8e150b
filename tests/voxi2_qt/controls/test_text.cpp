#include "../kernel/toolkit.h"
#include "voxi2/controls/vxtext2.h"

#include <QLabel>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

TEST(Text, showsMarkupAsItIsUnlessAskedForAndIsSelectedByKeysAsWell)
{
    VXText2 text;
    const auto& label = dynamic_cast<QLabel&>(*qt(text));
    text.setText("<b>bold</b>");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    text.setRichText(true);
    EXPECT_EQ(label.textFormat(), Qt::RichText);
    EXPECT_EQ(text.text(), "<b>bold</b>");
    text.setSelectable(true);
    EXPECT_TRUE(label.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

} // namespace
} // namespace VOXI
