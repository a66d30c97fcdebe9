// Number pictures and texts with double-byte characters, whose second bytes look like quotes, pads and backslashes.
#include <gtest/gtest.h>

#include "number_block.h"
#include "support/locale.h"

namespace {

TEST(FMTNumberJapanese, PicturesAreWalkedByCharacters) {
    const TestLanguage language(kJapanese);
    constexpr const char* kCases[][2] = {
        {"\x89\x7E#,##0", "\x89\x7E\x31,234"},
        {"#'\x95\x5C'", "1234\x95\x5C"},              // no backslash before the quote
        {"#\x83\x5F x", "1234\x83\x5F x"},            // no pad
        {"#_\x83\x5Fx", "1234 x"},                    // the character behind a pad goes whole
        {"#\x81", "1234\x81"},                        // a lead byte at the end is a character
        {"'\xB1\xDD'#", "\xB1\xDD\x31\x32\x33\x34"},  // half-width katakana
    };
    for (const auto& [picture, want] : kCases) EXPECT_EQ(NumberBlock(kUS).Format("1234", picture), want);
}

TEST(FMTNumberJapanese, TextsComeBack) {
    const TestLanguage language(kJapanese);
    const TestRegion yen = {.currency = "\x89\x7E", .position = 1};
    EXPECT_EQ(NumberBlock(yen).Unformat("-1,234\x89\x7E", "#,##0\x89\x7E"), "-1234");
    EXPECT_EQ(NumberBlock(yen).Unformat("\x95\x5C\x31\x32", "'\x95\x5C'#"), "12");
    EXPECT_EQ(NumberBlock(yen).Unformat("12\x81\x40", "#_x"), "12");
    EXPECT_EQ(NumberBlock(yen).Validate("(1,234\x89\x7E)", kCurrency), "-1234");
    // The double-byte blank is white space.
    EXPECT_EQ(NumberBlock(yen).Validate("\x81\x40\x31\x32\x81\x40", kNumber), "12");
    EXPECT_EQ(NumberBlock(yen).Validate("12\x81-", kNumber), "failed");
}

TEST(FMTNumberJapanese, LengthsCountCharactersInFrontAndBytesBehind) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(FMTGetMaxFormattedNumLen("\x89\x7E#", 5, 0), 7);
    EXPECT_EQ(FMTGetMaxFormattedNumLen("#\x89\x7E", 5, 0), 8);
    EXPECT_EQ(FMTGetMaxFormattedNumLen("#\x83\x5F", 5, 0), 8);
}

}  // namespace
