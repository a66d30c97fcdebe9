// The wild-card scan and the search for a set.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/intl.h>

#include "support/locale.h"

namespace {

struct ScanCase {
    int line;
    const char* text;
    const char* pattern;
    int32_t want;
};

void ExpectScans(const ScanCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.text);
    EXPECT_EQ(IntlStrScan(c.text, c.pattern), c.want) << c.pattern;
}

// The same in both kinds of text.
constexpr ScanCase kPlainScans[] = {
    {__LINE__, "abcabd", "abd", 3},
    {__LINE__, "abcabd", "a%d", 0},
    {__LINE__, "abab", "a%bc", -1},
    {__LINE__, "x", "_", -1},  // only a character behind it makes a start
    {__LINE__, "xy", "_", 0},
    {__LINE__, "xyz", "_z", 1},
    {__LINE__, "xy", "___", 0},
    {__LINE__, "ab", "ab_", 0},
    {__LINE__, "x", "_x", -1},
    {__LINE__, "ab", "_z", -1},
    {__LINE__, "abc", "%", 0},
    {__LINE__, "abc", "b%", 1},
    {__LINE__, "abc", "c%d", -1},
    {__LINE__, "XYZ", "y", 1},
    {__LINE__, "a%b", "a\\%b", 0},
    {__LINE__, "aXb", "a\\_b", -1},
    {__LINE__, "a_b", "a\\_b", 0},
    {__LINE__, "a\\b", "\\\\b", 1},
    {__LINE__, "", "", 0},
    {__LINE__, "", "%", -1},
    {__LINE__, "", "a", -1},
    {__LINE__, "a", "", -1},
    {__LINE__, "ab", "b\\", 1},  // a lone backslash ends the pattern
    {__LINE__, "ab", "\\", -1},
    {__LINE__, "ab", "%\\", 0},
    {__LINE__, "0.00E+00", "0.%E_0%", 0},
    {__LINE__, "0.00e-000", "0.%e_0%", 0},
    {__LINE__, "0.0#E00", "0.%E_0%", 0},
    {__LINE__, "0.00E", "0.%E_0%", -1},
    {__LINE__, "#0.00E+00", "0.%E_0%", 1},
    {__LINE__, "aXbaYc", "a%bYc", -1},  // a failed attempt resumes behind the "b" that it found
    {__LINE__, "aXbabYc", "a%bYc", 0},
    {__LINE__, "abbbc", "a%bbc", 0},
    {__LINE__, "xab", "%a_", 0},
    {__LINE__, "xa", "%a_", 0},
    {__LINE__, "aab", "ab", 1},
    {__LINE__, "aaa", "ab", -1},
    {__LINE__, "abcd", "%b%d", 0},
    {__LINE__, "abcd", "%d%b", -1},
    {__LINE__, "abcd", "b_d", 1},
    {__LINE__, "abcd", "bd", -1},
};

TEST(Scan, Patterns) {
    for (const ScanCase& c : kPlainScans) ExpectScans(c);
    ExpectScans({__LINE__, "\xC4X", "\xE4x", 0});
    EXPECT_EQ(IntlStrScan(nullptr, "a"), -1);
    EXPECT_EQ(IntlStrScan("a", nullptr), -1);
}

TEST(ScanJapanese, Patterns) {
    const TestLanguage language(kJapanese);
    for (const ScanCase& c : kPlainScans) ExpectScans(c);
    constexpr ScanCase kCases[] = {
        {__LINE__,
         "\x82\xA0"
         "b",
         "b", 1},                         // in characters
        {__LINE__, "\x83\x61", "a", -1},  // a trail byte is no letter
        {__LINE__, "\x83\x5C%", "\x83\x5C\\%", 0},
        {__LINE__, "\x83\x5F", "\\_", -1},
        {__LINE__, "x\x83\x5F", "\x83\x5F", 1},  // nor a wild card
        {__LINE__, "\x82\x60\x82\x61", "\x82\x82", 1},
        {__LINE__, "\x82\x81", "\x82\x60", 0},
        {__LINE__, "\x82\xA0\x82\xA2", "_\x82\xA2", 0},
        {__LINE__, "\x82\xA0\x82\xA2\x82\xA4", "\x82\xA0%\x82\xA4", 0},
        {__LINE__,
         "a\x82\xA0\x82\xA2"
         "b\x82\xA0\x82\xA4",
         "\x82\xA0\x82\xA4", 4},
        {__LINE__, "ab\x82", "b\x82", 1},
        {__LINE__, "\x82\xA0\x82", "\x82", 1},
    };
    for (const ScanCase& c : kCases) ExpectScans(c);
}

TEST(Scan, Set) {
    const char* text = "abc";
    EXPECT_EQ(IntlStrSearch(text, "cb"), text + 1);
    EXPECT_EQ(IntlStrSearch(text, "xyz"), nullptr);
    EXPECT_EQ(IntlStrSearch(text, ""), nullptr);
    EXPECT_EQ(IntlStrSearch("", "a"), nullptr);
    EXPECT_EQ(IntlStrSearch(nullptr, "a"), nullptr);
    EXPECT_EQ(IntlStrSearch(text, nullptr), nullptr);
}

TEST(ScanJapanese, Set) {
    const TestLanguage language(kJapanese);
    const char* text =
        "\x83\x61\x82\xA0"
        "a\x83\x62\xB1\x82";
    struct SetCase {
        int line;
        const char* set;
        int32_t at;
    };
    constexpr SetCase kCases[] = {
        {__LINE__, "a", 4},
        {__LINE__, "xa\x82\xA0y", 2},
        {__LINE__,
         "\x83\x62"
         "a",
         4},
        {__LINE__, "\x83\x62", 5},
        {__LINE__, "\xB1", 7},
        {__LINE__, "\x61\x83", 4},
        {__LINE__, "\x82", 8},
        {__LINE__, "bc", -1},
        {__LINE__, "\x61\x82", 4},
        {__LINE__, "\x83\x61z", 0},
    };
    for (const SetCase& c : kCases) {
        EXPECT_EQ(IntlStrSearch(text, c.set), c.at >= 0 ? text + c.at : nullptr) << c.line;
    }
}

}  // namespace
