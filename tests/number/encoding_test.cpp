// The encoding of a Number, null and zero, whole numbers.
#include <limits>
#include <tuple>
#include <utility>

#include "number/number_codec.h"
#include "number_testing.h"

namespace {

using EncodingCase = std::pair<const char*, const char*>;
constexpr EncodingCase kEncodings[] = {
    {"0", "01 C0"},          {"1", "02 C1 01"},           {"7", "02 C1 07"},       {"10", "02 C1 0A"},
    {"99", "02 C1 63"},      {"100", "02 C2 01"},         {"101", "03 C2 01 01"},  {"1000", "02 C2 0A"},
    {".5", "02 C0 32"},      {"12345", "04 C3 01 17 2D"}, {".05", "02 C0 05"},     {".01", "02 C0 01"},
    {".005", "02 BF 32"},    {"1.5", "03 C1 01 32"},      {"12.5", "03 C1 0C 32"}, {"-1", "03 3E 63 65"},
    {"-5", "03 3E 5F 65"},   {"-1.5", "04 3E 63 32 65"},  {"-100", "03 3D 63 65"}, {"-.5", "03 3F 32 65"},
    {"-.05", "03 3F 5F 65"},
};

constexpr EncodingCase kLongEncodings[] = {
    {"2147483647", "06 C5 15 2F 30 24 2F"},
    {"-2147483648", "07 3A 4F 35 34 40 34 65"},
    {"4294967295", "06 C5 2A 5E 60 48 5F"},
    {"1234567890123456789012", "0C CB 0C 22 38 4E 5A 0C 22 38 4E 5A 0C"},
    {"9999999999999999999999", "0C CB 63 63 63 63 63 63 63 63 63 63 63"},
    {"-12345678901234567890", "0C 35 58 42 2C 16 0A 58 42 2C 16 0A 65"},
    {"-99999999999999999999", "0C 35 01 01 01 01 01 01 01 01 01 01 65"},
};

void ExpectBothWays(const EncodingCase& c) {
    EXPECT_EQ(Bytes(Num(c.first)), c.second);
    EXPECT_EQ(Text(NumOfBytes(c.second)), c.first);
}

TEST(NumberEncoding, TextBothWays) {
    for (const EncodingCase& c : kEncodings) ExpectBothWays(c);
    for (const EncodingCase& c : kLongEncodings) ExpectBothWays(c);
}

// Texts that the plain form writes otherwise, and values that change on the way in.
constexpr EncodingCase kReadOnly[] = {
    {"1E+99", "02 F2 0A"},
    {"1E-102", "02 8E 01"},
    {"-1E-102", "03 71 63 65"},
    {"99999999999999999999995", "02 CC 0A"},  // twelve pairs: the last one rounds up and carries through
    {"1E-103", "02 8E 0A"},                   // E would be 13
    {"1E-110", "02 8E 01"},
    {"-1234567890123456789012", "0C 34 58 42 2C 16 0A 58 42 2C 16 0A 65"},  // 11 pairs, rounded to 10
};

TEST(NumberEncoding, LimitsOfPacking) {
    for (const auto& [text, bytes] : kReadOnly) EXPECT_EQ(Bytes(Num(text)), bytes) << text;
}

TEST(NumberEncoding, PackClampsTheExponentAndStripsZeroPairs) {
    struct {
        std::initializer_list<int> pairs;
        bool negative;
        int32_t exponent;
        const char* bytes;
    } const cases[] = {
        {{7}, false, 115, "02 F2 07"},
        {{7}, false, 10000, "02 F2 07"},
        {{7}, true, -10000, "03 71 5D 65"},
        {{0, 0, 5, 0, 6, 0}, false, 66, "04 C0 05 00 06"},
        {{0, 0}, true, 70, "01 C0"},
        {{}, true, 70, "01 C0"},
        {{0, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 50}, true, 65, "03 3E 63 65"},
        {{1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 99, 49, 99}, false, 65, "0C C1 01 00 00 00 00 00 00 00 00 00 63"},
        {{99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 99, 50}, false, 114, "02 F2 01"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, c.bytes);
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
    constexpr std::tuple<const char*, int32_t, int32_t> kCases[] = {
        {"00", 1, 0},          {"10", 1, 0},       {"01 C0", 0, 1}, {"02 C1 07", 0, 0},    {"0D C0", 0, 0},
        {"03 C1 00 00", 0, 1}, {"02 3E 65", 0, 1}, {"01 3F", 0, 1}, {"03 3E 5F 65", 0, 0},
    };
    for (const auto& [bytes, isNull, isZero] : kCases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, bytes);
        Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumIsNull(&num), isNull);
        EXPECT_EQ(NumIsZero(&num), isZero);
        EXPECT_EQ(NumNullToZero(&num), &num);
        EXPECT_EQ(num, isNull ? NumOfBytes("01 C0") : NumOfBytes(bytes));
        NumMakeNull(&num);
        EXPECT_EQ(num.bytes[0], 0);
        EXPECT_EQ(num.bytes[1], isNull ? 0xC0 : NumOfBytes(bytes).bytes[1]);
    }
}

