// The fast ways against the definitions, byte for byte, on any bytes: operands that no operation writes as well.
#include "number/decimal_pack.h"
#include "number/pair_arithmetic.h"
#include "number/vector_operations.h"
#include "number_testing.h"

namespace {

int32_t AddPairs(Number* result, const Number* a, const Number* b) {
    return NumAddSub(result, a, b, false);
}
int32_t SubtractPairs(Number* result, const Number* a, const Number* b) {
    return NumAddSub(result, a, b, true);
}

struct Operation {
    const char* name;
    int32_t(MORVL_CALL* fast)(Number*, const Number*, const Number*);
    int32_t (*definition)(Number*, const Number*, const Number*);
};
constexpr Operation kOperations[] = {
    {"+", NumAddition, AddPairs},
    {"-", NumSubtract, SubtractPairs},
    {"*", NumMultiply, NumMultiplyPairs},
    {"/", NumDivide, NumDividePairs},
};

// The result may be either operand, or both.
void ExpectSameInPlace(int32_t(MORVL_CALL* operation)(Number*, const Number*, const Number*), const Number& a,
                       const Number& b) {
    Number apart = Poisoned();
    operation(&apart, &a, &b);
    Number first = a;
    operation(&first, &first, &b);
    EXPECT_EQ(Bytes(first), Bytes(apart));
    Number second = b;
    operation(&second, &a, &second);
    EXPECT_EQ(Bytes(second), Bytes(apart));
    operation(&apart, &a, &a);
    Number both = a;
    operation(&both, &both, &both);
    EXPECT_EQ(Bytes(both), Bytes(apart));
}

void CheckPair(const Number& a, const Number& b) {
    const testing::ScopedTrace row(__FILE__, __LINE__, Bytes(a, 13) + " with " + Bytes(b, 13));
    const bool hasNothing = NumLength(&a) < 2 || NumLength(&b) < 2;
    for (const Operation& operation : kOperations) {
        // A sum with null or zero isn't worked out: it is a copy of the other operand.
        if (hasNothing && operation.fast == NumAddition) continue;
        Number fast[2] = {Poisoned(), Poisoned()};  // the second is a guard
        Number defined = Poisoned();
        EXPECT_EQ(operation.fast(fast, &a, &b), operation.definition(&defined, &a, &b)) << operation.name;
        EXPECT_EQ(fast[0], defined) << operation.name << ": " << Bytes(fast[0]) << ", defined as " << Bytes(defined);
        EXPECT_EQ(fast[1], Poisoned());
    }
    for (const Operation& operation : kOperations) ExpectSameInPlace(operation.fast, a, b);
    EXPECT_EQ(NumCompare(&a, &b), NumComparePairs(&a, &b));
    // NumCompare rarely gets as far as the vectors.
    if (HasPairVectors()) {
        EXPECT_EQ(NumCompareVectors(&a, &b), NumComparePairs(&a, &b));
        EXPECT_EQ(NumCompareVectors(&a, &a), NumComparePairs(&a, &a));
    }
}

TEST(Agreement, ArithmeticOnCanonicalOperands) {
    RandomNumbers random;
    for (int i = 0; i < 30000 && !testing::Test::HasFailure(); ++i) CheckPair(random.Canonical(), random.Canonical());
}

TEST(Agreement, ArithmeticOnAnyBytes) {
    RandomNumbers random;
    for (int i = 0; i < 30000 && !testing::Test::HasFailure(); ++i) {
        const Number a = random.Raw();
        Number b = random.Raw();
        // Close relatives too: operands that differ in one byte.
        if (i % 4 == 0) {
            b = a;
            b.bytes[random.Below(13)] = static_cast<uint8_t>(random.Below(256));
        }
        CheckPair(a, b);
    }
}

TEST(Agreement, RoundingTextAndDouble) {
    RandomNumbers random;
    for (int i = 0; i < 30000 && !testing::Test::HasFailure(); ++i) {
        const Number num = i % 2 != 0 ? random.Raw() : random.Canonical();
        if ((num.bytes[0] & 15) == 0 || (num.bytes[0] & 15) > 12) continue;
        const int32_t decimals =
            random.Below(16) == 0 ? (random.Below(1 << 30) - (1 << 29)) * 4 : random.Below(40) - 15;
        const testing::ScopedTrace row(__FILE__, __LINE__, Bytes(num, 13) + " and " + std::to_string(decimals));
        Number fast = Poisoned();
        Number defined = Poisoned();
        EXPECT_EQ(NumRound(&fast, &num, decimals), NumRoundPairs(&defined, &num, decimals));
        EXPECT_EQ(fast, defined);

        const auto width = static_cast<uint16_t>(random.Below(i % 4 == 0 ? 30 : 160));
        std::string fastText(width + 2u, '\xA5');
        std::string definedText = fastText;
        const int32_t length = NumToAscii(&num, fastText.data(), width);
        EXPECT_EQ(length, NumToAsciiPairs(&num, definedText.data(), width));
        EXPECT_STREQ(fastText.c_str(), definedText.c_str());
        EXPECT_EQ(static_cast<size_t>(length), std::strlen(fastText.c_str()));
        EXPECT_LE(length, width);
        EXPECT_EQ(fastText.back(), '\xA5');

        double value = 0;
        NumToDouble(&num, &value);
        const double pairs = NumToDoublePairs(&num);
        EXPECT_EQ(std::memcmp(&value, &pairs, sizeof value), 0) << value << ", defined as " << pairs;
    }
}

TEST(Agreement, PackingOfLimbs) {
    if (!HasPairVectors()) GTEST_SKIP();
    RandomNumbers random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        uint32_t limbs[3];
        for (uint32_t& limb : limbs) {
            const int32_t shape = random.Below(4);
            limb = shape == 0 ? 0 : shape == 1 ? 99999999 : static_cast<uint32_t>(random.Below(100000000));
        }
        const bool negative = random.Below(2) != 0;
        const int32_t exponent = random.Below(130);
        Number fast = Poisoned();
        Number defined = Poisoned();
        EXPECT_EQ(NumPackLimbsVectors(&fast, limbs, negative, exponent),
                  NumPackLimbs(&defined, limbs, negative, exponent));
        EXPECT_EQ(fast, defined);
    }
}

// Doubles of every magnitude, with and without few digits, and those next to a rounding.
TEST(Agreement, DoublesAndTheirText) {
    RandomNumbers random;
    for (int i = 0; i < 30000 && !testing::Test::HasFailure(); ++i) {
        double value = random.Below(1 << 30) * (random.Below(2) != 0 ? 1.0 : -0.01);
        if (random.Below(2) != 0) value = value * (1 << 24) + random.Below(1 << 24);
        const double factor = random.Below(2) != 0 ? 10.0 : 0.1;
        for (int steps = random.Below(40); steps > 0; --steps) value *= factor;
        if (random.Below(4) == 0) value = (random.Below(1 << 30) + 0.5) / 1024;
        Number direct = Poisoned();
        Number throughText = Poisoned();
        char text[32];
        NumMakeNull(&throughText);
        NumDoubleToNumber(&direct, value);
        NumAsciiToNumber(&throughText, FMTgcvt(value, text));
        ASSERT_EQ(Bytes(direct), Bytes(throughText)) << text;
    }
}

}  // namespace
