// Digit pairs sixteen at a time, for processors with SSE4.1: what the fast ways of the arithmetic are made of.
//
// A vector holds pairs by place: lane 15 the most significant, lane 0 the least, so that bit i of a mask of lanes
// stands for lane i, and masks compare and add as the pairs themselves do. Functions that use vectors are marked
// PAIR_VECTOR; HasPairVectors tells whether the processor can run them.
#pragma once

#include <smmintrin.h>

#include <algorithm>
#include <cstring>

#include "number_codec.h"
#include "pair_vector_tables.h"
#include "vector_operations.h"

#define PAIR_VECTOR __attribute__((target("sse4.1")))
#define PAIR_VECTOR_INLINE __attribute__((target("sse4.1"), always_inline)) inline

// A Number taken apart: its first pair in the lane that the rows tell, zero pairs behind its last one. Null and zero
// have no pairs.
struct VectorParts {
    __m128i pairs;
    int32_t exponent;
    uint32_t negative;  // 1 or 0
    uint32_t length;    // 0 to 15: the pairs of an invalid Number mean nothing
};

PAIR_VECTOR_INLINE __m128i Row(const VectorRow& row) {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(row.lanes));
}

PAIR_VECTOR_INLINE uint32_t MaskOf(__m128i lanes) {
    return static_cast<uint32_t>(_mm_movemask_epi8(lanes));
}

// The mask of the lanes that hold 0.
PAIR_VECTOR_INLINE uint32_t ZeroLanes(__m128i lanes) {
    return MaskOf(_mm_cmpeq_epi8(lanes, _mm_setzero_si128()));
}

PAIR_VECTOR_INLINE bool AllZero(__m128i lanes) {
    return _mm_testz_si128(lanes, lanes) != 0;
}

// The data bytes of a Number in memory order: byte 1 of the Number in lane 0. Loads and stores of a whole Number all
// have this shape, 1 + 8 + 4 bytes, so that a load that follows a store finds its bytes in one piece.
PAIR_VECTOR_INLINE __m128i LoadData(const Number* num) {
    int32_t last;
    std::memcpy(&last, num->bytes + 9, sizeof last);
    return _mm_insert_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(num->bytes + 1)), last, 2);
}

PAIR_VECTOR_INLINE void StoreData(Number* num, __m128i data) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(num->bytes + 1), data);
    const int32_t last = _mm_extract_epi32(data, 2);
    std::memcpy(num->bytes + 9, &last, sizeof last);
}

PAIR_VECTOR_INLINE uint32_t FormOf(const Number* num) {
    return (num->bytes[0] & 0x0Fu) | ((num->bytes[1] >> 3) & 0x10u);
}

// NumUnpack, for every L.
PAIR_VECTOR_INLINE VectorParts LoadNumber(const Number* num, const TakeApartRows& rows) {
    const uint32_t form = FormOf(num);
    const TakeApartRow& row = rows.of[form];
    const __m128i placed = _mm_shuffle_epi8(LoadData(num), Row(row.shuffle));
    const __m128i pairs = _mm_add_epi8(_mm_xor_si128(placed, Row(row.flip)), Row(row.add));
    const int32_t first = num->bytes[1] - kNumPositive;  // E, or for a negative value ~E
    return {_mm_min_epu8(pairs, _mm_set1_epi8(99)), first < 0 ? ~first : first, first < 0 ? 1u : 0u,
            num->bytes[0] & 0x0Fu};
}

// Byte 1 of a positive value with an exponent, or the exponent's limit.
PAIR_VECTOR_INLINE int32_t PackedExponent(int32_t exponent) {
    if (__builtin_expect(exponent < kNumMinExponent || exponent > kNumMaxExponent, 0)) {
        exponent = std::clamp(exponent, kNumMinExponent, kNumMaxExponent);
    }
    return kNumPositive + exponent;
}

// NumPack of the pairs in lanes 15 down to 0, with E that of lane 15: by NumPack itself.
int32_t NumPackLanes(Number* num, __m128i pairs, int32_t exponent, uint32_t negative);

