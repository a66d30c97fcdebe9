// The arithmetic on any 13 bytes: the fast ways give the bytes of the definitions, in place as well.
#include <morvl15/number.h>

#include "input.h"
#include "number/pair_arithmetic.h"
#include "number/vector_operations.h"

namespace {

int32_t AddPairs(Number* result, const Number* a, const Number* b) {
    return NumAddSub(result, a, b, false);
}
int32_t SubtractPairs(Number* result, const Number* a, const Number* b) {
    return NumAddSub(result, a, b, true);
}

template <typename Fast, typename Definition>
void RequireAgreement(Fast fast, Definition definition, const Number& a, const Number& b) {
    Number inPlace = a;
    Number defined = a;
    const int32_t length = definition(&defined, &a, &b);
    Require(fast(&inPlace, &inPlace, &b) == length);
    Require(std::memcmp(&inPlace, &defined, sizeof defined) == 0);
    inPlace = b;
    Require(fast(&inPlace, &a, &inPlace) == length);
    Require(std::memcmp(&inPlace, &defined, static_cast<size_t>(length) + 1) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Number a;
    Number b;
    int32_t numbers[2];
    if (size < sizeof a + sizeof b + sizeof numbers) return 0;
    std::memcpy(&a, data, sizeof a);
    std::memcpy(&b, data + sizeof a, sizeof b);
    std::memcpy(numbers, data + sizeof a + sizeof b, sizeof numbers);
    // A sum with null or zero isn't worked out: it is a copy of the other operand.
    const bool hasNothing = (a.bytes[0] & 15) < 2 || (b.bytes[0] & 15) < 2;
    if (!hasNothing) RequireAgreement(NumAddition, AddPairs, a, b);
    RequireAgreement(NumSubtract, SubtractPairs, a, b);
    RequireAgreement(NumMultiply, NumMultiplyPairs, a, b);
    RequireAgreement(NumDivide, NumDividePairs, a, b);
    Require(NumCompare(&a, &b) == NumComparePairs(&a, &b));
    if (HasPairVectors()) Require(NumCompareVectors(&a, &b) == NumComparePairs(&a, &b));

    Number result = a;
    NumNegate(&result);
    NumPower10(&result, &a, numbers[0] % 64);
    result = a;
    NumTruncate(&result, numbers[0], numbers[1]);
    if ((a.bytes[0] & 15) == 0 || (a.bytes[0] & 15) > 12) return 0;
    result = a;
    Number defined = a;
    Require(NumRound(&result, &a, numbers[0]) == NumRoundPairs(&defined, &a, numbers[0]));
    Require(std::memcmp(&result, &defined, sizeof defined) == 0);
    return 0;
}
