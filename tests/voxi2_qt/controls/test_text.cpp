#include "../kernel/toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"

#include <QLabel>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class Text : public ::testing::Test
{
protected:
    QLabel* qtLabel() { return qobject_cast<QLabel*>(qt(m_text)); }

    VXText2 m_text;
};

TEST_F(Text, showsNarrowAndWideTexts)
{
    m_text.setText("\xe9");
    EXPECT_EQ(qtLabel()->text(), QStringLiteral("é"));
    m_text.setText(u"\x20ac");
    EXPECT_EQ(qtLabel()->text(), QStringLiteral("€"));
    EXPECT_EQ(m_text.textU(), L"\x20ac");
    EXPECT_EQ(m_text.text(), "?");
}

TEST_F(Text, markupIsShownAsItIsUnlessAskedFor)
{
    m_text.setText("<b>bold</b>");
    EXPECT_EQ(qtLabel()->textFormat(), Qt::PlainText);
    EXPECT_FALSE(m_text.isRichText());
    m_text.setRichText(true);
    EXPECT_EQ(qtLabel()->textFormat(), Qt::RichText);
    EXPECT_TRUE(m_text.isRichText());
    EXPECT_EQ(m_text.text(), "<b>bold</b>");
}

TEST_F(Text, alignmentWrappingAndSelection)
{
    m_text.setAlignment(AlignmentFlag::Right | AlignmentFlag::Bottom);
    EXPECT_EQ(qtLabel()->alignment(), Qt::AlignRight | Qt::AlignBottom);
    m_text.setWordWrap(true);
    EXPECT_TRUE(qtLabel()->wordWrap());
    EXPECT_FALSE(m_text.isSelectable());
    m_text.setSelectable(true);
    EXPECT_TRUE(qtLabel()->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

TEST_F(Text, theBuddyIsForgottenWhenItGoes)
{
    VXPanel2 panel;
    auto* button = new VXButton2(&panel);
    m_text.setBuddy(button);
    EXPECT_EQ(qtLabel()->buddy(), qt(*button));
    delete button;
    runDeletions();
    EXPECT_EQ(qtLabel()->buddy(), nullptr);
    m_text.setBuddy(nullptr);
}

} // namespace
} // namespace VOXI