// The same, at once. Only a rounding that carries is left to NumPackLanes: it is rare, and the carry would have to run
// on.
PAIR_VECTOR_INLINE int32_t StoreNumber(Number* num, __m128i pairs, int32_t exponent, uint32_t negative) {
    const uint32_t used = ~ZeroLanes(pairs) & 0xFFFF;
    const uint32_t halves = MaskOf(_mm_cmpgt_epi8(pairs, _mm_set1_epi8(49)));
    if (__builtin_expect(used == 0, 0)) return NumPackZero(num);
    const int32_t firstLane = 31 - __builtin_clz(used);
    const int32_t packed = PackedExponent(exponent - 15 + firstLane);

    // The lane of the first pair that doesn't fit decides on the rounding; with nothing there the shifts, which have 16
    // bits more room below lane 0, find a 0. A pair that was rounded up is the last one; otherwise zero pairs go.
    const int32_t limit = kNumMaxPairs - static_cast<int32_t>(negative);
    const int32_t dropped = firstLane - limit;
    const uint32_t roundUp = (halves << 16 >> (dropped + 16)) & 1;
    const uint32_t kept = used << 16 >> (dropped + 17);
    const int32_t count = limit - __builtin_ctz(kept | roundUp);

    const PackRows& rows = kToPack[negative];
    __m128i data = _mm_shuffle_epi8(pairs, Row(rows.toMemory[firstLane]));
    data = _mm_add_epi8(data, Row(rows.roundUp[roundUp]));
    if (__builtin_expect(MaskOf(_mm_cmpeq_epi8(data, _mm_set1_epi8(100))) != 0, 0)) {
        return NumPackLanes(num, pairs, exponent, negative);
    }
    data = _mm_insert_epi8(data, static_cast<char>(packed), 0);
    const FinishRow& finish = rows.finish[count];
    data = _mm_add_epi8(_mm_xor_si128(data, Row(rows.flip)), Row(finish.add));
    const int32_t length = count + 1 + static_cast<int32_t>(negative);
    num->bytes[0] = static_cast<uint8_t>(length);
    // Bytes behind the length stay.
    const __m128i old = LoadData(num);
    StoreData(num, _mm_xor_si128(_mm_and_si128(_mm_xor_si128(data, old), Row(finish.dataLanes)), old));
    return length;
}

// All ones in the lanes whose bit is set in a mask of 16.
PAIR_VECTOR_INLINE __m128i LanesOf(uint32_t mask) {
    const __m128i bits = _mm_set1_epi64x(static_cast<long long>(0x8040201008040201));
    const __m128i spread = _mm_set_epi64x(0x0101010101010101, 0);
    const __m128i bytes = _mm_shuffle_epi8(_mm_cvtsi32_si128(static_cast<int>(mask)), spread);
    return _mm_cmpeq_epi8(_mm_and_si128(bytes, bits), bits);
}

// Carries sums of two pairs, 0 to 198 and kSumBias on top, toward lane 15; a carry out of that is lost. All carries are
// found at once: a lane above 99 generates one, a lane of 99 passes one on, and the sum of the two masks runs as the
// carries do.
PAIR_VECTOR_INLINE __m128i Carry(__m128i sums, uint32_t carryIn) {
    const uint32_t generate = MaskOf(sums);
    const uint32_t pass = MaskOf(_mm_cmpeq_epi8(sums, _mm_set1_epi8(kSumBias + 99)));
    const uint32_t carried = (2 * generate + carryIn + pass) ^ pass;
    const __m128i carrying = _mm_sub_epi8(sums, LanesOf(carried));
    // One of the two wraps to a large value.
    return _mm_min_epu8(_mm_sub_epi8(carrying, _mm_set1_epi8(kSumBias)),
                        _mm_sub_epi8(carrying, _mm_set1_epi8(static_cast<char>(kSumBias + 100))));
}

