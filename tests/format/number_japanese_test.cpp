// Number pictures and texts with double-byte characters, whose second bytes look like quotes, pads and backslashes.
#include <gtest/gtest.h>

#include "number_block.h"
#include "support/locale.h"

namespace {

constexpr int32_t kCurrency = 5;

TEST(FMTNumberJapanese, PicturesAreWalkedByCharacters) {
    const TestLanguage language(kJapanese);
    struct Case {
        int line;
        const char* picture;
        const char* want;
    };
    for (const Case& c : {
             Case{__LINE__, "\x89\x7E#,##0",
                  "\x89\x7E"
                  "1,234"},
             Case{__LINE__, "#'\x95\x5C'", "1234\x95\x5C"},    // no backslash before the quote
             Case{__LINE__, "#\x83\x5F x", "1234\x83\x5F x"},  // no pad
             Case{__LINE__,
                  "#_\x83\x5F"
                  "x",
                  "1234 x"},                       // the character behind a pad goes whole
             Case{__LINE__, "#\x81", "1234\x81"},  // a lead byte at the end is a character
             Case{__LINE__, "'\xB1\xDD'#",
                  "\xB1\xDD"
                  "1234"},  // half-width katakana
         }) {
        const testing::ScopedTrace row(__FILE__, c.line, c.want);
        NumberBlock block(PrivateRegion{});
        EXPECT_EQ(block.Format("1234", 6, c.picture), c.want);
    }
}

TEST(FMTNumberJapanese, TextsComeBack) {
    const TestLanguage language(kJapanese);
    const PrivateRegion yen = {.currency = "\x89\x7E", .position = 1};
    EXPECT_EQ(NumberBlock(yen).Unformat("-1,234\x89\x7E", "#,##0\x89\x7E"), "-1234");
    EXPECT_EQ(NumberBlock(yen).Unformat("\x95\x5C"
                                        "12",
                                        "'\x95\x5C'#"),
              "12");
    EXPECT_EQ(NumberBlock(yen).Unformat("12\x81\x40", "#_x"), "12");
    EXPECT_EQ(NumberBlock(yen).Validate("(1,234\x89\x7E)", kCurrency), "-1234");
    EXPECT_EQ(NumberBlock(yen).Validate("\x81\x40"
                                        "12\x81\x40",
                                        4),
              "12");  // the double-byte blank is white space
    EXPECT_EQ(NumberBlock(yen).Validate("12\x81-", 4), "failed");
}

TEST(FMTNumberJapanese, LengthsCountCharactersInFrontAndBytesBehind) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(FMTGetMaxFormattedNumLen("\x89\x7E#", 5, 0), 7);
    EXPECT_EQ(FMTGetMaxFormattedNumLen("#\x89\x7E", 5, 0), 8);
    EXPECT_EQ(FMTGetMaxFormattedNumLen("#\x83\x5F", 5, 0), 8);
}

}  // namespace
