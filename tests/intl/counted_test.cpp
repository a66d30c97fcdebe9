// Left, right, mid, replace and counted copies, in characters and in bytes.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include <morvl15/intl.h>

#include "destination.h"
#include "support/locale.h"

namespace {

constexpr int32_t kMin = INT32_MIN;
constexpr int32_t kMax = INT32_MAX;

// ---- left and right -----------------------------------------------------------------------------------------------

using LeftOrRight = int32_t(MORVL_CALL*)(char*, const char*, int32_t);
struct EndCase {
    int line;
    LeftOrRight operation;
    const char* source;
    int32_t count;
    const char* want;
    int32_t result;
};

void ExpectEnds(const EndCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.source);
    Destination destination;
    EXPECT_EQ(c.operation(destination, c.source, c.count), c.result);
    EXPECT_EQ(destination.Text(), c.want);
    EXPECT_TRUE(destination.UntouchedBehindText());
}

TEST(Counted, LeftAndRight) {
    const EndCase cases[] = {
        {__LINE__, IntlStrLeft, "abc", 2, "ab", 2},        {__LINE__, IntlStrLeft, "abc", 3, "abc", 3},
        {__LINE__, IntlStrLeft, "abc", kMax, "abc", 3},    {__LINE__, IntlStrLeft, "abc", 0, "", 0},
        {__LINE__, IntlStrLeft, "abc", kMin, "", 0},       {__LINE__, IntlStrLeft, "", 5, "", 0},
        {__LINE__, IntlStrLeft, "\x82\xA0", 1, "\x82", 1}, {__LINE__, IntlStrLeftB, "\x82\xA0", 1, "\x82", 1},
        {__LINE__, IntlStrRight, "abc", 2, "bc", 2},       {__LINE__, IntlStrRight, "abc", 4, "abc", 3},
        {__LINE__, IntlStrRight, "abc", kMax, "abc", 3},   {__LINE__, IntlStrRight, "abc", 0, "", 0},
        {__LINE__, IntlStrRight, "abc", kMin, "", 0},      {__LINE__, IntlStrRight, "", 2, "", 0},
        {__LINE__, IntlStrRightB, "abc", 1, "c", 1},
    };
    for (const EndCase& c : cases) ExpectEnds(c);
}

TEST(CountedJapanese, LeftAndRight) {
    const TestLanguage language(kJapanese);
    const char* text =
        "a\x82\xA0"
        "b";
    const EndCase cases[] = {
        {__LINE__, IntlStrLeft, text, 2, "a\x82\xA0", 2},
        {__LINE__, IntlStrLeft, text, kMax, text, 3},
        {__LINE__, IntlStrLeft, text, 0, "", 0},
        {__LINE__, IntlStrLeft, text, -1, "", 0},
        {__LINE__, IntlStrLeft, "\x82\xA0\x82", 2, "\x82\xA0\x82", 2},  // half a character at the end counts as one
        {__LINE__, IntlStrLeftB, text, 2, "a ", 2},
        {__LINE__, IntlStrLeftB, text, 3, "a\x82\xA0", 3},
        {__LINE__, IntlStrLeftB, text, kMax, text, 4},
        {__LINE__, IntlStrLeftB, text, kMin, "", 0},
        {__LINE__, IntlStrLeftB, "a\x82", 2, "a\x82", 2},
        {__LINE__, IntlStrLeftB, "\x82\x82\x82\x82", 3, "\x82\x82 ", 3},
        {__LINE__, IntlStrRight, text, 2,
         "\x82\xA0"
         "b",
         2},
        {__LINE__, IntlStrRight, text, kMax, text, 3},
        {__LINE__, IntlStrRight, text, kMin, "", 0},
        {__LINE__, IntlStrRight, "", 1, "", 0},
        {__LINE__, IntlStrRightB, text, 2, " b", 2},
        {__LINE__, IntlStrRightB, text, 3,
         "\x82\xA0"
         "b",
         3},
        {__LINE__, IntlStrRightB, text, kMax, text, 4},
        {__LINE__, IntlStrRightB, text, 0, "", 0},
        {__LINE__, IntlStrRightB, "", 1, "", 0},
        {__LINE__, IntlStrRightB, "\x82\xA0", 1, " ", 1},
    };
    for (const EndCase& c : cases) ExpectEnds(c);
}

// ---- mid ----------------------------------------------------------------------------------------------------------

using Mid = int32_t(MORVL_CALL*)(char*, const char*, int32_t, int32_t);
struct MidCase {
    int line;
    Mid operation;
    int32_t start;
    int32_t count;
    const char* want;
    int32_t result;
};

