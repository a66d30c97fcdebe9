// From decimal digits to a Number: what texts and doubles have in common.
#pragma once

#include "number_codec.h"

constexpr int32_t kDecimalHighDigits = 15;
constexpr int32_t kDecimalLowDigits = 8;

// 23 decimal digits from the first one that counts, in two integers of 15 and 8 digits, zeros behind the last one.
struct DecimalDigits {
    uint64_t high;
    uint32_t low;
};

// 10 to the power, 0 to 15.
uint64_t NumPowerOf10(int32_t power);

// Packs 0.digits times 10 to the power (point - 128). `point` is not negative, and 228 at most.
int32_t NumPackDecimal(Number* num, const DecimalDigits& digits, bool negative, int32_t point);

// Packs 24 decimal digits, as three limbs of eight, with E that of the first pair.
int32_t NumPackLimbs(Number* num, const uint32_t (&limbs)[3], bool negative, int32_t exponent);
