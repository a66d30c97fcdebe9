#include "vector_operations.h"

#if defined(__x86_64__)

#include <cstdlib>
#include <iterator>

#include "pair_vector.h"

namespace {

__extension__ using Wide = unsigned __int128;

PAIR_VECTOR_INLINE bool AreValid(const VectorParts& a, const VectorParts& b) {
    return std::max(a.length, b.length) <= static_cast<uint32_t>(kNumMaxLength);
}

// NumAddSub of operands of a valid length, their first pairs in lane 14.
PAIR_VECTOR_INLINE int32_t AddSub(Number* result, VectorParts a, VectorParts b, bool subtract) {
    b.negative ^= static_cast<uint32_t>(subtract);
    if (AllZero(a.pairs)) {
        a.exponent = b.exponent;
    } else if (AllZero(b.pairs)) {
        b.exponent = a.exponent;
    }

    // The greater exponent decides, then the pairs, whose masks of greater lanes order as they do. Swapped by a mask:
    // it can't be predicted which of the two is the greater.
    const int32_t distance = b.exponent - a.exponent;
    const auto greaterInA = static_cast<int32_t>(MaskOf(_mm_cmpgt_epi8(a.pairs, b.pairs)));
    const auto greaterInB = static_cast<int32_t>(MaskOf(_mm_cmpgt_epi8(b.pairs, a.pairs)));
    const int32_t swapped = (distance * 65536 + greaterInB - greaterInA) > 0 ? -1 : 0;
    const __m128i exchange = _mm_and_si128(_mm_xor_si128(a.pairs, b.pairs), _mm_set1_epi32(swapped));
    const __m128i big = _mm_xor_si128(a.pairs, exchange);
    const __m128i small = _mm_xor_si128(b.pairs, exchange);
    const uint32_t subtracting = a.negative ^ b.negative;
    const uint32_t negative = a.negative ^ (subtracting & static_cast<uint32_t>(swapped));

    const AlignRows& rows = kToAlign[subtracting];
    const int32_t places = std::min(std::abs(distance), 15);
    const __m128i shifted = _mm_shuffle_epi8(small, Row(rows.shift[places]));
    const __m128i addend = _mm_add_epi8(_mm_xor_si128(shifted, Row(rows.flip)), Row(rows.add));
    const int32_t exponent = std::max(a.exponent, b.exponent);
    return StoreNumber(result, Carry(_mm_add_epi8(big, addend), subtracting), exponent + 1, negative);
}

// The product of three limbs each: the top four of its six limbs. The lower two count only by their carry.
PAIR_VECTOR_INLINE VectorLimbs TopOfProduct(const VectorLimbs& a, const VectorLimbs& b) {
    const uint64_t* x = a.limb + 1;
    const uint64_t* y = b.limb + 1;
    const uint64_t column0 = x[0] * y[0];
    const uint64_t column1 = x[0] * y[1] + x[1] * y[0] + column0 / kLimbBase;
    const uint64_t column2 = x[0] * y[2] + x[1] * y[1] + x[2] * y[0] + column1 / kLimbBase;
    const uint64_t column3 = x[1] * y[2] + x[2] * y[1] + column2 / kLimbBase;
    const uint64_t column4 = x[2] * y[2] + column3 / kLimbBase;
    return {{column2 % kLimbBase, column3 % kLimbBase, column4 % kLimbBase, column4 / kLimbBase}};
}

constexpr uint64_t k10To10 = 10000000000;
constexpr uint64_t k10To12 = 1000000000000;
constexpr uint64_t k10To16 = 10000000000000000;

// The eleven pairs as one binary integer, below 10^22; 10^20 at least when the first pair isn't 0.
PAIR_VECTOR_INLINE Wide ToInteger(__m128i pairs) {
    const VectorLimbs limbs = ToLimbs(_mm_srli_si128(pairs, 5));
    return static_cast<Wide>(limbs.limb[2]) * k10To16 + (limbs.limb[1] * kLimbBase + limbs.limb[0]);
}

// To within 2^21, which is 2 * 10^-14 of the smallest divisor.
PAIR_VECTOR_INLINE double ToDouble(Wide value) {
    return static_cast<double>(static_cast<int64_t>(value >> 21));
}

struct Quotient {
    uint64_t value;
    Wide remainder;
};

// dividend * scale / divisor, for a quotient below 10^12 and a divisor of 10^20 to 10^22. Truncating the operands of
// the estimate takes it off by less than 0.1, so that 0.1 below it lies the quotient or the integer in front of it.
PAIR_VECTOR_INLINE Quotient DivideScaled(Wide dividend, uint64_t scale, Wide divisor, double reciprocal) {
    const double estimate = ToDouble(dividend) * (static_cast<double>(scale) * reciprocal) - 0.1;
    auto value = static_cast<uint64_t>(static_cast<int64_t>(estimate));
    Wide remainder = dividend * scale - divisor * value;
    const bool isShort = remainder >= divisor;
    value += isShort;
    remainder -= isShort ? divisor : 0;
    return {value, remainder};
}

// A Number as it is compared: magnitudes with the first byte in lane 15 and the pairs below it, and the same as bytes
// that order from lane 15 down as the values do.
struct SortForm {
    __m128i magnitude;
    __m128i order;
};

PAIR_VECTOR_INLINE SortForm LoadToSort(const Number* num) {
    const TakeApartRow& row = kToSort.of[FormOf(num)];
    const __m128i placed = _mm_shuffle_epi8(LoadData(num), Row(row.shuffle));
    const __m128i plain = _mm_add_epi8(_mm_xor_si128(placed, Row(row.flip)), Row(row.add));
    const __m128i largest = _mm_set_epi64x(static_cast<int64_t>(0xFF63636363636363), 0x6363636363636363);  // 99 a pair
    const __m128i magnitude = _mm_min_epu8(plain, largest);
    return {magnitude, _mm_xor_si128(magnitude, Row(row.toOrder))};
}

}  // namespace

