#include "number_bench_peers.h"

#include <stdlib.h>

struct DecimalOperands {
    _Decimal128 values[kOperands];
    _Decimal128 results[kOperands];
};

// The value of [-]digits[.digits][e[-]digits].
static _Decimal128 DecimalOfText(const char* text) {
    const int negative = *text == '-';
    _Decimal128 value = 0;
    int power = 0;
    int seenPoint = 0;
    for (text += negative; *text != '\0' && *text != 'e'; ++text) {
        if (*text == '.') {
            seenPoint = 1;
        } else {
            value = value * 10 + (*text - '0');
            power -= seenPoint;
        }
    }
    if (*text == 'e') power += atoi(text + 1);
    for (; power > 0; --power) value *= 10;
    for (; power < 0; ++power) value /= 10;
    return negative ? -value : value;
}

DecimalOperands* DecimalMake(const char* const texts[kOperands]) {
    DecimalOperands* operands = aligned_alloc(16, sizeof(DecimalOperands));
    for (int i = 0; i < kOperands; ++i) operands->values[i] = DecimalOfText(texts[i]);
    return operands;
}

void DecimalFree(DecimalOperands* operands) {
    free(operands);
}

#define FOR_EACH(walk, at, other)                                                                              \
    for (uint32_t i = 0, at = (walk).first, other = ((walk).first + (walk).offset) % kOperands; i < kOperands; \
         ++i, at = (at + (walk).stride) % kOperands, other = (at + (walk).offset) % kOperands)

void DecimalAdd(DecimalOperands* a, const DecimalOperands* b, Walk walk) {
    FOR_EACH(walk, at, other) a->results[at] = a->values[at] + b->values[other];
}

void DecimalSubtract(DecimalOperands* a, const DecimalOperands* b, Walk walk) {
    FOR_EACH(walk, at, other) a->results[at] = a->values[at] - b->values[other];
}

void DecimalMultiply(DecimalOperands* a, const DecimalOperands* b, Walk walk) {
    FOR_EACH(walk, at, other) a->results[at] = a->values[at] * b->values[other];
}

void DecimalDivide(DecimalOperands* a, const DecimalOperands* b, Walk walk) {
    FOR_EACH(walk, at, other) a->results[at] = a->values[at] / b->values[other];
}

int32_t DecimalCompare(DecimalOperands* a, const DecimalOperands* b, Walk walk) {
    int32_t sum = 0;
    FOR_EACH(walk, at, other) sum += (a->values[at] > b->values[other]) - (a->values[at] < b->values[other]);
    return sum;
}

void DecimalFromDouble(DecimalOperands* a, const double* values, Walk walk) {
    FOR_EACH(walk, at, other) a->results[at] = (_Decimal128)values[other];
}

double DecimalToDouble(const DecimalOperands* a, Walk walk) {
    double sum = 0;
    FOR_EACH(walk, at, other) sum += (double)a->values[other];
    return sum;
}

void DecimalSum(DecimalOperands* a, Walk walk) {
    _Decimal128 sum = 0;
    FOR_EACH(walk, at, other) sum += a->values[other];
    a->results[0] = sum;
}