// Four limbs of eight decimal digits: limb 3 from lanes 15 to 12, limb 0 from lanes 3 to 0.
struct VectorLimbs {
    uint64_t limb[4];
};

constexpr uint64_t kLimbBase = 100000000;

// Pairs join to fours by 100 and 1, fours to eights by 10,000 and 1.
PAIR_VECTOR_INLINE VectorLimbs ToLimbs(__m128i pairs) {
    const __m128i fours = _mm_maddubs_epi16(pairs, _mm_set1_epi16(100 * 256 + 1));
    const __m128i eights = _mm_madd_epi16(fours, _mm_set1_epi32(10000 * 65536 + 1));
#if defined(__x86_64__)
    const auto high = static_cast<uint64_t>(_mm_extract_epi64(eights, 1));
    const auto low = static_cast<uint64_t>(_mm_cvtsi128_si64(eights));
    return {{low & 0xFFFFFFFF, low >> 32, high & 0xFFFFFFFF, high >> 32}};
#else
    return {{static_cast<uint32_t>(_mm_cvtsi128_si32(eights)), static_cast<uint32_t>(_mm_extract_epi32(eights, 1)),
             static_cast<uint32_t>(_mm_extract_epi32(eights, 2)), static_cast<uint32_t>(_mm_extract_epi32(eights, 3))}};
#endif
}

// A number of limbs as the lowest limb and what it carries to the next.
struct SplitLimbs {
    uint64_t carry;
    uint64_t limb;
};

// For values below 4 * 10^16, which is more than three products of limbs and a carry.
PAIR_VECTOR_INLINE SplitLimbs SplitOffLimb(uint64_t value) {
#if defined(__x86_64__)
    return {value / kLimbBase, value % kLimbBase};
#else
    // There is no instruction for the division. A double tells the quotient to within 1.
    constexpr auto kBase = static_cast<int32_t>(kLimbBase);
    auto carry = static_cast<int32_t>(static_cast<double>(static_cast<int64_t>(value)) * 1e-8);
    auto limb = static_cast<int32_t>(static_cast<uint32_t>(value) - static_cast<uint32_t>(carry) * kBase);
    if (limb < 0) {
        limb += kBase;
        --carry;
    } else if (limb >= kBase) {
        limb -= kBase;
        ++carry;
    }
    return {static_cast<uint32_t>(carry), static_cast<uint32_t>(limb)};
#endif
}

// The other way: each limb below 10 to the 8th splits by 10,000, then by 100. The divisions are multiplications by
// reciprocals, exact for all that fits: x / 10,000 for x below 2^32, x / 100 for x below 43,698.
PAIR_VECTOR_INLINE __m128i FromLimbs(const VectorLimbs& limbs) {
    const __m128i eights = _mm_set_epi64x(static_cast<long long>(limbs.limb[3] << 32 | limbs.limb[2]),
                                          static_cast<long long>(limbs.limb[1] << 32 | limbs.limb[0]));
    const __m128i by10000 = _mm_set1_epi64x(3518437209);  // 2^45 / 10,000, rounded up
    const __m128i even = _mm_srli_epi64(_mm_mul_epu32(eights, by10000), 45);
    const __m128i odd = _mm_srli_epi64(_mm_mul_epu32(_mm_srli_epi64(eights, 32), by10000), 45);
    const __m128i high = _mm_or_si128(even, _mm_slli_epi64(odd, 32));
    // The quotient goes to the high half, the remainder stays: x + q * (65,536 - 10,000).
    const __m128i fours = _mm_add_epi32(_mm_add_epi32(eights, _mm_slli_epi32(high, 16)),
                                        _mm_madd_epi16(high, _mm_set1_epi32(static_cast<int16_t>(-10000) & 0xFFFF)));
    const __m128i tops = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(5243)), 3);  // 2^19 / 100, rounded up
    return _mm_add_epi16(fours, _mm_mullo_epi16(tops, _mm_set1_epi16(256 - 100)));
}
