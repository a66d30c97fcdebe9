// The wild-card scan and the search for a set.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include <morvl15/intl.h>

#include "support/locale.h"

namespace {

struct ScanCase {
    const char* text;
    const char* pattern;
    int32_t want;
};

void ExpectScans(const ScanCase& c) {
    EXPECT_EQ(IntlStrScan(c.text, c.pattern), c.want) << c.text << " for " << c.pattern;
}

// The same in both kinds of text.
constexpr ScanCase kPlainScans[] = {
    {"abcabd", "abd", 3},       {"x", "_", -1},  // only a character behind it makes a start
    {"abab", "a%bc", -1},       {"abcabd", "a%d", 0},    {"xy", "_", 0},       {"xyz", "_z", 1},
    {"xy", "___", 0},           {"ab", "ab_", 0},        {"x", "_x", -1},      {"ab", "_z", -1},
    {"abc", "b%", 1},           {"abc", "c%d", -1},      {"abc", "%", 0},      {"XYZ", "y", 1},
    {"a%b", "a\\%b", 0},        {"a_b", "a\\_b", 0},     {"aXb", "a\\_b", -1}, {"a\\b", "\\\\b", 1},
    {"ab", "\\", -1},           {"", "%", -1},           {"", "a", -1},        {"", "", 0},
    {"ab", "b\\", 1},  // a lone backslash ends the pattern
    {"0.00E+00", "0.%E_0%", 0}, {"ab", "%\\", 0},        {"a", "", -1},        {"0.00e-000", "0.%e_0%", 0},
    {"0.0#E00", "0.%E_0%", 0},  {"abbbc", "a%bbc", 0},   {"xa", "%a_", 0},     {"#0.00E+00", "0.%E_0%", 1},
    {"aXbabYc", "a%bYc", 0},    {"xab", "%a_", 0},       {"aab", "ab", 1},     {"0.00E", "0.%E_0%", -1},
    {"aaa", "ab", -1},          {"aXbaYc", "a%bYc", -1},  // a failed attempt resumes behind the "b" that it found
    {"abcd", "%b%d", 0},        {"abcd", "%d%b", -1},    {"abcd", "b_d", 1},   {"abcd", "bd", -1},
};

TEST(Scan, Patterns) {
    for (const ScanCase& c : kPlainScans) ExpectScans(c);
    ExpectScans({"\xC4X", "\xE4x", 0});
    EXPECT_EQ(IntlStrScan(nullptr, "a"), -1);
    EXPECT_EQ(IntlStrScan("a", nullptr), -1);
}

TEST(ScanJapanese, Patterns) {
    const TestLanguage language(kJapanese);
    for (const ScanCase& c : kPlainScans) ExpectScans(c);
    constexpr ScanCase kCases[] = {
        {"\x82\xA0z", "z", 1},                                          // in characters
        {"\x83\x61", "a", -1},                                          // a trail byte is no letter
        {"\x83\x5C%", "\x83\x5C\\%", 0}, {"x\x83\x5F", "\x83\x5F", 1},  // nor a wild card
        {"\x83\x5F", "\\_", -1},         {"\x82\x60\x82\x61", "\x82\x82", 1},
        {"\x82\x81", "\x82\x60", 0},     {"\x82\xA0\x82\xA2", "_\x82\xA2", 0},
        {"ab\x82", "b\x82", 1},          {"\x82\xA0\x82\xA2\x82\xA4", "\x82\xA0%\x82\xA4", 0},
        {"\x82\xA0\x82", "\x82", 1},     {"a\x82\xA0\x82\xA2z\x82\xA0\x82\xA4", "\x82\xA0\x82\xA4", 4},
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
    const char* text = "\x83\x61\x82\xA0\x61\x83\x62\xB1\x82";
    constexpr std::pair<const char*, int32_t> kCases[] = {
        {"a", 4},    {"xa\x82\xA0y", 2}, {"\x83\x62\x61", 4}, {"\x83\x62", 5},  {"\x61\x83", 4},         {"\xB1", 7},
        {"\x82", 8}, {"bc", -1},         {"\x61\x82", 4},     {"\x83\x61z", 0}, {"\x82\xA0\x83\x62", 2},
    };
    for (const auto& [set, at] : kCases) {
        EXPECT_EQ(IntlStrSearch(text, set), at >= 0 ? text + at : nullptr) << set;
    }
}

}  // namespace
