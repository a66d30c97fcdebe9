// Numbers shown by the layouts of the settings and by pictures.
#include <gtest/gtest.h>

#include "number_block.h"
#include "support/profile.h"

namespace {

constexpr int32_t kNumber = 4;
constexpr int32_t kCurrency = 5;
constexpr int32_t kPicture = 6;

struct FormatCase {
    int line;
    const char* value;
    const char* picture;
    const char* want;
};

// Every row holds under the profile's US settings and under the same settings given privately.
void ExpectUnderUS(const FormatCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.picture);
    EXPECT_EQ(NumberBlock().Format(c.value, kPicture, c.picture), c.want) << "by the profile";
    EXPECT_EQ(NumberBlock(PrivateRegion{}).Format(c.value, kPicture, c.picture), c.want) << "privately";
}

void ExpectUnder(const PrivateRegion& region, const FormatCase& c) {
    const testing::ScopedTrace row(__FILE__, c.line, c.picture);
    EXPECT_EQ(NumberBlock(region).Format(c.value, kPicture, c.picture), c.want);
}

constexpr PrivateRegion kContinental = {.thousand = '.', .decimal = ','};
constexpr PrivateRegion kBlankGroups = {.thousand = ' ', .decimal = ','};

constexpr FormatCase kPlaces[] = {
    {__LINE__, "1234567.891", "#,##0.00", "1,234,567.89"},
    {__LINE__, "-1234.5", "#,##0.00", "-1,234.50"},
    {__LINE__, "0", "#,##0.00", "0.00"},
    {__LINE__, "0.5", "#.##", ".5"},
    {__LINE__, "0.5", "0.##", "0.5"},
    {__LINE__, "123", "#.##", "123"},
    {__LINE__, "0", "#.##", "0"},
    {__LINE__, "0", "#", "0"},
    {__LINE__, "-0.004", "0.00", "0.00"},
    {__LINE__, "12.5", "0%", "1250%"},
    {__LINE__, "0.125", "0.0%", "12.5%"},
    {__LINE__, "0.00125", "0.0%", "0.1%"},
    {__LINE__, "12", "0,000,000", "0,000,012"},
    {__LINE__, "1234", "0,000", "1,234"},
    {__LINE__, "1234567", "000,000", "1,234,567"},
    {__LINE__, "123456", "#,###", "123,456"},
    {__LINE__, "1234567", "#,#", "1,234,567"},
    {__LINE__, "7", "0000", "0007"},
    {__LINE__, "1.005", "0.0#", "1.01"},
    {__LINE__, "1.001", "0.0#", "1.0"},
    {__LINE__, "2.5", "0", "3"},
    {__LINE__, "-2.5", "0", "-3"},
    {__LINE__, "999.995", "#,##0.00", "1,000.00"},
    {__LINE__, "12", "0.", "12"},
    {__LINE__, "5", "#,", "5,"},               // behind the last place it is text
    {__LINE__, "1234", "#,##0,%", "1,234,%"},  // ... and what follows it no percent sign
    {__LINE__, "5", "#x0", "5"},               // what stands between two runs is not shown
    {__LINE__, "1234567890123456789012", "#,##0.0", "1,234,567,890,123,456,789,012.0"},
    {__LINE__, "1e36", "#,##0", "1,000,000,000,000,000,000,000,000,000,000,000,000"},
    {__LINE__, "1e-60", "0.00000000000000000000000000000000000000000000000000000000000#",
     "0.000000000000000000000000000000000000000000000000000000000001"},
};

TEST(FMTFormatNumberPicture, Places) {
    for (const FormatCase& c : kPlaces) ExpectUnderUS(c);
}

constexpr FormatCase kSections[] = {
    {__LINE__, "-1234.5", "#,##0.00;(#,##0.00)", "(1,234.50)"},
    {__LINE__, "1234.5", "#,##0.00_);(#,##0.00)", "1,234.50 "},
    {__LINE__, "0", "#;;", ""},  // an empty section shows nothing
    {__LINE__, "-5", "#;", ""},
    {__LINE__, "5", ";#", ""},
    {__LINE__, "-5", ";#", "5"},
    {__LINE__, "0", "#;-#;'zero'", "zero"},  // a section without places shows its text alone
    {__LINE__, "0", "#;;'zero'", "zero"},
    {__LINE__, "7", "'none'", "none"},
    {__LINE__, "-7", "'none'", "-none"},
    {__LINE__, "5", "0;-0;0;x", "5"},  // what follows the third plays no part
    {__LINE__, "0", "0;-0;z0;x", "z0"},
    // A value that the places round to nothing is no longer negative, and goes to the section for zero.
    {__LINE__, "-0.004", "0.00;(0.00)", "0.00"},
    {__LINE__, "-0.004", "0.00;(0.00);'nil'", "nil"},
    {__LINE__, "0.004", "0.00;(0.00);'nil'", "nil"},
    {__LINE__, "0.004", "0.00;(0.00);", ""},
    {__LINE__, "-0.4", ";(0)", ""},
    {__LINE__, "0.006", "0.00;(0.00);'nil'", "0.01"},
    // Its text keeps the places that it was made for.
    {__LINE__, "0.001", "#;#;0.00", "0000"},
    {__LINE__, "0.001", "0.00;;0", "0.00"},
    {__LINE__, "0.001", "0.00;;0.00", "0.00"},
};

