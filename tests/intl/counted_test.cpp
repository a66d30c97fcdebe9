// Left, right, mid, replace and counted copies, in characters and in bytes.
#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>

#include <morvl15/intl.h>

#include "destination.h"
#include "support/locale.h"

namespace {

constexpr int32_t kMin = INT32_MIN;
constexpr int32_t kMax = INT32_MAX;
constexpr char kText[] = "a\x82\xA0z";

// ---- left and right -----------------------------------------------------------------------------------------------

struct EndCase {
    const char* source;
    int32_t count;
    const char* want;
    int32_t result;
};

void ExpectEnds(int32_t(MORVL_CALL* operation)(char*, const char*, int32_t), std::span<const EndCase> cases) {
    for (const EndCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.source + std::to_string(c.count));
        Destination destination;
        EXPECT_EQ(operation(destination, c.source, c.count), c.result);
        EXPECT_EQ(destination.Written(), c.want);
    }
}

TEST(Counted, LeftAndRight) {
    constexpr EndCase kLeft[] = {
        {"abc", 2, "ab", 2},  {"abc", 3, "abc", 3}, {"abc", kMax, "abc", 3},    {"abc", 0, "", 0},
        {"abc", kMin, "", 0}, {"", 5, "", 0},       {"\x82\xA0", 1, "\x82", 1},
    };
    constexpr EndCase kRight[] = {
        {"abc", 2, "bc", 2},  {"abc", 4, "abc", 3}, {"abc", kMax, "abc", 3},    {"abc", 0, "", 0},
        {"abc", kMin, "", 0}, {"", 2, "", 0},       {"\x82\xA0", 1, "\xA0", 1},
    };
    ExpectEnds(IntlStrLeft, kLeft);
    ExpectEnds(IntlStrLeftB, kLeft);
    ExpectEnds(IntlStrRight, kRight);
    ExpectEnds(IntlStrRightB, kRight);
}

TEST(CountedJapanese, LeftAndRight) {
    const TestLanguage language(kJapanese);
    constexpr EndCase kLeft[] = {
        {kText, kMax, kText, 3}, {kText, 2, "a\x82\xA0", 2},
        {kText, 0, "", 0},       {kText, -1, "", 0},
        {"", 1, "", 0},          {"\x82\xA0\x82", 2, "\x82\xA0\x82", 2},  // half a character at the end counts as one
    };
    constexpr EndCase kLeftB[] = {
        {kText, 2, "a ", 2},  {kText, 3, "a\x82\xA0", 3}, {kText, kMax, kText, 4},
        {kText, kMin, "", 0}, {"a\x82", 2, "a\x82", 2},   {"\x82\x82\x82\x82", 3, "\x82\x82 ", 3},
    };
    constexpr EndCase kRight[] = {
        {kText, 2, "\x82\xA0z", 2},
        {kText, kMax, kText, 3},
        {kText, kMin, "", 0},
        {"", 1, "", 0},
    };
    constexpr EndCase kRightB[] = {
        {kText, 2, " z", 2}, {kText, 3, "\x82\xA0z", 3}, {kText, kMax, kText, 4}, {kText, 0, "", 0},
        {"", 1, "", 0},      {"\x82\xA0", 1, " ", 1},
    };
    ExpectEnds(IntlStrLeft, kLeft);
    ExpectEnds(IntlStrLeftB, kLeftB);
    ExpectEnds(IntlStrRight, kRight);
    ExpectEnds(IntlStrRightB, kRightB);
}

// ---- mid ----------------------------------------------------------------------------------------------------------

struct MidCase {
    int32_t start;
    int32_t count;
    const char* want;
    int32_t result;
};

void ExpectMid(int32_t(MORVL_CALL* operation)(char*, const char*, int32_t, int32_t), const char* source,
               std::span<const MidCase> cases) {
    for (const MidCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, std::to_string(c.start) + ", " + std::to_string(c.count));
        Destination destination;
        EXPECT_EQ(operation(destination, source, c.start, c.count), c.result);
        EXPECT_EQ(destination.Written(), c.want);
        std::string same = source;
        EXPECT_EQ(operation(same.data(), same.data(), c.start, c.count), c.result);
        EXPECT_STREQ(same.c_str(), c.want);
    }
}

TEST(Counted, Mid) {
    constexpr MidCase kCases[] = {
        {1, 1, "b", 1}, {1, kMax, "bc", 2}, {kMin, 2, "ab", 2}, {3, 1, "", 0},    {kMax, kMax, "", 0}, {1, -1, "", 0},
        {1, 0, "", 0},  {2, kMax, "c", 1},  {kMax, 1, "", 0},   {0, 3, "abc", 3}, {kMin, kMin, "", 0},
    };
    ExpectMid(IntlStrMid, "abc", kCases);
    ExpectMid(IntlStrMidB, "abc", kCases);
}

TEST(CountedJapanese, Mid) {
    const TestLanguage language(kJapanese);
    constexpr MidCase kCharacters[] = {
        {1, 1, "\x82\xA0", 1}, {-1, 2, "a\x82\xA0", 2}, {1, kMax, "\x82\xA0z", 2}, {1, 0, "", 0},
        {1, -1, "", 0},        {3, 1, "", 0},           {kMax, kMax, "", 0},
    };
    constexpr MidCase kBytes[] = {
        {1, 1, " ", 1},                                                              // a lead byte with room for one
        {1, 2, "\x82\xA0", 2},   {2, 2, " z", 2}, {0, 2, "a ", 2},  {2, 1, " ", 1},  // a trail byte
        {-5, 3, "a\x82\xA0", 3}, {4, 1, "", 0},   {kMax, 1, "", 0}, {1, -1, "", 0}, {0, kMax, kText, 4},
    };
    constexpr MidCase kHalfAtBothEnds[] = {{1, 2, "  ", 2}};
    constexpr MidCase kHalfOfTheSource[] = {{1, 2, " \x82", 2}};
    ExpectMid(IntlStrMid, kText, kCharacters);
    ExpectMid(IntlStrMidB, kText, kBytes);
    ExpectMid(IntlStrMidB, "\x82\xA0\x83\x5C", kHalfAtBothEnds);
    ExpectMid(IntlStrMidB, "\x82\xA0\x82", kHalfOfTheSource);
}

