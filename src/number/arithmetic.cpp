// The arithmetic that the library exports: on vectors of pairs where the processor has them, otherwise pair by pair.
#include <cstring>

#include "number_codec.h"
#include "pair_arithmetic.h"
#include "vector_operations.h"

namespace {

constexpr int32_t kMaxPower = 50;

// Null, or zero in its one byte.
bool IsNothing(const Number* num) {
    return NumLength(num) < 2;
}

// The sum of two Numbers of which one is nothing: the other one as it stands, zero pairs at its end included.
int32_t AddToNothing(Number* result, const Number* a, const Number* b) {
    const Number* sum = IsNothing(a) ? b : a;
    if (IsInvalid(sum) || IsNull(sum)) return NumPackZero(result);
    const int32_t length = NumLength(sum);
    std::memmove(result->bytes + 1, sum->bytes + 1, static_cast<size_t>(length));
    result->bytes[0] = static_cast<uint8_t>(length);
    return length;
}

// The first byte, which orders values as their signs and exponents do, and the first pair.
uint16_t LeadingBytes(const Number* num) {
    return static_cast<uint16_t>(num->bytes[1] << 8 | num->bytes[2]);
}

// The leading bytes, by L, from which on there is a first pair: a positive value has one from L = 2 on, a negative one,
// whose first byte is below 80h, from L = 3 on.
constexpr uint16_t kNone = 0xFFFF;
constexpr uint16_t kFirstPairFrom[16] = {kNone, kNone, 0x8000, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, kNone, kNone, kNone};

// Whether a byte is that of a pair other than 0, of either sign.
bool IsPair(uint32_t byte) {
    return byte - 1 < 99;
}

}  // namespace

int32_t MORVL_CALL NumAddition(Number* result, const Number* a, const Number* b) {
    if (IsNothing(a) || IsNothing(b)) return AddToNothing(result, a, b);
    return HasPairVectors() ? NumAddSubVectors(result, a, b, false) : NumAddSub(result, a, b, false);
}

int32_t MORVL_CALL NumSubtract(Number* result, const Number* a, const Number* b) {
    return HasPairVectors() ? NumAddSubVectors(result, a, b, true) : NumAddSub(result, a, b, true);
}

int32_t MORVL_CALL NumMultiply(Number* result, const Number* a, const Number* b) {
    return HasPairVectors() ? NumMultiplyVectors(result, a, b) : NumMultiplyPairs(result, a, b);
}

int32_t MORVL_CALL NumDivide(Number* result, const Number* a, const Number* b) {
    return HasPairVectors() ? NumDivideVectors(result, a, b) : NumDividePairs(result, a, b);
}

int32_t MORVL_CALL NumCompare(const Number* a, const Number* b) {
    // Where both have a first pair that isn't 0, and the leading bytes differ, these decide: that is what the encoding
    // is made for.
    const uint16_t leadA = LeadingBytes(a);
    const uint16_t leadB = LeadingBytes(b);
    if (leadA >= kFirstPairFrom[NumLength(a)] && leadB >= kFirstPairFrom[NumLength(b)] && IsPair(leadA & 0xFF) &&
        IsPair(leadB & 0xFF) && leadA != leadB) {
        return leadA > leadB ? 1 : -1;
    }
    return HasPairVectors() ? NumCompareVectors(a, b) : NumComparePairs(a, b);
}

int32_t MORVL_CALL NumNegate(Number* num) {
    if (IsNull(num) || IsInvalid(num)) return 0;
    NumParts parts = NumTakeApart(num);
    return NumPack(num, parts.digits, parts.count, !parts.negative, parts.exponent);
}

int32_t MORVL_CALL NumPower10(Number* result, const Number* source, int32_t power) {
    if (power < -kMaxPower || power > kMaxPower) {
        NumMakeNull(result);
        return 0;
    }
    // 10 to the power is 1 or 10 times a power of 100; the shift rounds down, also below 0.
    const int32_t powerOf100 = power >> 1;
    const bool odd = (power & 1) != 0;
    const Number factor{{2, static_cast<uint8_t>(kNumZeroByte + 1 + powerOf100), static_cast<uint8_t>(odd ? 10 : 1)}};
    return NumMultiply(result, source, &factor);
}