TEST(FMTFormatNumberPicture, Sections) {
    for (const FormatCase& c : kSections) ExpectUnderUS(c);
}

constexpr FormatCase kLiterals[] = {
    {__LINE__, "12", "'abc' # 'kg'", "abc 12 kg"},
    {__LINE__, "12", "\"it's\" #", "it's 12"},
    {__LINE__, "12", "'it''s' #", "it's 12"},
    {__LINE__, "12", "'it\\'s' #", "it's 12"},
    {__LINE__, "12", "'a\\b' #", "a\\b 12"},
    {__LINE__, "12", "# \"\"\"\"", "12 \""},
    {__LINE__, "12", "# 'open", "12 open"},
    {__LINE__, "12", "%_x#", "%_x12"},        // in front of the digits both are plain text
    {__LINE__, "12", "#_x'_x'_", "12 _x "},   // behind them a pad is a blank, the last "_" too
    {__LINE__, "5", "'No. 0' #", "No. 5 #"},  // a place is one even in quotes
    {__LINE__, "5", "0 'a0'", "05 a0"},       // and a zero behind counts as one more
    {__LINE__, "1.5", "0.0 'a0'", "1.5 a0"},
    {__LINE__, "12", "'a;b'#", "a"},  // the cut knows nothing of quotes
};

TEST(FMTFormatNumberPicture, Literals) {
    for (const FormatCase& c : kLiterals) ExpectUnderUS(c);
}

constexpr FormatCase kScientific[] = {
    {__LINE__, "123.45", "0.00E+00", "1.23E+02"},
    {__LINE__, "0.00123", "0.00E+00", "1.23E-03"},
    {__LINE__, "-0.00123", "0.00E+00", "-1.23E-03"},
    {__LINE__, "0.00123", "0.##e-00", "1.23e-03"},
    {__LINE__, "1234.5", "0.0e-0", "1.2e3"},
    {__LINE__, "0", "0.00E+00", "0.00E+00"},
    {__LINE__, "9.999", "0.00E+00", "1.00E+01"},
    {__LINE__, "9.7", "0.00E+00", "0.97E+01"},  // the exponent comes from the rounded whole number
    {__LINE__, "99.7", "0.00E+00", "1.00E+02"},
    {__LINE__, "999.4", "0.0E+00", "1.0E+03"},  // rounding gave 10.0
    {__LINE__, "0.00099996", "0.00E+00", "1.00E-03"},
    {__LINE__, "1000", "0.###E+0", "1.E+3"},
    {__LINE__, "-1000", "0.###E+0", "-1.E+3"},
    {__LINE__, "123", "0.0E+#0", "123.0E+#0"},  // not scientific: no zero two behind the letter
    {__LINE__, "123", "0.00E+00;(0.00E+00)", "1.23E+02"},
    {__LINE__, "123", "0.0,0E+00", "1.2,E+02"},  // taken to be scientific, and invalid
    // The whole range of values.
    {__LINE__, "1e-102", "0.00E+00", "1.00E-102"},
    {__LINE__, "1.2345678901234567890e-102", "0.0000E+00", "1.2346E-102"},
    {__LINE__, "-9.876543210987654321e-77", "0.00E+00", "-9.88E-77"},
    {__LINE__, "9.5e98", "0.00E+00", "9.50E+98"},
    {__LINE__, "1.234567e60", "0.0000000E+00", "1.2345670E+60"},
    {__LINE__, "12345678901234567890.12", "0.000000000000000000000E-0", "1.234567890123456789010E19"},
};

TEST(FMTFormatNumberPicture, Scientific) {
    for (const FormatCase& c : kScientific) ExpectUnderUS(c);
}

