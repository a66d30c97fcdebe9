// Number from and to text.
#include <span>

#include "number_testing.h"

namespace {

struct ReadCase {
    const char* text;
    int32_t result;
    const char* bytes;  // of the Number after a result above 0
};

void ExpectRead(int32_t(MORVL_CALL* read)(Number*, const char*), std::span<const ReadCase> cases) {
    for (const ReadCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.text);
        Number guarded[2] = {Poisoned(), Poisoned()};
        EXPECT_EQ(read(guarded, c.text), c.result);
        EXPECT_EQ(Bytes(guarded[0]), c.bytes);
        EXPECT_EQ(guarded[1], Poisoned());
        EXPECT_TRUE(guarded[0].bytes[0] != 0 || guarded[0].bytes[1] == 0xC0);
    }
}

constexpr ReadCase kDecimal[] = {
    {"12abc", 2, "02 C1 0C"}, {"+7", 2, "02 C1 07"},    {".5", 2, "02 C0 32"},    {" \t-1.5", 6, "04 3E 63 32 65"},
    {"0.5", 3, "02 C0 32"},   {"5.", 2, "02 C1 05"},    {"5.x", 2, "02 C1 05"},   {"1.2.3", 3, "03 C1 01 14"},
    {"1,234", 1, "02 C1 01"}, {"00012", 5, "02 C1 0C"}, {"0.005", 5, "02 BF 32"}, {"", 0, "00"},
    {".", 0, "00"},           {"  ", 0, "00"},          {"abc", 0, "00"},         {"-", 0, "00"},
    {"--1", 0, "00"},         {"- 1", 0, "00"},         {"-.", 0, "00"},          {".e5", 0, "00"},
    {"\x80\xFF", 0, "00"},
};
constexpr ReadCase kExponents[] = {
    {"1e", 2, "02 C1 01"},     {"1e+", 3, "02 C1 01"},        {"1ex", 2, "02 C1 01"},
    {"1e+-5", 3, "02 C1 01"},  {"12.5E-1", 7, "03 C1 01 19"}, {"1e99", 4, "02 F2 0A"},
    {"1e100", -1, "00"},       {"10e99", -1, "00"},           {"0.1e100", 7, "02 F2 0A"},
    {"1e9999", -1, "00"},      {"1e10000", -1, "00"},         {"1e-10000", -1, "00"},
    {"1e-102", 6, "02 8E 01"}, {"1E-129", 6, "02 8E 0A"},     {"1e00000000000000000005", 22, "02 C3 0A"},
    {"1E-130", -2, "00"},      {"1E-200", -2, "00"},
};
constexpr ReadCase kZeros[] = {
    {"0", 1, "01 C0"},           {"0.000", 5, "01 C0"}, {"-0", 2, "01 C0"}, {"0e5", 3, "01 C0"}, {"0e9999", 6, "01 C0"},
    {"-0.0e-9999", 10, "01 C0"}, {"0e10000", -1, "00"}, {"0.", 2, "01 C0"}, {".0", 2, "01 C0"},
};
// 23 digits are kept.
constexpr ReadCase kManyDigits[] = {
    {"12345678901234567890125", 23, "0C CC 01 17 2D 43 59 01 17 2D 43 59 01"},
    {"1234567890123456789012399", 25, "0C CD 01 17 2D 43 59 01 17 2D 43 59 01"},
    {"123456789012345678901234567890.5", 32, "0C CF 0C 22 38 4E 5A 0C 22 38 4E 5A 0C"},
    {"0.0000000000000012345678901234567890129", 39, "0C B9 0C 22 38 4E 5A 0C 22 38 4E 5A 0D"},
    {"1.000000000000000000000000000000000000000000000000000000009", 59, "02 C1 01"},
};
// Hexadecimal behind the sign.
constexpr ReadCase kPrefixed[] = {
    {"0x1F", 4, "02 C1 1F"}, {"-0x1F", 5, "03 3E 45 65"}, {"0x", 2, "01 C0"},          {"+0x1F", 5, "02 C1 1F"},
    {"-0x0", 4, "01 C0"},    {"00x1", 2, "01 C0"},        {" \n0X1fz", 6, "02 C1 1F"},
};

