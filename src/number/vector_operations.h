// The operations on vectors of pairs, and in binary where that is faster: the same bytes as the definitions, to which
// they hand on the operands that a fast way doesn't take. Where HasPairVectors() doesn't hold they must not be called.
#pragma once

#include "decimal_pack.h"
#include "pair_arithmetic.h"

constexpr int32_t kNumDeclined = -1;

// The least width that the fast way of NumToAscii takes: it writes in blocks, also behind the text.
constexpr int32_t kNumTextRoom = 64;

#if defined(__x86_64__) || defined(__i386__)
#define NUM_HAS_VECTOR_CODE

// Whether the processor has the vectors (SSE4.1).
inline bool HasPairVectors() {
    return __builtin_cpu_supports("sse4.1");
}

int32_t NumAddSubVectors(Number* result, const Number* a, const Number* b, bool subtract);
int32_t NumMultiplyVectors(Number* result, const Number* a, const Number* b);
int32_t NumDivideVectors(Number* result, const Number* a, const Number* b);
int32_t NumCompareVectors(const Number* a, const Number* b);
int32_t NumRoundVectors(Number* result, const Number* source, int32_t decimals);
int32_t NumPackLimbsVectors(Number* num, const uint32_t (&limbs)[3], bool negative, int32_t exponent);

// The double of a value.
double NumToDoubleVectors(const Number* num);

// The plain form of a value in a width that takes it whole, kNumTextRoom at least. Declines other values and other
// forms.
int32_t NumToAsciiVectors(const Number* num, char* buffer);

#else

inline bool HasPairVectors() {
    return false;
}

inline int32_t NumAddSubVectors(Number* result, const Number* a, const Number* b, bool subtract) {
    return NumAddSub(result, a, b, subtract);
}
inline int32_t NumMultiplyVectors(Number* result, const Number* a, const Number* b) {
    return NumMultiplyPairs(result, a, b);
}
inline int32_t NumDivideVectors(Number* result, const Number* a, const Number* b) {
    return NumDividePairs(result, a, b);
}
inline int32_t NumCompareVectors(const Number* a, const Number* b) {
    return NumComparePairs(a, b);
}
inline int32_t NumRoundVectors(Number* result, const Number* source, int32_t decimals) {
    return NumRoundPairs(result, source, decimals);
}
inline int32_t NumPackLimbsVectors(Number* num, const uint32_t (&limbs)[3], bool negative, int32_t exponent) {
    return NumPackLimbs(num, limbs, negative, exponent);
}
inline double NumToDoubleVectors(const Number* num) {
    return NumToDoublePairs(num);
}
inline int32_t NumToAsciiVectors(const Number* /*num*/, char* /*buffer*/) {
    return kNumDeclined;
}

#endif