TEST(NullAndZero, NullDouble) {
    double value = 0;
    EXPECT_EQ(NumNullDouble(&value), &value);
    EXPECT_EQ(std::memcmp(&value, "\0\0\0\0\0\0\xF8\x7F", 8), 0);
    EXPECT_EQ(NumIsNullDouble(&value), 1);
    using Limits = std::numeric_limits<double>;
    for (const double null : {Limits::signaling_NaN(), Limits::infinity(), -Limits::infinity(), -value}) {
        EXPECT_EQ(NumIsNullDouble(&null), 1);
    }
    for (const double finite : {0.0, -1.5, Limits::max(), Limits::denorm_min()}) {
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
    EXPECT_EQ(Text(num), "-2147483648");
    EXPECT_EQ(NumToLong(&num), 0x80000000u);
    EXPECT_EQ(NumLongToNumber(&num, 0), 1);
    EXPECT_EQ(Bytes(num), "01 C0");
    EXPECT_EQ(NumLongToNumber(&num, 400), 2);
    EXPECT_EQ(Bytes(num), "02 C2 04");
    EXPECT_EQ(Text(*NumGet(9)), "9");
    EXPECT_EQ(NumGet(1), NumGet(2));
    EXPECT_EQ(Text(*NumGet(65535)), "65535");
}

// The integer part is taken modulo 2 to the 32nd, of which 100 to the 16th is a multiple.
constexpr std::pair<const char*, uint32_t> kIntegerParts[] = {
    {"2.9", 2},       {"-2.9", 0xFFFFFFFE},        {"0.5", 0},           {"0.0005", 0},          {"1e-102", 0},
    {"70000", 70000}, {"4294967295", 4294967295},  {"1000000", 1000000}, {"4294967296", 0},      {"4294967297.99", 1},
    {"1e+32", 0},     {"-4294967297", 0xFFFFFFFF}, {"1e+40", 0},         {"1e+30", 1073741824u},
};

TEST(WholeNumbers, IntegerPart) {
    for (const auto& [text, value] : kIntegerParts) {
        const Number num = Num(text);
        for (const auto convert : {NumToLong, NumToWord, NumToDWord}) EXPECT_EQ(convert(&num), value) << text;
        for (const auto convert : {NumToLongReply, NumToWordReply, NumToDWordReply}) {
            uint32_t reply = 99;
            EXPECT_EQ(convert(&num, &reply), value) << text;
            EXPECT_EQ(reply, 0u);
        }
    }
    for (const char* bytes : {"00", "0D C1 05", "0F C1 05"}) {
        const Number num = NumOfBytes(bytes);
        EXPECT_EQ(NumToLong(&num), 0u) << bytes;
    }
}

}  // namespace
