// Free-form number text.
#include <gtest/gtest.h>

#include <span>
#include <utility>

#include "number_block.h"
#include "support/profile.h"

namespace {

constexpr const char* kFailed = "failed";

using ValidateCase = std::pair<const char*, const char*>;

void ExpectUnder(const TestRegion& region, int32_t type, std::span<const ValidateCase> cases) {
    for (const auto& [text, want] : cases) EXPECT_EQ(NumberBlock(region).Validate(text, type), want) << text;
}

// Every row holds under the profile's US settings and under the same settings given privately.
void ExpectUnderUS(int32_t type, std::span<const ValidateCase> cases) {
    ExpectUnder(kUS, type, cases);
    for (const auto& [text, want] : cases) EXPECT_EQ(NumberBlock().Validate(text, type), want) << text;
}

TEST(FMTValidateNumber, Signs) {
    constexpr ValidateCase kCases[] = {
        {"123-", "-123"}, {"+123", "123"},  {"123+", "123"},  {" -5 ", "-5"},   {"\t\r\n5\v\f", "5"},
        {"- 5", kFailed}, {"5 -", kFailed}, {"-5-", kFailed}, {"+-5", kFailed}, {"5-+", kFailed},
        {"-0", "0"},      {"-", "0"},       {"+", "0"},       {" ", "0"},  // nothing but blanks and a sign
    };
    ExpectUnderUS(kNumber, kCases);
}

TEST(FMTValidateNumber, GroupsAndDecimals) {
    constexpr ValidateCase kCases[] = {
        {"1,234,567", "1234567"}, {",123", "123"},      {"1,234,567.00-", "-1234567"},
        {",123,456", "123456"},   {"1,23", kFailed},    {"12,34", kFailed},
        {"1234,567", kFailed},    {"1,,234", kFailed},  {"1,234,", kFailed},
        {",", kFailed},           {"1.5,000", kFailed}, {"1,234.5", "1234.5"},
        {",.5", kFailed},         {".", "0"},           {"..", kFailed},
        {"1.2.3", kFailed},       {"5.", "5"},          {"1234567890123456789012345", "1234567890123456789010000"},
        {"00.500", ".5"},
    };
    ExpectUnderUS(kNumber, kCases);
    constexpr ValidateCase kContinental[] = {
        {"1.234,5", "1234.5"}, {"1,5", "1.5"}, {"1.5", kFailed}, {"1,2,3", kFailed}};
    ExpectUnder(kGermany, kNumber, kContinental);
    constexpr ValidateCase kBlankGroups[] = {
        {" 1 234,5 ", "1234.5"},
        {"1 23", kFailed},
        {"1.5", "1.5"},    // a plain point is one too
        {"1.2,3", "1.2"},  // and what follows the number is not read
    };
    ExpectUnder({' ', ','}, kNumber, kBlankGroups);
    constexpr ValidateCase kNoSeparators[] = {{"1.5", "1.5"}, {"..", "0"}, {"1,5", kFailed}};
    ExpectUnder({0, 0}, kNumber, kNoSeparators);
    constexpr ValidateCase kOneForBoth[] = {{"1,5", "1.5"}, {"1,5,5", kFailed}};
    ExpectUnder({',', ','}, kNumber, kOneForBoth);
}

TEST(FMTValidateNumber, Exponents) {
    constexpr ValidateCase kCases[] = {
        {"1e", "1"},          {"1e+", "1"},  // the sign at the end is the number's
        {"1e-", "-1"},        {"1e-5", ".00001"}, {"1E5", "100000"},  {"-1.5e+2", "-150"},
        {"1e,005", "100000"}, {"1e5.", kFailed},  {"1e5e5", kFailed}, {"1e 5", kFailed},
    };
    ExpectUnderUS(kNumber, kCases);
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
    constexpr ValidateCase kCases[] = {
        {"$1,234.50", "1234.5"}, {"($12)", "-12"}, {"12$-", "-12"},  // the far side of the sign
        {"-$12", "-12"},         {"(12)", "-12"},  {"$12-", "-12"}, {"$-12", "-12"},   {"(12$)", "-12"},   {"12", "12"},
        {"- $12", kFailed},      {" $12 ", "12"},  {"+12", "12"},   {"$ 12", "12"},    {"$", "0"},         {"()", "0"},
        {"-$ 12", kFailed},      {"12$", kFailed}, {"$1e2", "100"}, {"$$12", kFailed}, {"(-12)", kFailed}, {"($)", "0"},
        {"-12-", kFailed},       {"(", kFailed},   {")", kFailed},  {"(12", kFailed},
    };
    ExpectUnderUS(kCurrency, kCases);
    constexpr ValidateCase kBehind[] = {
        {"12 DM", "12"}, {"12DM", "12"}, {"-12 DM", "-12"}, {"(12 DM)", "-12"}, {"12- DM", "-12"}, {"DM 12", kFailed},
    };
    ExpectUnder({.currency = "DM", .position = 3}, kCurrency, kBehind);
    EXPECT_EQ(NumberBlock({.currency = "a long symbol", .position = 1}).Validate("12a long symbol", kCurrency), "12");
    EXPECT_EQ(NumberBlock({.currency = nullptr}).Validate("(12)", kCurrency), "-12");
    EXPECT_EQ(NumberBlock({.currency = nullptr}).Validate("$12", kCurrency), kFailed);
}

TEST(FMTValidateNumber, FollowsTheProfile) {
    const TestProfile profile({{"intl", "iCurrency", "3"},
                               {"intl", "sCurrency", "kr"},
                               {"intl", "sThousand", "."},
                               {"intl", "sDecimal", ","}});
    EXPECT_EQ(NumberBlock().Validate("-1.234,5 kr", kCurrency), "-1234.5");
    EXPECT_EQ(NumberBlock().Validate("1.234,5", kNumber), "1234.5");
    EXPECT_EQ(NumberBlock(kUS).Validate("1,234.5", kNumber), "1234.5");
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
