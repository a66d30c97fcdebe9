// The peers that only C knows: decimal floating point, as the compiler's run-time library computes it.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

enum { kOperands = 1024 };  // a power of two

// One walk over all operands: a[first], a[first + stride], .. with b[.. + offset], all modulo kOperands; `stride` is
// odd.
typedef struct Walk {
    uint32_t first;
    uint32_t stride;
    uint32_t offset;
} Walk;

typedef struct DecimalOperands DecimalOperands;
DecimalOperands* DecimalMake(const char* const texts[kOperands]);
void DecimalFree(DecimalOperands* operands);

// One operation for each operand of a walk.
void DecimalAdd(DecimalOperands* a, const DecimalOperands* b, Walk walk);
void DecimalSubtract(DecimalOperands* a, const DecimalOperands* b, Walk walk);
void DecimalMultiply(DecimalOperands* a, const DecimalOperands* b, Walk walk);
void DecimalDivide(DecimalOperands* a, const DecimalOperands* b, Walk walk);
int32_t DecimalCompare(DecimalOperands* a, const DecimalOperands* b, Walk walk);
void DecimalFromDouble(DecimalOperands* a, const double* values, Walk walk);
double DecimalToDouble(const DecimalOperands* a, Walk walk);
// A sum in which each addition waits for the one before.
void DecimalSum(DecimalOperands* a, Walk walk);

#ifdef __cplusplus
}
#endif
