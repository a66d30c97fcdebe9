// The four operations, negation and comparison.
#include "number_testing.h"

namespace {

using Operation = int32_t(MORVL_CALL*)(Number*, const Number*, const Number*);

struct OperationCase {
    int line;
    Operation operation;
    const char* a;
    const char* b;
    const char* result;  // bytes, or a text that starts with "="
};

void CheckRows(const OperationCase* begin, const OperationCase* end) {
    for (const OperationCase* c = begin; c != end; ++c) {
        const testing::ScopedTrace row(__FILE__, c->line, std::string(c->a) + " with " + c->b);
        const Number a = Num(c->a);
        const Number b = Num(c->b);
        Number result = Poisoned();
        EXPECT_EQ(c->operation(&result, &a, &b), result.bytes[0]);
        EXPECT_EQ(Bytes(result), c->result[0] == '=' ? Bytes(Num(c->result + 1)) : c->result);
    }
}

constexpr OperationCase kSums[] = {
    {__LINE__, NumAddition, "9999999999999999999999", "1", "02 CC 01"},
    // The exact sum has 12 pairs that end in 49 99: the last one rounds the 49 up.
    {__LINE__, NumAddition, "9999999999999999999999", "5000", "0C CC 01 00 00 00 00 00 00 00 00 00 32"},
    {__LINE__, NumAddition, "1234567890123456789012", "0.5", "=1234567890123456789012"},  // cut before the addition
    {__LINE__, NumSubtract, "1", "1e-22", "=0.9999999999999999999999"},
    {__LINE__, NumSubtract, "1", "1e-24", "=1"},
    {__LINE__, NumSubtract, "1", "1e-30", "=1"},
    {__LINE__, NumAddition, "1", "-1", "01 C0"},
    {__LINE__, NumSubtract, "1", "1", "01 C0"},
    {__LINE__, NumAddition, "0.05", "0.05", "02 C0 0A"},
    {__LINE__, NumAddition, "99.5", "0.5", "02 C2 01"},
    {__LINE__, NumAddition, "-1", "0.001", "=-0.999"},
    {__LINE__, NumAddition, "0.001", "-1", "=-0.999"},
    {__LINE__, NumSubtract, "0.001", "-1", "=1.001"},
    {__LINE__, NumSubtract, "0.001", "1", "=-0.999"},
    {__LINE__, NumSubtract, "0", "5", "=-5"},
    {__LINE__, NumAddition, "0", "1e-50", "=1e-50"},         // the exponent of a zero doesn't count
    {__LINE__, NumAddition, "9e99", "9e99", "03 F2 01 50"},  // the exponent is clamped
    {__LINE__, NumAddition, "-99999999999999999999", "-1", "=-100000000000000000000"},
    {__LINE__, NumAddition, "-99999999999999999999", "-0.5", "=-100000000000000000000"},
    {__LINE__, NumSubtract, "1.00000000000000000004", "1", "=4e-20"},
    {__LINE__, NumSubtract, "1.0001e-100", "1e-100", "02 8E 01"},
};

TEST(NumAddition, Rows) {
    CheckRows(std::begin(kSums), std::end(kSums));
}

constexpr OperationCase kProducts[] = {
    {__LINE__, NumMultiply, "1.5", "1.5", "03 C1 02 19"},
    {__LINE__, NumMultiply, "1e60", "1e60", "02 F2 01"},    // clamped to 1E+98
    {__LINE__, NumMultiply, "1e-60", "1e-60", "02 8E 01"},  // clamped to 1E-102
    {__LINE__, NumMultiply, "0", "-5", "01 C0"},
    {__LINE__, NumMultiply, "-0.01", "-100", "=1"},
    {__LINE__, NumMultiply, "9999999999999999999999", "9999999999999999999999",
     "0C D6 63 63 63 63 63 63 63 63 63 63 62"},
    {__LINE__, NumMultiply, "-99999999999999999999", "99999999999999999999", "0C 2B 01 01 01 01 01 01 01 01 01 02 65"},
    {__LINE__, NumMultiply, "101", "0.99", "=99.99"},
};

TEST(NumMultiply, Rows) {
    CheckRows(std::begin(kProducts), std::end(kProducts));
}

constexpr OperationCase kQuotients[] = {
    {__LINE__, NumDivide, "1", "3", "0C C0 21 21 21 21 21 21 21 21 21 21 21"},
    {__LINE__, NumDivide, "2", "3", "0C C0 42 42 42 42 42 42 42 42 42 42 42"},  // not rounded up: the first pair is 0
    {__LINE__, NumDivide, "-2", "3", "0C 3F 22 22 22 22 22 22 22 22 22 21 65"},
    {__LINE__, NumDivide, "10", "3", "0C C1 03 21 21 21 21 21 21 21 21 21 21"},
    {__LINE__, NumDivide, "20", "3", "0C C1 06 42 42 42 42 42 42 42 42 42 43"},  // twelve pairs: rounded
    {__LINE__, NumDivide, "1", "8", "03 C0 0C 32"},
    {__LINE__, NumDivide, "0", "5", "01 C0"},
    {__LINE__, NumDivide, "0", "-5", "01 C0"},
    {__LINE__, NumDivide, "1e99", "1e-99", "02 F2 01"},
    {__LINE__, NumDivide, "1e-99", "1e99", "02 8E 01"},
    {__LINE__, NumDivide, "9999999999999999999999", "9999999999999999999999", "=1"},
    {__LINE__, NumDivide, "1", "9999999999999999999999", "02 B6 01"},
    // The estimate of a pair is too large by 1, which shows after the subtraction alone.
    {__LINE__, NumDivide, "9998019998", "51999801", "0C C2 01 5C 1B 03 33 0E 63 61 43 01 53"},
    {__LINE__, NumDivide, "5099", "10199", "0C C0 31 63 32 61 37 55 54 11 31 13 0B"},
    {__LINE__, NumDivide, "509899", "519999", "0C C0 62 05 4C 58 39 18 4E 02 27 60 13"},
};

TEST(NumDivide, Rows) {
    CheckRows(std::begin(kQuotients), std::end(kQuotients));
}

// What each operation does with null and invalid operands.
TEST(Arithmetic, NullAndInvalidOperands) {
    struct {
        int line;
        Operation operation;
        const char* a;
        const char* b;
        const char* result;
    } const cases[] = {
        {__LINE__, NumAddition, "00", "00", "01 C0"},
        {__LINE__, NumSubtract, "00", "00", "01 C0"},
        {__LINE__, NumAddition, "00", "02 C1 07", "02 C1 07"},
        {__LINE__, NumAddition, "02 C1 07", "10", "02 C1 07"},
        {__LINE__, NumSubtract, "00", "02 C1 05", "03 3E 5F 65"},
        {__LINE__, NumSubtract, "02 C1 07", "00", "02 C1 07"},
        {__LINE__, NumAddition, "0D C1 07", "02 C1 07", "01 C0"},
        {__LINE__, NumAddition, "00", "0F C1 07", "01 C0"},
        {__LINE__, NumSubtract, "0E C1 07", "00", "01 C0"},
        {__LINE__, NumSubtract, "02 C1 07", "0D", "01 C0"},
        {__LINE__, NumMultiply, "00", "02 C1 07", "01 C0"},
        {__LINE__, NumMultiply, "02 C1 07", "00", "01 C0"},
        {__LINE__, NumMultiply, "0D C1", "02 C1 07", "01 C0"},
        {__LINE__, NumMultiply, "00", "0D C1", "01 C0"},
        {__LINE__, NumDivide, "00", "02 C1 07", "01 C0"},
        {__LINE__, NumDivide, "02 C1 07", "00", "00"},
        {__LINE__, NumDivide, "02 C1 07", "01 C0", "00"},
        {__LINE__, NumDivide, "00", "00", "00"},
        {__LINE__, NumDivide, "0D C1 07", "00", "00"},
        {__LINE__, NumDivide, "0D C1 07", "01 C0", "00"},
        {__LINE__, NumDivide, "0D C1 07", "02 C1 07", "01 C0"},
        {__LINE__, NumDivide, "02 C1 07", "0D", "01 C0"},
        {__LINE__, NumDivide, "00", "0D", "01 C0"},
        {__LINE__, NumDivide, "02 C1 07", "03 C1 00 00", "00"},
        // Forms that are not canonical come out canonical.
        {__LINE__, NumAddition, "13 C2 04 00", "00", "02 C2 04"},
        {__LINE__, NumAddition, "01 C0", "04 3D 60 64 07", "03 3D 60 65"},
        {__LINE__, NumAddition, "05 C1 01 32 00 00", "02 C0 32", "02 C1 02"},
        {__LINE__, NumMultiply, "02 3E 65", "02 C1 07", "01 C0"},
        {__LINE__, NumDivide, "02 C1 0A", "04 C3 00 00 05", "02 C1 02"},  // zero pairs in front of the divisor
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, std::string(c.a) + " with " + c.b);
        const Number a = NumOfBytes(c.a);
        const Number b = NumOfBytes(c.b);
        Number result = Poisoned();
        EXPECT_EQ(c.operation(&result, &a, &b), NumOfBytes(c.result).bytes[0]);
        EXPECT_EQ(Bytes(result), c.result);
    }
}

