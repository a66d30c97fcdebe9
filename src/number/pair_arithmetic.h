// The arithmetic as it is defined: pair by pair, on what NumUnpack gives, with NumPack as the one place that rounds.
// The exported operations take faster ways to the same bytes where they can; these stay callable, for the operands that
// the faster ways decline and as the judge in the tests. The result may be either operand.
#pragma once

#include <morvl15/number.h>

// a + b, or a - b if `subtract` is set. Exact as long as 12 pair positions reach from the first pair of the operand
// with the greater magnitude to the last pair of the other one; pairs beyond are dropped from the other one before.
int32_t NumAddSub(Number* result, const Number* a, const Number* b, bool subtract);

// a * b: all pairs of the product go to NumPack.
int32_t NumMultiplyPairs(Number* result, const Number* a, const Number* b);

// a / b: long division, cut at 12 quotient pairs, the first of which may be 0.
int32_t NumDividePairs(Number* result, const Number* a, const Number* b);

int32_t NumComparePairs(const Number* a, const Number* b);

// A value, neither null nor invalid, rounded half away from zero to decimal places.
int32_t NumRoundPairs(Number* result, const Number* source, int32_t decimals);

// NumToAscii, for every value and every width.
int32_t NumToAsciiPairs(const Number* num, char* buffer, uint16_t width);

// The double of a value, neither null nor invalid.
double NumToDoublePairs(const Number* num);

// The last step of it: the value times 100 to the power, by one multiplication by 100.0 or 0.01 for each, and its sign.
inline double NumScaleDouble(double value, int32_t power, bool negative) {
    for (int32_t i = power; i < 0; ++i) value *= 0.01;
    for (int32_t i = 0; i < power; ++i) value *= 100.0;
    return negative ? -value : value;
}
