// Formatting and parsing on several threads at once, and without memory.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <morvl15/host_native.h>

#include "number_block.h"

namespace {

struct ThreadRegion {
    PrivateRegion region;
    const char* picture;
    const char* text;    // of -1234567.891 by the picture
    const char* amount;  // by the currency layout
    const char* value;   // what the text gives back
};

const ThreadRegion kRegions[] = {
    {{}, "#,##0.00;(#,##0.00)", "(1,234,567.89)", "($1,234,567.89)", "-1234567.89"},
    {{.thousand = '.', .decimal = ',', .currency = "DM", .position = 3, .negative = 8},
     "#.##0,0",
     "-1.234.567,9",
     "-1.234.567,89 DM",
     "-1234567.9"},
    {{.thousand = ' ', .decimal = ',', .digits = 3, .currency = "F", .negative = 5},
     "0.000E+00",
     "-1,235E+06",
     "-1 234 567,891F",
     "-1235000"},
};

// Without a private region of its own the thread works under the profile.
void FormatAndParse(const ThreadRegion& expected, bool useProfile) {
    NumberBlock block(expected.region);
    block->UseProfile = useProfile ? 1 : 0;
    // The mantissa of a scientific text follows the profile, which has other separators than the third region.
    const bool parsesText = &expected != &kRegions[2];
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(block.Format("-1234567.891", 6, expected.picture), expected.text);
        if (parsesText) {
            EXPECT_EQ(block.Unformat(expected.text, expected.picture), expected.value);
        }
        EXPECT_EQ(block.Format("-1234567.891", 5), expected.amount);
        EXPECT_EQ(block.Validate("1234567", 4), "1234567");
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
std::vector<std::string> WithFailingAllocations(Operation operation) {
    std::vector<std::string> results;
    for (uint32_t n = 1; n < 10; ++n) {
        HostFailAllocation(n);
        const std::string result = operation();
        const bool failed = HostAllocationFailed() != FALSE;
        HostFailAllocation(0);
        if (!failed) break;
        results.push_back(result);
    }
    return results;
}

TEST(FMTNumberWithoutMemory, OrdinaryTextsNeedNone) {
    const std::vector<std::string> none;
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Format("-1234.5", 5); }), none);
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Format("-1234.5", 6, "0.0"); }), none);
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Validate("$1,234.50", 5); }), none);
    EXPECT_EQ(WithFailingAllocations([] { return NumberBlock().Unformat("(1,234.50)", "#;(#,##0.00)"); }), none);
}

TEST(FMTNumberWithoutMemory, LongTextsFail) {
    const std::string text = std::string(400, '0') + "5";
    const std::vector<std::string> layout =
        WithFailingAllocations([] { return NumberBlock({.digits = 400}).Format("1.5", 4); });
    EXPECT_EQ(layout, std::vector<std::string>{"failed: "});
    const std::vector<std::string> validate = WithFailingAllocations([&] {
        NumberBlock block;
        block->Value = NumberOf("42");
        return block.Validate(text.c_str(), 4) + ", " + TextOf(block->Value);
    });
    EXPECT_EQ(validate, std::vector<std::string>{"failed, 42"});
    const std::vector<std::string> unformat = WithFailingAllocations([&] {
        NumberBlock block;
        return block.Unformat(text.c_str(), "0");
    });
    EXPECT_EQ(unformat, std::vector<std::string>{"failed: "});
}

}  // namespace
