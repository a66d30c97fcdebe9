#include "number_codec.h"

#include <algorithm>

namespace {

constexpr uint8_t kLargestPair = 99;

// Adds 1 to the pairs as one base-100 integer. False, with all pairs 0, when the carry runs out of the first one.
bool Increment(uint8_t* digits, int32_t count) {
    for (int32_t i = count - 1; i >= 0; --i) {
        if (digits[i] != kLargestPair) {
            ++digits[i];
            return true;
        }
        digits[i] = 0;
    }
    return false;
}

int32_t WritePositive(Number* num, const uint8_t* digits, int32_t count, int32_t exponent) {
    num->bytes[0] = static_cast<uint8_t>(count + 1);
    num->bytes[1] = static_cast<uint8_t>(kNumPositive + exponent);
    std::copy_n(digits, count, num->bytes + 2);
    return count + 1;
}

int32_t WriteNegative(Number* num, const uint8_t* digits, int32_t count, int32_t exponent) {
    num->bytes[0] = static_cast<uint8_t>(count + 2);
    num->bytes[1] = static_cast<uint8_t>(~(kNumPositive + exponent));
    for (int32_t i = 0; i < count; ++i) num->bytes[2 + i] = static_cast<uint8_t>(100 - digits[i]);
    num->bytes[2 + count] = kNumTerminator;
    return count + 2;
}

}  // namespace

bool NumUnpack(uint8_t* digits, const uint8_t* data, int32_t& count, int32_t& exponent) {
    const bool negative = (data[0] & kNumPositive) == 0;
    exponent = (negative ? ~data[0] : data[0]) & 0x7F;
    count = std::max(count - (negative ? 2 : 1), 0);
    for (int32_t i = 0; i < count; ++i) {
        const auto pair = static_cast<uint8_t>(negative ? 100 - data[1 + i] : data[1 + i]);
        digits[i] = std::min(pair, kLargestPair);
    }
    while (count > 0 && digits[count - 1] == 0) --count;
    return negative;
}

int32_t NumPack(Number* num, uint8_t* digits, int32_t count, bool negative, int32_t exponent) {
    while (count > 0 && digits[0] == 0) {
        ++digits;
        --count;
        --exponent;
    }
    const int32_t limit = negative ? kNumMaxNegativePairs : kNumMaxPairs;
    if (count > limit) {
        count = limit;
        if (digits[limit] >= 50 && !Increment(digits, limit)) {
            digits[0] = 1;
            ++exponent;
        }
    }
    exponent = std::clamp(exponent, kNumMinExponent, kNumMaxExponent);
    while (count > 0 && digits[count - 1] == 0) --count;
    if (count == 0) return NumPackZero(num);
    return negative ? WriteNegative(num, digits, count, exponent) : WritePositive(num, digits, count, exponent);
}

int32_t NumPackZero(Number* num) {
    num->bytes[0] = 1;
    num->bytes[1] = kNumZeroByte;
    return 1;
}

NumParts NumTakeApart(const Number* num) {
    NumParts parts{{}, NumLength(num), kNumExponentBias, false};
    if (parts.count > 0) parts.negative = NumUnpack(parts.digits, num->bytes + 1, parts.count, parts.exponent);
    return parts;
}