PAIR_VECTOR int32_t NumPackLanes(Number* num, __m128i pairs, int32_t exponent, uint32_t negative) {
    uint8_t lanes[16];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(lanes), pairs);
    std::reverse(std::begin(lanes), std::end(lanes));
    return NumPack(num, lanes, 16, negative != 0, exponent);
}

PAIR_VECTOR int32_t NumAddSubVectors(Number* result, const Number* a, const Number* b, bool subtract) {
    const VectorParts x = LoadNumber(a, kFromLane14);
    const VectorParts y = LoadNumber(b, kFromLane14);
    if (!AreValid(x, y)) return NumPackZero(result);
    return AddSub(result, x, y, subtract);
}

PAIR_VECTOR int32_t NumMultiplyVectors(Number* result, const Number* a, const Number* b) {
    const VectorParts x = LoadNumber(a, kFromLane15);
    const VectorParts y = LoadNumber(b, kFromLane15);
    // A first pair of 0 means null, zero, or zero pairs in front, which no operation writes, but which could move the
    // product below its top four limbs.
    const bool firstPairs = _mm_extract_epi8(_mm_min_epu8(x.pairs, y.pairs), 15) != 0;
    if (!AreValid(x, y) || !firstPairs) return NumMultiplyPairs(result, a, b);
    const VectorLimbs product = TopOfProduct(ToLimbs(x.pairs), ToLimbs(y.pairs));
    return StoreNumber(result, FromLimbs(product), x.exponent + y.exponent - kNumExponentBias, x.negative ^ y.negative);
}

PAIR_VECTOR int32_t NumDivideVectors(Number* result, const Number* a, const Number* b) {
    const VectorParts x = LoadNumber(a, kFromLane15);
    const VectorParts y = LoadNumber(b, kFromLane15);
    // A first pair of 0 means null, zero, or zero pairs in front, which would leave the divisor too small.
    if (!AreValid(x, y) || _mm_extract_epi8(y.pairs, 15) == 0) return NumDividePairs(result, a, b);

    // The twelve quotient pairs of the definition are two chunks of twelve digits.
    const Wide divisor = ToInteger(y.pairs);
    const double reciprocal = 1.0 / ToDouble(divisor);
    const Quotient high = DivideScaled(ToInteger(x.pairs), k10To10, divisor, reciprocal);
    const Quotient low = DivideScaled(high.remainder, k10To12, divisor, reciprocal);
    const uint64_t second = high.value % 10000 * 10000 + low.value / kLimbBase;
    const __m128i pairs = FromLimbs({{0, low.value % kLimbBase, second, high.value / 10000}});
    return StoreNumber(result, pairs, x.exponent - y.exponent + kNumExponentBias + 1, x.negative ^ y.negative);
}

PAIR_VECTOR int32_t NumCompareVectors(const Number* a, const Number* b) {
    const SortForm x = LoadToSort(a);
    const SortForm y = LoadToSort(b);
    // The first pair of an invalid Number reads as 0 here, and that of a value may be 0 though no operation writes it.
    if (_mm_extract_epi8(_mm_min_epu8(x.magnitude, y.magnitude), 14) == 0) return NumComparePairs(a, b);
    const uint32_t different = ~MaskOf(_mm_cmpeq_epi8(x.order, y.order)) & 0xFFFF;
    const uint32_t notSmaller = MaskOf(_mm_cmpeq_epi8(_mm_max_epu8(x.order, y.order), x.order));
    const uint32_t greater = different & notSmaller;
    const uint32_t smaller = different & ~notSmaller;
    return (greater > smaller) - (greater < smaller);
}

#endif