TEST(FMTFormatNumberPicture, OtherSeparators) {
    for (const FormatCase& c : std::initializer_list<FormatCase>{
             {__LINE__, "123", "#,##", "123"},
             {__LINE__, "123.4", "#,##", "123,4"},
             {__LINE__, "1.5", "0.00E+00", "1,50E+00"},
             {__LINE__, "-1234567.5", "#.##0,00", "-1.234.567,50"},
             {__LINE__, "0.001", "0,00;;0", "0.00"},  // digits before the places of the new section
         }) {
        ExpectUnder(kContinental, c);
    }
    for (const FormatCase& c : std::initializer_list<FormatCase>{
             {__LINE__, "5", "# ##0 F", "5 F"},
             {__LINE__, "5", "# F", "5 F"},
             {__LINE__, "1234567.5", "# ##0,00 F", "1 234 567,50 F"},
             {__LINE__, "5", "0 ", "5 "},
             {__LINE__, "5", "# ### ", "5 "},
         }) {
        ExpectUnder(kBlankGroups, c);
    }
    for (const FormatCase& c : std::initializer_list<FormatCase>{
             {__LINE__, "1234.5", "#,##0.00", "1235.00"},  // without separators they are text
             {__LINE__, "1.5", "0.0E+0", "1"},             // and a text ends where the decimal one would stand
         }) {
        ExpectUnder({.thousand = 0, .decimal = 0}, c);
    }
}

TEST(FMTFormatNumberPicture, ATokenizedPictureFollowsTheRegion) {
    constexpr char kTokenized[] = "\x03\x0F#\x01##0\x02\x30\x30\x10;\x05\x0F#\x01##0\x02\x30\x30\x10\x06";
    EXPECT_EQ(NumberBlock().Format("-1234.5", kPicture, kTokenized), "($1,234.50)");
    const PrivateRegion german = {.thousand = '.', .decimal = ',', .currency = "DM", .position = 3, .negative = 8};
    EXPECT_EQ(NumberBlock(german).Format("-1234.5", kPicture, kTokenized), "-1.234,50 DM");
    EXPECT_EQ(NumberBlock(german).Format("1234.5", kPicture, kTokenized), "1.234,50 DM");
}

struct LayoutCase {
    int line;
    const char* value;
    int32_t type;
    PrivateRegion region;
    const char* want;
};

const LayoutCase kLayouts[] = {
    {__LINE__, "5", kNumber, {}, "5.00"},
    {__LINE__, "0.5", kNumber, {}, ".50"},
    {__LINE__, "-0.5", kNumber, {}, "-.50"},
    {__LINE__, "0.5", kNumber, {.leadingZero = 1}, "0.50"},
    {__LINE__, "-0.5", kNumber, {.leadingZero = 1}, "-0.50"},
    {__LINE__, "0.999", kNumber, {.leadingZero = 1}, "1.00"},
    {__LINE__, "0", kNumber, {.leadingZero = 1}, "0.00"},
    {__LINE__, "-0.004", kNumber, {}, "0.00"},
    {__LINE__, "1234.5", kNumber, {.thousand = '.', .decimal = ',', .digits = 3}, "1.234,500"},
    {__LINE__, "-123456", kNumber, {.digits = 0}, "-123,456"},
    {__LINE__, "-1234567", kNumber, {.digits = 0}, "-1,234,567"},
    {__LINE__, "1234567", kNumber, {.thousand = 0, .digits = 0}, "1234567"},
    {__LINE__, "1254567", kNumber, {.digits = -4}, "1,250,000"},
    {__LINE__, "49", kNumber, {.digits = -2}, "0"},
    {__LINE__, "1.5", kNumber, {.digits = 30}, "1.500000000000000000000000000000"},
    {__LINE__, "1234567.5", kNumber, {.decimal = 0}, "1,234567"},  // no fraction is left to step over
    {__LINE__, "1234.5", kCurrency, {}, "$1,234.50"},
    {__LINE__, "1234.5", kCurrency, {.position = 1}, "1,234.50$"},
    {__LINE__, "1234.5", kCurrency, {.position = 2}, "$ 1,234.50"},
    {__LINE__, "1234.5", kCurrency, {.position = 3}, "1,234.50 $"},
    {__LINE__, "1234.5", kCurrency, {.position = 7}, "$1,234.50"},
    {__LINE__, "1234.5", kCurrency, {.currency = nullptr, .position = 2}, " 1,234.50"},
    {__LINE__, "1", kCurrency, {.digits = 0, .currency = "a long symbol"}, "a long symbol1"},
    {__LINE__, "-1234.5", kCurrency, {.currency = "DM", .position = 3, .negative = 8}, "-1,234.50 DM"},
    {__LINE__, "-5", kCurrency, {.negative = 11}, ""},
    {__LINE__, "-5", kCurrency, {.negative = -1}, ""},
    {__LINE__, "5", kCurrency, {.negative = 11}, "$5.00"},
};

