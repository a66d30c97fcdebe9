#include "vector_operations.h"

#if defined(NUM_HAS_VECTOR_CODE)

#include <cstdlib>
#include <iterator>

#include "pair_vector.h"
#include "vector_quotient.h"

namespace {

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
    const auto times = [&](int i, int j) {
        return uint64_t{static_cast<uint32_t>(a.limb[1 + i])} * static_cast<uint32_t>(b.limb[1 + j]);
    };
    const SplitLimbs column0 = SplitOffLimb(times(0, 0));
    const SplitLimbs column1 = SplitOffLimb(times(0, 1) + times(1, 0) + column0.carry);
    const SplitLimbs column2 = SplitOffLimb(times(0, 2) + times(1, 1) + times(2, 0) + column1.carry);
    const SplitLimbs column3 = SplitOffLimb(times(1, 2) + times(2, 1) + column2.carry);
    const SplitLimbs column4 = SplitOffLimb(times(2, 2) + column3.carry);
    return {{column2.limb, column3.limb, column4.limb, column4.carry}};
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
    const __m128i pairs = FromLimbs(QuotientOf(x.pairs, y.pairs));
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
