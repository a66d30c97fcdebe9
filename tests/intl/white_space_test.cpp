// Removing white space and blanks.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/intl.h>

#include "destination.h"
#include "support/locale.h"

namespace {

struct TrimCase {
    int line;
    const char* source;
    const char* want;
    int32_t result;
};

void ExpectTrimmed(const TrimCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.source);
    Destination destination;
    EXPECT_EQ(IntlStrTrim(destination, c.source), c.result);
    EXPECT_EQ(destination.Text(), c.want);
    EXPECT_TRUE(destination.UntouchedBehindText());

    std::string same = c.source;
    EXPECT_EQ(IntlStrTrim(same.data(), same.data()), c.result);
    EXPECT_STREQ(same.c_str(), c.want);
}

TEST(WhiteSpace, Trim) {
    constexpr TrimCase kCases[] = {
        {__LINE__, "\ta  \fb ", "a b", 3},
        {__LINE__, " \t\v\f", "", 0},
        {__LINE__, "", "", 0},
        {__LINE__, "a", "a", 1},
        {__LINE__, "a \n b", "a \n b", 5},  // a line feed is no blank here
        {__LINE__, "\r a", "\r a", 3},      // ... and ends the leading ones
        {__LINE__, "a\vb\f\tc", "a b c", 5},
        {__LINE__,
         "\x81\x40"
         "a",
         "\x81\x40"
         "a",
         3},
    };
    for (const TrimCase& c : kCases) ExpectTrimmed(c);
}

TEST(WhiteSpaceJapanese, Trim) {
    const TestLanguage language(kJapanese);
    constexpr TrimCase kCases[] = {
        {__LINE__, "\x81\x40 a\x81\x40\x81\x40\x82\xA0 \x81\x40", "a \x82\xA0", 3},
        {__LINE__, "\x81\x40", "", 0},
        {__LINE__, "a\x82\x81\x40 b", "a\x82\x81\x40 b", 5},  // half of each of two characters is no blank
        {__LINE__, "a \x82", "a \x82", 3},
        {__LINE__, "a\x82 b", "a\x82 b", 3},  // a trail byte that looks like a blank
    };
    for (const TrimCase& c : kCases) ExpectTrimmed(c);
}

struct StripCase {
    int line;
    const char* source;
    int32_t startSpace;  // bytes of white space at the start
    int32_t startBlank;  // bytes of blanks at the start
    const char* endStripped;
};

void ExpectStripped(const StripCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.source);
    EXPECT_EQ(IntlStripStartSpace(c.source) - c.source, c.startSpace);
    EXPECT_EQ(IntlStripStartBlank(c.source) - c.source, c.startBlank);
    Destination destination;
    EXPECT_EQ(IntlStripEndSpace(destination, c.source), static_cast<char*>(destination));
    EXPECT_EQ(destination.Text(), c.endStripped);

    std::string same = c.source;
    EXPECT_EQ(IntlStripEndSpace(same.data(), same.data()), same.data());
    EXPECT_STREQ(same.c_str(), c.endStripped);

    std::string whole = c.source;
    EXPECT_EQ(IntlStrStripSpace(whole.data()), whole.data());
    const size_t bothEnds = std::min(std::string(c.endStripped).size(), static_cast<size_t>(c.startSpace));
    EXPECT_STREQ(whole.c_str(), c.endStripped + bothEnds);
}

TEST(WhiteSpace, Strip) {
    constexpr StripCase kCases[] = {
        {__LINE__, "", 0, 0, ""},
        {__LINE__, "  ", 2, 2, ""},
        {__LINE__, "\ta", 1, 0, "\ta"},
        {__LINE__, " \t\n\v\f\rx \t\n\v\f\r", 6, 1, " \t\n\v\f\rx"},
        {__LINE__, "a b", 0, 0, "a b"},
        {__LINE__, "\x0E\x08 ", 0, 0, "\x0E\x08"},  // next to the white space codes
        {__LINE__, "\x81\x40", 0, 0, "\x81\x40"},
    };
    for (const StripCase& c : kCases) ExpectStripped(c);
}