void ExpectMid(const char* source, const MidCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, source);
    Destination destination;
    EXPECT_EQ(c.operation(destination, source, c.start, c.count), c.result);
    EXPECT_EQ(destination.Text(), c.want);
    EXPECT_TRUE(destination.UntouchedBehindText());
    if (c.start >= 0) {  // over itself the source gives the same
        Destination same;
        std::string(source).copy(same, std::string::npos);
        same[std::string(source).size()] = '\0';
        EXPECT_EQ(c.operation(same, same, c.start, c.count), c.result);
        EXPECT_EQ(same.Text(), c.want);
    }
}

TEST(Counted, Mid) {
    constexpr MidCase kCases[] = {
        {__LINE__, IntlStrMid, 1, 1, "b", 1},      {__LINE__, IntlStrMid, 1, kMax, "bc", 2},
        {__LINE__, IntlStrMid, kMin, 2, "ab", 2},  {__LINE__, IntlStrMid, 3, 1, "", 0},
        {__LINE__, IntlStrMid, kMax, kMax, "", 0}, {__LINE__, IntlStrMid, 1, -1, "", 0},
        {__LINE__, IntlStrMid, 1, 0, "", 0},       {__LINE__, IntlStrMidB, 1, 1, "b", 1},
        {__LINE__, IntlStrMidB, 2, kMax, "c", 1},  {__LINE__, IntlStrMidB, kMax, 1, "", 0},
        {__LINE__, IntlStrMid, kMin, kMin, "", 0}, {__LINE__, IntlStrMid, 0, 3, "abc", 3},
    };
    for (const MidCase& c : kCases) ExpectMid("abc", c);
}

TEST(CountedJapanese, Mid) {
    const TestLanguage language(kJapanese);
    constexpr MidCase kCases[] = {
        {__LINE__, IntlStrMid, 1, 1, "\x82\xA0", 1},
        {__LINE__, IntlStrMid, -1, 2, "a\x82\xA0", 2},
        {__LINE__, IntlStrMid, 1, kMax,
         "\x82\xA0"
         "b",
         2},
        {__LINE__, IntlStrMid, 1, 0, "", 0},
        {__LINE__, IntlStrMid, 1, -1, "", 0},
        {__LINE__, IntlStrMid, 3, 1, "", 0},
        {__LINE__, IntlStrMid, kMax, kMax, "", 0},
        {__LINE__, IntlStrMidB, 1, 1, " ", 1},  // a lead byte with room for one
        {__LINE__, IntlStrMidB, 2, 1, " ", 1},  // a trail byte
        {__LINE__, IntlStrMidB, 2, 2, " b", 2},
        {__LINE__, IntlStrMidB, 0, 2, "a ", 2},
        {__LINE__, IntlStrMidB, 1, 2, "\x82\xA0", 2},
        {__LINE__, IntlStrMidB, -5, 3, "a\x82\xA0", 3},
        {__LINE__, IntlStrMidB, 4, 1, "", 0},
        {__LINE__, IntlStrMidB, kMax, 1, "", 0},
        {__LINE__, IntlStrMidB, 1, -1, "", 0},
        {__LINE__, IntlStrMidB, 0, kMax,
         "a\x82\xA0"
         "b",
         4},
    };
    for (const MidCase& c : kCases)
        ExpectMid(
            "a\x82\xA0"
            "b",
            c);
    ExpectMid("\x82\xA0\x83\x5C", {__LINE__, IntlStrMidB, 1, 2, "  ", 2});  // a half at both ends
    ExpectMid("\x82\xA0\x82", {__LINE__, IntlStrMidB, 1, 2, " \x82", 2});
}

// ---- replace ------------------------------------------------------------------------------------------------------

using Replace = int32_t(MORVL_CALL*)(char*, const char*, const char*, int32_t, int32_t);
struct ReplaceCase {
    int line;
    Replace operation;
    const char* source;
    const char* insertion;
    int32_t position;
    int32_t count;
    const char* want;
    int32_t result;
};

void ExpectReplaced(const ReplaceCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.source);
    Destination destination;
    EXPECT_EQ(c.operation(destination, c.source, c.insertion, c.position, c.count), c.result);
    EXPECT_EQ(destination.Text(), c.want);
    EXPECT_TRUE(destination.UntouchedBehindText());
}