TEST(Arithmetic, TheResultMayBeEitherOperandOrBoth) {
    RandomNumbers random;
    for (int i = 0; i < 4000; ++i) {
        const Number a = random.Canonical();
        const Number b = random.Canonical();
        for (const Operation operation : {NumAddition, NumSubtract, NumMultiply, NumDivide}) {
            Number apart = Poisoned();
            const int32_t length = operation(&apart, &a, &b);
            Number first = a;
            EXPECT_EQ(operation(&first, &first, &b), length);
            ASSERT_EQ(Bytes(first), Bytes(apart)) << Bytes(a) << " with " << Bytes(b);
            Number second = b;
            EXPECT_EQ(operation(&second, &a, &second), length);
            ASSERT_EQ(Bytes(second), Bytes(apart)) << Bytes(a) << " with " << Bytes(b);
            operation(&apart, &a, &a);
            Number both = a;
            operation(&both, &both, &both);
            ASSERT_EQ(Bytes(both), Bytes(apart)) << Bytes(a) << " with itself";
        }
    }
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

TEST(NumNegate, Rows) {
    struct {
        int line;
        const char* before;
        const char* after;
        int32_t result;
    } const cases[] = {
        {__LINE__, "02 C1 05", "03 3E 5F 65", 3},
        {__LINE__, "03 3E 5F 65", "02 C1 05", 2},
        {__LINE__, "01 C0", "01 C0", 1},
        {__LINE__, "00", "00", 0},
        {__LINE__, "03 C2 04 00", "03 3D 60 65", 3},
        {__LINE__, "0C CB 0C 22 38 4E 5A 0C 22 38 4E 5A 0C", "0C 34 58 42 2C 16 0A 58 42 2C 16 0A 65", 12},
        {__LINE__, "0C CB 63 63 63 63 63 63 63 63 63 63 63", "03 33 63 65", 3},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.before);
        Number num = NumOfBytes(c.before);
        EXPECT_EQ(NumNegate(&num), c.result);
        EXPECT_EQ(Bytes(num), c.after);
    }
    Number num = Num("12345678901234567890123");
    NumNegate(&num);
    NumNegate(&num);
    EXPECT_EQ(Bytes(num), "0B CC 01 17 2D 43 59 01 17 2D 43 59");  // a pair has gone
    Number invalid = NumOfBytes("0D C1 05");
    EXPECT_EQ(NumNegate(&invalid), 0);
    EXPECT_EQ(invalid, NumOfBytes("0D C1 05"));
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
            const Number a = NumOfBytes(ascending[i]);
            const Number b = NumOfBytes(ascending[j]);
            EXPECT_EQ(NumCompare(&a, &b), (i > j) - (i < j)) << ascending[i] << " with " << ascending[j];
        }
    }
}

TEST(NumCompare, EqualAndInvalid) {
    const char* const equal[][2] = {
        {"03 C2 04 00", "02 C2 04"},
        {"04 3D 60 64 07", "03 3D 60 65"},
        {"01 C0", "03 C7 00 00"},
        {"02 3E 65", "01 C0"},
        {"10", "00"},
        {"12 C1 07", "02 C1 07"},
        {"0D", "02 C1 07"},
        {"03 3E 5F 65", "0F"},
        {"00", "0D"},
        {"0D", "00"},
        {"01 3F", "01 C0"},
    };
    for (const auto& pair : equal) {
        const Number a = NumOfBytes(pair[0]);
        const Number b = NumOfBytes(pair[1]);
        EXPECT_EQ(NumCompare(&a, &b), 0) << pair[0] << " with " << pair[1];
    }
}

}  // namespace
