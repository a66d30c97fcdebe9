// The encoding of a Number: taking it apart into plain digit pairs and putting it together again. NumUnpack and NumPack
// are the only ways in and out; NumPack alone rounds to the pairs that a Number can hold and clamps the exponent.
//
// A value is 0.d1 d2 .. dn in base 100, times 100 to the power (E - 64). Byte 0 holds L, the number of bytes behind it,
// in its low nibble (0: null; 13 to 15: invalid); byte 1 the sign and E; bytes 2.. the pairs, most significant first.
// A negative value has byte 1 complemented, each pair as 100 - d, and a terminator byte behind the last pair.
#pragma once

#include <morvl15/number.h>

constexpr int32_t kNumMaxLength = 12;         // the largest valid L
constexpr int32_t kNumMaxPairs = 11;          // a positive value
constexpr int32_t kNumMaxNegativePairs = 10;  // the terminator costs a negative value one pair
constexpr int32_t kNumExponentBias = 64;      // E of a value from 0.01 to just under 1
constexpr int32_t kNumMinExponent = 14;
constexpr int32_t kNumMaxExponent = 114;
constexpr uint8_t kNumPositive = 0x80;  // byte 1: set for positive values and zero
constexpr uint8_t kNumTerminator = 0x65;
constexpr uint8_t kNumZeroByte = kNumPositive + kNumExponentBias;  // byte 1 of zero, which has no pairs

// L, with the high nibble of byte 0 masked off.
inline int32_t NumLength(const Number* num) {
    return num->bytes[0] & 0x0F;
}

inline bool IsNull(const Number* num) {
    return NumLength(num) == 0;
}

inline bool IsInvalid(const Number* num) {
    return NumLength(num) > kNumMaxLength;
}

// Takes the bytes behind the length byte apart. `count` comes in as L, 1 to 12; `digits` has room for 11 pairs. Gives
// the pairs, 0 to 99 each and with no zero pairs at the end, their number in `count`, and E. The terminator's value
// isn't looked at. A byte that encodes no pair reads as 99. Result: whether the value is negative.
bool NumUnpack(uint8_t* digits, const uint8_t* data, int32_t& count, int32_t& exponent);

// Writes the canonical form of `count` pairs, any number of them, rounded half up on the magnitude at the first pair
// that a Number of this sign can't hold; E outside 14 to 114 is clamped, and the value changes. Changes `digits`. Bytes
// behind the new length stay as they were. Result: L.
int32_t NumPack(Number* num, uint8_t* digits, int32_t count, bool negative, int32_t exponent);

// Writes zero. Result: its L, 1.
int32_t NumPackZero(Number* num);

// A Number taken apart.
struct NumParts {
    uint8_t digits[kNumMaxPairs];
    int32_t count;
    int32_t exponent;
    bool negative;
};

// Takes a value or null apart; null gives what zero gives: no pairs, E 64. `num` isn't invalid.
NumParts NumTakeApart(const Number* num);
