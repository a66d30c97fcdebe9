// Text that a picture made, read back.
#include <gtest/gtest.h>

#include <span>

#include "number_block.h"
#include "support/profile.h"

namespace {

constexpr const char* kFailed = "failed: ";

struct UnformatCase {
    const char* text;
    const char* picture;
    const char* want;
};

void ExpectUnder(const TestRegion& region, std::span<const UnformatCase> cases) {
    for (const UnformatCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, __LINE__, std::string(c.text) + " by " + c.picture);
        NumberBlock block(region);
        block->Value = NumberOf("42");
        EXPECT_EQ(block.Unformat(c.text, c.picture), c.want);
        EXPECT_EQ(TextOf(block->Value), std::string(c.want) == kFailed ? "42" : c.want);
    }
}

void ExpectUnderUS(std::span<const UnformatCase> cases) {
    ExpectUnder(kUS, cases);
    for (const UnformatCase& c : cases) EXPECT_EQ(NumberBlock().Unformat(c.text, c.picture), c.want) << c.text;
}

constexpr UnformatCase kOneSection[] = {
    {"12 kg", "# 'kg'", "12"},      {"1,234.50", "#,##0.00", "1234.5"},
    {"12kg", "# 'kg'", kFailed},    {"-1,234.50", "#,##0.00", "-1234.5"},
    {"abc12", "'abc'#", "12"},      {"1234.5", "#,##0.00", "1234.5"},
    {"it's 12", "'it''s' #", "12"}, {"$1,234.50", "$#,##0.00", "1234.5"},
    {"_x12", "_x#", "12"},          {"-$1,234.50", "$#,##0.00", "-1234.5"},
    {"12%", "0%", ".12"},           {"1,234.50", "$#,##0.00", "1234.5"},  // the prefix may be missing
    {"12 ", "#_)", "12"},           {"12 it's", "# 'it\\'s'", "12"},
    {"12 kg ", "# 'kg'_)", "12"},   {"12", "0%", "12"},
    {"12  ", "#_", "12"},           {"12 %", "0 %", "12"},      // no percent sign directly behind the places
    {"x", "# 'kg'", kFailed},       {"-", "#'-'", kFailed},     // its one minus is the suffix
    {"-5-", "#'-'", "-5"},          {"12", "'none'", kFailed},  // no digit places, no strip
};
// The sections in order; the one that accepts the text tells the sign.
constexpr UnformatCase kSections[] = {
    {"-5", ";#", "5"},         {"-12", "#;(#)", "-12"},         {"1,234.50", "#,##0.00;(#,##0.00)", "1234.5"},
    {"5", ";#", "-5"},         {"(12%)", "0%;(0%)", "-.12"},    {"(1,234.50)", "#,##0.00;(#,##0.00)", "-1234.5"},
    {"12%", "0;0%", "-.12"},   {"nil7", "#;(#);'nil'0", "0"},   {"nil0", "#;(#);'nil'0", "0"},
    {"(12)", "0%;(0)", "-12"}, {"nil0", "#;(#);'nil'0;x", "0"}, {"zero", "#;;'zero'", kFailed},
    {"x", ";;", kFailed},      {"5", "'x';#", kFailed},         {"($12)", "$", "-12"},  // by the currency layout
    {"12$", "$", kFailed},
};
constexpr UnformatCase kScientific[] = {
    {"1.5E+03", "0.00E+00", "1500"}, {"-1.5E-03", "0.00E+00", "-.0015"},
    {" 1.5e3 ", "0.00E+00", "1500"}, {"1,500.5E1", "0.00E+00", "15005"},
    {"12", "0.00E+00", "12"},        {"1.5E", "0.00E+00", "1.5"},
    {"1.5E--3", "0.00E+00", "1500"}, {"1E5-", "0.00E+00", ".00001"},
    {"--5E1", "0.00E+00", "50"},     {"1E2.9", "0.00E+00", "100"},
    {"1e2e1", "0.00E+00", kFailed},  {"1e2E1", "0.00E+00", "100000000000000000000"},  // cut at the "e"
    {"1.5x", "0.00E+00", kFailed},   {"E+00", "0.00E+00", kFailed},
    {"0E+90", "0.00E+00", "0"},      {"9.99E+100", "0.00E+00", kFailed},
    {"1E+999", "0.00E+00", kFailed}, {"1E+4294967297", "0.00E+00", kFailed},
};

TEST(FMTUnformatNumberStr, USRegion) {
    ExpectUnderUS(kOneSection);
    ExpectUnderUS(kSections);
    ExpectUnderUS(kScientific);
}