TEST(WhiteSpaceJapanese, Strip) {
    const TestLanguage language(kJapanese);
    constexpr StripCase kCases[] = {
        {__LINE__, "\x81\x40 \x81\x40x\x81\x40", 5, 5, "\x81\x40 \x81\x40x"},
        {__LINE__, "\x81\x40\ta \x81\x40\t", 3, 2, "\x81\x40\ta"},
        {__LINE__, "\x81\x40\x81\x40", 4, 4, ""},
        {__LINE__, "a\x82\x20", 0, 0, "a\x82\x20"},        // the space is a trail byte
        {__LINE__, "\x82\x81\x40", 0, 0, "\x82\x81\x40"},  // no blank: a character and an at sign
        {__LINE__, "\x82\x81\x81\x40", 0, 0, "\x82\x81"},  // a character and a blank
        {__LINE__, "\x82\x81\x82\x81\x40", 0, 0, "\x82\x81\x82\x81\x40"},
        {__LINE__, " \x81", 1, 1, " \x81"},
    };
    for (const StripCase& c : kCases) ExpectStripped(c);
}

TEST(WhiteSpaceKorean, ABlankOfTwoLeadBytes) {
    const TestLanguage language(kKorean);
    constexpr StripCase kCases[] = {
        {__LINE__, "\xA1\xA1\xA1\xA1", 4, 4, ""},
        {__LINE__, "\xA1\xA1\xA1", 2, 2, "\xA1\xA1\xA1"},  // two characters, the second one no blank
        {__LINE__, "\xB0\xA1\xA1\xA1 \xA1\xA1", 0, 0, "\xB0\xA1"},
        {__LINE__, "\xB0\xA1\xA1\xA1\xA1", 0, 0, "\xB0\xA1\xA1\xA1\xA1"},
        {__LINE__, "x\xA1\xA1\xA1\xA1", 0, 0, "x"},
    };
    for (const StripCase& c : kCases) ExpectStripped(c);
}

TEST(WhiteSpaceChinese, ItsOwnBlank) {
    const TestLanguage language(kChinese);
    ExpectStripped({__LINE__, "\xA1\x40x\xA1\x40", 2, 2, "\xA1\x40x"});
    ExpectStripped({__LINE__, "\x81\x40x\x81\x40", 0, 0, "\x81\x40x\x81\x40"});
}

TEST(WhiteSpace, NullPassesOn) {
    Destination destination;
    EXPECT_EQ(IntlStripStartSpace(nullptr), nullptr);
    EXPECT_EQ(IntlStripStartBlank(nullptr), nullptr);
    EXPECT_EQ(IntlStripEndSpace(nullptr, "a"), nullptr);
    EXPECT_EQ(IntlStripEndSpace(destination, nullptr), nullptr);
    EXPECT_EQ(IntlStrStripSpace(nullptr), nullptr);
    EXPECT_TRUE(destination.UntouchedFrom(0));
}

int32_t CountSpaceBytes() {
    int32_t count = 0;
    for (int byte = 0; byte < 256; ++byte) {
        const char text[] = {static_cast<char>(byte), '\0'};
        count += IntlStrIsNextChSpace(text);
    }
    return count;
}

TEST(WhiteSpace, IsNextCharacter) {
    EXPECT_EQ(CountSpaceBytes(), 6);
    EXPECT_EQ(IntlStrIsNextChSpace("\x81\x40"), 0);
}

TEST(WhiteSpaceJapanese, IsNextCharacter) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(CountSpaceBytes(), 6);
    EXPECT_EQ(IntlStrIsNextChSpace("\x81\x40"), 1);
    EXPECT_EQ(IntlStrIsNextChSpace("\xA1\xA1"), 0);
    EXPECT_EQ(IntlStrIsNextChSpace("\tx"), 1);
}

}  // namespace
