// Number from and to text.
#include "number_testing.h"

namespace {

struct ReadCase {
    int line;
    const char* text;
    int32_t result;
    const char* bytes;  // of the Number after a result above 0
};

void CheckReading(int32_t(MORVL_CALL* read)(Number*, const char*), const ReadCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.text);
    Number guarded[2] = {Poisoned(), Poisoned()};
    EXPECT_EQ(read(guarded, c.text), c.result);
    EXPECT_EQ(Bytes(guarded[0]), c.bytes);
    EXPECT_EQ(guarded[1], Poisoned());
    EXPECT_TRUE(guarded[0].bytes[0] != 0 || guarded[0].bytes[1] == 0xC0);
}

// clang-format off
constexpr ReadCase kDecimal[] = {
    {__LINE__, "12abc", 2, "02 C1 0C"},  {__LINE__, " \t-1.5", 6, "04 3E 63 32 65"},
    {__LINE__, "+7", 2, "02 C1 07"},     {__LINE__, ".5", 2, "02 C0 32"},
    {__LINE__, "0.5", 3, "02 C0 32"},    {__LINE__, "5.", 2, "02 C1 05"},
    {__LINE__, "5.x", 2, "02 C1 05"},    {__LINE__, "1.2.3", 3, "03 C1 01 14"},
    {__LINE__, "1,234", 1, "02 C1 01"},  {__LINE__, "00012", 5, "02 C1 0C"},
    {__LINE__, "0.005", 5, "02 BF 32"},  {__LINE__, ".", 0, "00"},
    {__LINE__, "", 0, "00"},             {__LINE__, "  ", 0, "00"},
    {__LINE__, "abc", 0, "00"},          {__LINE__, "-", 0, "00"},
    {__LINE__, "--1", 0, "00"},          {__LINE__, "- 1", 0, "00"},
    {__LINE__, "-.", 0, "00"},           {__LINE__, ".e5", 0, "00"},
    {__LINE__, "\x80\xFF", 0, "00"},
    // Exponents.
    {__LINE__, "1e", 2, "02 C1 01"},                       {__LINE__, "1e+", 3, "02 C1 01"},
    {__LINE__, "1ex", 2, "02 C1 01"},                      {__LINE__, "1e+-5", 3, "02 C1 01"},
    {__LINE__, "12.5E-1", 7, "03 C1 01 19"},               {__LINE__, "1e99", 4, "02 F2 0A"},
    {__LINE__, "1e100", -1, "00"},                         {__LINE__, "10e99", -1, "00"},
    {__LINE__, "0.1e100", 7, "02 F2 0A"},                  {__LINE__, "1e9999", -1, "00"},
    {__LINE__, "1e10000", -1, "00"},                       {__LINE__, "1e-10000", -1, "00"},
    {__LINE__, "1e-102", 6, "02 8E 01"},                   {__LINE__, "1E-129", 6, "02 8E 0A"},
    {__LINE__, "1E-130", -2, "00"},                        {__LINE__, "1E-200", -2, "00"},
    {__LINE__, "1e00000000000000000005", 22, "02 C3 0A"},
    // Zero in any form.
    {__LINE__, "0", 1, "01 C0"},      {__LINE__, "0.000", 5, "01 C0"},   {__LINE__, "-0", 2, "01 C0"},
    {__LINE__, "0e5", 3, "01 C0"},    {__LINE__, "0e9999", 6, "01 C0"},  {__LINE__, "-0.0e-9999", 10, "01 C0"},
    {__LINE__, "0e10000", -1, "00"},  {__LINE__, "0.", 2, "01 C0"},      {__LINE__, ".0", 2, "01 C0"},
    // 23 digits are kept.
    {__LINE__, "12345678901234567890125", 23, "0C CC 01 17 2D 43 59 01 17 2D 43 59 01"},
    {__LINE__, "1234567890123456789012399", 25, "0C CD 01 17 2D 43 59 01 17 2D 43 59 01"},
    {__LINE__, "123456789012345678901234567890.5", 32, "0C CF 0C 22 38 4E 5A 0C 22 38 4E 5A 0C"},
    {__LINE__, "0.0000000000000012345678901234567890129", 39, "0C B9 0C 22 38 4E 5A 0C 22 38 4E 5A 0D"},
    {__LINE__, "1.000000000000000000000000000000000000000000000000000000009", 59, "02 C1 01"},
    // Hexadecimal behind the sign.
    {__LINE__, "0x1F", 4, "02 C1 1F"},      {__LINE__, "-0x1F", 5, "03 3E 45 65"},  {__LINE__, "0x", 2, "01 C0"},
    {__LINE__, "+0x1F", 5, "02 C1 1F"},     {__LINE__, "-0x0", 4, "01 C0"},         {__LINE__, "00x1", 2, "01 C0"},
    {__LINE__, " \n0X1fz", 6, "02 C1 1F"},
};
// clang-format on

