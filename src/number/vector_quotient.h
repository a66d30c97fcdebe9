// The division of vectors of pairs, by way of binary integers: of 128 bits where the compiler has them, otherwise
// of 96.
#pragma once

#include "pair_vector.h"

#if defined(__SIZEOF_INT128__)

__extension__ using Wide = unsigned __int128;

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

// The twelve quotient pairs of the definition are two chunks of twelve digits.
PAIR_VECTOR_INLINE VectorLimbs QuotientOf(__m128i dividend, __m128i divisorPairs) {
    const Wide divisor = ToInteger(divisorPairs);
    const double reciprocal = 1.0 / ToDouble(divisor);
    const Quotient high = DivideScaled(ToInteger(dividend), k10To10, divisor, reciprocal);
    const Quotient low = DivideScaled(high.remainder, k10To12, divisor, reciprocal);
    const uint64_t second = high.value % 10000 * 10000 + low.value / kLimbBase;
    return {{0, low.value % kLimbBase, second, high.value / 10000}};
}

#else

// The same with integers of 96 bits, in words of 32 from the lowest, and a quotient in three chunks of eight digits.
struct Wide {
    uint32_t word[3];
};

// The product, modulo 2^96, and an addend.
PAIR_VECTOR_INLINE Wide TimesPlus(const Wide& value, uint32_t factor, uint32_t addend) {
    const uint64_t low = uint64_t{value.word[0]} * factor + addend;
    const uint64_t middle = uint64_t{value.word[1]} * factor + (low >> 32);
    const uint32_t high = value.word[2] * factor + static_cast<uint32_t>(middle >> 32);
    return {{static_cast<uint32_t>(low), static_cast<uint32_t>(middle), high}};
}

struct Difference {
    Wide value;
    bool borrow;
};

PAIR_VECTOR_INLINE Difference Minus(const Wide& a, const Wide& b) {
    const int64_t low = int64_t{a.word[0]} - b.word[0];
    const int64_t middle = int64_t{a.word[1]} - b.word[1] + (low >> 32);
    const int64_t high = int64_t{a.word[2]} - b.word[2] + (middle >> 32);
    return {{{static_cast<uint32_t>(low), static_cast<uint32_t>(middle), static_cast<uint32_t>(high)}}, high < 0};
}

// The eleven pairs as one binary integer, below 10^22; 10^20 at least when the first pair isn't 0.
PAIR_VECTOR_INLINE Wide ToInteger(__m128i pairs) {
    const VectorLimbs limbs = ToLimbs(_mm_srli_si128(pairs, 5));
    const auto limb = [&limbs](int i) { return static_cast<uint32_t>(limbs.limb[i]); };
    return TimesPlus(TimesPlus({{limb(2), 0, 0}}, kLimbBase, limb(1)), kLimbBase, limb(0));
}

// To within 2^32, which is 5 * 10^-11 of the smallest divisor.
PAIR_VECTOR_INLINE double ToDouble(const Wide& value) {
    const auto high = static_cast<int64_t>(uint64_t{value.word[2]} << 32 | value.word[1]);
    return static_cast<double>(high) * 4294967296.0;
}

struct Quotient {
    uint32_t value;
    Wide remainder;
};

// dividend * scale / divisor, for a quotient below 10^8. Truncating the operands of the estimate takes it off by less
// than 0.1, so that 0.1 below it lies the quotient or the integer in front of it. What is left of the dividend is below
// 2 * divisor, so that it does no harm that the products lose what lies above 2^96.
PAIR_VECTOR_INLINE Quotient DivideScaled(const Wide& dividend, uint32_t scale, const Wide& divisor, double reciprocal) {
    const double estimate = ToDouble(dividend) * (scale * reciprocal) - 0.1;
    const auto value = static_cast<uint32_t>(static_cast<int32_t>(estimate));
    const Wide remainder = Minus(TimesPlus(dividend, scale, 0), TimesPlus(divisor, value, 0)).value;
    const Difference less = Minus(remainder, divisor);
    if (less.borrow) return {value, remainder};
    return {value + 1, less.value};
}

PAIR_VECTOR_INLINE VectorLimbs QuotientOf(__m128i dividend, __m128i divisorPairs) {
    const Wide divisor = ToInteger(divisorPairs);
    const double reciprocal = 1.0 / ToDouble(divisor);
    const Quotient high = DivideScaled(ToInteger(dividend), kLimbBase / 100, divisor, reciprocal);
    const Quotient middle = DivideScaled(high.remainder, kLimbBase, divisor, reciprocal);
    const Quotient low = DivideScaled(middle.remainder, kLimbBase, divisor, reciprocal);
    return {{0, low.value, middle.value, high.value}};
}

#endif
