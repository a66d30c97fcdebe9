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
