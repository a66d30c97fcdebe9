// Upper case, lower case, capitals at the start of words.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>

#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "destination.h"
#include "intl/case.h"
#include "support/locale.h"

namespace {

struct ProperCase {
    const char* source;
    const char* want;
    int32_t result;
};

void ExpectProper(const ProperCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.source);
    Destination destination;
    EXPECT_EQ(IntlStrProper(destination, c.source), c.result);
    EXPECT_EQ(destination.Written(), c.want);
}

TEST(Case, Proper) {
    constexpr ProperCase kCases[] = {
        {"hELLO wORLD", "Hello World", 11},     {"", "", 0},           {"a\nb\vc\fd\re  x1y", "A\nB\vC\fD\rE  X1y", 14},
        {"o'neill-BROWN", "O'neill-brown", 13}, {" \t\n", " \t\n", 3}, {"\xC4PFEL \xF6L", "\xC4pfel \xD6l", 8},
    };
    for (const ProperCase& c : kCases) ExpectProper(c);
}

TEST(CaseJapanese, Proper) {
    const TestLanguage language(kJapanese);
    constexpr ProperCase kCases[] = {
        {"\x82\x81\x82\x82", "\x82\x60\x82\x82", 2},                      // full-width a, b
        {"x\x81\x40yZ \x82\x9A", "X\x81\x40Yz \x82\x79", 6},              // behind a double-byte blank
        {"\x83\x8E \x83\x95 \x83\x96", "\x83\x8F \x83\x4A \x83\x50", 5},  // small kana come back large
        {"\x83\x4B\x82\xA0 \x82\xA0z", "\x83\x4B\x82\xA0 \x82\xA0z", 5},  // no half-width letter
        {"\xB1z z\x82", "\xB1z Z\x82", 5},
        {"\x83\x61\x83\x41", "\x83\x61\x83\x41", 2},  // trail bytes that look like letters
    };
    for (const ProperCase& c : kCases) ExpectProper(c);
}

TEST(Case, WholeTextsInPlace) {
    char text[] = "aZ1\xE4\xDF";
    EXPECT_EQ(IntlStrUpper(text), text);
    EXPECT_STREQ(text, "AZ1\xC4\xDF");
    EXPECT_EQ(IntlStrLower(text), text);
    EXPECT_STREQ(text, "az1\xE4\xDF");
}

TEST(CaseJapanese, TrailBytesAreNoLetters) {
    const TestLanguage language(kJapanese);
    char text[] = "a\x83\x61\x83\x41z";
    EXPECT_STREQ(IntlStrUpper(text), "A\x83\x61\x83\x41Z");
    EXPECT_STREQ(IntlStrLower(text), "a\x83\x61\x83\x41z");
}

TEST(CaseJapanese, FoldOneCharacter) {
    const TestLanguage language(kJapanese);
    constexpr std::tuple<const char*, uint16_t, uint16_t> kCases[] = {
        {"Z\x82", 'Z', 'z'},          {"\x82\x81z", 0x8260, 0x8281}, {"", 0, 0}, {"\x82", 0x82, 0x82}, {"a", 'A', 'a'},
        {"\x83\x61", 0x8361, 0x8361}, {"\x83\xBF", 0x839F, 0x83BF},  // alpha
        {"\x84\x91", 0x8460, 0x8491},                                // the last Cyrillic letter
    };
    for (const auto& [text, upper, lower] : kCases) {
        EXPECT_EQ(IntlFoldChar(text, IntlFold::kUpper), upper) << text;
        EXPECT_EQ(IntlFoldChar(text, IntlFold::kLower), lower) << text;
    }
}

// The shortcut for characters without case gives what the host gives, for every character. A code that comes back
// changed in both cases is none: Windows puts another in its place.
void ExpectFoldsAsTheHost() {
    for (uint32_t code = 0x8001; code <= 0xFFFF; ++code) {
        const char text[3] = {static_cast<char>(code >> 8), static_cast<char>(code), '\0'};
        if (IntlBytesInNextChar(text) != 2) continue;
        char upper[3] = {text[0], text[1], '\0'};
        char lower[3] = {text[0], text[1], '\0'};
        CharUpperA(upper);
        CharLowerA(lower);
        if (IntlDBCSChar(upper) != code && IntlDBCSChar(lower) != code) continue;
        ASSERT_EQ(IntlFoldChar(text, IntlFold::kUpper), IntlDBCSChar(upper)) << std::hex << code;
        ASSERT_EQ(IntlFoldChar(text, IntlFold::kLower), IntlDBCSChar(lower)) << std::hex << code;
    }
}

TEST(CaseJapanese, FoldsAsTheHost) {
    const TestLanguage language(kJapanese);
    ExpectFoldsAsTheHost();
}

TEST(CaseChinese, FoldsAsTheHost) {
    const TestLanguage language(kChinese);
    ExpectFoldsAsTheHost();
}

TEST(CaseChineseTraditional, FoldsAsTheHost) {
    const TestLanguage language(kChineseTraditional);
    ExpectFoldsAsTheHost();
}

TEST(CaseKorean, FoldsAsTheHost) {
    const TestLanguage language(kKorean);
    ExpectFoldsAsTheHost();
}

}  // namespace