TEST(FMTFormatNumberLayout, PrivateRegions) {
    for (const LayoutCase& c : kLayouts) {
        const testing::ScopedTrace row(__FILE__, c.line, c.value);
        EXPECT_EQ(NumberBlock(c.region).Format(c.value, c.type), c.want);
        const char* picture = c.type == kNumber ? "" : "$";
        EXPECT_EQ(NumberBlock(c.region).Format(c.value, kPicture, picture), c.want) << "by the picture for it";
    }
}

TEST(FMTFormatNumberLayout, NegativeAmounts) {
    const char* const kTexts[] = {"(S5)", "-S5", "S-5", "S5-", "(5S)", "-5S", "5-S", "5S-", "-5 S", "-S 5", "5 S-"};
    for (int32_t layout = 0; layout <= 10; ++layout) {
        const PrivateRegion region = {.digits = 0, .currency = "S", .position = 3, .negative = layout};
        EXPECT_EQ(NumberBlock(region).Format("-5", kCurrency), kTexts[layout]);
    }
}

TEST(FMTFormatNumberLayout, Profile) {
    EXPECT_EQ(NumberBlock().Format("-1234.5", kCurrency), "($1,234.50)");
    const TestProfile profile({{"intl", "iDigits", "1"},
                               {"intl", "iCurrDigits", "3"},
                               {"intl", "iCurrency", "3"},
                               {"intl", "iNegCurr", "8"},
                               {"intl", "sCurrency", "kr"},
                               {"intl", "sThousand", "."},
                               {"intl", "sDecimal", ","},
                               {"intl", "iLzero", "1"}});
    EXPECT_EQ(NumberBlock().Format("1234.56", kNumber), "1.234,6");
    EXPECT_EQ(NumberBlock().Format("-.25", kNumber), "-0,3");
    EXPECT_EQ(NumberBlock().Format("1234.56", kCurrency), "1.234,560 kr");
    EXPECT_EQ(NumberBlock().Format("-1234.56", kCurrency), "-1.234,560 kr");
    EXPECT_EQ(NumberBlock().Format("-1234.56", kPicture, "#.##0,0;(#.##0,0)"), "(1.234,6)");
}

TEST(FMTFormatNumberLayout, EveryDigit) {
    const auto format = [](const char* value, const PrivateRegion& region) {
        NumberBlock block(region);
        block->Flags |= 1u << 3;
        return block.Format(value, kNumber);
    };
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
    const std::string longest(63, '#');
    const std::string tooLong(64, '#');
    const std::string growing = "\x0F#\x10" + std::string(30, 0x03) + std::string(29, 0x04);
    EXPECT_EQ(NumberBlock().Format("5", kPicture, longest.c_str()), "5");
    EXPECT_EQ(NumberBlock().Format("5", kPicture, tooLong.c_str()), "failed: ");
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

struct LengthCase {
    int line;
    const char* picture;
    int32_t maxDigits;
    int32_t minLength;
    int32_t want;
};

constexpr LengthCase kLengths[] = {
    {__LINE__, "#,##0.00", 10, 0, 17},
    {__LINE__, "0.00E+00", 10, 0, 9},
    {__LINE__, "0.0##E+00", 10, 0, 10},
    {__LINE__, "0.0##E+00", 2, 0, 9},
    {__LINE__, "$", 10, 0, 19},
    {__LINE__, "#,##0.00;(#,##0.00)", 10, 0, 18},
    {__LINE__, "", 5, 0, 6},
    {__LINE__, "#;#;#", 5, 0, 5},
    {__LINE__, "#;#;#;'long literal'#", 5, 0, 5},
    {__LINE__, "0.00%", 5, 0, 12},
    {__LINE__, "#_)", 5, 0, 7},
    {__LINE__, "#_", 5, 0, 7},
    {__LINE__, "0000000", 5, 0, 8},
    {__LINE__, "0.00", 5, 100, 100},
    {__LINE__, "0.00E+00;$", 10, 0, 18},  // each section for itself
    {__LINE__, "0", INT32_MAX, 0, INT32_MAX},
    {__LINE__, "#,#", INT32_MAX, 0, INT32_MAX},
    {__LINE__, "0", INT32_MIN, INT32_MIN, 2},
    {__LINE__, nullptr, 5, 3, 3},
    {__LINE__, "################################################################", 5, 3, 3},
};

TEST(FMTGetMaxFormattedNumLen, Lengths) {
    for (const LengthCase& c : kLengths) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture != nullptr ? c.picture : "null");
        EXPECT_EQ(FMTGetMaxFormattedNumLen(c.picture, c.maxDigits, c.minLength), c.want);
    }
}

}  // namespace
