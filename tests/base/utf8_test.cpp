#include "base/utf8.h"
#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(Utf8Test, CharactersOfEachLengthGoBothWays) {
    struct Case {
        std::string_view bytes;
        char32_t code;
    };
    for (const Case& one : {Case{"A", 'A'}, Case{"\xc3\xa4", 0xe4}, Case{"\xe2\x82\xac", 0x20ac},
                            Case{"\xf0\x9f\x98\x80", 0x1f600}, Case{"\x7f", 0x7f}}) {
        const Utf8Character read = first_character(std::string(one.bytes) + "xyz");
        EXPECT_EQ(read.code, one.code);
        EXPECT_EQ(read.size, one.bytes.size());
        EXPECT_EQ(utf8_of(one.code), one.bytes);
    }
}

// A lone continuation, a cut character, one that is longer than it need be, half of a pair, beyond the last code.
TEST(Utf8Test, AWrongByteStandsForItself) {
    for (const std::string_view bytes :
         {"\x80", "\xc3", "\xc3x", "\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf4\x90\x80\x80", "\xff"}) {
        const Utf8Character read = first_character(bytes);
        EXPECT_EQ(read.code, static_cast<unsigned char>(bytes.front()));
        EXPECT_EQ(read.size, 1u);
    }
    EXPECT_EQ(utf8_of(0xd800), "");
    EXPECT_EQ(utf8_of(0x110000), "");
}

}  // namespace
}  // namespace nubo
