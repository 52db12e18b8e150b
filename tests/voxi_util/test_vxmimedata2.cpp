#include "voxi_util/color.h"
#include "voxi_util/vxlazydata.h"
#include "voxi_util/vxmimedata2.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace VOXI;
using namespace std::string_literals;

TEST(VXMimeData2, formatsKeepTheOrderInWhichTheyCame)
{
    VXMimeData2 data;
    EXPECT_TRUE(data.isEmpty());
    data.setData("x/a", ByteArray("1"s));
    data.setData("x/b", any(7));
    data.setData("x/c", ByteArray());
    data.setData("x/a", ByteArray("\0two"s));
    EXPECT_EQ(data.formats(), (std::vector<StringID>{"x/a", "x/b", "x/c"}));
    EXPECT_EQ(data.bytes("x/a"), ByteArray("\0two"s));
    EXPECT_EQ(std::any_cast<int>(data.data("x/b")), 7);
    EXPECT_TRUE(data.bytes("x/b").isEmpty());
    EXPECT_FALSE(data.data("x/d").has_value());
    EXPECT_TRUE(data.hasFormat("x/c"));

    data.setData("x/a", any());
    data.removeFormat("x/c");
    EXPECT_EQ(data.formats(), (std::vector<StringID>{"x/b"}));
    data.clear();
    EXPECT_FALSE(data.hasFormat("x/b"));
}

TEST(VXMimeData2, aChangedCopyLeavesTheOriginalAlone)
{
    VXMimeData2 original;
    original.setText(L"one");
    VXMimeData2 copy = original;
    copy.setText(L"two");
    EXPECT_EQ(original.text(), L"one");
    EXPECT_EQ(copy.text(), L"two");
}

TEST(VXMimeData2, equalityIsByOrderAndContent)
{
    const auto make = [](const any& value) {
        VXMimeData2 data;
        data.setText(L"text");
        data.setData("x/value", value);
        return data;
    };
    struct Unknown
    {};
    EXPECT_EQ(make(any(3)), make(any(3)));
    EXPECT_NE(make(any(3)), make(any(4)));
    EXPECT_NE(make(any(3)), make(any(3u)));
    EXPECT_EQ(make(any(Pixmap(1, 1, {5}))), make(any(Pixmap(1, 1, {5}))));
    // As Latin-1 both are "?".
    EXPECT_NE(make(any(L"\u20ac"s)), make(any(L"\u20ad"s)));
    EXPECT_NE(make(any(Unknown{})), make(any(Unknown{})));
    const VXMimeData2 unknown = make(any(Unknown{}));
    EXPECT_EQ(unknown, VXMimeData2(unknown));

    VXMimeData2 emptied = make(any(3));
    emptied.removeFormat("x/value");
    emptied.removeFormat("text/plain");
    EXPECT_EQ(emptied, VXMimeData2());
    VXMimeData2 swapped;
    swapped.setData("x/value", any(3));
    swapped.setText(L"text");
    EXPECT_NE(swapped, make(any(3)));
}

TEST(VXMimeData2, textsAreUtf8WhateverNarrowTextsAre)
{
    VXMimeData2 data;
    data.setText(L"\u20ac\0\U0001f600"s);
    EXPECT_EQ(data.bytes("text/plain"), ByteArray("\xe2\x82\xac\0\xf0\x9f\x98\x80"s));
    EXPECT_EQ(data.text(), L"\u20ac\0\U0001f600"s);
    data.setHtml(L"<b>\u00e4</b>");
    EXPECT_EQ(data.html(), L"<b>\u00e4</b>");
    // A program may leave a value of its own for its own widgets.
    data.setData("text/plain", any("\xe4"s));
    EXPECT_EQ(data.text(), L"\u00e4");
}

TEST(VXMimeData2, uriListsSkipCommentsAndAnyLineEnd)
{
    VXMimeData2 data;
    const VXStringList uris{"file:///a%20b", "https://example.org/#part"};
    data.setUris(uris);
    EXPECT_EQ(data.bytes("text/uri-list").bytes(),
              "file:///a%20b\r\nhttps://example.org/#part\r\n");
    EXPECT_EQ(data.uris(), uris);
    data.setData("text/uri-list", ByteArray("# two\nx:1\r\n\r\nx:2"s));
    EXPECT_EQ(data.uris(), (VXStringList{"x:1", "x:2"}));
}

TEST(VXMimeData2, imagesAndColorsTravelAsValues)
{
    VXMimeData2 data;
    EXPECT_TRUE(data.image().isNull());
    EXPECT_FALSE(data.color());
    const Pixmap image(1, 2, {1, 2});
    data.setImage(image);
    data.setColor(Color(1, 2, 3));
    EXPECT_EQ(data.image(), image);
    EXPECT_EQ(data.color(), Color(1, 2, 3));
    EXPECT_EQ(data.bytes("application/x-color").size(), 8u);
    data.setData("application/x-color", any(Color(4, 5, 6)));
    EXPECT_EQ(data.color(), Color(4, 5, 6));
    data.setData("application/x-color", ByteArray("\1\2\3"s));
    EXPECT_FALSE(data.color());
    data.setImage(Pixmap());
    EXPECT_EQ(data.formats().size(), 1u);
}

TEST(VXMimeData2, lazyDataAreMadeOnceForAllCopies)
{
    VXMimeData2 data;
    int made = 0;
    data.setData("text/plain", VXLazyData([&] { return ++made == 1 ? any() : any("text"s); }));
    VXMimeData2 loop;
    loop.setData("x/a", VXLazyData([&] {
                     EXPECT_FALSE(loop.data("x/a").has_value()) << "they are being made";
                     loop.clear();
                     return any(7);
                 }));
    const VXMimeData2 copy = data;
    EXPECT_EQ(copy, data);
    EXPECT_TRUE(data.hasText());
    EXPECT_EQ(made, 0);
    EXPECT_EQ(data.text(), L"") << "nothing yet";
    EXPECT_EQ(data.text(), L"text");
    EXPECT_EQ(copy.text(), L"text");
    EXPECT_EQ(made, 2);
    EXPECT_EQ(std::any_cast<int>(loop.data("x/a")), 7);

    VXMimeData2 other;
    other.setData("text/plain", VXLazyData([] { return any("text"s); }));
    EXPECT_FALSE(other == data);
    other.setData("text/plain", VXLazyData({}));
    EXPECT_EQ(other.text(), L"");
}
