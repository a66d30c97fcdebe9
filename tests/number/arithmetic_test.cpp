// The four operations, negation and comparison.
#include <span>

#include "number_testing.h"

namespace {

using Operation = int32_t(MORVL_CALL*)(Number*, const Number*, const Number*);

struct OperationCase {
    const char* a;
    const char* b;
    const char* result;  // bytes, or a text that starts with "="
};

// The operands are texts or bytes.
void ExpectResults(Operation operation, Number (*operand)(const char*), std::span<const OperationCase> cases) {
    for (const OperationCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, std::string(c.a) + " with " + c.b);
        const Number a = operand(c.a);
        const Number b = operand(c.b);
        Number result = Poisoned();
        EXPECT_EQ(operation(&result, &a, &b), result.bytes[0]);
        EXPECT_EQ(Bytes(result), c.result[0] == '=' ? Bytes(Num(c.result + 1)) : c.result);
    }
}

constexpr OperationCase kSums[] = {
    {"99.5", "0.5", "02 C2 01"},     {"-1", "0.001", "=-0.999"}, {"1", "-1", "01 C0"}, {"0.05", "0.05", "02 C0 0A"},
    {"0.001", "-1", "=-0.999"},      {"0", "1e-50", "=1e-50"},  // the exponent of a zero doesn't count
    {"9e99", "9e99", "03 F2 01 50"},                            // the exponent is clamped
};
constexpr OperationCase kLongSums[] = {
    {"9999999999999999999999", "1", "02 CC 01"},
    // The exact sum has 12 pairs that end in 49 99: the last one rounds the 49 up.
    {"9999999999999999999999", "5000", "0C CC 01 00 00 00 00 00 00 00 00 00 32"},
    {"1234567890123456789012", "0.5", "=1234567890123456789012"},  // cut before the addition
    {"-99999999999999999999", "-1", "=-100000000000000000000"},
    {"-99999999999999999999", "-0.5", "=-100000000000000000000"},
};
constexpr OperationCase kDifferences[] = {
    {"1", "1", "01 C0"},       {"0", "5", "=-5"},         {"1.0001e-100", "1e-100", "02 8E 01"},
    {"1", "1e-24", "=1"},      {"0.001", "1", "=-0.999"}, {"1.00000000000000000004", "1", "=4e-20"},
    {"0.001", "-1", "=1.001"}, {"1", "1e-30", "=1"},      {"1", "1e-22", "=0.9999999999999999999999"},
};
constexpr OperationCase kProducts[] = {
    {"0", "-5", "01 C0"},
    {"101", "0.99", "=99.99"},
    {"-0.01", "-100", "=1"},
    {"1.5", "1.5", "03 C1 02 19"},
    {"1e60", "1e60", "02 F2 01"},    // clamped to 1E+98
    {"1e-60", "1e-60", "02 8E 01"},  // clamped to 1E-102
    {"9999999999999999999999", "9999999999999999999999", "0C D6 63 63 63 63 63 63 63 63 63 63 62"},
    {"-99999999999999999999", "99999999999999999999", "0C 2B 01 01 01 01 01 01 01 01 01 02 65"},
};
constexpr OperationCase kQuotients[] = {
    {"1", "8", "03 C0 0C 32"},     {"0", "5", "01 C0"},  {"9999999999999999999999", "9999999999999999999999", "=1"},
    {"1e99", "1e-99", "02 F2 01"}, {"0", "-5", "01 C0"}, {"1", "9999999999999999999999", "02 B6 01"},
    {"1e-99", "1e99", "02 8E 01"},
};
constexpr OperationCase kLongQuotients[] = {
    {"1", "3", "0C C0 21 21 21 21 21 21 21 21 21 21 21"},
    {"2", "3", "0C C0 42 42 42 42 42 42 42 42 42 42 42"},  // not rounded up: the first pair is 0
    {"-2", "3", "0C 3F 22 22 22 22 22 22 22 22 22 21 65"},
    {"10", "3", "0C C1 03 21 21 21 21 21 21 21 21 21 21"},
    {"20", "3", "0C C1 06 42 42 42 42 42 42 42 42 42 43"},  // twelve pairs: rounded
    // The estimate of a pair is too large by 1, which shows after the subtraction alone.
    {"9998019998", "51999801", "0C C2 01 5C 1B 03 33 0E 63 61 43 01 53"},
    {"5099", "10199", "0C C0 31 63 32 61 37 55 54 11 31 13 0B"},
    {"509899", "519999", "0C C0 62 05 4C 58 39 18 4E 02 27 60 13"},
};

