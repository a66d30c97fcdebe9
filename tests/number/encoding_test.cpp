// The encoding of a Number, null and zero, whole numbers.
#include <limits>

#include "number/number_codec.h"
#include "number_testing.h"

namespace {

struct EncodingCase {
    int line;
    const char* text;
    const char* bytes;
};
constexpr EncodingCase kEncodings[] = {
    {__LINE__, "0", "01 C0"},
    {__LINE__, "1", "02 C1 01"},
    {__LINE__, "7", "02 C1 07"},
    {__LINE__, "10", "02 C1 0A"},
    {__LINE__, "99", "02 C1 63"},
    {__LINE__, "100", "02 C2 01"},
    {__LINE__, "101", "03 C2 01 01"},
    {__LINE__, "1000", "02 C2 0A"},
    {__LINE__, "12345", "04 C3 01 17 2D"},
    {__LINE__, ".5", "02 C0 32"},
    {__LINE__, ".05", "02 C0 05"},
    {__LINE__, ".01", "02 C0 01"},
    {__LINE__, ".005", "02 BF 32"},
    {__LINE__, "1.5", "03 C1 01 32"},
    {__LINE__, "12.5", "03 C1 0C 32"},
    {__LINE__, "-1", "03 3E 63 65"},
    {__LINE__, "-5", "03 3E 5F 65"},
    {__LINE__, "-1.5", "04 3E 63 32 65"},
    {__LINE__, "-100", "03 3D 63 65"},
    {__LINE__, "-.5", "03 3F 32 65"},
    {__LINE__, "-.05", "03 3F 5F 65"},
    {__LINE__, "2147483647", "06 C5 15 2F 30 24 2F"},
    {__LINE__, "-2147483648", "07 3A 4F 35 34 40 34 65"},
    {__LINE__, "4294967295", "06 C5 2A 5E 60 48 5F"},
    {__LINE__, "1234567890123456789012", "0C CB 0C 22 38 4E 5A 0C 22 38 4E 5A 0C"},
    {__LINE__, "9999999999999999999999", "0C CB 63 63 63 63 63 63 63 63 63 63 63"},
    {__LINE__, "-12345678901234567890", "0C 35 58 42 2C 16 0A 58 42 2C 16 0A 65"},
    {__LINE__, "-99999999999999999999", "0C 35 01 01 01 01 01 01 01 01 01 01 65"},
};

TEST(NumberEncoding, TextBothWays) {
    for (const EncodingCase& c : kEncodings) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(Bytes(Num(c.text)), c.bytes);
        EXPECT_EQ(Text(NumOfBytes(c.bytes)), c.text);
    }
}

// Texts that the plain form writes otherwise, and values that change on the way in.
constexpr EncodingCase kReadOnly[] = {
    {__LINE__, "1E+99", "02 F2 0A"},
    {__LINE__, "1E-102", "02 8E 01"},
    {__LINE__, "-1E-102", "03 71 63 65"},
    {__LINE__, "99999999999999999999995", "02 CC 0A"},  // twelve pairs: the last one rounds up and carries through
    {__LINE__, "1E-103", "02 8E 0A"},                   // E would be 13
    {__LINE__, "1E-110", "02 8E 01"},
    {__LINE__, "-1234567890123456789012", "0C 34 58 42 2C 16 0A 58 42 2C 16 0A 65"},  // 11 pairs, rounded to 10
};

TEST(NumberEncoding, LimitsOfPacking) {
    for (const EncodingCase& c : kReadOnly) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(Bytes(Num(c.text)), c.bytes);
    }
}

TEST(NumberEncoding, PackClampsTheExponentAndStripsZeroPairs) {
    struct {
        int line;
        std::initializer_list<int> pairs;
        bool negative;
        int32_t exponent;
        const char* bytes;
    } const cases[] = {
        {__LINE__, {7}, false, 115, "02 F2 07"},
        {__LINE__, {7}, false, 10000, "02 F2 07"},
        {__LINE__, {7}, true, -10000, "03 71 5D 65"},
        {__LINE__, {0, 0, 5, 0, 6, 0}, false, 66, "04 C0 05 00 06"},
        {__LINE__, {0, 0}, true, 70, "01 C0"},
        {__LINE__, {}, true, 70, "01 C0"},
        {__LINE__, {0, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 50}, true, 65, "03 3E 63 65"},
        {__LINE__, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 99, 49, 99}, false, 65, "0C C1 01 00 00 00 00 00 00 00 00 00 63"},
        {__LINE__, {99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 50}, false, 114, "02 F2 01"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.bytes);
        uint8_t digits[16];
        std::copy(c.pairs.begin(), c.pairs.end(), digits);
        Number num = Poisoned();
        const int32_t length = NumPack(&num, digits, static_cast<int32_t>(c.pairs.size()), c.negative, c.exponent);
        EXPECT_EQ(Bytes(num), c.bytes);
        EXPECT_EQ(length, num.bytes[0]);
        for (int32_t i = length + 1; i < 13; ++i) EXPECT_EQ(num.bytes[i], 0xA5) << "byte " << i;
    }
}

TEST(NumberEncoding, PackIsTheInverseOfUnpack) {
    RandomNumbers random;
    for (int i = 0; i < 20000; ++i) {
        const Number num = random.Canonical();
        if (NumIsNull(&num)) continue;
        NumParts parts = NumTakeApart(&num);
        Number packed = Poisoned();
        EXPECT_EQ(NumPack(&packed, parts.digits, parts.count, parts.negative, parts.exponent), num.bytes[0]);
        ASSERT_EQ(packed, num) << Bytes(num);
    }
}

