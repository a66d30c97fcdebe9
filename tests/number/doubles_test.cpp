// Number from and to double.
#include <clocale>
#include <cmath>
#include <limits>
#include <utility>

#include "number_testing.h"

namespace {

// Not always the double nearest to the text: the order of the operations shows.
TEST(NumToDouble, Rows) {
    constexpr std::pair<const char*, double> kCases[] = {
        {"0", 0.0},     {"-12345678", -12345678.0},    {"1e6", 1e6}, {"1234567890123456789012", 0x1.0bb448ec2f608p+70},
        {"1.5", 1.5},   {"0.7", 0x1.6666666666667p-1}, {"0.1", 0.1}, {"1e-30", 0x1.4484bfeebc2a1p-100},
        {"1e30", 1e30}, {"123.456", 123.456},
    };
    for (const auto& [text, want] : kCases) {
        const Number num = Num(text);
        for (const auto convert : {NumToDouble, NumToDoubleNotNull}) {
            double value = 99;
            convert(&num, &value);
            EXPECT_EQ(value, want) << text;
        }
    }
}

TEST(NumToDouble, NullAndInvalid) {
    const Number null = NumOfBytes("00");
    const Number invalid = NumOfBytes("0D C1 05");
    double value = 99;
    NumToDoubleNotNull(&null, &value);
    EXPECT_EQ(value, 0.0);
    EXPECT_FALSE(std::signbit(value));
    NumToDouble(&null, &value);
    EXPECT_EQ(NumIsNullDouble(&value), 1);
    for (const auto convert : {NumToDouble, NumToDoubleNotNull}) {
        value = 99;
        convert(&invalid, &value);
        EXPECT_EQ(std::memcmp(&value, "\0\0\0\0\0\0\xF8\x7F", 8), 0);
    }
}

TEST(NumDoubleToNumber, Rows) {
    double null;
    NumNullDouble(&null);
    struct {
        double value;
        int32_t result;
        const char* bytes;
    } const cases[] = {
        {0.1, 1, "02 C0 0A"},    {0.0, 1, "01 C0"},
        {-0.0, 1, "01 C0"},      {-1.5, 1, "04 3E 63 32 65"},
        {1e99, 1, "02 F2 0A"},   {1e200, 0, "00"},
        {1e100, 0, "00"},        {9.9999999999999999e99, 0, "00"},                            // rounds to 1E+100
        {1e-102, 1, "02 8E 01"}, {123456789012345678.0, 1, "09 C9 0C 22 38 4E 5A 0C 22 3C"},  // 15 digits
        {1e-200, 0, "00"},       {5e-324, 0, "00"},
        {null, 1, "00"},         {std::numeric_limits<double>::infinity(), 1, "00"},
    };
    for (const auto& c : cases) {
        Number num = Poisoned();
        EXPECT_EQ(NumDoubleToNumber(&num, c.value), c.result) << c.value;
        EXPECT_EQ(Bytes(num), c.bytes) << c.value;
    }
}

TEST(FMTgcvt, FifteenSignificantDigits) {
    constexpr std::pair<double, const char*> kCases[] = {
        {0.0, "0"},
        {std::numeric_limits<double>::quiet_NaN(), "0"},
        {1.5, "1.5"},
        {-2.0, "-2"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {123456789012345.0, "123456789012345"},
        {1e15, "1e+15"},
        {-1.2345e-7, "-1.2345e-07"},
        {1.7976931348623157e308, "1.79769313486232e+308"},
        {-4.9406564584124654e-324, "-4.94065645841247e-324"},
    };
    for (const auto& [value, want] : kCases) {
        char text[33];
        text[32] = '\x5A';
        EXPECT_EQ(FMTgcvt(value, text), text);
        EXPECT_STREQ(text, want);
        EXPECT_EQ(text[32], '\x5A');
    }
}

TEST(FMTgcvt, PutsTheNumericLocaleBack) {
    // A locale with "," as its point, if the machine has one; the name tells that it has gone.
    const char* other = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE", "German", "C.UTF-8"}) {
        if (other == nullptr) other = std::setlocale(LC_NUMERIC, name);
    }
    char text[32];
    FMTgcvt(0.0, text);
    if (other != nullptr) {
        EXPECT_STRNE(std::setlocale(LC_NUMERIC, nullptr), "C");  // zero doesn't ask
    }
    EXPECT_STREQ(FMTgcvt(1.5, text), "1.5");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

}  // namespace
