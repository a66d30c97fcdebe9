// What the library relies on of the platform, on both hosts: the native one stands in for the other.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include <morvl15/host.h>

#include "support/locale.h"
#include "support/profile.h"

namespace {

// Rows of a text, in capitals, in small letters.
using CaseRow = const char* [3];

void ExpectCase(const CaseRow& row) {
    const auto& [given, upper, lower] = row;
    std::string text = given;
    EXPECT_EQ(CharUpperA(text.data()), text.data());
    EXPECT_EQ(text, upper) << given;
    text = given;
    EXPECT_EQ(CharLowerBuffA(text.data(), static_cast<DWORD>(text.size())), text.size());
    EXPECT_EQ(text, lower) << given;
}

TEST(PlatformText, ChangesCase) {
    constexpr CaseRow kRows[] = {
        {"abc XYZ 1_[", "ABC XYZ 1_[", "abc xyz 1_["},
        {"\xE4\xD6\xFC\xE9\xFF\x9A", "\xC4\xD6\xDC\xC9\x9F\x8A", "\xE4\xF6\xFC\xE9\xFF\x9A"},
        {"\xDF\xB5\xAA\xD7\xF7", "\xDF\xB5\xAA\xD7\xF7", "\xDF\xB5\xAA\xD7\xF7"},  // no other case
        {"", "", ""},
    };
    for (const CaseRow& row : kRows) ExpectCase(row);
    for (unsigned code : {0x61, 0xE4, 0xDF}) {
        char text[] = {static_cast<char>(code), 0};
        const auto changed = reinterpret_cast<uintptr_t>(CharUpperA(reinterpret_cast<LPSTR>(uintptr_t{code})));
        EXPECT_EQ(changed, static_cast<unsigned char>(*CharUpperA(text)));
    }
}

TEST(PlatformTextJapanese, ChangesCase) {
    const TestLanguage language(kJapanese);
    constexpr CaseRow kRows[] = {
        {"a\x83\x61z\x83\x41", "A\x83\x61Z\x83\x41", "a\x83\x61z\x83\x41"},  // trail bytes are no letters
        {"\x82\x81\x82\x79\x82\x4F", "\x82\x60\x82\x79\x82\x4F", "\x82\x81\x82\x9A\x82\x4F"},  // full width
        {"\x83\x9F\x83\xD6", "\x83\x9F\x83\xB6", "\x83\xBF\x83\xD6"},                          // Greek
        {"\x84\x40\x84\x91", "\x84\x40\x84\x60", "\x84\x70\x84\x91"},                          // Cyrillic
        {"\xB1\xDF", "\xB1\xDF", "\xB1\xDF"},                                                  // half-width kana
    };
    for (const CaseRow& row : kRows) ExpectCase(row);
}

std::vector<int> Steps(const char* text) {
    std::vector<int> steps;
    for (const char* at = text; *at != '\0';) {
        const char* next = CharNextA(at);
        steps.push_back(static_cast<int>(next - at));
        at = next;
    }
    return steps;
}

TEST(PlatformText, StepsByBytes) {
    EXPECT_EQ(Steps("a\x83\x61\x81"), (std::vector<int>{1, 1, 1, 1}));
    const char* const end = "";
    EXPECT_EQ(CharNextA(end), end);
}

TEST(PlatformTextJapanese, StepsByCharacters) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(Steps("a\x83\x61\xB1\xE0\x40\x81"),
              (std::vector<int>{1, 2, 1, 2, 1}));  // the last lead byte stands alone
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool leads = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        EXPECT_EQ(IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0, leads) << byte;
    }
}

TEST(PlatformText, KnowsLetters) {
    for (const char letter : std::string("azAZ\xE4\xDF\xFF\x8A")) {
        EXPECT_TRUE(IsCharAlphaA(letter)) << letter;
        EXPECT_TRUE(IsCharAlphaNumericA(letter)) << letter;
    }
    for (const char other : std::string(" _$.\xA0\xA4\xD7\x80")) EXPECT_FALSE(IsCharAlphaNumericA(other)) << other;
    EXPECT_FALSE(IsCharAlphaA('0'));
    EXPECT_TRUE(IsCharAlphaNumericA('0'));
}

TEST(PlatformText, IsOrderedByWords) {
    const char* const kAscending[] = {"",         " ",    "#",     "1",       "10",    "2",       "a",     "A",
                                      "\xE4",     "\xC4", "April", "August",  "coop",  "co-op",   "coops", "Dec",
                                      "December", "jan",  "Jan",   "January", "March", "M\xE4rz", "May",   "z"};
    for (const char* const& first : kAscending) {
        for (const char* const& second : kAscending) {
            const int order = lstrcmpA(first, second);
            EXPECT_EQ((order > 0) - (order < 0), (&first > &second) - (&first < &second)) << first << " " << second;
        }
    }
    EXPECT_EQ(lstrcmpiA("jANUARY", "January"), 0);
    EXPECT_EQ(lstrcmpiA("M\xC4RZ", "m\xE4rz"), 0);
    EXPECT_LT(lstrcmpiA("MARCH", "may"), 0);
}

TEST(PlatformText, IsPutTogether) {
    char text[64];
    EXPECT_EQ(wsprintfA(text, "%s%d", "Page: ", -7), 8);
    EXPECT_STREQ(text, "Page: -7");
    EXPECT_EQ(wsprintfA(text, "%s on %s|%-4s|%4s|%.2s", "a", "", "b", "c", "def"), 18);
    EXPECT_STREQ(text, "a on |b   |   c|de");
    EXPECT_EQ(wsprintfA(text, "%ld %lu %u %02d %4d %x %c%%", 1L, 2L, 3, 4, 5, 0xAB, 'z'), 19);
    EXPECT_STREQ(text, "1 2 3 04    5 ab z%");
}

TEST(PlatformProfile, GivesValuesWithoutBlanksAndQuotes) {
    const std::tuple<const char*, const char*, INT> kRows[] = {
        {"text", "text", 0},   {"a=b;c", "a=b;c", 0}, {"  two words  ", "two words", 0},
        {"\" x \"", " x ", 0}, {"' '", " ", 0},       {"\"x'", "\"x'", 0},
        {"\"", "\"", 0},       {"''", "", 99},        {"", "", 99},
        {"12", "12", 12},      {"-7x", "-7x", -7},    {"0", "0", 0}};
    for (const auto& [written, read, number] : kRows) {
        const TestProfile profile({{"MORVANEL", "TestKey", written}});
        char text[64];
        EXPECT_EQ(GetProfileStringA("MORVANEL", "TestKey", "(default)", text, sizeof text), std::string(read).size());
        EXPECT_STREQ(text, read) << written;
        EXPECT_EQ(static_cast<INT>(GetProfileIntA("MORVANEL", "TestKey", 99)), number) << written;
    }
}

TEST(PlatformProfile, NamesHaveNoCaseAndTextsAreCut) {
    const TestProfile profile({{"MORVANEL", "TestKey", "abcdef"}, {"MORVANEL", "Other", nullptr}});
    char text[8] = "#######";
    EXPECT_EQ(GetProfileStringA("morvanel", "TESTKEY", "", text, 4), 3u);
    EXPECT_EQ(std::string(text, 7), std::string("abc\0###", 7));
    EXPECT_EQ(GetProfileStringA("MORVANEL", "Other", "(default)", text, sizeof text), 7u);
    EXPECT_STREQ(text, "(defaul");
    EXPECT_EQ(GetProfileIntA("MORVANEL", "Other", 49), 49u);
}

}  // namespace
