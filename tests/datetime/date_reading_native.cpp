// Reading dates under other clocks, in other languages, without memory.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/host_native.h>

#include "date_block.h"
#include "support/locale.h"

namespace {

class TestYear {
  public:
    explicit TestYear(uint16_t year) {
        SYSTEMTIME time = {};
        time.wYear = year;
        time.wMonth = 6;
        time.wDay = 15;
        HostSetClock(&time);
    }
    ~TestYear() { HostSetClock(nullptr); }
    TestYear(const TestYear&) = delete;
    TestYear& operator=(const TestYear&) = delete;
};

TEST(ValidateDateTimeClock, TwoDigitYears) {
    struct Case {
        int line;
        uint16_t clock;
        const char* text;
        const char* picture;
        const char* want;
    };
    // clang-format off
    static constexpr Case kRows[] = {
        {__LINE__, 2003, "1 2 03",     "M/d/yy",     "2003-01-02 D"},
        {__LINE__, 2003, "1 2 3",      "M/d/yyyy",   "2003-01-02 D"},
        {__LINE__, 2003, "99-01-02",   "yyyy-MM-dd", "1999-01-02 D"},
        {__LINE__, 2003, "1/2/49",     "M/d/yy",     "2049-01-02 D"},
        {__LINE__, 2026, "1/2/50",     "M/d/yy",     "1950-01-02 D"},
        {__LINE__, 2051, "1/2/49",     "M/d/yy",     "2149-01-02 D"},
        {__LINE__, 2051, "1/2/50",     "M/d/yyyy",   "2050-01-02 D"},
        {__LINE__, 2051, "1/2/0050",   "M/d/yyyy",   "0050-01-02 D"},
        {__LINE__, 2003, "2/29/00",    "M/d/yy",     "2000-02-29 D"},
        {__LINE__, 2003, "1/2/100",    "M/d/yy",     "0100-01-02 D"},
        // a first picture that fails takes the mark off the year, and the year then counts as two digits
        {__LINE__, 2003, "13/2/0003",  "M/d/yyyy",   "0003-02-13 D"},
        {__LINE__, 2003, "2/30/0003",  "M/d/yyyy",   "0"},
    };
    // clang-format on
    for (const Case& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        const TestYear clock(c.clock);
        FMTCntlBlock block = DateBlock(1, c.text);
        block.ShortDatePic = c.picture;
        block.LongDatePic = "d/M/yyyy";
        EXPECT_EQ(ReadValue(FMTValidateDateTime, block), c.want);
    }
    const TestYear clock(2003);
    FMTCntlBlock block = DateBlock(1, "13/2/0003 x");
    block.ShortDatePic = "d/M/yyyy";
    block.LongDatePic = "d/M/yyyy'x'";
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "2003-02-13 D") << "the year's mark goes with the first attempt";
}

TEST(ValidateDateTimeLanguages, TheSameTextsEverywhere) {
    for (const uint16_t language :
         {kEnglish, kGerman, kJapanese, kChinese, kChineseTraditional, kKorean, kArabic, kHebrew, kFarsi}) {
        const TestLanguage inForce(language);
        EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(1, "Thursday, January 2, 2003")), "2003-01-02 D");
        EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(3, " Jan 2, 2003 1:15 PM ")), "2003-01-02 13:15:00 DT");
        EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(1, "2 \x81\x40 2003")), "0");
    }
}

// Each allocation of a reading fails in its turn: the attempt fails, later ones may still succeed, nothing is left.
TEST(ValidateDateTimeFailure, NoMemory) {
    const std::string picture = "d/M/yyyy'" + std::string(90, ' ') + "''" + std::string(90, ' ') + "'";
    const std::string text = "1/2/2003 '" + std::string(90, ' ') + "''" + std::string(90, ' ') + "' 13:02" +
                             std::string(300, ' ') + "'" + std::string(90, ' ') + "'";
    FMTCntlBlock block = DateBlock(3, text.c_str());
    block.ShortDatePic = picture.c_str();
    const int64_t before = HostLiveBlocks();
    int failures = 0;
    for (uint32_t n = 1;; ++n, ++failures) {
        FMTCntlBlock own = block;
        HostFailAllocation(n);
        FMTValidateDateTime(&own);
        const bool failed = HostAllocationFailed();
        HostFailAllocation(0);
        EXPECT_EQ(HostLiveBlocks(), before) << n;
        if (!failed) break;
    }
    EXPECT_GT(failures, 2);
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "2003-02-01 13:02:00 DT");
}

TEST(ValidateDateTime, AllocatesNothingForCommonTexts) {
    HostFailAllocation(1);
    EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(3, "Thursday, January 2, 2003 13:15:00.000005")),
              "2003-01-02 13:15:00.000005 DT");
    EXPECT_FALSE(HostAllocationFailed());
    HostFailAllocation(0);
}

}  // namespace
