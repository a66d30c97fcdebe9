// Fitting a value to a number of digits, and powers of ten.
#include <limits>
#include <tuple>

#include "number_testing.h"

namespace {

constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
constexpr int32_t kMax = std::numeric_limits<int32_t>::max();

constexpr std::tuple<const char*, int32_t, const char*> kRoundings[] = {
    {"2.5", 0, "3"},          {"3.5", 0, "4"},        {"-2.5", 0, "-3"},
    {"0.125", 2, ".13"},      {"1.95", 1, "2"},       {"99.95", 1, "100"},
    {"0.0099", 2, ".01"},     {"0.001", 1, "0"},      {"-0.04", 1, "0"},  // zero has no sign
    {"-0.05", 1, "-.1"},      {"1234.5", -2, "1200"}, {"50", -2, "100"},
    {"49", -2, "0"},          {"5", -2, "0"},         {"5", -1, "10"},
    {"5", -3, "0"},           {"0", 2, "0"},          {"0.49999999999999999999", 0, "0"},
    {"12.34", kMax, "12.34"}, {"12.34", 2, "12.34"},  {"99999999999999999999.5", 0, "100000000000000000000"},
    {"12.34", kMin, "0"},
};

TEST(NumRound, HalfAwayFromZero) {
    for (const auto& [text, decimals, want] : kRoundings) {
        const testing::ScopedTrace row(__FILE__, __LINE__, text);
        const Number value = Num(text);
        Number result = Poisoned();
        EXPECT_EQ(NumRound(&result, &value, decimals), result.bytes[0]);
        EXPECT_EQ(Text(result), want);
        result = value;
        NumRound(&result, &result, decimals);
        EXPECT_EQ(Text(result), want);
    }
    for (const char* bytes : {"00", "0D C1 05"}) {
        const Number source = NumOfBytes(bytes);
        Number result = Poisoned();
        EXPECT_EQ(NumRound(&result, &source, 2), 0);
        EXPECT_EQ(NumIsNull(&result), 1);
    }
}

// Value, precision, scale, result.
constexpr std::tuple<const char*, int32_t, int32_t, const char*> kTruncations[] = {
    {"123456.789", 8, 2, "123456.78"}, {"123456.789", 5, 2, "456.78"}, {"123456.789", 10, 3, "123456.789"},
    {"-123.456", 4, 1, "-123.4"},      {"9.99", 1, 1, ".9"},           {"12345", 3, 0, "345"},
    {"100.01", 3, 2, ".01"},           {"12345", 0, 0, "0"},           {"0.0001", 5, 2, "0"},
    {"12345", 5, -2, "12300"},         {"-12345", -1, 0, "0"},         {"123", 9, -4, "0"},
    {"123.456", kMin, kMax, "0"},      {"123.456", kMax, kMin, "0"},   {"0", 3, 1, "0"},
    {"123.456", kMax, kMax, ".456"},   {"123.456", kMin, kMin, "0"},
};

TEST(NumTruncate, CutsBothEnds) {
    for (const auto& [value, precision, scale, want] : kTruncations) {
        const testing::ScopedTrace row(__FILE__, __LINE__, value);
        Number num = Num(value);
        EXPECT_EQ(NumTruncate(&num, precision, scale), num.bytes[0]);
        EXPECT_EQ(Text(num), want);
    }
    for (const char* bytes : {"00", "0D C1 05"}) {
        Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumTruncate(&num, 5, 2), 0);
        EXPECT_EQ(num, NumOfBytes(bytes));
    }
}

TEST(NumPower10, Rows) {
    constexpr std::tuple<const char*, int32_t, const char*> kCases[] = {
        {"02 C1 05", 50, "02 DA 05"}, {"02 C1 05", -50, "02 A8 05"},
        {"02 C1 05", 51, "00"},       {"02 C1 05", -51, "00"},
        {"02 C1 05", kMin, "00"},     {"02 C1 05", 1, "02 C1 32"},
        {"02 C1 05", -1, "02 C0 32"}, {"03 3E 5F 65", -3, "03 40 32 65"},
        {"02 C1 05", 0, "02 C1 05"},  {"02 EE 01", 50, "02 F2 01"},  // 1E+90, clamped to 1E+98
        {"00", 2, "01 C0"},           {"00", 51, "00"},
        {"0D C1", 2, "01 C0"},        {"0D C1", -51, "00"},
    };
    for (const auto& [bytes, power, want] : kCases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, std::string(bytes) + " " + std::to_string(power));
        const Number source = NumOfBytes(bytes);
        Number result = Poisoned();
        EXPECT_EQ(NumPower10(&result, &source, power), NumOfBytes(want).bytes[0]);
        EXPECT_EQ(Bytes(result), want);
        result = source;
        NumPower10(&result, &result, power);
        EXPECT_EQ(Bytes(result), want);
    }
}

}  // namespace
