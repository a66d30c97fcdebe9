// Numbers in tests: written as text or as bytes, compared as bytes.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>

#include <morvl15/number.h>

inline bool operator==(const Number& a, const Number& b) {
    return std::memcmp(a.bytes, b.bytes, sizeof a.bytes) == 0;
}

// A Number with every byte poisoned, so that what an operation leaves alone shows.
inline Number Poisoned() {
    Number num;
    std::memset(num.bytes, 0xA5, sizeof num.bytes);
    return num;
}

// The value of a plain text.
inline Number Num(const char* text) {
    Number num = Poisoned();
    EXPECT_EQ(NumAsciiToNumber(&num, text), static_cast<int32_t>(std::strlen(text))) << text;
    return num;
}

// The bytes of "03 C2 01 01"; those behind stay poisoned.
inline Number NumOfBytes(const char* hex) {
    Number num = Poisoned();
    unsigned byte = 0;
    int length = 0;
    for (int i = 0; i < 13 && std::sscanf(hex, "%2x%n", &byte, &length) == 1; ++i, hex += length) {
        num.bytes[i] = static_cast<uint8_t>(byte);
        while (hex[length] == ' ') ++length;
    }
    return num;
}

// Some bytes, as "03 C2 01 01".
inline std::string Bytes(const Number& num, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        char byte[4];
        std::snprintf(byte, sizeof byte, i == 0 ? "%02X" : " %02X", num.bytes[i]);
        text += byte;
    }
    return text;
}

// The length byte and the bytes that it counts.
inline std::string Bytes(const Number& num) {
    return Bytes(num, std::min(1 + (num.bytes[0] & 0x0F), 13));
}

// The value as plain text, as wide as a Number can be.
inline std::string Text(const Number& num) {
    char text[256];
    const int32_t length = NumToAscii(&num, text, 250);
    EXPECT_EQ(static_cast<size_t>(length), std::strlen(text));
    return length == 0 ? "none" : text;
}

// Random Numbers of every length, sign and exponent, from a fixed seed.
class RandomNumbers {
  public:
    // Canonical, or null once in a while.
    Number Canonical() {
        Number num = Poisoned();
        if (Below(64) == 0) return NumMakeNull(&num), num;
        if (Below(32) == 0) return NumMakeNull(&num), NumNullToZero(&num), num;
        const bool negative = Below(2) != 0;
        const int32_t pairs = 1 + Below(negative ? 10 : 11);
        num.bytes[0] = static_cast<uint8_t>(pairs + (negative ? 2 : 1));
        const int32_t exponent = 0x80 + Exponent();
        num.bytes[1] = static_cast<uint8_t>(negative ? ~exponent : exponent);
        for (int32_t i = 0; i < pairs; ++i) {
            const int32_t pair = i == 0 || i == pairs - 1 ? NonZeroPair() : Pair();
            num.bytes[2 + i] = static_cast<uint8_t>(negative ? 100 - pair : pair);
        }
        if (negative) num.bytes[2 + pairs] = 0x65;
        return num;
    }

    // Any 13 bytes; often with a valid length and bytes that mostly encode pairs.
    Number Raw() {
        Number num;
        for (uint8_t& byte : num.bytes) byte = static_cast<uint8_t>(Below(256));
        if (Below(4) == 0) return num;
        num.bytes[0] = static_cast<uint8_t>(Below(13) + 16 * Below(2));
        const int32_t shape = Below(8);
        for (int32_t i = 2; i < 13; ++i) {
            if (shape != 0) num.bytes[i] = static_cast<uint8_t>(Pair() + (shape == 1 ? Below(3) : 0));
        }
        if (Below(2) != 0) num.bytes[1] = static_cast<uint8_t>((num.bytes[1] & 0x80) + Exponent());
        return num;
    }

    int32_t Below(int32_t limit) { return static_cast<int32_t>(engine_() % static_cast<uint32_t>(limit)); }

  private:
    // Often close to 64, so that operands meet.
    int32_t Exponent() { return Below(3) == 0 ? 14 + Below(101) : 60 + Below(10); }
    int32_t NonZeroPair() { return 1 + (Below(4) == 0 ? 98 * Below(2) : Below(99)); }
    // The ends of the range more often than the rest: they carry, borrow and round.
    int32_t Pair() {
        static const int32_t kEnds[] = {0, 0, 1, 49, 50, 98, 99, 99};
        return Below(3) == 0 ? kEnds[Below(8)] : Below(100);
    }

    std::mt19937 engine_{20260115};
};