TEST(Arithmetic, Values) {
    ExpectResults(NumAddition, Num, kSums);
    ExpectResults(NumAddition, Num, kLongSums);
    ExpectResults(NumSubtract, Num, kDifferences);
    ExpectResults(NumMultiply, Num, kProducts);
    ExpectResults(NumDivide, Num, kQuotients);
    ExpectResults(NumDivide, Num, kLongQuotients);
}

TEST(Arithmetic, NullInvalidAndUnusualOperands) {
    // Next to null or zero the other operand stays as it is.
    constexpr OperationCase kToAdd[] = {
        {"00", "02 C1 07", "02 C1 07"},    {"01 C0", "04 3D 60 64 07", "04 3D 60 64 07"}, {"00", "00", "01 C0"},
        {"02 C1 07", "10", "02 C1 07"},    {"13 C2 04 00", "00", "03 C2 04 00"},          {"00", "0F C1 07", "01 C0"},
        {"0D C1 07", "02 C1 07", "01 C0"}, {"05 C1 01 32 00 00", "02 C0 32", "02 C1 02"},
    };
    constexpr OperationCase kToSubtract[] = {
        {"00", "00", "01 C0"},       {"00", "02 C1 05", "03 3E 5F 65"}, {"02 C1 07", "00", "02 C1 07"},
        {"0E C1 07", "00", "01 C0"}, {"02 C1 07", "0D", "01 C0"},       {"03 C2 04 00", "01 C0", "02 C2 04"},
    };
    constexpr OperationCase kToMultiply[] = {
        {"00", "02 C1 07", "01 C0"}, {"02 C1 07", "00", "01 C0"},       {"0D C1", "02 C1 07", "01 C0"},
        {"00", "0D C1", "01 C0"},    {"02 3E 65", "02 C1 07", "01 C0"}, {"02 C1 07", "0D C1", "01 C0"},
    };
    constexpr OperationCase kToDivide[] = {
        {"00", "02 C1 07", "01 C0"}, {"02 C1 07", "00", "00"},
        {"02 C1 07", "01 C0", "00"}, {"00", "00", "00"},
        {"0D C1 07", "00", "00"},    {"0D C1 07", "02 C1 07", "01 C0"},
        {"0D C1 07", "01 C0", "00"}, {"02 C1 0A", "04 C3 00 00 05", "02 C1 02"},  // zero pairs in front of the divisor
        {"00", "0D", "01 C0"},       {"02 C1 07", "03 C1 00 00", "00"},
        {"02 C1 07", "0D", "01 C0"},
    };
    ExpectResults(NumAddition, NumOfBytes, kToAdd);
    ExpectResults(NumSubtract, NumOfBytes, kToSubtract);
    ExpectResults(NumMultiply, NumOfBytes, kToMultiply);
    ExpectResults(NumDivide, NumOfBytes, kToDivide);
}

// Whether an exponent is at a limit, or close to one.
bool IsClamped(const Number& num) {
    const int exponent = (num.bytes[1] >= 0x80 ? num.bytes[1] : ~num.bytes[1]) & 0x7F;
    return exponent < 14 + 12 || exponent == 114;
}

