#include "../kernel/toolkit.h"
#include "voxi2/controls/vxtext2.h"

#include <QLabel>
#include <QTest>

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

TEST(Text, followsLinksByPointerAndKey)
{
    VXText2 text(L"<a href='page:\u00e4'>a long link to be clicked</a>");
    text.show();
    Log followed(text.linkActivated());
    QTest::mouseClick(qt(text), Qt::LeftButton, {}, {20, qt(text)->height() / 2});
    EXPECT_TRUE(followed.isEmpty());
    EXPECT_EQ(qt(text)->focusPolicy(), Qt::NoFocus);
    text.setRichText(true);
    QTest::mouseClick(qt(text), Qt::LeftButton, {}, {20, qt(text)->height() / 2});
    ASSERT_EQ(followed.count(), 1);
    EXPECT_EQ(followed.last().target(), L"page:\u00e4");
    EXPECT_EQ(followed.last().text(), &text);
    text.setFocus();
    QTest::keyClick(qt(text), Qt::Key_Tab);
    QTest::keyClick(qt(text), Qt::Key_Return);
    EXPECT_EQ(followed.count(), 2);
    text.setText("no link");
    EXPECT_EQ(qt(text)->focusPolicy(), Qt::NoFocus);
}

TEST(Text, isShortenedWhereItHasNoRoom)
{
    VXText2 text("A rather long text\nand another line of it");
    const int whole = qt(text)->minimumSizeHint().width();
    text.setElideMode(TextElideMode::Middle);
    EXPECT_LT(qt(text)->minimumSizeHint().width(), whole / 4);
    const auto picture = [&text](const QString& shown) {
        QLabel label(shown);
        label.setTextFormat(Qt::PlainText);
        label.resize(qt(text)->size());
        return label.grab().toImage();
    };
    const auto elided = [&](const char* line) {
        return qt(text)->fontMetrics().elidedText(QString::fromLatin1(line), Qt::ElideMiddle, 60);
    };
    qt(text)->resize(60, 40);
    EXPECT_EQ(qt(text)->grab().toImage(),
              picture(elided("A rather long text") + u'\n' + elided("and another line of it")));
    text.setSelectable(true);
    EXPECT_EQ(qt(text)->minimumSizeHint().width(), whole);
}

} // namespace
} // namespace VOXI
