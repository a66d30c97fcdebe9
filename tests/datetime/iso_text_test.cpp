// Dates in fixed columns.
#include <gtest/gtest.h>

#include <cstring>
#include <tuple>

#include <morvl15/datetime.h>

namespace {

TEST(IsoToDatDef, FixedColumns) {
    static constexpr std::tuple<const char*, DatDef> kRows[] = {
        // Month, Day, Year, Hour, Minute, Second, Microsecond
        {"2003-04-05-06.07.08.123456", {4, 5, 2003, 6, 7, 8, 123456}},
        {"2003-04-05-06.07.08.123456789", {4, 5, 2003, 6, 7, 8, 123456}},
        {"2003-04-05-06.07.08.12", {4, 5, 2003, 6, 7, 8, 0}},  // a short fraction
        {"2003-04-05-06.07.08.12345", {4, 5, 2003, 6, 7, 8, 0}},
        {"2003x04y05z06a07b08c123456", {4, 5, 2003, 6, 7, 8, 123456}},  // whatever stands between fields
        {"2003", {0, 0, 2003, 0, 0, 0, 0}},
        {"200", {0, 0, 0, 0, 0, 0, 0}},
        {"2003-0", {0, 0, 2003, 0, 0, 0, 0}},
        {"2003-04-05-06.7", {4, 5, 2003, 6, 0, 0, 0}},
        {"2003-04-05-06.07.0", {4, 5, 2003, 6, 7, 0, 0}},
        {"", {0, 0, 0, 0, 0, 0, 0}},
        {nullptr, {0, 0, 0, 0, 0, 0, 0}},
        {"-200-+4- 5-\t6.7x.xx", {4, 5, -200, 6, 7, 0, 0}},                  // white space, signs
        {"9999-99-99-99.99.99.-99999", {99, 99, 9999, 99, 99, 99, -99999}},  // no range check
        {"+-12-1x--1", {1, -1, 0, 0, 0, 0, 0}},                              // one sign only
    };
    for (const auto& [text, want] : kRows) {
        DatDef got = {-1, -1, -1, -1, -1, -1, -1};
        EXPECT_EQ(FMTIsoToDatDef(text, &got), 1);
        EXPECT_EQ(std::memcmp(&got, &want, sizeof got), 0)
            << (text != nullptr ? text : "null") << ": " << testing::PrintToString(got);
    }
}

}  // namespace
