// What the calendar takes from its surroundings: the clock and the string table.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <morvl15/host_native.h>

#include "datetime/calendar.h"
#include "frame/instance.h"

namespace {

TEST(CalendarCentury, SlidesWithTheClock) {
    static constexpr int32_t kRows[][3] = {
        {2003, 3, 2000},  {2003, 75, 1900}, {2003, 49, 2000}, {2003, 50, 1900}, {2049, 99, 1900},
        {2050, 99, 2000}, {2051, 49, 2100}, {2051, 50, 2000}, {1999, 0, 2000},  {2000, 99, 1900},
    };
    for (const auto& [clock, twoDigits, century] : kRows) {
        const SYSTEMTIME time = {static_cast<uint16_t>(clock), 12, 0, 31, 23, 59, 59, 999};
        HostSetClock(&time);
        EXPECT_EQ(FMTCenturyFor(twoDigits), century) << twoDigits << " in " << clock;
    }
    HostSetClock(nullptr);
}

// The library's strings but for one, as the strings of the program, from which names are loaded in a scope.
class StringsBut {
  public:
    explicit StringsBut(UINT missing) {
        for (const HostString& string : AllStrings()) {
            if (string.id != missing) strings_.push_back(string);
        }
        HostSetProgramStrings(strings_.data(), strings_.size());
        gLibInstance = nullptr;
        gFMTNamesLoaded = false;
    }
    ~StringsBut() {
        HostSetProgramStrings(nullptr, 0);
        gLibInstance = library_;
        gFMTNamesLoaded = false;
        EXPECT_EQ(FMTLoadNames(), 1);
    }
    StringsBut(const StringsBut&) = delete;
    StringsBut& operator=(const StringsBut&) = delete;

  private:
    static const std::vector<HostString>& AllStrings() {
        static const std::vector<HostString> all = {
#define STRING(id, text) {id, text},
#include "resources/strings.def"
#undef STRING
        };
        return all;
    }

    HINSTANCE library_ = gLibInstance;
    std::vector<HostString> strings_;
};

TEST(CalendarNames, OneMissingStringMeansNoNames) {
    for (UINT id = 2001; id <= 2044; ++id) {
        const StringsBut strings(id);
        EXPECT_EQ(FMTLoadNames(), 0) << id;
        EXPECT_EQ(FMTIsValidDate(1, 1, 2000, nullptr), 0) << id;
        EXPECT_EQ(FMTFindMonthName("May"), 0) << id;
        EXPECT_EQ(FMTFindDayName("Sunday"), 0) << id;
        EXPECT_STREQ(FMTMonthFull(1), "") << id;
        EXPECT_STREQ(FMTDayAbbrev(1), "") << id;
        EXPECT_EQ(FMTGetProfileWords(), nullptr) << id;
    }
}

// Names of another language: cut to 14 bytes, sorted whatever their order.
TEST(CalendarNames, AnyNamesWork) {
    std::vector<std::string> texts;
    for (UINT id = 2001; id <= 2044; ++id)
        texts.push_back(std::string(1, char('z' - id % 26)) + std::to_string(id) + "_long_enough");
    std::vector<HostString> strings;
    for (UINT id = 2001; id <= 2044; ++id) strings.push_back({id, texts[id - 2001].c_str()});
    const StringsBut none(0);
    HostSetProgramStrings(strings.data(), strings.size());
    ASSERT_EQ(FMTLoadNames(), 1);
    for (int32_t month = 1; month <= 12; ++month) {
        EXPECT_EQ(FMTMonthAbbrev(month), texts[static_cast<size_t>(month - 1)].substr(0, 14));
        EXPECT_EQ(FMTFindMonthName(FMTMonthAbbrev(month)), month);
        EXPECT_EQ(FMTFindMonthName(FMTMonthFull(month)), month);
    }
    for (int32_t code = 1; code <= 7; ++code) EXPECT_EQ(FMTFindDayName(FMTDayFull(code)), code);
}

}  // namespace