TEST(FMTUnformatNumberStr, OtherRegions) {
    constexpr UnformatCase kGermanTexts[] = {
        {"1,50E+03", "0.00E+00", "1500"},
        {"1.500E+03", "0.00E+00", kFailed},
        {"-1.234,50", "#.##0,00", "-1234.5"},
        {"-1.234,50 DM", "$", "-1234.5"},
        {"1.234,50 DM", "#.##0,00' DM'", "1234.5"},
        {"-1.234,50 DM", "\x0F#\x01##0\x02\x30\x30\x10\x04;\x05\x0F#\x01##0\x02\x30\x30\x10\x06", "-1234.5"},
    };
    ExpectUnder(kGermany, kGermanTexts);
    // Blanks as group separators stand in the run only where a digit place follows.
    EXPECT_EQ(NumberBlock({' ', ','}).Unformat("1 234,5 F", "# ##0,0 F"), "1234.5");
    EXPECT_EQ(NumberBlock({0, 0}).Unformat("12.5", "#.#"), "12.5");
}

TEST(FMTUnformatNumberStr, TheMantissaFollowsTheProfile) {
    const TestProfile profile({{"intl", "sThousand", "."}, {"intl", "sDecimal", ","}});
    EXPECT_EQ(NumberBlock().Unformat("1,5E+03", "0.0E+00"), "1500");
    EXPECT_EQ(NumberBlock(kUS).Unformat("1.500E+03", "0.0E+00"), "1500000");
}

TEST(FMTUnformatNumberStr, ScientificRange) {
    const std::string zeros(101, '0');
    EXPECT_EQ(NumberBlock().Unformat("1.00E-102", "0.00E+00"), "." + zeros + "1");
    EXPECT_EQ(NumberBlock().Unformat("9.5E+99", "0.0E+00"), "95" + zeros.substr(0, 98));
    EXPECT_EQ(NumberBlock().Unformat("0.0000001E+106", "0.0E+00"), "1" + zeros.substr(0, 99));
    EXPECT_EQ(NumberBlock().Unformat("-15E-70", "0.0E+00"), "-." + zeros.substr(0, 68) + "15");
}

TEST(FMTUnformatNumberStr, Failures) {
    const std::string longest = "'" + std::string(60, 'x') + "'#";
    EXPECT_EQ(NumberBlock().Unformat("5", longest.c_str()), "5");
    EXPECT_EQ(NumberBlock().Unformat("5", (longest + "#").c_str()), kFailed);
    EXPECT_EQ(NumberBlock().Unformat("5", ""), "failed: untouched");
    EXPECT_EQ(NumberBlock().Unformat("", "#"), "failed: untouched");
    EXPECT_EQ(NumberBlock().Unformat("5", nullptr), "failed: untouched");
    EXPECT_EQ(NumberBlock().Unformat(nullptr, "#"), "failed: untouched");
    EXPECT_EQ(NumberBlock().Unformat("0.0000000001234567890123456789e-80", "#"),
              kFailed);  // no plain text of 107 bytes

    NumberBlock unusable;
    unusable->Flags &= ~(1u << 5);
    EXPECT_EQ(unusable.Unformat("5", "#"), "failed: untouched");
    NumberBlock noOutput;
    noOutput->Output = nullptr;
    EXPECT_EQ(noOutput.Unformat("5", "#"), "failed: untouched");
    EXPECT_EQ(FMTUnformatNumberStr(nullptr), 0);
}

TEST(FMTUnformatNumberStr, InputAndOutputMayBeOneText) {
    constexpr UnformatCase kCases[] = {
        {"1.234,50 kg", "#.##0,00 'kg'", "1234.5"},
        {"1,5E+03", "0.0E+00", "1500"},  // read once more: no mantissa under the profile
        {"ee5", "'e'#;'e'#", kFailed},   // each section takes one off
    };
    for (const UnformatCase& c : kCases) {
        NumberBlock block(kGermany);
        std::strcpy(block->Output, c.text);
        EXPECT_EQ(block.Unformat(block->Output, c.picture), c.want) << c.text;
    }
}

TEST(FMTStrToNumber, Doubles) {
    const auto convert = [](const char* text) {
        NumberBlock block;
        block->Input = text;
        EXPECT_EQ(FMTStrToNumber(block.Get()), 1) << text;
        return static_cast<double>(block->DoubleValue);
    };
    EXPECT_EQ(convert("1.5"), 1.5);
    EXPECT_EQ(convert(" -2.5e3xyz"), -2500.0);
    EXPECT_EQ(convert("abc"), 0.0);
    EXPECT_EQ(convert(("1." + std::string(500, '0') + "1").c_str()), 1.0);
    EXPECT_EQ(convert((std::string(100, '0') + "7").c_str()), 7.0);

    const double null = convert("");
    double want = 0;
    EXPECT_EQ(std::memcmp(&null, NumNullDouble(&want), sizeof null), 0);
    NumberBlock kept;
    kept->Input = "";
    kept->DoubleValue = 1.1;  // the low six bytes stay
    EXPECT_EQ(FMTStrToNumber(kept.Get()), 1);
    const double value = kept->DoubleValue;
    uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    EXPECT_EQ(bits, 0x7FF899999999999Au);

    NumberBlock none;
    EXPECT_EQ(FMTStrToNumber(none.Get()), 0);
    EXPECT_EQ(FMTStrToNumber(nullptr), 0);
}

}  // namespace
