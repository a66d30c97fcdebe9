// Comparison, pair by pair.
#include <algorithm>

#include "number_codec.h"
#include "pair_arithmetic.h"

namespace {

int32_t Order(int32_t a, int32_t b) {
    return (a > b) - (a < b);
}

// -1, 0, 1: E, then the pairs that both have, then the number of pairs.
int32_t CompareMagnitudes(const NumParts& a, const NumParts& b) {
    if (a.exponent != b.exponent) return Order(a.exponent, b.exponent);
    for (int32_t i = 0; i < std::min(a.count, b.count); ++i) {
        if (a.digits[i] != b.digits[i]) return Order(a.digits[i], b.digits[i]);
    }
    return Order(a.count, b.count);
}

int32_t Sign(const NumParts& parts) {
    if (parts.count == 0) return 0;
    return parts.negative ? -1 : 1;
}

}  // namespace

int32_t NumComparePairs(const Number* a, const Number* b) {
    if (IsInvalid(a) || IsInvalid(b)) return 0;
    if (IsNull(a) || IsNull(b)) return Order(IsNull(b), IsNull(a));
    const NumParts x = NumTakeApart(a);
    const NumParts y = NumTakeApart(b);
    const int32_t sign = Sign(x);
    if (sign != Sign(y) || sign == 0) return Order(sign, Sign(y));
    return sign * CompareMagnitudes(x, y);
}
