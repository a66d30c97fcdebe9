// Rounding, text and doubles on vectors of pairs.
#include "vector_operations.h"

#if defined(NUM_HAS_VECTOR_CODE)

#include "pair_vector.h"

namespace {

constexpr int32_t kAllDigits = 2 * kNumMaxPairs;

// The first digit of each pair, times 10. Divisions by 10 are multiplications by 2^16 / 10, rounded up.
PAIR_VECTOR_INLINE __m128i TensOf(__m128i pairs) {
    const __m128i tenth = _mm_set1_epi16(6554);
    const __m128i ten = _mm_set1_epi16(10);
    const __m128i even = _mm_mulhi_epu16(_mm_and_si128(pairs, _mm_set1_epi16(0xFF)), tenth);
    const __m128i odd = _mm_mulhi_epu16(_mm_srli_epi16(pairs, 8), tenth);
    return _mm_or_si128(_mm_mullo_epi16(even, ten), _mm_slli_epi16(_mm_mullo_epi16(odd, ten), 8));
}

// Eight pairs, each in the low half of a word, to sixteen characters in memory order: t + 256 * (p - 10 * t), and "00".
PAIR_VECTOR_INLINE __m128i CharactersOf(__m128i pairs) {
    const __m128i tens = _mm_mulhi_epu16(pairs, _mm_set1_epi16(6554));
    const __m128i digits = _mm_sub_epi16(_mm_slli_epi16(pairs, 8), _mm_mullo_epi16(tens, _mm_set1_epi16(2559)));
    return _mm_add_epi8(digits, _mm_set1_epi8('0'));
}

// The digits of a value, with zeros in front and behind, so that any stretch of text can be copied out of it.
struct DigitWindow {
    static constexpr int32_t kFirst = 32;  // where the digits start
    alignas(16) char text[96];
    uint32_t used;  // bit i: digit i isn't 0
};

PAIR_VECTOR_INLINE void FillWindow(DigitWindow& window, __m128i pairs) {
    const __m128i zeros = _mm_set1_epi8('0');
    const __m128i inMemoryOrder =
        _mm_shuffle_epi8(pairs, _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
    const __m128i first = CharactersOf(_mm_unpacklo_epi8(inMemoryOrder, _mm_setzero_si128()));
    const __m128i second = CharactersOf(_mm_unpackhi_epi8(inMemoryOrder, _mm_setzero_si128()));
    auto* blocks = reinterpret_cast<__m128i*>(window.text);
    _mm_store_si128(blocks, zeros);
    _mm_store_si128(blocks + 1, zeros);
    _mm_store_si128(blocks + 2, first);
    _mm_store_si128(blocks + 3, second);
    _mm_store_si128(blocks + 4, zeros);
    _mm_store_si128(blocks + 5, zeros);
    window.used = ~(MaskOf(_mm_cmpeq_epi8(first, zeros)) | MaskOf(_mm_cmpeq_epi8(second, zeros)) << 16);
}

constexpr int32_t kPairsInInteger = 8;

// The shuffle that moves lanes down by 0 to 15 places.
PAIR_VECTOR_INLINE __m128i ShiftDown(int32_t places) {
    alignas(32) static constexpr uint8_t kLanes[32] = {0,    1,    2,    3,    4,    5,    6,    7,    8,    9,    10,
                                                       11,   12,   13,   14,   15,   0x80, 0x80, 0x80, 0x80, 0x80, 0x80,
                                                       0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80, 0x80};
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(kLanes + places));
}

}  // namespace

PAIR_VECTOR int32_t NumRoundVectors(Number* result, const Number* source, int32_t decimals) {
    const VectorParts parts = LoadNumber(source, kFromLane14);
    const int64_t kept = int64_t{decimals} + 2 * int64_t{parts.exponent - kNumExponentBias};
    if (kept < 0) return NumPackZero(result);
    const RoundRow& row = kToRound.of[std::min<int64_t>(kept, kAllDigits)];
    const __m128i rounded = Carry(_mm_add_epi8(parts.pairs, Row(row.add)), 0);
    const __m128i whole = _mm_and_si128(rounded, Row(row.keep));
    const __m128i tens = _mm_and_si128(TensOf(rounded), Row(row.keepTens));
    return StoreNumber(result, _mm_or_si128(whole, tens), parts.exponent + 1, parts.negative);
}

PAIR_VECTOR int32_t NumPackLimbsVectors(Number* num, const uint32_t (&limbs)[3], bool negative, int32_t exponent) {
    const __m128i pairs = FromLimbs({{0, limbs[2], limbs[1], limbs[0]}});
    return StoreNumber(num, pairs, exponent, static_cast<uint32_t>(negative));
}

PAIR_VECTOR int32_t NumToAsciiVectors(const Number* num, char* buffer) {
    const VectorParts parts = LoadNumber(num, kFromLane15);
    if (parts.length - 1 >= kNumMaxLength) return kNumDeclined;  // null or invalid
    DigitWindow window;
    FillWindow(window, parts.pairs);
    if (window.used == 0) return kNumDeclined;  // zero
    const int32_t lead = __builtin_ctz(window.used);
    const int32_t count = 32 - __builtin_clz(window.used) - lead;
    const int32_t point =
        2 * (parts.exponent - kNumExponentBias) - lead;  // the value is 0.digits times 10 to this power
    // Each side of the point has to come out of one copy; a zero pair in front, which no operation writes, is left to
    // the definition.
    constexpr int32_t kCopied = 32;
    if (lead > 1 || point > kCopied - 2 || count - point > kCopied) return kNumDeclined;

    // The integer digits; then the point and the fraction digits over what follows them. Without a fraction both go
    // again.
    const char* digits = window.text + DigitWindow::kFirst + lead;
    *buffer = '-';
    char* at = buffer + parts.negative;
    std::memcpy(at, digits, kCopied);
    const int32_t whole = std::max(point, 0);
    at[whole] = '.';
    std::memcpy(at + whole + 1, digits + point, kCopied);
    char* end = at + (count > point ? whole + 1 + count - point : point);
    *end = '\0';
    return static_cast<int32_t>(end - buffer);
}

PAIR_VECTOR double NumToDoubleVectors(const Number* num) {
    const VectorParts parts = LoadNumber(num, kFromLane15);
    const int32_t count = 16 - __builtin_ctz((~ZeroLanes(parts.pairs) & 0xFFFF) | 0x10000);
    // Up to eight pairs are exact in an integer, and its conversion rounds as the last addition would: up to seven
    // pairs are exact in a double, and 100 times that still is, being a multiple of 4.
    const int32_t inInteger = std::min(count, kPairsInInteger);
    const VectorLimbs limbs = ToLimbs(_mm_shuffle_epi8(parts.pairs, ShiftDown(kPairsInInteger - inInteger)));
    auto value = static_cast<double>(static_cast<int64_t>(limbs.limb[3] * kLimbBase + limbs.limb[2]));
    for (int32_t i = kPairsInInteger; i < count; ++i) {
        const int32_t shift = i - kPairsInInteger;
        const int32_t pair = _mm_cvtsi128_si32(_mm_shuffle_epi8(parts.pairs, ShiftDown(7 - shift))) & 0xFF;
        value = value * 100.0 + pair;
    }
    return NumScaleDouble(value, parts.exponent - kNumExponentBias - count, parts.negative != 0);
}

#endif