TEST(NumAsciiToNumber, Rows) {
    for (const ReadCase& c : kDecimal) CheckReading(NumAsciiToNumber, c);
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

// clang-format off
constexpr ReadCase kHexadecimal[] = {
    {__LINE__, "0xFF", 4, "03 C2 02 37"},            {__LINE__, "abc", 3, "03 C2 1B 30"},
    {__LINE__, "xyz", 0, "01 C0"},                   {__LINE__, "", 0, "01 C0"},
    {__LINE__, "0x", 2, "01 C0"},                    {__LINE__, "0xg", 2, "01 C0"},
    {__LINE__, " \t-0XfF zz", 7, "04 3D 62 2D 65"},
    {__LINE__, "\n1", 0, "01 C0"},  // blanks and tabs only
    {__LINE__, "-", 1, "01 C0"},      {__LINE__, "- 5", 1, "01 C0"},        {__LINE__, "0", 1, "01 C0"},
    {__LINE__, "000x1", 3, "01 C0"},  {__LINE__, "0x0010", 6, "02 C1 10"},
    {__LINE__, "0x190", 5, "03 C2 04 00"},   // 400, as the multiplication in place leaves it
    {__LINE__, "-0x190", 6, "03 3D 60 65"},  // the sign makes it canonical
    {__LINE__, "0x1900001", 9, "05 C4 1A 15 2C 01"},
    {__LINE__, "ffffffffffffffffffffffffffffff", 30, "0C D3 01 20 5C 1B 63 39 54 5B 3A 48 5B"},
    {__LINE__, "-ffffffffffffffffffff", 21, "0C 32 63 50 0B 4B 13 04 56 26 09 19 65"},
};
// clang-format on

TEST(NumHexAsciiToNumber, Rows) {
    for (const ReadCase& c : kHexadecimal) CheckReading(NumHexAsciiToNumber, c);
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
    int line;
    const char* value;
    uint16_t width;
    const char* text;  // empty: none
};
// clang-format off
constexpr WriteCase kTexts[] = {
    {__LINE__, "0", 5, "0"},             {__LINE__, "0", 1, "0"},           {__LINE__, "0", 0, ""},
    {__LINE__, "0.5", 10, ".5"},         {__LINE__, "-0.5", 10, "-.5"},     {__LINE__, "0.5", 1, ""},
    {__LINE__, "123.45", 10, "123.45"},  {__LINE__, "123.45", 5, "123.5"},  {__LINE__, "123.45", 4, "123"},
    {__LINE__, "123.45", 3, "123"},      {__LINE__, "123.45", 2, ""},       {__LINE__, "12.5", 3, "13"},
    {__LINE__, "-1.5", 3, "-2"},         {__LINE__, "-1.5", 1, ""},         {__LINE__, "-1.5", 0, ""},
    {__LINE__, "1.999", 3, "2"},         {__LINE__, "0.996", 3, "1"},       {__LINE__, "0.0996", 3, ".1"},
    {__LINE__, "99.96", 4, "100"},
    {__LINE__, "9.6", 2, ""},  // the rounding needs one digit more than the point leaves
    {__LINE__, "999.6", 3, ""},                       {__LINE__, "9999999.6", 7, "1.0E+07"},
    {__LINE__, "100.04", 5, "100"},                   {__LINE__, "1234567", 7, "1234567"},
    {__LINE__, "1234567", 6, "1.E+06"},               {__LINE__, "9999999", 6, "1.E+07"},
    {__LINE__, "1234567", 5, ""},                     {__LINE__, "-1234567", 8, "-1234567"},
    {__LINE__, "-1234567", 7, "-1.E+06"},             {__LINE__, "1E+30", 31, "1000000000000000000000000000000"},
    {__LINE__, "1E+30", 20, "1.00000000000000E+30"},  {__LINE__, "1E+99", 12, "1.000000E+99"},
    {__LINE__, "0.00001234", 20, ".00001234"},        {__LINE__, "0.00001234", 10, ".00001234"},
    {__LINE__, "0.00001234", 9, "1.234E-05"},  // as long as the room: the exponent form is taken
    {__LINE__, "0.00001234", 8, "1.23E-05"},   {__LINE__, "0.00001234", 7, "1.2E-05"},
    {__LINE__, "1E-101", 12, "9.999999E-99"},  {__LINE__, "-1E-101", 12, "-9.99999E-99"},
    {__LINE__, "1E-99", 12, "1.000000E-99"},
    // The width ends at the first digit or in front of it.
    {__LINE__, "0.0001", 4, "000"},  {__LINE__, "0.00012", 3, "000"},  {__LINE__, "0.0005", 2, "00"},
    {__LINE__, "0.06", 2, "0"},      {__LINE__, "-0.06", 3, "-"},
};
// clang-format on

TEST(NumToAscii, Rows) {
    for (const WriteCase& c : kTexts) {
        const testing::ScopedTrace row(__FILE__, c.line, c.value);
        const Number num = Num(c.value);
        std::string buffer(c.width + 2u, '\xA5');
        EXPECT_EQ(NumToAscii(&num, buffer.data(), c.width), static_cast<int32_t>(std::strlen(c.text)));
        EXPECT_STREQ(buffer.c_str(), c.text);
        EXPECT_EQ(buffer[c.width + 1u], '\xA5');
    }
    for (const char* bytes : {"00", "0D C1 05"}) {
        char buffer[4] = "xyz";
        const Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumToAscii(&num, buffer, 3), 0);
        EXPECT_STREQ(buffer, "");
    }
}

// Every width, for values of every shape: nothing behind the buffer, the length told, nothing wider than asked for.
TEST(NumToAscii, WidthsAreKept) {
    RandomNumbers random;
    for (int i = 0; i < 2000; ++i) {
        const Number num = random.Raw();
        for (uint16_t width = 0; width < 30; ++width) {
            std::string buffer(width + 2u, '\xA5');
            const int32_t length = NumToAscii(&num, buffer.data(), width);
            ASSERT_LE(length, width) << Bytes(num);
            ASSERT_EQ(static_cast<size_t>(length), std::strlen(buffer.c_str())) << Bytes(num);
            ASSERT_EQ(buffer[width + 1u], '\xA5') << Bytes(num);
        }
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
