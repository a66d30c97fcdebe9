#include "decimal_pack.h"

#include "vector_operations.h"

namespace {

constexpr uint32_t kLimbBase = 100000000;

constexpr uint64_t kPowersOf10[] = {
    1,         10,         100,         1000,         10000,         100000,         1000000,         10000000,
    100000000, 1000000000, 10000000000, 100000000000, 1000000000000, 10000000000000, 100000000000000, 1000000000000000};

}  // namespace

uint64_t NumPowerOf10(int32_t power) {
    return kPowersOf10[power];
}

int32_t NumPackDecimal(Number* num, const DecimalDigits& digits, bool negative, int32_t point) {
    // An odd point takes a 0 in front, so that it falls between two pairs; an even one takes it behind.
    const bool odd = point % 2 != 0;
    const uint64_t first16 = odd ? digits.high : digits.high * 10 + digits.low / 10000000;
    const uint32_t last8 = odd ? digits.low : digits.low % 10000000 * 10;
    const uint32_t limbs[3] = {static_cast<uint32_t>(first16 / kLimbBase), static_cast<uint32_t>(first16 % kLimbBase),
                               last8};
    return HasPairVectors() ? NumPackLimbsVectors(num, limbs, negative, (point + 1) / 2)
                            : NumPackLimbs(num, limbs, negative, (point + 1) / 2);
}

int32_t NumPackLimbs(Number* num, const uint32_t (&limbs)[3], bool negative, int32_t exponent) {
    constexpr int32_t kPairsOfLimb = 4;
    uint8_t pairs[3 * kPairsOfLimb];
    for (int32_t i = 0; i < 3; ++i) {
        uint32_t limb = limbs[i];
        for (int32_t pair = kPairsOfLimb - 1; pair >= 0; --pair, limb /= 100) {
            pairs[i * kPairsOfLimb + pair] = static_cast<uint8_t>(limb % 100);
        }
    }
    return NumPack(num, pairs, 3 * kPairsOfLimb, negative, exponent);
}
