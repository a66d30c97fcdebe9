// Width conversion, both ways.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>

#include <morvl15/intl.h>

#include "destination.h"
#include "intl/characters.h"
#include "intl/width.h"
#include "intl/width_tables.h"
#include "support/locale.h"

namespace {

struct WidthCase {
    const char* half;
    const char* full;
    const char* back;  // the full-width text in half width
};
constexpr WidthCase kWidths[] = {
    {"", "", ""},
    {"\xB6\xDE", "\x83\x4B", "\xB6\xDE"},
    {"\xCA\xDF", "\x83\x70", "\xCA\xDF"},
    {"\xB3\xDE", "\x83\x94", "\xB3\xDE"},
    {"\xB1\xDE", "\x83\x41\x81\x4A", "\xB1\xDE"},  // a base that has no voiced form
    {"\xB6\xDF", "\x83\x4A\x81\x4B", "\xB6\xDF"},
    {"\xB6\xB6\xDE", "\x83\x4A\x83\x4B", "\xB6\xB6\xDE"},
    {"\xB6\xDE\xDE", "\x83\x4B\x81\x4A", "\xB6\xDE\xDE"},
    {"\x5C ~", "\x81\x8F\x81\x40\x81\x60", "\x5C ~"},
    {"a\x83", "\x82\x81\x83", "a\x83"},
    {"\x82\xB6\xDE", "\x82\xB6\x81\x4A", "\x82\xB6\xDE"},  // the kana byte is a trail byte
    {"\xDE\xDF\xDE", "\x81\x4A\x81\x4B\x81\x4A", "\xDE\xDF\xDE"},
    {"a\tB\r\n9", "\x82\x81\t\x82\x61\r\n\x82\x58", "a\tB\r\n9"},
    {"\x7F\x80\xA0\xFD\xFF", "\x7F\x80\xA0\xFD\xFF", "\x7F\x80\xA0\xFD\xFF"},
    {"\x82\xA0\x88\x9F\xB1", "\x82\xA0\x88\x9F\x83\x41", "\x82\xA0\x88\x9F\xB1"},
    {"\x83\x8E\x83\x95\x83\x96", "\x83\x8E\x83\x95\x83\x96", "\xDC\xB6\xB9"},  // small kana
};

void ExpectBothWays(const WidthCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.half);
    Destination full;
    EXPECT_EQ(IntlStrJapanFull(full, c.half), IntlStrLen(c.full));
    EXPECT_EQ(full.Written(), c.full);
    Destination half;
    EXPECT_EQ(IntlStrJapanHalf(half, full), IntlStrLen(c.back));
    EXPECT_EQ(half.Written(), c.back);
    EXPECT_EQ(IntlStrJapanHalf(full, full), IntlStrLen(c.back));  // over itself
    EXPECT_EQ(full.Text(), c.back);
}

TEST(WidthJapanese, BothWays) {
    const TestLanguage language(kJapanese);
    for (const WidthCase& c : kWidths) ExpectBothWays(c);
    // Long enough to cross the blocks of a fast walk, at every offset.
    std::string half;
    std::string full;
    for (int round = 0; round < 12; ++round) {
        half += "\xB6\xDEz\x82\xA0\xCA\xDF";
        full += "\x83\x4B\x82\x9A\x82\xA0\x83\x70";
        ExpectBothWays({half.c_str(), full.c_str(), half.c_str()});
    }
}

TEST(Width, ASingleByteLocaleCopies) {
    for (const WidthCase& c : kWidths) {
        Destination destination;
        EXPECT_EQ(IntlStrJapanFull(destination, c.half), static_cast<int32_t>(std::strlen(c.half)));
        EXPECT_EQ(destination.Text(), c.half);
        EXPECT_EQ(IntlStrJapanHalf(destination, c.full), static_cast<int32_t>(std::strlen(c.full)));
        EXPECT_EQ(destination.Text(), c.full);
        EXPECT_TRUE(destination.UntouchedFrom(std::max(std::strlen(c.half), std::strlen(c.full)) + 1));
    }
}

TEST(Width, NullsAreRefused) {
    Destination destination;
    EXPECT_EQ(IntlStrJapanFull(nullptr, "a"), -1);
    EXPECT_EQ(IntlStrJapanFull(destination, nullptr), -1);
    EXPECT_EQ(IntlStrJapanHalf(nullptr, "a"), -1);
    EXPECT_EQ(IntlStrJapanHalf(destination, nullptr), -1);
    EXPECT_TRUE(destination.UntouchedFrom(0));
}

TEST(WidthKorean, TheLengthIsThatOfTheResult) {
    const TestLanguage language(kKorean);
    Destination destination;
    EXPECT_EQ(IntlStrJapanFull(destination, "a\xB0\xA1"), 2);
    EXPECT_EQ(destination.Text(), "\x82\x81\xB0\xA1");
    EXPECT_EQ(IntlStrJapanHalf(destination, "\x83\x41z"), 1);  // the half-width byte leads a character here
    EXPECT_EQ(destination.Text(), "\xB1z");
}

TEST(WidthTables, AreInverseButForTheSmallKana) {
    int codesWithHalf = 0;
    for (uint32_t full = 0; full <= 0xFFFF; ++full) {
        const uint16_t half = IntlFullToHalfCode(static_cast<uint16_t>(full));
        if (half == 0) continue;
        ++codesWithHalf;
        uint32_t back = full;
        for (const SmallKana& kana : kSmallKana) {
            if (kana.full == full) back = kKanaToFull[kana.half - kFirstKana];
        }
        EXPECT_EQ(IntlHalfToFullCode(half), back) << std::hex << full;
    }
    EXPECT_EQ(codesWithHalf, 187);
    EXPECT_EQ(IntlFullToHalfCode(0x8140), 0x2000);
    EXPECT_EQ(IntlFullToHalfCode(0x8396), 0xB900);
    EXPECT_EQ(IntlFullToHalfCode(0x813F), 0);
    EXPECT_EQ(IntlFullToHalfCode(0x8397), 0);
    EXPECT_EQ(IntlFullToHalfCode(0x82A0), 0);
}

TEST(WidthTables, HalfWidthPairs) {
    constexpr std::pair<uint16_t, uint16_t> kCases[] = {
        {0x0000, 0x0000}, {0x09DE, 0x0900}, {0x1FFF, 0x1F00}, {0x2000, 0x8140}, {0x41DE, 0x8260}, {0x7E00, 0x8160},
        {0x7F12, 0x7F12}, {0xA0DE, 0xA0DE}, {0xA100, 0x8142}, {0xB1DE, 0x8341}, {0xB6DE, 0x834B}, {0xB6DF, 0x834A},
        {0xC400, 0x8367}, {0xC4DE, 0x8368}, {0xCADF, 0x8370}, {0xCEDF, 0x837C}, {0xCFDF, 0x837D}, {0xDF00, 0x814B},
        {0xE012, 0xE012}, {0xFC12, 0xFC12}, {0xFD12, 0},      {0xFF00, 0},
    };
    for (const auto& [half, full] : kCases) EXPECT_EQ(IntlHalfToFullCode(half), full) << std::hex << half;
}

}  // namespace
