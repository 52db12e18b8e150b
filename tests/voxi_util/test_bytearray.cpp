#include "voxi_util/bytearray.h"

#include <gtest/gtest.h>
#include <string>

using namespace VOXI;
using namespace std::string_literals;

TEST(ByteArray, base64OfKnownTexts)
{
    const std::pair<const char*, const char*> known[] = {{"", ""},
                                                         {"f", "Zg=="},
                                                         {"fo", "Zm8="},
                                                         {"foo", "Zm9v"},
                                                         {"foob", "Zm9vYg=="},
                                                         {"fooba", "Zm9vYmE="},
                                                         {"\xff\xfe\xfb", "//77"},
                                                         {"\xfb\xef\xbe", "++++"}};
    for (const auto& [bytes, text] : known) {
        EXPECT_EQ(ByteArray(std::string(bytes)).toBase64(), text);
        EXPECT_EQ(ByteArray::fromBase64(text), ByteArray(std::string(bytes)));
    }
    EXPECT_EQ(ByteArray::fromBase64("Zm8"), ByteArray("fo"s));
    for (const char* bad :
         {"Z", "Zg=", "Zg===", "Z===", "====", "=", "Zm9v=", "Zm 9", "Zm9v\n", "Zm_v", "Zg==Zg=="})
        EXPECT_FALSE(ByteArray::fromBase64(bad)) << bad;
}

TEST(ByteArray, everyByteRoundTripsInBothTexts)
{
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
        const ByteArray bytes(all);
        EXPECT_EQ(ByteArray::fromBase64(bytes.toBase64()), bytes);
        EXPECT_EQ(ByteArray::fromHex(bytes.toHex()), bytes);
    }
    EXPECT_EQ(ByteArray("\0\x1f\xa0"s).toHex(), "001fa0");
    EXPECT_EQ(ByteArray::fromHex("A0fF"), ByteArray("\xa0\xff"s));
    for (const char* bad : {"0", "0g", "0x", " 00", "-1"})
        EXPECT_FALSE(ByteArray::fromHex(bad)) << bad;
}