TEST(Counted, Replace) {
    constexpr ReplaceCase kCases[] = {
        {__LINE__, IntlStrReplace, "abcd", "xyz", 1, 2, "axyzd", 5},
        {__LINE__, IntlStrReplace, "abcd", "x", 9, 9, "abcdx", 5},     // past the end: appends
        {__LINE__, IntlStrReplace, "abcd", "x", 2, kMin, "abxcd", 5},  // only inserts
        {__LINE__, IntlStrReplace, "abcd", "x", 2, kMax, "abx", 3},    // drops the tail
        {__LINE__, IntlStrReplace, "abcd", "x", kMin, 1, "xbcd", 4},
        {__LINE__, IntlStrReplace, "abcd", "", 1, 2, "ad", 2},
        {__LINE__, IntlStrReplace, "abcd", "", 0, kMax, "", 0},
        {__LINE__, IntlStrReplace, "abcd", "x", kMax, kMax, "abcdx", 5},
        {__LINE__, IntlStrReplaceB, "abcd", "x", 1, 1, "axcd", 4},
        {__LINE__, IntlStrReplace, "", "x", 0, 0, "x", 1},
    };
    for (const ReplaceCase& c : kCases) ExpectReplaced(c);
}

TEST(CountedJapanese, Replace) {
    const TestLanguage language(kJapanese);
    const char* text =
        "a\x82\xA0"
        "b";
    const ReplaceCase cases[] = {
        {__LINE__, IntlStrReplace, text, "\x83\x5C\x83\x5C", 1, 1,
         "a\x83\x5C\x83\x5C"
         "b",
         4},
        {__LINE__, IntlStrReplace, text, "x", 9, 0,
         "a\x82\xA0"
         "bx",
         4},
        {__LINE__, IntlStrReplace, text, "x", 2, -1, "a\x82\xA0xb", 4},
        {__LINE__, IntlStrReplace, text, "x", 1, kMax, "ax", 2},
        {__LINE__, IntlStrReplace, text, "\x82", 1, 1,
         "a\x82"
         "b",
         2},  // the half and the "b" are one character now
        {__LINE__, IntlStrReplaceB, text, "x", 2, 0, "a x b", 5},
        {__LINE__, IntlStrReplaceB, text, "x", 1, 1, "ax b", 4},
        {__LINE__, IntlStrReplaceB, text, "x", 1, 2, "axb", 3},
        {__LINE__, IntlStrReplaceB, text, "x", 2, 1, "a xb", 4},
        {__LINE__, IntlStrReplaceB, text, "x", kMax, kMax,
         "a\x82\xA0"
         "bx",
         5},
        {__LINE__, IntlStrReplaceB, text, "x", -1, 2, "x b", 3},
        {__LINE__, IntlStrReplaceB, "\x82\xA0", "", 0, 1, " ", 1},
        {__LINE__, IntlStrReplaceB, "", "x", 0, 0, "x", 1},
    };
    for (const ReplaceCase& c : cases) ExpectReplaced(c);
}

// ---- counted copies and comparisons -------------------------------------------------------------------------------

struct CopyCase {
    int line;
    const char* source;
    uint16_t count;
    std::string written;
};

void ExpectCopied(const CopyCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.source);
    Destination destination(70000);
    EXPECT_EQ(IntlStrnCpy(destination, c.source, c.count), static_cast<char*>(destination));
    EXPECT_EQ(destination.Bytes(c.written.size()), c.written);
    EXPECT_TRUE(destination.UntouchedFrom(c.written.size()));
}

TEST(Counted, CopyFillsTheCount) {
    const CopyCase cases[] = {
        {__LINE__, "abc", 0, ""},
        {__LINE__, "abc", 2, "ab"},
        {__LINE__, "abc", 3, "abc"},
        {__LINE__, "abc", 5, std::string("abc\0\0", 5)},
        {__LINE__, "", 65535, std::string(65535, '\0')},
    };
    for (const CopyCase& c : cases) ExpectCopied(c);
}

TEST(CountedJapanese, CopyFillsTheCount) {
    const TestLanguage language(kJapanese);
    const CopyCase cases[] = {
        {__LINE__,
         "a\x82\xA0"
         "b",
         0, ""},
        {__LINE__,
         "a\x82\xA0"
         "b",
         2, "a\x82\xA0"},
        {__LINE__,
         "a\x82\xA0"
         "b",
         3,
         "a\x82\xA0"
         "b"},
        {__LINE__,
         "a\x82\xA0"
         "b",
         4,
         std::string("a\x82\xA0"
                     "b\0",
                     5)},
        {__LINE__, "\x82\xA0", 4, std::string("\x82\xA0\0\0\0", 5)},
        {__LINE__, "a\x82", 3, std::string("a\x82\0", 3)},
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
