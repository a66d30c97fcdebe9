// Formatting and parsing on several threads at once, and without memory.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <morvl15/host_native.h>

#include "number_block.h"

namespace {

struct ThreadRegion {
    TestRegion region;
    const char* picture;
    const char* text;    // of -1234567.891 by the picture
    const char* amount;  // by the currency layout
    const char* value;   // what the text gives back
};

const ThreadRegion kRegions[] = {
    {{}, "#,##0.00;(#,##0.00)", "(1,234,567.89)", "($1,234,567.89)", "-1234567.89"},
    {kGermany, "#.##0,0", "-1.234.567,9", "-1.234.567,89 DM", "-1234567.9"},
    {{' ', ',', "F", 0, 5, 3}, "0.000E+00", "-1,235E+06", "-1 234 567,891F", "-1235000"},
};

// Without a private region of its own the thread works under the profile.
void FormatAndParse(const ThreadRegion& expected, bool useProfile) {
    NumberBlock block(expected.region);
    block->UseProfile = useProfile ? 1 : 0;
    // The mantissa of a scientific text follows the profile, which has other separators than the third region.
    const bool parsesText = &expected != &kRegions[2];
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(block.Format("-1234567.891", expected.picture), expected.text);
        if (parsesText) {
            EXPECT_EQ(block.Unformat(expected.text, expected.picture), expected.value);
        }
        EXPECT_EQ(block.Format("-1234567.891", kCurrency), expected.amount);
        EXPECT_EQ(block.Validate("1234567", kNumber), "1234567");
        EXPECT_EQ(FMTGetMaxFormattedNumLen("#,##0.00", 10, 0), 17);
    }
}

TEST(FMTNumberThreads, EachThreadHasItsOwnRegion) {
    std::vector<std::thread> threads;
    for (const ThreadRegion& expected : kRegions) {
        threads.emplace_back([&expected] { FormatAndParse(expected, false); });
    }
    threads.emplace_back([] { FormatAndParse(kRegions[0], true); });
    threads.emplace_back([] {
        for (int i = 0; i < 500; ++i) FMTWinIniChanged();
    });
    for (std::thread& thread : threads) thread.join();
}

// What an operation gives when its n-th allocation fails, for every n until it needs no more.
template <typename Operation>
std::string WithFailingAllocations(Operation operation) {
    std::string results;
    for (uint32_t n = 1; n < 10; ++n) {
        HostFailAllocation(n);
        const std::string result = operation();
        const bool failed = HostAllocationFailed() != FALSE;
        HostFailAllocation(0);
        if (!failed) break;
        results += result + ";";
    }
    return results;
}

TEST(FMTNumberWithoutMemory, OrdinaryTextsNeedNone) {
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Format("-1234.5", kCurrency); }), "");
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Format("-1234.5", "0.0"); }), "");
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Validate("$1,234.50", kCurrency); }), "");
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Unformat("(1,234.50)", "#;(#,##0.00)"); }), "");
}

TEST(FMTNumberWithoutMemory, LongTextsFail) {
    const std::string text = std::string(400, '0') + "5";
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock({.digits = 400}).Format("1.5", kNumber); }), "failed: ;");
    const auto validate = [&] {
        NumberBlock block;
        block->Value = NumberOf("42");
        return block.Validate(text.c_str(), kNumber) + ", " + TextOf(block->Value);
    };
    EXPECT_EQ(WithFailingAllocations(validate), "failed, 42;");
    EXPECT_EQ(WithFailingAllocations([&] { return NumberBlock().Unformat(text.c_str(), "0"); }), "failed: ;failed: ;");
}

}  // namespace
