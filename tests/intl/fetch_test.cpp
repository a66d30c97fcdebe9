// The next number of a text.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include <morvl15/intl.h>

#include "support/locale.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct LongCase {
    const char* text;
    int32_t used;
    int32_t value;  // where used is not 0
};
constexpr LongCase kLongs[] = {
    {"  -12x", 5, -12},    {"\t\n\v\f\r +7.5", 8, 7},       {"-", 0, 0}, {"+", 0, 0},          {"  ", 0, 0},
    {"x1", 0, 0},          {"-2147483647", 11, -INT32_MAX}, {"", 0, 0},  {"+-1", 0, 0},        {"-0", 2, 0},
    {"- 1", 0, 0},         {"2147483647", 10, INT32_MAX},   {"0", 1, 0}, {"2147483648", 0, 0}, {"-2147483648", 0, 0},
    {"4294967297", 0, 0},  // would come back as 1
    {"99999999999", 0, 0}, {"00000000000012", 14, 12},
};

void ExpectLong(const LongCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.text);
    int32_t value = 4711;
    EXPECT_EQ(IntlFetchNextNumLong(&value, c.text), c.used);
    EXPECT_EQ(value, c.used != 0 ? c.value : 4711);
}

TEST(Fetch, Long) {
    for (const LongCase& c : kLongs) ExpectLong(c);
    ExpectLong({"\x81\x40\x31", 0, 0});
    int32_t value = 4711;
    EXPECT_EQ(IntlFetchNextNumLong(&value, nullptr), 0);
}

TEST(FetchJapanese, Long) {
    const TestLanguage language(kJapanese);
    for (const LongCase& c : kLongs) ExpectLong(c);
    ExpectLong({" \x81\x40-1", 5, -1});
}

struct DoubleCase {
    std::string text;
    int32_t used;
    double value;
};
constexpr double kUnwritten = 4711.0;

void ExpectDouble(const DoubleCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, c.text);
    double value = kUnwritten;
    EXPECT_EQ(IntlFetchNextNumDouble(&value, c.text.c_str()), c.used);
    EXPECT_EQ(value, c.value);
}

TEST(Fetch, Double) {
    const DoubleCase cases[] = {
        {"1.e3", 4, 1000.0},       {".5", 2, 0.5},
        {"1e", 0, kUnwritten},     {"1e+", 0, kUnwritten},
        {".", 0, kUnwritten},      {"-.", 0, kUnwritten},
        {"+.5x", 3, 0.5},          {"", 0, kUnwritten},
        {"x", 0, kUnwritten},      {"1.", 2, 1.0},
        {"--1", 0, kUnwritten},    {" \t-12.25E-1 ", 11, -1.225},
        {"1.5.5", 3, 1.5},         {"0.1", 3, 0.1},
        {"0.0e0", 5, 0.0},         {"-0", 2, 0.0},
        {"0e00", 4, 0.0},          {"1e-999", -1, 0.0},
        {"-1e-999", -1, 0.0},      {"0e5", -1, 0.0},  // no written zero, for the 5
        {"1e999", 5, kInfinity},   {" 0", -1, 0.0},   // nor this, for the blank
        {"-1e999", 6, -kInfinity}, {"1.7976931348623157e308", 22, std::numeric_limits<double>::max()},
        {"inf", 0, kUnwritten},    {"4.9406564584124654e-324", 23, std::numeric_limits<double>::denorm_min()},
    };
    for (const DoubleCase& c : cases) ExpectDouble(c);
    ExpectDouble({"1" + std::string(98, '0'), 99, 1e98});
    ExpectDouble({"1" + std::string(99, '0'), -1, kUnwritten});
    ExpectDouble({std::string(100, '0'), -1, kUnwritten});
    ExpectDouble({std::string(98, ' ') + "7", 99, 7.0});
    double value = kUnwritten;
    EXPECT_EQ(IntlFetchNextNumDouble(&value, nullptr), 0);
}

TEST(FetchJapanese, Double) {
    const TestLanguage language(kJapanese);
    ExpectDouble({" 1.5\x81\x40", 4, 1.5});
    ExpectDouble({"\x81\x40\x31.5", -1, 0.0});  // stepped over, and then no part of a number
}

}  // namespace