// Laws that hold whatever the operands are, but for the rounding that NumPack does once.
TEST(Arithmetic, Laws) {
    RandomNumbers random;
    const Number zero = Num("0");
    const Number tiny = Num("1e-17");
    for (int i = 0; i < 10000; ++i) {
        Number a = random.Canonical();
        Number b = random.Canonical();
        NumNullToZero(&a);
        NumNullToZero(&b);
        const testing::ScopedTrace row(__FILE__, __LINE__, Bytes(a) + " with " + Bytes(b));
        Number x, y;
        NumAddition(&x, &a, &b);
        NumAddition(&y, &b, &a);
        ASSERT_EQ(Bytes(x), Bytes(y));
        NumMultiply(&x, &a, &b);
        NumMultiply(&y, &b, &a);
        ASSERT_EQ(Bytes(x), Bytes(y));
        NumSubtract(&x, &a, &b);
        NumSubtract(&y, &b, &a);
        ASSERT_EQ(NumIsZero(&x), NumCompare(&a, &b) == 0);
        if (x.bytes[0] < 12 && y.bytes[0] < 12) {
            NumNegate(&y);
            ASSERT_EQ(Bytes(x), Bytes(y));
        }

        // |a / b * b - a| is small beside |a|, unless an exponent was clamped.
        if (NumIsZero(&a) || NumIsZero(&b) || IsClamped(a)) continue;
        NumDivide(&x, &a, &b);
        NumMultiply(&y, &x, &b);
        if (IsClamped(x) || IsClamped(y)) continue;
        NumSubtract(&y, &y, &a);
        NumDivide(&y, &y, &a);
        if (NumCompare(&y, &zero) < 0) NumNegate(&y);
        ASSERT_LE(NumCompare(&y, &tiny), 0) << Bytes(x) << " off by " << Bytes(y);
    }
}

TEST(NumNegate, ValuesAndWhatStays) {
    constexpr const char* kCases[][2] = {
        {"02 C1 05", "03 3E 5F 65"},
        {"03 3E 5F 65", "02 C1 05"},
        {"01 C0", "01 C0"},
        {"00", "00"},
        {"03 C2 04 00", "03 3D 60 65"},
        {"0C CB 0C 22 38 4E 5A 0C 22 38 4E 5A 0C", "0C 34 58 42 2C 16 0A 58 42 2C 16 0A 65"},
        {"0C CB 63 63 63 63 63 63 63 63 63 63 63", "03 33 63 65"},
        {"0C 34 58 42 2C 16 0A 58 42 2C 16 0A 65", "0B CB 0C 22 38 4E 5A 0C 22 38 4E 5A"},  // a pair has gone
    };
    for (const auto& [before, after] : kCases) {
        Number num = NumOfBytes(before);
        EXPECT_EQ(NumNegate(&num), NumOfBytes(after).bytes[0]);
        EXPECT_EQ(Bytes(num), after);
    }
    Number invalid = NumOfBytes("0D C1 05");
    EXPECT_EQ(NumNegate(&invalid), 0);
    EXPECT_EQ(invalid, NumOfBytes("0D C1 05"));
}

void ExpectComparison(const char* first, const char* second, int32_t result) {
    const Number a = NumOfBytes(first);
    const Number b = NumOfBytes(second);
    EXPECT_EQ(NumCompare(&a, &b), result) << first << " with " << second;
}

TEST(NumCompare, AscendingOrder) {
    const char* const ascending[] = {"00",  // null
                                     "0C 0D 01 01 01 01 01 01 01 01 01 01 65",
                                     "03 3D 63 65",     // -100
                                     "04 3E 62 63 65",  // -2.01
                                     "03 3E 62 65",     // -2
                                     "03 3E 63 65",     // -1
                                     "03 40 5A 65",     // -0.001
                                     "03 71 63 65",
                                     "01 C0",  // zero
                                     "02 8E 01",
                                     "02 BF 0A",  // 0.001: an exponent byte below that of zero
                                     "02 C1 01",
                                     "02 C1 02",
                                     "03 C1 02 01",  // 2.01
                                     "04 C1 02 01 01",
                                     "02 C2 01",
                                     "0C F2 63 63 63 63 63 63 63 63 63 63 63"};
    for (size_t i = 0; i < std::size(ascending); ++i) {
        for (size_t j = 0; j < std::size(ascending); ++j) {
            ExpectComparison(ascending[i], ascending[j], (i > j) - (i < j));
        }
    }
}

TEST(NumCompare, EqualAndInvalid) {
    constexpr const char* kEqual[][2] = {
        {"03 C2 04 00", "02 C2 04"},
        {"04 3D 60 64 07", "03 3D 60 65"},
        {"01 C0", "03 C7 00 00"},
        {"02 3E 65", "01 C0"},
        {"12 C1 07", "02 C1 07"},
        {"03 3E 5F 65", "0F"},
        {"0D", "02 C1 07"},
        {"10", "00"},
        {"00", "0D"},
        {"0D", "00"},
        {"01 3F", "01 C0"},
    };
    for (const auto& [first, second] : kEqual) ExpectComparison(first, second, 0);
}

}  // namespace