// ---- replace ------------------------------------------------------------------------------------------------------

struct ReplaceCase {
    const char* source;
    const char* insertion;
    int32_t position;
    int32_t count;
    const char* want;
    int32_t result;
};

void ExpectReplaced(int32_t(MORVL_CALL* operation)(char*, const char*, const char*, int32_t, int32_t),
                    std::span<const ReplaceCase> cases) {
    for (const ReplaceCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.want);
        Destination destination;
        EXPECT_EQ(operation(destination, c.source, c.insertion, c.position, c.count), c.result);
        EXPECT_EQ(destination.Written(), c.want);
    }
}

TEST(Counted, Replace) {
    constexpr ReplaceCase kCases[] = {
        {"abcd", "x", 9, 9, "abcdx", 5},                                          // past the end: appends
        {"abcd", "x", 2, kMin, "abxcd", 5},                                       // only inserts
        {"abcd", "xyz", 1, 2, "axyzd", 5},     {"abcd", "x", 2, kMax, "abx", 3},  // drops the tail
        {"abcd", "x", kMin, 1, "xbcd", 4},     {"abcd", "", 1, 2, "ad", 2},      {"abcd", "", 0, kMax, "", 0},
        {"abcd", "x", kMax, kMax, "abcdx", 5}, {"abcd", "x", 1, 1, "axcd", 4},   {"", "x", 0, 0, "x", 1},
    };
    ExpectReplaced(IntlStrReplace, kCases);
    ExpectReplaced(IntlStrReplaceB, kCases);
}

TEST(CountedJapanese, Replace) {
    const TestLanguage language(kJapanese);
    constexpr ReplaceCase kCharacters[] = {
        {kText, "x", 9, 0, "a\x82\xA0zx", 4},  {kText, "\x83\x5C\x83\x5C", 1, 1, "a\x83\x5C\x83\x5Cz", 4},
        {kText, "\x82", 1, 1, "a\x82z", 2},  // the half and the "z" are one character now
        {kText, "x", 1, kMax, "ax", 2},        {"", "x", 0, 0, "x", 1},
        {kText, "x", 2, -1, "a\x82\xA0xz", 4},
    };
    constexpr ReplaceCase kBytes[] = {
        {kText, "x", 2, 0, "a x z", 5}, {kText, "x", 1, 1, "ax z", 4}, {kText, "x", 1, 2, "axz", 3},
        {kText, "x", 2, 1, "a xz", 4},  {kText, "x", -1, 2, "x z", 3}, {kText, "x", kMax, kMax, "a\x82\xA0zx", 5},
        {"\x82\xA0", "", 0, 1, " ", 1}, {"", "x", 0, 0, "x", 1},
    };
    ExpectReplaced(IntlStrReplace, kCharacters);
    ExpectReplaced(IntlStrReplaceB, kBytes);
}

// ---- counted copies and comparisons -------------------------------------------------------------------------------

struct CopyCase {
    const char* source;
    uint16_t count;
    std::string written;
};

void ExpectCopied(const CopyCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.source);
    Destination destination(70000);
    EXPECT_EQ(IntlStrnCpy(destination, c.source, c.count), static_cast<char*>(destination));
    EXPECT_EQ(destination.Bytes(c.written.size()), c.written);
    EXPECT_TRUE(destination.UntouchedFrom(c.written.size()));
}

TEST(Counted, CopyFillsTheCount) {
    const CopyCase cases[] = {
        {"abc", 0, ""},
        {"abc", 2, "ab"},
        {"abc", 3, "abc"},
        {"abc", 5, std::string("abc\0\0", 5)},
        {"", 65535, std::string(65535, '\0')},
    };
    for (const CopyCase& c : cases) ExpectCopied(c);
}

TEST(CountedJapanese, CopyFillsTheCount) {
    const TestLanguage language(kJapanese);
    const CopyCase cases[] = {
        {"a\x82\xA0z", 2, "a\x82\xA0"},          {"a\x82\xA0z", 0, ""},
        {"a\x82\xA0z", 3, "a\x82\xA0z"},         {"a\x82\xA0z", 4, std::string("a\x82\xA0z\0", 5)},
        {"a\x82", 3, std::string("a\x82\0", 3)}, {"\x82\xA0", 4, std::string("\x82\xA0\0\0\0", 5)},
    };
    for (const CopyCase& c : cases) ExpectCopied(c);
}

TEST(Counted, ComparisonIsByteForByte) {
    EXPECT_EQ(IntlIsStrEqual("abc", "abc"), 1);
    EXPECT_EQ(IntlIsStrEqual("abc", "abC"), 0);
    EXPECT_EQ(IntlIsStrEqual("abc", "ab"), 0);
    EXPECT_EQ(IntlIsStrEqual("", ""), 1);
    EXPECT_EQ(IntlIsStrnEqual("abc", "abd", 2), 1);
    EXPECT_EQ(IntlIsStrnEqual("abc", "abd", 3), 0);
    EXPECT_EQ(IntlIsStrnEqual("abc", "xyz", 0), 1);
    EXPECT_EQ(IntlIsStrnEqual("abc", "abc", 65535), 1);  // the terminator ends it
}

}  // namespace
