// Compares the walks over blocks with those by definition.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "intl/walk.h"

inline bool operator==(const IntlStretch& a, const IntlStretch& b) {
    return a.bytes == b.bytes && a.chars == b.chars;
}

inline void ExpectSameWalks(const char* text) {
    const std::string shown = testing::PrintToString(text);
    const IntlStretch whole = plain::WalkChars(text, kWholeText);
    EXPECT_EQ(walk::WalkChars(text, kWholeText), whole) << shown;
    for (const size_t chars : {size_t{0}, size_t{1}, whole.chars / 2, whole.chars - 1, whole.chars, whole.chars + 1}) {
        const IntlStretch part = plain::WalkChars(text, chars);
        EXPECT_EQ(walk::WalkChars(text, chars), part) << shown << chars;
        EXPECT_EQ(walk::CountChars(text, part.bytes), part.chars) << shown << chars;
        for (const size_t count : {size_t{0}, size_t{1}, whole.chars / 3, whole.chars, kWholeText}) {
            const IntlRange want = plain::FindRange(text, chars, count);
            const IntlRange range = walk::FindRange(text, chars, count);
            EXPECT_EQ(range.at, want.at) << shown << chars << ' ' << count;
            EXPECT_EQ(range.stretch, want.stretch) << shown << chars << ' ' << count;
        }
    }
    const ByteSet sets[] = {{"", 0},         {"a", 1},         {"\x40\xB1", 2}, {"\x82", 1}, {"b,;\x5C", 4, '"'},
                            {"0123456,", 8}, {"0123456,a", 9}, {"a", 1, '\x81'}};
    for (const ByteSet& set : sets) {
        EXPECT_EQ(walk::FindAny(text, set), plain::FindAny(text, set)) << shown << set.count;
        EXPECT_EQ(walk::FindByte(text, set), plain::FindByte(text, set)) << shown << set.count;
    }
    constexpr uint16_t kCodes[] = {0, 'a', 0x82, 0x8140, 0x8282, 0x8200, 0xA1A1, 0xFC40, 0x4141};
    for (const uint16_t first : kCodes) {
        for (const uint16_t second : kCodes) {
            EXPECT_EQ(walk::FindEither(text, first, second), plain::FindEither(text, first, second))
                << shown << first << ' ' << second;
        }
    }
}
