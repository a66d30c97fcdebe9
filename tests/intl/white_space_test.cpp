// Removing white space and blanks.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/intl.h>

#include "destination.h"
#include "support/locale.h"

namespace {

struct TrimCase {
    const char* source;
    const char* want;
    int32_t result;
};

void ExpectTrimmed(const TrimCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.source);
    Destination destination;
    EXPECT_EQ(IntlStrTrim(destination, c.source), c.result);
    EXPECT_EQ(destination.Written(), c.want);
    std::string same = c.source;
    EXPECT_EQ(IntlStrTrim(same.data(), same.data()), c.result);
    EXPECT_STREQ(same.c_str(), c.want);
}

TEST(WhiteSpace, Trim) {
    constexpr TrimCase kCases[] = {
        {"\ta  \fb ", "a b", 3},   {" \t\v\f", "", 0},      {"", "", 0}, {"a", "a", 1}, {"\x81\x40x", "\x81\x40x", 3},
        {"a\vb\f\tc", "a b c", 5}, {"a \n b", "a \n b", 5},  // a line feed is no blank here
        {"\r a", "\r a", 3},                                 // ... and ends the leading ones
    };
    for (const TrimCase& c : kCases) ExpectTrimmed(c);
}

TEST(WhiteSpaceJapanese, Trim) {
    const TestLanguage language(kJapanese);
    constexpr TrimCase kCases[] = {
        {"\x81\x40 a\x81\x40\x81\x40\x82\xA0 \x81\x40", "a \x82\xA0", 3},
        {"\x81\x40", "", 0},
        {"a\x82\x81\x40 b", "a\x82\x81\x40 b", 5},  // half of each of two characters is no blank
        {"a \x82", "a \x82", 3},
        {"a\x82 b", "a\x82 b", 3},  // a trail byte that looks like a blank
    };
    for (const TrimCase& c : kCases) ExpectTrimmed(c);
}

struct StripCase {
    const char* source;
    int32_t startSpace;  // bytes of white space at the start
    int32_t startBlank;  // bytes of blanks at the start
    const char* endStripped;
};

void ExpectStripped(const StripCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.source);
    EXPECT_EQ(IntlStripStartSpace(c.source) - c.source, c.startSpace);
    EXPECT_EQ(IntlStripStartBlank(c.source) - c.source, c.startBlank);
    Destination destination;
    EXPECT_EQ(IntlStripEndSpace(destination, c.source), static_cast<char*>(destination));
    EXPECT_EQ(destination.Written(), c.endStripped);
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
        {"", 0, 0, ""},       {"\x81\x40", 0, 0, "\x81\x40"},
        {"\ta", 1, 0, "\ta"}, {" \t\n\v\f\rx \t\n\v\f\r", 6, 1, " \t\n\v\f\rx"},
        {"a b", 0, 0, "a b"}, {"\x0E\x08 ", 0, 0, "\x0E\x08"},  // next to the white space codes
        {"  ", 2, 2, ""},
    };
    for (const StripCase& c : kCases) ExpectStripped(c);
}

TEST(WhiteSpaceJapanese, Strip) {
    const TestLanguage language(kJapanese);
    constexpr StripCase kCases[] = {
        {"\x81\x40 \x81\x40x\x81\x40", 5, 5, "\x81\x40 \x81\x40x"},
        {"\x81\x40\ta \x81\x40\t", 3, 2, "\x81\x40\ta"},
        {"\x81\x40\x81\x40", 4, 4, ""},
        {"a\x82\x20", 0, 0, "a\x82\x20"},        // the space is a trail byte
        {"\x82\x81\x40", 0, 0, "\x82\x81\x40"},  // no blank: a character and an at sign
        {"\x82\x81\x81\x40", 0, 0, "\x82\x81"},  // a character and a blank
        {"\x82\x81\x82\x81\x40", 0, 0, "\x82\x81\x82\x81\x40"},
        {" \x81", 1, 1, " \x81"},
    };
    for (const StripCase& c : kCases) ExpectStripped(c);
}

TEST(WhiteSpaceKorean, ABlankOfTwoLeadBytes) {
    const TestLanguage language(kKorean);
    constexpr StripCase kCases[] = {
        {"\xA1\xA1\xA1\xA1", 4, 4, ""},
        {"\xA1\xA1\xA1", 2, 2, "\xA1\xA1\xA1"},  // two characters, the second one no blank
        {"\xB0\xA1\xA1\xA1 \xA1\xA1", 0, 0, "\xB0\xA1"},
        {"\xB0\xA1\xA1\xA1\xA1", 0, 0, "\xB0\xA1\xA1\xA1\xA1"},
        {"x\xA1\xA1\xA1\xA1", 0, 0, "x"},
    };
    for (const StripCase& c : kCases) ExpectStripped(c);
}

TEST(WhiteSpaceChinese, ItsOwnBlank) {
    const TestLanguage language(kChinese);
    ExpectStripped({"\xA1\x40x\xA1\x40", 2, 2, "\xA1\x40x"});
    ExpectStripped({"\x81\x40x\x81\x40", 0, 0, "\x81\x40x\x81\x40"});
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