// What no operation writes, but every one reads.
TEST(NumberEncoding, ReadersAreTolerant) {
    EXPECT_EQ(Text(NumOfBytes("03 C2 04 00")), "400");         // a zero pair behind
    EXPECT_EQ(Text(NumOfBytes("04 3D 60 64 65")), "-400");     // the same, negative
    EXPECT_EQ(Text(NumOfBytes("03 3E 5F 07")), "-5");          // any terminator will do
    EXPECT_EQ(Text(NumOfBytes("12 C1 07")), "7");              // the high nibble means nothing
    EXPECT_EQ(Text(NumOfBytes("01 3F")), "0");                 // negative, with neither pairs nor terminator
    EXPECT_EQ(Text(NumOfBytes("02 3E 65")), "0");              // negative, without pairs
    EXPECT_EQ(Text(NumOfBytes("04 C1 C8 07 FF")), "99.0799");  // no pairs: read as 99
    EXPECT_EQ(Text(NumOfBytes("05 3E FF 00 5F 65")), "-99.9905");
}

TEST(NullAndZero, Tests) {
    struct {
        int line;
        const char* bytes;
        int32_t isNull;
        int32_t isZero;
    } const cases[] = {
        {__LINE__, "00", 1, 0},       {__LINE__, "10", 1, 0},    {__LINE__, "01 C0", 0, 1},
        {__LINE__, "02 C1 07", 0, 0}, {__LINE__, "0D C0", 0, 0}, {__LINE__, "03 C1 00 00", 0, 1},
        {__LINE__, "02 3E 65", 0, 1}, {__LINE__, "01 3F", 0, 1}, {__LINE__, "03 3E 5F 65", 0, 0},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.bytes);
        Number num = NumOfBytes(c.bytes);
        EXPECT_EQ(NumIsNull(&num), c.isNull);
        EXPECT_EQ(NumIsZero(&num), c.isZero);
        EXPECT_EQ(NumNullToZero(&num), &num);
        EXPECT_EQ(num, c.isNull ? NumOfBytes("01 C0") : NumOfBytes(c.bytes));
        NumMakeNull(&num);
        EXPECT_EQ(num.bytes[0], 0);
        EXPECT_EQ(num.bytes[1], c.isNull ? 0xC0 : NumOfBytes(c.bytes).bytes[1]);
    }
}

TEST(NullAndZero, NullDouble) {
    double value = 0;
    EXPECT_EQ(NumNullDouble(&value), &value);
    EXPECT_EQ(std::memcmp(&value, "\0\0\0\0\0\0\xF8\x7F", 8), 0);
    EXPECT_EQ(NumIsNullDouble(&value), 1);
    for (const double null : {std::numeric_limits<double>::signaling_NaN(), std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(), -value}) {
        EXPECT_EQ(NumIsNullDouble(&null), 1);
    }
    for (const double finite :
         {0.0, -1.5, std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
        EXPECT_EQ(NumIsNullDouble(&finite), 0);
    }
}

TEST(WholeNumbers, ToNumber) {
    Number num = Poisoned();
    NumWordToNumber(&num, 65535);
    EXPECT_EQ(Text(num), "65535");
    EXPECT_EQ(NumDWordToNumber(&num, 4294967295u), 6);
    EXPECT_EQ(Text(num), "4294967295");
    EXPECT_EQ(NumLongToNumber(&num, std::numeric_limits<int32_t>::min()), 7);
    EXPECT_EQ(Bytes(num), "07 3A 4F 35 34 40 34 65");
    EXPECT_EQ(NumToLong(&num), 0x80000000u);
    EXPECT_EQ(NumLongToNumber(&num, 0), 1);
    EXPECT_EQ(Bytes(num), "01 C0");
    EXPECT_EQ(NumLongToNumber(&num, 400), 2);
    EXPECT_EQ(Bytes(num), "02 C2 04");
    EXPECT_EQ(Text(*NumGet(9)), "9");
    EXPECT_EQ(NumGet(1), NumGet(2));
    EXPECT_EQ(Text(*NumGet(65535)), "65535");
}

struct IntegerCase {
    int line;
    const char* text;
    uint32_t value;
};
// clang-format off
constexpr IntegerCase kIntegerParts[] = {
    {__LINE__, "2.9", 2},            {__LINE__, "-2.9", 0xFFFFFFFE},         {__LINE__, "0.5", 0},
    {__LINE__, "0.0005", 0},         {__LINE__, "1e-102", 0},                {__LINE__, "70000", 70000},
    {__LINE__, "1000000", 1000000},  {__LINE__, "4294967295", 4294967295},   {__LINE__, "4294967296", 0},
    {__LINE__, "4294967297.99", 1},  {__LINE__, "-4294967297", 0xFFFFFFFF},
    {__LINE__, "1e+32", 0},  // 100 to the 16th is a multiple of 2 to the 32nd
    {__LINE__, "1e+40", 0},  {__LINE__, "1e+30", 1073741824u},
};
// clang-format on

TEST(WholeNumbers, IntegerPart) {
    for (const IntegerCase& c : kIntegerParts) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        const Number num = Num(c.text);
        EXPECT_EQ(NumToLong(&num), c.value);
        EXPECT_EQ(NumToWord(&num), c.value);
        EXPECT_EQ(NumToDWord(&num), c.value);
        for (const auto convert : {NumToLongReply, NumToWordReply, NumToDWordReply}) {
            uint32_t reply = 99;
            EXPECT_EQ(convert(&num, &reply), c.value);
            EXPECT_EQ(reply, 0u);
        }
    }
    for (const char* bytes : {"00", "0D C1 05", "0F C1 05"}) {
        const Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumToLong(&num), 0u) << bytes;
    }
}

}  // namespace
