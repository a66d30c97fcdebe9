// Reading dates under other clocks, in other languages, without memory.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include <morvl15/host_native.h>

#include "read_cases.h"
#include "support/locale.h"

namespace {

class TestYear {
  public:
    explicit TestYear(uint16_t year) {
        const SYSTEMTIME time = {year, 6, 0, 15, 0, 0, 0, 0};
        HostSetClock(&time);
    }
    ~TestYear() { HostSetClock(nullptr); }
    TestYear(const TestYear&) = delete;
    TestYear& operator=(const TestYear&) = delete;
};

TEST(ValidateDateTimeClock, TwoDigitYears) {
    static constexpr std::tuple<uint16_t, const char*, const char*, const char*> kRows[] = {
        {2003, "1 2 03", "M/d/yy", "2003-01-02 D"},      {2003, "1 2 3", "M/d/yyyy", "2003-01-02 D"},
        {2003, "1/2/49", "M/d/yy", "2049-01-02 D"},      {2026, "1/2/50", "M/d/yy", "1950-01-02 D"},
        {2051, "1/2/49", "M/d/yy", "2149-01-02 D"},      {2051, "1/2/50", "M/d/yyyy", "2050-01-02 D"},
        {2051, "1/2/0050", "M/d/yyyy", "0050-01-02 D"},  {2003, "2/29/00", "M/d/yy", "2000-02-29 D"},
        {2003, "1/2/100", "M/d/yy", "0100-01-02 D"},     {2003, "99-01-02", "yyyy-MM-dd", "1999-01-02 D"},
        {2003, "13/2/0003", "M/d/yyyy", "0003-02-13 D"}, {2003, "2/30/0003", "M/d/yyyy", "0"},
    };
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    block.LongDatePic = "d/M/yyyy";
    for (const auto& [year, text, picture, want] : kRows) {
        const TestYear clock(year);
        block.ShortDatePic = picture;
        ExpectRead(block, text, want);
    }
    // A first picture that fails behind the year takes its mark off, and the year then counts as two digits.
    const TestYear clock(2003);
    block.ShortDatePic = "d/M/yyyy";
    block.LongDatePic = "d/M/yyyy'x'";
    ExpectRead(block, "13/2/0003 x", "2003-02-13 D");
}

TEST(ValidateDateTimeLanguages, TheSameTextsEverywhere) {
    for (const uint16_t language :
         {kEnglish, kGerman, kJapanese, kChinese, kChineseTraditional, kKorean, kArabic, kHebrew, kFarsi}) {
        const TestLanguage inForce(language);
        ExpectRead(DateBlock(FMT_TYPE_DATE, ""), "Thursday, January 2, 2003", "2003-01-02 D");
        ExpectRead(DateBlock(FMT_TYPE_DATE_TIME, ""), " Jan 2, 2003 1:15 PM ", "2003-01-02 13:15:00 DT");
        ExpectRefused(DateBlock(FMT_TYPE_DATE, ""), {"2 \x81\x40 2003"});
    }
}

// Each allocation of a reading fails in its turn: the attempt fails, later ones may still succeed, nothing is left.
TEST(ValidateDateTimeFailure, NoMemory) {
    const std::string blanks = "'" + std::string(90, ' ') + "'";
    const std::string picture = "d/M/yyyy" + blanks + blanks;
    const std::string text = "1/2/2003 " + blanks + blanks + " 13:02" + std::string(300, ' ') + blanks;
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE_TIME, text.c_str());
    block.ShortDatePic = picture.c_str();
    const int64_t before = HostLiveBlocks();
    bool failed = true;
    uint32_t n = 0;
    while (failed) {
        FMTCntlBlock own = block;
        HostFailAllocation(++n);
        FMTValidateDateTime(&own);
        failed = HostAllocationFailed();
        HostFailAllocation(0);
        EXPECT_EQ(HostLiveBlocks(), before) << n;
    }
    EXPECT_GT(n, 3u);
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "2003-02-01 13:02:00 DT");
}

TEST(ValidateDateTime, AllocatesNothingForCommonTexts) {
    HostFailAllocation(1);
    ExpectRead(DateBlock(FMT_TYPE_DATE_TIME, ""), "Thursday, January 2, 2003 13:15:00.000005",
               "2003-01-02 13:15:00.000005 DT");
    EXPECT_FALSE(HostAllocationFailed());
    HostFailAllocation(0);
}

}  // namespace