TEST(NumAsciiToNumber, Rows) {
    ExpectRead(NumAsciiToNumber, kDecimal);
    ExpectRead(NumAsciiToNumber, kExponents);
    ExpectRead(NumAsciiToNumber, kZeros);
    ExpectRead(NumAsciiToNumber, kManyDigits);
    ExpectRead(NumAsciiToNumber, kPrefixed);
    Number num = Poisoned();
    EXPECT_EQ(NumAsciiToNumber(&num, nullptr), 0);
    EXPECT_EQ(NumIsNull(&num), 1);
    const std::string manyDigits = "1" + std::string(98, '0');
    EXPECT_EQ(Bytes(Num(manyDigits.c_str())), "02 F2 01");
    const std::string manyZeros = "0." + std::string(5000, '0');
    EXPECT_EQ(Bytes(Num(manyZeros.c_str())), "01 C0");
    EXPECT_EQ(NumAsciiToNumber(&num, (manyZeros + "1").c_str()), -2);
    EXPECT_EQ(Bytes(Num((manyZeros + "1e5000").c_str())), "02 C0 0A");
}

constexpr ReadCase kHexadecimal[] = {
    {"0xFF", 4, "03 C2 02 37"}, {"abc", 3, "03 C2 1B 30"}, {"xyz", 0, "01 C0"},   {"", 0, "01 C0"},
    {"0x", 2, "01 C0"},         {"0xg", 2, "01 C0"},       {"-", 1, "01 C0"},     {" \t-0XfF zz", 7, "04 3D 62 2D 65"},
    {"0", 1, "01 C0"},          {"- 5", 1, "01 C0"},       {"000x1", 3, "01 C0"}, {"0x1900001", 9, "05 C4 1A 15 2C 01"},
    {"0x0010", 6, "02 C1 10"},  {"\n1", 0, "01 C0"},  // blanks and tabs only
};
constexpr ReadCase kLongHexadecimal[] = {
    {"0x190", 5, "03 C2 04 00"},   // 400, as the multiplication in place leaves it
    {"-0x190", 6, "03 3D 60 65"},  // the sign makes it canonical
    {"ffffffffffffffffffffffffffffff", 30, "0C D3 01 20 5C 1B 63 39 54 5B 3A 48 5B"},
    {"-ffffffffffffffffffff", 21, "0C 32 63 50 0B 4B 13 04 56 26 09 19 65"},
    {"751edfb2d6a9995fff0", 19, "06 CC 03 2D 43 5A 00"},  // of the pairs that the carry turns to 0 one stays
    {"43c33c19375647ffff0", 19, "03 CD 01 01"},           // 2E+22 - 16: the carry's 1 stands behind the new first pair
};

TEST(NumHexAsciiToNumber, Rows) {
    ExpectRead(NumHexAsciiToNumber, kHexadecimal);
    ExpectRead(NumHexAsciiToNumber, kLongHexadecimal);
    Number num = Poisoned();
    EXPECT_EQ(NumHexAsciiToNumber(&num, nullptr), 0);
    EXPECT_EQ(Bytes(num), "01 C0");
}

TEST(NumHexAsciiToNumber, EveryWordAndBeyondTheLargestExponent) {
    char text[8];
    for (uint32_t value = 0; value < 0x10000; value += 7) {
        std::snprintf(text, sizeof text, "%x", value);
        Number read, direct;
        NumHexAsciiToNumber(&read, text);
        NumDWordToNumber(&direct, value);
        ASSERT_EQ(NumCompare(&read, &direct), 0) << text;
    }
    Number num = Poisoned();
    const std::string longText(200, '1');
    EXPECT_EQ(NumHexAsciiToNumber(&num, longText.c_str()), 200);
    EXPECT_EQ(num.bytes[1], 0xF2);
    const std::string power = "1" + std::string(150, '0');  // multiplications in place alone
    EXPECT_EQ(NumHexAsciiToNumber(&num, power.c_str()), 151);
    EXPECT_EQ(num.bytes[1], 0xF2);
}

