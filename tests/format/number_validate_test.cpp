// Free-form number text.
#include <gtest/gtest.h>

#include "number_block.h"
#include "support/profile.h"

namespace {

constexpr int32_t kNumber = 4;
constexpr int32_t kCurrency = 5;
constexpr const char* kFailed = "failed";

struct ValidateCase {
    int line;
    const char* text;
    const char* want;
};

void ExpectUnder(const PrivateRegion& region, int32_t type, std::initializer_list<ValidateCase> cases) {
    for (const ValidateCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(NumberBlock(region).Validate(c.text, type), c.want);
    }
}

// Every row holds under the profile's US settings and under the same settings given privately.
void ExpectUnderUS(int32_t type, std::initializer_list<ValidateCase> cases) {
    ExpectUnder({}, type, cases);
    for (const ValidateCase& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(NumberBlock().Validate(c.text, type), c.want) << "by the profile";
    }
}

TEST(FMTValidateNumber, Signs) {
    ExpectUnderUS(kNumber, {
                               {__LINE__, "123-", "-123"},
                               {__LINE__, "+123", "123"},
                               {__LINE__, "123+", "123"},
                               {__LINE__, " -5 ", "-5"},
                               {__LINE__, "\t\r\n5\v\f", "5"},
                               {__LINE__, "- 5", kFailed},
                               {__LINE__, "5 -", kFailed},
                               {__LINE__, "-5-", kFailed},
                               {__LINE__, "+-5", kFailed},
                               {__LINE__, "5-+", kFailed},
                               {__LINE__, "-0", "0"},
                               // What is empty once blanks and a sign are gone counts as zero.
                               {__LINE__, " ", "0"},
                               {__LINE__, "-", "0"},
                               {__LINE__, "+", "0"},
                           });
}

TEST(FMTValidateNumber, GroupsAndDecimals) {
    ExpectUnderUS(kNumber, {
                               {__LINE__, "1,234,567.00-", "-1234567"},
                               {__LINE__, "1,234,567", "1234567"},
                               {__LINE__, ",123", "123"},
                               {__LINE__, ",123,456", "123456"},
                               {__LINE__, "1,23", kFailed},
                               {__LINE__, "12,34", kFailed},
                               {__LINE__, "1234,567", kFailed},
                               {__LINE__, "1,,234", kFailed},
                               {__LINE__, "1,234,", kFailed},
                               {__LINE__, ",", kFailed},
                               {__LINE__, "1.5,000", kFailed},
                               {__LINE__, "1,234.5", "1234.5"},
                               {__LINE__, ",.5", kFailed},
                               {__LINE__, ".", "0"},
                               {__LINE__, "..", kFailed},
                               {__LINE__, "1.2.3", kFailed},
                               {__LINE__, "5.", "5"},
                               {__LINE__, "00.500", ".5"},
                               {__LINE__, "1234567890123456789012345", "1234567890123456789010000"},
                           });
    ExpectUnder({.thousand = '.', .decimal = ','}, kNumber,
                {
                    {__LINE__, "1.234,5", "1234.5"},
                    {__LINE__, "1,5", "1.5"},
                    {__LINE__, "1.5", kFailed},
                    {__LINE__, "1,2,3", kFailed},
                });
    ExpectUnder({.thousand = ' ', .decimal = ','}, kNumber,
                {
                    {__LINE__, " 1 234,5 ", "1234.5"},
                    {__LINE__, "1 23", kFailed},
                    {__LINE__, "1.5", "1.5"},    // a plain point is one too
                    {__LINE__, "1.2,3", "1.2"},  // and what follows the number is not read
                });
    ExpectUnder({.thousand = 0, .decimal = 0}, kNumber,
                {
                    {__LINE__, "1.5", "1.5"},
                    {__LINE__, "..", "0"},
                    {__LINE__, "1,5", kFailed},
                });
    ExpectUnder({.thousand = ',', .decimal = ','}, kNumber,
                {
                    {__LINE__, "1,5", "1.5"},
                    {__LINE__, "1,5,5", kFailed},
                });
}

TEST(FMTValidateNumber, Exponents) {
    ExpectUnderUS(kNumber, {
                               {__LINE__, "1e", "1"},
                               {__LINE__, "1e+", "1"},  // the sign at the end is the number's
                               {__LINE__, "1e-", "-1"},
                               {__LINE__, "1e-5", ".00001"},
                               {__LINE__, "1E5", "100000"},
                               {__LINE__, "-1.5e+2", "-150"},
                               {__LINE__, "1e,005", "100000"},
                               {__LINE__, "1e5.", kFailed},
                               {__LINE__, "1e5e5", kFailed},
                               {__LINE__, "1e 5", kFailed},
                           });
    // The shape of a number without digits, or out of range: what the conversion left, which is null.
    for (const char* text : {"e5", ".e5", "1e100", "1e99999", "1e-200"}) {
        NumberBlock block;
        block->Value = NumberOf("42");
        EXPECT_EQ(block.Validate(text, kNumber), kFailed) << text;
        EXPECT_NE(NumIsNull(&block->Value), 0) << text;
    }
}

TEST(FMTValidateNumber, WhatIsNoNumberLeavesTheValue) {
    for (const char* text : {"0x10", "abc", "$5", "(5)", "5%", "1 2", "5\xB1", "\xB1"}) {
        NumberBlock block;
        block->Value = NumberOf("42");
        EXPECT_EQ(block.Validate(text, kNumber), kFailed) << text;
        EXPECT_EQ(TextOf(block->Value), "42") << text;
    }
}

TEST(FMTValidateNumber, Amounts) {
    ExpectUnderUS(kCurrency, {
                                 {__LINE__, "$1,234.50", "1234.5"},
                                 {__LINE__, "($12)", "-12"},
                                 {__LINE__, "(12)", "-12"},
                                 {__LINE__, "-$12", "-12"},
                                 {__LINE__, "$-12", "-12"},
                                 {__LINE__, "$12-", "-12"},
                                 {__LINE__, "12$-", "-12"},  // the far side of the sign
                                 {__LINE__, "(12$)", "-12"},
                                 {__LINE__, "$ 12", "12"},
                                 {__LINE__, " $12 ", "12"},
                                 {__LINE__, "12", "12"},
                                 {__LINE__, "+12", "12"},
                                 {__LINE__, "$1e2", "100"},
                                 {__LINE__, "$", "0"},
                                 {__LINE__, "($)", "0"},
                                 {__LINE__, "()", "0"},
                                 {__LINE__, "12$", kFailed},
                                 {__LINE__, "- $12", kFailed},
                                 {__LINE__, "-$ 12", kFailed},
                                 {__LINE__, "$$12", kFailed},
                                 {__LINE__, "(-12)", kFailed},
                                 {__LINE__, "-12-", kFailed},
                                 {__LINE__, "(", kFailed},
                                 {__LINE__, ")", kFailed},
                                 {__LINE__, "(12", kFailed},
                             });
    ExpectUnder({.currency = "DM", .position = 3}, kCurrency,
                {
                    {__LINE__, "12 DM", "12"},
                    {__LINE__, "12DM", "12"},
                    {__LINE__, "-12 DM", "-12"},
                    {__LINE__, "(12 DM)", "-12"},
                    {__LINE__, "12- DM", "-12"},
                    {__LINE__, "DM 12", kFailed},
                });
    ExpectUnder({.currency = "a long symbol", .position = 1}, kCurrency, {{__LINE__, "12a long symbol", "12"}});
    ExpectUnder({.currency = nullptr}, kCurrency, {{__LINE__, "(12)", "-12"}, {__LINE__, "$12", kFailed}});
}

TEST(FMTValidateNumber, FollowsTheProfile) {
    const TestProfile profile({{"intl", "iCurrency", "3"},
                               {"intl", "sCurrency", "kr"},
                               {"intl", "sThousand", "."},
                               {"intl", "sDecimal", ","}});
    EXPECT_EQ(NumberBlock().Validate("-1.234,5 kr", kCurrency), "-1234.5");
    EXPECT_EQ(NumberBlock().Validate("1.234,5", kNumber), "1234.5");
    EXPECT_EQ(NumberBlock(PrivateRegion{}).Validate("1,234.5", kNumber), "1234.5");
}

TEST(FMTValidateNumber, LongText) {
    const std::string zeros(5000, '0');
    EXPECT_EQ(NumberBlock().Validate((zeros + "5").c_str(), kNumber), "5");
    EXPECT_EQ(NumberBlock().Validate(("$." + zeros).c_str(), kCurrency), "0");
    EXPECT_EQ(NumberBlock().Validate((std::string(5000, ' ') + "5").c_str(), kNumber), "5");
}

TEST(FMTValidateNumber, Failures) {
    EXPECT_EQ(NumberBlock().Validate("", kNumber), kFailed);
    EXPECT_EQ(NumberBlock().Validate(nullptr, kNumber), kFailed);
    EXPECT_EQ(NumberBlock().Validate("5", 6), kFailed);
    EXPECT_EQ(NumberBlock().Validate("5", 3), kFailed);
    NumberBlock unusable;
    unusable->Flags &= ~(1u << 5);
    EXPECT_EQ(unusable.Validate("5", kNumber), kFailed);
    EXPECT_EQ(FMTValidateNumber(nullptr), 0);
}

}  // namespace
