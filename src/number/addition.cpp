// Addition and subtraction, pair by pair.
#include <algorithm>

#include "number_codec.h"
#include "pair_arithmetic.h"

namespace {

constexpr int32_t kPositions = 12;  // pair positions of the sum, a position for the carry included

// Whether |a| < |b|: E, then the pairs; where one runs out it goes on with zero pairs.
bool IsSmaller(const NumParts& a, const NumParts& b) {
    if (a.exponent != b.exponent) return a.exponent < b.exponent;
    for (int32_t i = 0; i < kNumMaxPairs; ++i) {
        const uint8_t pairOfA = i < a.count ? a.digits[i] : 0;
        const uint8_t pairOfB = i < b.count ? b.digits[i] : 0;
        if (pairOfA != pairOfB) return pairOfA < pairOfB;
    }
    return false;
}

// Adds `small`, whose first pair lies at `at`, to the pairs of big.
void AddAt(uint8_t* big, const NumParts& small, int32_t at) {
    int32_t carry = 0;
    for (int32_t i = at + small.count - 1; i >= 0 && (i >= at || carry != 0); --i) {
        const int32_t sum = big[i] + (i >= at ? small.digits[i - at] : 0) + carry;
        carry = sum >= 100;
        big[i] = static_cast<uint8_t>(carry ? sum - 100 : sum);
    }
}

// Subtracts `small`, whose first pair lies at `at`, from the pairs of big.
void SubtractAt(uint8_t* big, const NumParts& small, int32_t at) {
    int32_t borrow = 0;
    for (int32_t i = at + small.count - 1; i >= 0 && (i >= at || borrow != 0); --i) {
        const int32_t difference = big[i] - (i >= at ? small.digits[i - at] : 0) - borrow;
        borrow = difference < 0;
        big[i] = static_cast<uint8_t>(borrow ? difference + 100 : difference);
    }
}

}  // namespace

int32_t NumAddSub(Number* result, const Number* a, const Number* b, bool subtract) {
    if (IsInvalid(a) || IsInvalid(b)) return NumPackZero(result);
    NumParts big = NumTakeApart(a);
    NumParts small = NumTakeApart(b);
    if (subtract) small.negative = !small.negative;
    if (big.count == 0) {
        big.exponent = small.exponent;
    } else if (small.count == 0) {
        small.exponent = big.exponent;
    }
    if (IsSmaller(big, small)) std::swap(big, small);

    // Position 0 is the carry's in a sum; a difference can use it for one more pair of the smaller operand.
    const bool adding = big.negative == small.negative;
    const int32_t shift = big.exponent - small.exponent;
    const int32_t room = adding ? kPositions - 1 : kPositions;
    small.count = std::min(small.count, std::max(room - shift, 0));

    uint8_t pairs[1 + kPositions] = {};
    std::copy_n(big.digits, big.count, pairs + 1);
    if (small.count > 0) (adding ? AddAt : SubtractAt)(pairs, small, 1 + shift);
    return NumPack(result, pairs, 1 + kPositions, big.negative, big.exponent + 1);
}
