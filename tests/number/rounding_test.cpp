// Fitting a value to a number of digits, and powers of ten.
#include <limits>

#include "number_testing.h"

namespace {

constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
constexpr int32_t kMax = std::numeric_limits<int32_t>::max();

struct RoundCase {
    int line;
    const char* value;
    int32_t decimals;
    const char* result;
};
// clang-format off
constexpr RoundCase kRoundings[] = {
    {__LINE__, "2.5", 0, "3"},       {__LINE__, "3.5", 0, "4"},    {__LINE__, "-2.5", 0, "-3"},
    {__LINE__, "0.125", 2, ".13"},   {__LINE__, "1.95", 1, "2"},   {__LINE__, "99.95", 1, "100"},
    {__LINE__, "0.0099", 2, ".01"},  {__LINE__, "0.001", 1, "0"},
    {__LINE__, "-0.04", 1, "0"},  // zero has no sign
    {__LINE__, "-0.05", 1, "-.1"},                 {__LINE__, "1234.5", -2, "1200"},
    {__LINE__, "50", -2, "100"},                   {__LINE__, "49", -2, "0"},
    {__LINE__, "5", -2, "0"},                      {__LINE__, "5", -1, "10"},
    {__LINE__, "5", -3, "0"},                      {__LINE__, "0", 2, "0"},
    {__LINE__, "0.49999999999999999999", 0, "0"},  {__LINE__, "99999999999999999999.5", 0, "100000000000000000000"},
    {__LINE__, "12.34", 2, "12.34"},               {__LINE__, "12.34", kMax, "12.34"},
    {__LINE__, "12.34", kMin, "0"},
};
// clang-format on

TEST(NumRound, HalfAwayFromZero) {
    for (const RoundCase& c : kRoundings) {
        const testing::ScopedTrace row(__FILE__, c.line, c.value);
        const Number value = Num(c.value);
        Number result = Poisoned();
        EXPECT_EQ(NumRound(&result, &value, c.decimals), result.bytes[0]);
        EXPECT_EQ(Text(result), c.result);
        result = value;
        NumRound(&result, &result, c.decimals);
        EXPECT_EQ(Text(result), c.result);
    }
    for (const char* bytes : {"00", "0D C1 05"}) {
        const Number source = NumOfBytes(bytes);
        Number result = Poisoned();
        EXPECT_EQ(NumRound(&result, &source, 2), 0);
        EXPECT_EQ(NumIsNull(&result), 1);
    }
}

struct TruncateCase {
    int line;
    const char* value;
    int32_t precision;
    int32_t scale;
    const char* result;
};
// clang-format off
constexpr TruncateCase kTruncations[] = {
    {__LINE__, "123456.789", 5, 2, "456.78"},       {__LINE__, "123456.789", 8, 2, "123456.78"},
    {__LINE__, "123456.789", 10, 3, "123456.789"},  {__LINE__, "-123.456", 4, 1, "-123.4"},
    {__LINE__, "9.99", 1, 1, ".9"},                 {__LINE__, "12345", 3, 0, "345"},
    {__LINE__, "12345", 0, 0, "0"},                 {__LINE__, "100.01", 3, 2, ".01"},
    {__LINE__, "0.0001", 5, 2, "0"},                {__LINE__, "12345", 5, -2, "12300"},
    {__LINE__, "123", 9, -4, "0"},                  {__LINE__, "-12345", -1, 0, "0"},
    {__LINE__, "0", 3, 1, "0"},                     {__LINE__, "123.456", kMax, kMin, "0"},
    {__LINE__, "123.456", kMin, kMax, "0"},         {__LINE__, "123.456", kMax, kMax, ".456"},
    {__LINE__, "123.456", kMin, kMin, "0"},
};
// clang-format on

TEST(NumTruncate, CutsBothEnds) {
    for (const TruncateCase& c : kTruncations) {
        const testing::ScopedTrace row(__FILE__, c.line, c.value);
        Number num = Num(c.value);
        EXPECT_EQ(NumTruncate(&num, c.precision, c.scale), num.bytes[0]);
        EXPECT_EQ(Text(num), c.result);
    }
    for (const char* bytes : {"00", "0D C1 05"}) {
        Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumTruncate(&num, 5, 2), 0);
        EXPECT_EQ(num, NumOfBytes(bytes));
    }
}

TEST(NumPower10, Rows) {
    struct {
        int line;
        const char* source;
        int32_t power;
        const char* result;
    } const cases[] = {
        {__LINE__, "02 C1 05", 50, "02 DA 05"}, {__LINE__, "02 C1 05", -50, "02 A8 05"},
        {__LINE__, "02 C1 05", 51, "00"},       {__LINE__, "02 C1 05", -51, "00"},
        {__LINE__, "02 C1 05", kMin, "00"},     {__LINE__, "02 C1 05", 1, "02 C1 32"},
        {__LINE__, "02 C1 05", -1, "02 C0 32"}, {__LINE__, "03 3E 5F 65", -3, "03 40 32 65"},
        {__LINE__, "02 C1 05", 0, "02 C1 05"},  {__LINE__, "02 EE 01", 50, "02 F2 01"},  // 1E+90, clamped to 1E+98
        {__LINE__, "00", 2, "01 C0"},           {__LINE__, "00", 51, "00"},
        {__LINE__, "0D C1", 2, "01 C0"},        {__LINE__, "0D C1", -51, "00"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, std::string(c.source) + " " + std::to_string(c.power));
        const Number source = NumOfBytes(c.source);
        Number result = Poisoned();
        EXPECT_EQ(NumPower10(&result, &source, c.power), NumOfBytes(c.result).bytes[0]);
        EXPECT_EQ(Bytes(result), c.result);
        result = source;
        NumPower10(&result, &result, c.power);
        EXPECT_EQ(Bytes(result), c.result);
    }
}

}  // namespace
