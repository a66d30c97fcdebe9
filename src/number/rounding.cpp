// Fitting a value to a number of digits.
#include <algorithm>

#include "number_codec.h"
#include "pair_arithmetic.h"
#include "vector_operations.h"

namespace {

// Adds to the pair at `at`, with the carry running toward the first pair. False when it runs out of that: all pairs in
// front of the cut are 0 then.
bool AddWithCarry(uint8_t* digits, int32_t at, int32_t amount) {
    for (int32_t i = at; i >= 0; --i) {
        const int32_t sum = digits[i] + amount;
        if (sum < 100) {
            digits[i] = static_cast<uint8_t>(sum);
            return true;
        }
        digits[i] = static_cast<uint8_t>(sum - 100);
        amount = 1;
    }
    return false;
}

// Pairs in front of the point; below 0 when zero pairs stand behind it.
int64_t IntegerPairs(const NumParts& parts) {
    return parts.exponent - kNumExponentBias;
}

uint8_t ClearUnits(uint8_t pair) {
    return static_cast<uint8_t>(pair / 10 * 10);
}

// Rounds to the first `kept` decimal digits, 0 to under 2 * count, counted from the first digit of the first pair.
void RoundToDigits(NumParts& parts, int32_t kept) {
    const int32_t cutPair = kept / 2;
    const bool cutInside = kept % 2 != 0;  // between the two digits of the pair
    if (!AddWithCarry(parts.digits, cutPair, cutInside ? 5 : 50)) {
        parts.digits[0] = 1;
        parts.count = 1;
        ++parts.exponent;
        return;
    }
    if (cutInside) parts.digits[cutPair] = ClearUnits(parts.digits[cutPair]);
    parts.count = cutInside ? cutPair + 1 : cutPair;
}

// Drops the first `digits` decimal digits.
void CutTop(NumParts& parts, int64_t digits) {
    const auto pairs = static_cast<int32_t>(std::min<int64_t>(digits / 2, parts.count));
    std::fill_n(parts.digits, pairs, uint8_t{0});
    if (digits % 2 != 0 && pairs < parts.count) parts.digits[pairs] %= 10;
}

// Drops the last `digits` decimal digits.
void CutLow(NumParts& parts, int64_t digits) {
    parts.count -= static_cast<int32_t>(std::min<int64_t>(digits / 2, parts.count));
    if (digits % 2 != 0 && parts.count > 0) {
        parts.digits[parts.count - 1] = ClearUnits(parts.digits[parts.count - 1]);
    }
}

}  // namespace

int32_t NumRoundPairs(Number* result, const Number* source, int32_t decimals) {
    NumParts parts = NumTakeApart(source);
    const int64_t kept = int64_t{decimals} + 2 * IntegerPairs(parts);
    if (kept < 0) return NumPackZero(result);
    if (kept < 2 * int64_t{parts.count}) RoundToDigits(parts, static_cast<int32_t>(kept));
    return NumPack(result, parts.digits, parts.count, parts.negative, parts.exponent);
}

int32_t MORVL_CALL NumRound(Number* result, const Number* source, int32_t decimals) {
    if (IsNull(source) || IsInvalid(source)) {
        NumMakeNull(result);
        return 0;
    }
    return HasPairVectors() ? NumRoundVectors(result, source, decimals) : NumRoundPairs(result, source, decimals);
}

int32_t MORVL_CALL NumTruncate(Number* num, int32_t precision, int32_t scale) {
    if (IsNull(num) || IsInvalid(num)) return 0;
    NumParts parts = NumTakeApart(num);
    const int64_t excess = 2 * IntegerPairs(parts) - (int64_t{precision} - scale);
    if (excess > 0) CutTop(parts, excess);
    const int64_t cut = 2 * (parts.count - IntegerPairs(parts)) - scale;
    if (cut > 0) CutLow(parts, cut);
    return NumPack(num, parts.digits, parts.count, parts.negative, parts.exponent);
}
