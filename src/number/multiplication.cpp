// Multiplication, pair by pair.
#include "number_codec.h"
#include "pair_arithmetic.h"

namespace {

// Adds pairs times one pair to the product; `product` stands one pair in front of where the first pair falls.
void AddMultiple(uint8_t* product, const NumParts& pairs, int32_t factor) {
    int32_t carry = 0;
    for (int32_t i = pairs.count - 1; i >= 0; --i) {
        const int32_t sum = pairs.digits[i] * factor + product[1 + i] + carry;
        product[1 + i] = static_cast<uint8_t>(sum % 100);
        carry = sum / 100;
    }
    product[0] = static_cast<uint8_t>(carry);
}

}  // namespace

int32_t NumMultiplyPairs(Number* result, const Number* a, const Number* b) {
    if (IsInvalid(a) || IsInvalid(b)) return NumPackZero(result);
    const NumParts x = NumTakeApart(a);
    const NumParts y = NumTakeApart(b);
    uint8_t product[2 * kNumMaxPairs] = {};
    for (int32_t i = y.count - 1; i >= 0; --i) AddMultiple(product + i, x, y.digits[i]);
    const int32_t exponent = x.exponent + y.exponent - kNumExponentBias;
    return NumPack(result, product, x.count + y.count, x.negative != y.negative, exponent);
}