struct WriteCase {
    const char* value;
    uint16_t width;
    const char* text;  // empty: none
};
constexpr WriteCase kTexts[] = {
    {"0.5", 10, ".5"},   {"0", 1, "0"},     {"0", 5, "0"},        {"123.45", 10, "123.45"},    {"0", 0, ""},
    {"-0.5", 10, "-.5"}, {"0.5", 1, ""},    {"123.45", 4, "123"}, {"123.45", 5, "123.5"},      {"123.45", 3, "123"},
    {"123.45", 2, ""},   {"-1.5", 3, "-2"}, {"12.5", 3, "13"},    {"1.999", 3, "2"},           {"-1.5", 0, ""},
    {"-1.5", 1, ""},     {"0.996", 3, "1"}, {"100.04", 5, "100"}, {"1234567", 7, "1234567"},   {"99.96", 4, "100"},
    {"9.6", 2, ""},  // the rounding needs one digit more than the point leaves
    {"0.0996", 3, ".1"}, {"999.6", 3, ""},  {"1234567", 5, ""},   {"-1234567", 8, "-1234567"},
};
constexpr WriteCase kExponentForms[] = {
    {"9999999.6", 7, "1.0E+07"},     {"1234567", 6, "1.E+06"},        {"1E+30", 31, "1000000000000000000000000000000"},
    {"-1234567", 7, "-1.E+06"},      {"9999999", 6, "1.E+07"},        {"1E+30", 20, "1.00000000000000E+30"},
    {"1E+99", 12, "1.000000E+99"},   {"0.00001234", 20, ".00001234"}, {"0.00001234", 10, ".00001234"},
    {"0.00001234", 8, "1.23E-05"},   {"0.00001234", 7, "1.2E-05"},    {"1E-101", 12, "9.999999E-99"},
    {"-1E-101", 12, "-9.99999E-99"}, {"0.00001234", 9, "1.234E-05"},  // as long as the room: the exponent form is taken
    {"1E-99", 12, "1.000000E-99"},
};
// The width ends at the first digit or in front of it.
constexpr WriteCase kWithoutDigits[] = {
    {"0.0001", 4, "000"}, {"0.00012", 3, "000"}, {"0.0005", 2, "00"}, {"0.06", 2, "0"}, {"-0.06", 3, "-"},
};

void ExpectWritten(std::span<const WriteCase> cases) {
    for (const WriteCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.value);
        const Number num = Num(c.value);
        std::string buffer(c.width + 2u, '\xA5');
        EXPECT_EQ(NumToAscii(&num, buffer.data(), c.width), static_cast<int32_t>(std::strlen(c.text)));
        EXPECT_STREQ(buffer.c_str(), c.text);
        EXPECT_EQ(buffer[c.width + 1u], '\xA5');
    }
}

TEST(NumToAscii, Rows) {
    ExpectWritten(kTexts);
    ExpectWritten(kExponentForms);
    ExpectWritten(kWithoutDigits);
    for (const char* bytes : {"00", "0D C1 05"}) {
        char buffer[4] = "xyz";
        const Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumToAscii(&num, buffer, 3), 0);
        EXPECT_STREQ(buffer, "");
    }
}

TEST(NumToAscii, TextGivesTheNumberBack) {
    RandomNumbers random;
    for (int i = 0; i < 20000; ++i) {
        const Number num = random.Canonical();
        if (NumIsNull(&num)) continue;
        char text[256];
        const int32_t length = NumToAscii(&num, text, 250);
        Number read = Poisoned();
        ASSERT_EQ(NumAsciiToNumber(&read, text), length) << text;
        ASSERT_EQ(Bytes(read), Bytes(num)) << text;
    }
}

}  // namespace
