// Numbers shown by the layouts of the settings and by pictures.
#include <gtest/gtest.h>

#include <span>
#include <tuple>

#include "number_block.h"
#include "support/profile.h"

namespace {

struct FormatCase {
    const char* value;
    const char* picture;
    const char* want;
};

// Formats, and sees to it that nothing is written behind the text.
std::string FormatGuarded(NumberBlock* block, const char* value, int32_t type, const char* picture = nullptr) {
    std::memset((*block)->Output, '~', 200);
    const std::string text = block->Format(value, type, picture);
    EXPECT_EQ(std::string((*block)->Output + text.size() + 1, 100), std::string(100, '~')) << "behind " << text;
    return text;
}

void ExpectUnder(const TestRegion& region, std::span<const FormatCase> cases) {
    for (const FormatCase& c : cases) {
        NumberBlock block(region);
        EXPECT_EQ(FormatGuarded(&block, c.value, kPicture, c.picture), c.want) << c.picture;
    }
}

// Every row holds under the profile's US settings and under the same settings given privately.
void ExpectUnderUS(std::span<const FormatCase> cases) {
    ExpectUnder(kUS, cases);
    for (const FormatCase& c : cases) EXPECT_EQ(NumberBlock().Format(c.value, c.picture), c.want) << c.picture;
}

constexpr FormatCase kPlaces[] = {
    {"0.5", "#.##", ".5"},       {"1234567.891", "#,##0.00", "1,234,567.89"},
    {"0", "#,##0.00", "0.00"},   {"-1234.5", "#,##0.00", "-1,234.50"},
    {"0.5", "0.##", "0.5"},      {"123", "#.##", "123"},
    {"0", "#.##", "0"},          {"0", "#", "0"},
    {"-0.004", "0.00", "0.00"},  {"12", "0,000,000", "0,000,012"},
    {"0.00125", "0.0%", "0.1%"}, {"1234567", "000,000", "1,234,567"},
    {"12.5", "0%", "1250%"},     {"123456", "#,###", "123,456"},
    {"1234", "0,000", "1,234"},  {"1234567", "#,#", "1,234,567"},
    {"0.5", "#.0#", ".5"},       {"-0.5", "#.0", "-.5"},
    {"0.125", "0.0%", "12.5%"},  {"7", "0000", "0007"},
    {"1.005", "0.0#", "1.01"},   {"999.995", "#,##0.00", "1,000.00"},
    {"2.5", "0", "3"},           {"1.001", "0.0#", "1.0"},
    {"-2.5", "0", "-3"},         {"5", "#,", "5,"},               // behind the last place it is text
    {"12", "0.", "12"},          {"1234", "#,##0,%", "1,234,%"},  // nor is there a percent sign behind such text
    {"5", "#x0", "5"},                                            // what stands between two runs is not shown
};
constexpr FormatCase kManyPlaces[] = {
    {"1234567890123456789012", "#,##0.0", "1,234,567,890,123,456,789,012.0"},
    {"1e36", "#,##0", "1,000,000,000,000,000,000,000,000,000,000,000,000"},
    {"1e-60", "0.00000000000000000000000000000000000000000000000000000000000#",
     "0.000000000000000000000000000000000000000000000000000000000001"},
};

TEST(FMTFormatNumberPicture, Places) {
    ExpectUnderUS(kPlaces);
    ExpectUnderUS(kManyPlaces);
}

constexpr FormatCase kSections[] = {
    {"5", ";#", ""},           {"-1234.5", "#,##0.00;(#,##0.00)", "(1,234.50)"},
    {"-5", "#;", ""},          {"1234.5", "#,##0.00_);(#,##0.00)", "1,234.50 "},
    {"-5", ";#", "5"},         {"0", "#;;", ""},  // an empty section shows nothing
    {"-7", "'none'", "-none"}, {"0", "#;;'zero'", "zero"},
    {"7", "'none'", "none"},   {"0", "#;-#;'zero'", "zero"},  // a section without places shows its text alone
    {"0", "0;-0;z0;x", "z0"},  {"5", "0;-0;0;x", "5"},        // what follows the third plays no part
};
// A value that the places round to nothing is no longer negative, and goes to the section for zero. Its text keeps the
// places that it was made for.
constexpr FormatCase kRoundedToNothing[] = {
    {"-0.004", "0.00;(0.00)", "0.00"}, {"-0.004", "0.00;(0.00);'nil'", "nil"}, {"0.004", "0.00;(0.00);'nil'", "nil"},
    {"0.004", "0.00;(0.00);", ""},     {"0.006", "0.00;(0.00);'nil'", "0.01"}, {"-0.4", ";(0)", ""},
    {"0.001", "#;#;0.00", "0000"},     {"0.001", "0.00;;0", "0.00"},           {"0.001", "0.00;;0.00", "0.00"},
};

TEST(FMTFormatNumberPicture, Sections) {
    ExpectUnderUS(kSections);
    ExpectUnderUS(kRoundedToNothing);
}

constexpr FormatCase kLiterals[] = {
    {"12", "'it''s' #", "it's 12"},  {"12", "\"it's\" #", "it's 12"}, {"12", "'abc' # 'kg'", "abc 12 kg"},
    {"12", "'it\\'s' #", "it's 12"}, {"12", "%_x#", "%_x12"},        // in front of the digits both are plain text
    {"12", "# \"\"\"\"", "12 \""},   {"12", "#_x'_x'_", "12 _x "},   // behind them a pad is a blank, the last "_" too
    {"12", "'a\\b' #", "a\\b 12"},   {"5", "'No. 0' #", "No. 5 #"},  // a place is one even in quotes
    {"12", "# 'open", "12 open"},    {"5", "0 'a0'", "05 a0"},       // and a zero behind counts as one more
    {"1.5", "0.0 'a0'", "1.5 a0"},   {"12", "'a;b'#", "a"},          // the cut knows nothing of quotes
};

TEST(FMTFormatNumberPicture, Literals) {
    ExpectUnderUS(kLiterals);
}

constexpr FormatCase kScientific[] = {
    {"123.45", "0.00E+00", "1.23E+02"},  {"0.00123", "0.00E+00", "1.23E-03"},        {"1234.5", "0.0e-0", "1.2e3"},
    {"0.00123", "0.##e-00", "1.23e-03"}, {"-0.00123", "0.00E+00", "-1.23E-03"},      {"0", "0.00E+00", "0.00E+00"},
    {"9.999", "0.00E+00", "1.00E+01"},   {"123", "0.0,0E+00", "1.2,E+02"},  // taken to be scientific, and invalid
    {"9.7", "0.00E+00", "0.97E+01"},  // the exponent comes from the rounded whole number
    {"99.7", "0.00E+00", "1.00E+02"},    {"0.00099996", "0.00E+00", "1.00E-03"},     {"1000", "0.###E+0", "1.E+3"},
    {"999.4", "0.0E+00", "1.0E+03"},  // rounding gave 10.0
    {"123", "0.0E+#0", "123.0E+#0"},  // not scientific: no zero two behind the letter
    {"-1000", "0.###E+0", "-1.E+3"},     {"123", "0.00E+00;(0.00E+00)", "1.23E+02"},
};
constexpr FormatCase kScientificRange[] = {
    {"1e-102", "0.00E+00", "1.00E-102"},
    {"1.2345678901234567890e-102", "0.0000E+00", "1.2346E-102"},
    {"-9.876543210987654321e-77", "0.00E+00", "-9.88E-77"},
    {"9.5e98", "0.00E+00", "9.50E+98"},
    {"1.234567e60", "0.0000000E+00", "1.2345670E+60"},
    {"12345678901234567890.12", "0.000000000000000000000E-0", "1.234567890123456789010E19"},
};

TEST(FMTFormatNumberPicture, Scientific) {
    ExpectUnderUS(kScientific);
    ExpectUnderUS(kScientificRange);
}

TEST(FMTFormatNumberPicture, OtherSeparators) {
    constexpr FormatCase kContinental[] = {
        {"123", "#,##", "123"},          {"123.4", "#,##", "123,4"},
        {"1.5", "0.00E+00", "1,50E+00"}, {"-1234567.5", "#.##0,00", "-1.234.567,50"},
        {"0.001", "0,00;;0", "0.00"},  // digits before the places of the new section
    };
    constexpr FormatCase kBlankGroups[] = {
        {"5", "# ##0 F", "5 F"},
        {"5", "# F", "5 F"},
        {"5", "0 ", "5 "},
        {"5", "# ### ", "5 "},
        {"1234567.5", "# ##0,00 F", "1 234 567,50 F"},
    };
    constexpr FormatCase kNoSeparators[] = {{"1234.5", "#,##0.00", "1235.00"}};  // they are text
    ExpectUnder(kGermany, kContinental);
    ExpectUnder({' ', ','}, kBlankGroups);
    ExpectUnder({0, 0}, kNoSeparators);
    EXPECT_EQ(NumberBlock({0, 0}).Format("1.5", "0.0E+0"), "1");  // a text ends where the decimal one would stand
}

TEST(FMTFormatNumberPicture, ATokenizedPictureFollowsTheRegion) {
    constexpr char kTokenized[] = "\x03\x0F#\x01##0\x02\x30\x30\x10;\x05\x0F#\x01##0\x02\x30\x30\x10\x06";
    EXPECT_EQ(NumberBlock().Format("-1234.5", kTokenized), "($1,234.50)");
    EXPECT_EQ(NumberBlock(kGermany).Format("-1234.5", kTokenized), "-1.234,50 DM");
    EXPECT_EQ(NumberBlock(kGermany).Format("1234.5", kTokenized), "1.234,50 DM");
    EXPECT_EQ(NumberBlock().Format("5", "0.0\x0F#E+0"), "5.0\x0F\x45+0");  // a scientific one is never tokenized
}

// By the type, and by the picture that stands for it.
void ExpectLayout(const char* value, int32_t type, const TestRegion& region, const char* want) {
    EXPECT_EQ(NumberBlock(region).Format(value, type), want) << value;
    EXPECT_EQ(NumberBlock(region).Format(value, type == kNumber ? "" : "$"), want) << value << " by the picture";
}

TEST(FMTFormatNumberLayout, Numbers) {
    // Value, digits, leading zero, text.
    constexpr std::tuple<const char*, int32_t, int32_t, const char*> kCases[] = {
        {"5", 2, 0, "5.00"},      {"-0.5", 2, 0, "-.50"},          {"0.5", 2, 0, ".50"},
        {"0.5", 2, 1, "0.50"},    {"-0.5", 2, 1, "-0.50"},         {"0.999", 2, 1, "1.00"},
        {"0", 2, 1, "0.00"},      {"-123456", 0, 0, "-123,456"},   {"-1234567", 0, 0, "-1,234,567"},
        {"-0.004", 2, 0, "0.00"}, {"1254567", -4, 0, "1,250,000"}, {"1.5", 30, 0, "1.500000000000000000000000000000"},
        {"49", -2, 0, "0"},
    };
    for (const auto& [value, digits, leadingZero, want] : kCases) {
        ExpectLayout(value, kNumber, {.digits = digits, .leadingZero = leadingZero}, want);
    }
    ExpectLayout("1234.5", kNumber, {.thousand = '.', .decimal = ',', .digits = 3}, "1.234,500");
    ExpectLayout("1234567", kNumber, {.thousand = 0, .digits = 0}, "1234567");
    ExpectLayout("1234567.5", kNumber, {.decimal = 0}, "1,234567");  // no fraction is left to step over
}

TEST(FMTFormatNumberLayout, Amounts) {
    const char* const kPositions[] = {"$1,234.50", "1,234.50$", "$ 1,234.50", "1,234.50 $", "$1,234.50"};
    for (int32_t position = 0; position <= 4; ++position) {
        ExpectLayout("1234.5", kCurrency, {.position = position}, kPositions[position]);
    }
    ExpectLayout("5", kCurrency, {.negative = 11}, "$5.00");
    ExpectLayout("-5", kCurrency, {.negative = 11}, "");
    ExpectLayout("-5", kCurrency, {.negative = -1}, "");
    ExpectLayout("0.5", kCurrency, {.decimal = '-'}, "($50)");  // the text tells the sign
    ExpectLayout("1234.5", kCurrency, {.currency = nullptr, .position = 2}, " 1,234.50");
    ExpectLayout("1", kCurrency, {.currency = "a long symbol", .digits = 0}, "a long symbol1");
    ExpectLayout("-1234.5", kCurrency, {.currency = "DM", .position = 3, .negative = 8}, "-1,234.50 DM");
}

TEST(FMTFormatNumberLayout, NegativeAmounts) {
    const char* const kTexts[] = {"(S5)", "-S5", "S-5", "S5-", "(5S)", "-5S", "5-S", "5S-", "-5 S", "-S 5", "5 S-"};
    for (int32_t layout = 0; layout <= 10; ++layout) {
        const TestRegion region = {.currency = "S", .position = 3, .negative = layout, .digits = 0};
        EXPECT_EQ(NumberBlock(region).Format("-5", kCurrency), kTexts[layout]);
    }
}

TEST(FMTFormatNumberLayout, Profile) {
    EXPECT_EQ(NumberBlock().Format("-1234.5", kCurrency), "($1,234.50)");
    const std::vector<TestProfile::Entry> entries = {
        {"intl", "iDigits", "1"},  {"intl", "iCurrDigits", "3"}, {"intl", "iCurrency", "3"},
        {"intl", "iNegCurr", "8"}, {"intl", "sCurrency", "kr"},  {"intl", "sThousand", "."},
        {"intl", "sDecimal", ","}, {"intl", "iLzero", "1"},
    };
    const TestProfile profile(entries);
    EXPECT_EQ(NumberBlock().Format("1234.56", kNumber), "1.234,6");
    EXPECT_EQ(NumberBlock().Format("-.25", kNumber), "-0,3");
    EXPECT_EQ(NumberBlock().Format("1234.56", kCurrency), "1.234,560 kr");
    EXPECT_EQ(NumberBlock().Format("-1234.56", kCurrency), "-1.234,560 kr");
    EXPECT_EQ(NumberBlock().Format("-1234.56", "#.##0,0;(#.##0,0)"), "(1.234,6)");
}

TEST(FMTFormatNumberLayout, EveryDigit) {
    const auto format = [](const char* value, const TestRegion& region) {
        NumberBlock block(region);
        block->Flags |= 1u << 3;
        return FormatGuarded(&block, value, kNumber);
    };
    EXPECT_EQ(format("5", {}), "5");
    EXPECT_EQ(format("123.456789", {}), "123.456789");
    EXPECT_EQ(format("1234567.125", {.digits = 0}), "1,234,567.125");
    EXPECT_EQ(format("-1234", {.digits = 4}), "-1,234");
    EXPECT_EQ(format("-.0625", {.leadingZero = 1}), "-0.0625");
}

TEST(FMTFormatNumber, NullValueShowsNothing) {
    for (const int32_t type : {kNumber, kCurrency, kPicture}) {
        // Null, and lengths that no value has.
        for (const uint8_t length : std::initializer_list<uint8_t>{0x00, 0x10, 0x0D, 0x0F}) {
            NumberBlock block;
            block->Type = type;
            block->Picture = "0.00";
            block->Value.bytes[0] = length;
            EXPECT_EQ(FMTFormatNumber(block.Get()), 1);
            EXPECT_EQ(block.Output(), "");
        }
    }
}

TEST(FMTFormatNumber, Failures) {
    const std::string growing = "\x0F#\x10" + std::string(30, 0x03) + std::string(29, 0x04);
    EXPECT_EQ(NumberBlock().Format("5", kPicture, std::string(63, '#').c_str()), "5");
    EXPECT_EQ(NumberBlock().Format("5", kPicture, std::string(64, '#').c_str()), "failed: ");
    EXPECT_EQ(NumberBlock({.currency = "EUR"}).Format("5", kPicture, growing.c_str()), "failed: ");
    EXPECT_EQ(NumberBlock().Format("5", kPicture, nullptr), "failed: untouched");
    EXPECT_EQ(NumberBlock().Format("5", 3), "failed: untouched");
    EXPECT_EQ(NumberBlock().Format("5", 7), "failed: untouched");

    // No plain text of 107 bytes.
    constexpr char kTooSmall[] = "1.23456789012345678e-102";
    EXPECT_EQ(NumberBlock({.digits = 200}).Format(kTooSmall, kNumber), "failed: ");
    EXPECT_EQ(NumberBlock({.digits = 200}).Format(kTooSmall, kCurrency), "failed: ");
    EXPECT_EQ(NumberBlock({.digits = 50}).Format(kTooSmall, kNumber).size(), 52u);

    NumberBlock unusable;
    unusable->Flags &= ~(1u << 5);
    EXPECT_EQ(unusable.Format("5", kNumber), "failed: untouched");

    NumberBlock noOutput;
    noOutput->Output = nullptr;
    for (const int32_t type : {kNumber, kCurrency, kPicture})
        EXPECT_EQ(noOutput.Format("5", type, "0"), "failed: untouched");
    EXPECT_EQ(FMTFormatNumber(nullptr), 0);
}

// Picture, most digits, least length, length.
constexpr std::tuple<const char*, int32_t, int32_t, int32_t> kLengths[] = {
    {"#,##0.00", 10, 0, 17}, {"#,#", INT32_MAX, 0, INT32_MAX},   {"0.0##E+00", 10, 0, 10},  {"0.0##E+00", 2, 0, 9},
    {"$", 10, 0, 19},        {"#,##0.00;(#,##0.00)", 10, 0, 18}, {"0.00%", 5, 0, 12},       {"0.00E+00", 10, 0, 9},
    {"#;#;#", 5, 0, 5},      {"#;#;#;'long literal'#", 5, 0, 5}, {"#_)", 5, 0, 7},          {"#_", 5, 0, 7},
    {"0000000", 5, 0, 8},    {"0", INT32_MAX, 0, INT32_MAX},     {"0.00", 5, 100, 100},     {"", 5, 0, 6},
    {nullptr, 5, 3, 3},      {"0", INT32_MIN, INT32_MIN, 2},     {"0.00E+00;$", 10, 0, 18},  // each section for itself
};

TEST(FMTGetMaxFormattedNumLen, Lengths) {
    for (const auto& [picture, maxDigits, minLength, want] : kLengths) {
        EXPECT_EQ(FMTGetMaxFormattedNumLen(picture, maxDigits, minLength), want)
            << (picture != nullptr ? picture : "null");
    }
    EXPECT_EQ(FMTGetMaxFormattedNumLen(std::string(64, '#').c_str(), 5, 3), 3);
}

}  // namespace
