// Dates in fixed columns.
#include <gtest/gtest.h>

#include <cstring>

#include <morvl15/datetime.h>

namespace {

struct IsoCase {
    int line;
    const char* text;
    DatDef want;
};
// clang-format off
constexpr IsoCase kTexts[] = {
    //                                                    month day year   hour min sec microsecond
    {__LINE__, "2003-04-05-06.07.08.123456",             {4,    5,  2003,  6,   7,  8,  123456}},
    {__LINE__, "2003-04-05-06.07.08.123456789",          {4,    5,  2003,  6,   7,  8,  123456}},
    {__LINE__, "2003-04-05-06.07.08.12",                 {4,    5,  2003,  6,   7,  8,  0}},  // a short fraction
    {__LINE__, "2003-04-05-06.07.08.12345",              {4,    5,  2003,  6,   7,  8,  0}},
    {__LINE__, "2003x04y05z06a07b08c123456",             {4,    5,  2003,  6,   7,  8,  123456}},  // between fields
    {__LINE__, "2003",                                   {0,    0,  2003,  0,   0,  0,  0}},
    {__LINE__, "200",                                    {0,    0,  0,     0,   0,  0,  0}},
    {__LINE__, "2003-0",                                 {0,    0,  2003,  0,   0,  0,  0}},
    {__LINE__, "2003-04-05-06.07.0",                     {4,    5,  2003,  6,   7,  0,  0}},
    {__LINE__, "",                                       {0,    0,  0,     0,   0,  0,  0}},
    {__LINE__, "-200-+4- 5-\t6.7x.xx",                   {4,    5,  -200,  6,   7,  0,  0}},  // white space, signs
    {__LINE__, "9999-99-99-99.99.99.-99999",             {99,   99, 9999,  99,  99, 99, -99999}},  // no range check
    {__LINE__, "+-12-1x--1",                             {1,    -1, 0,     0,   0,  0,  0}},  // one sign only
};
// clang-format on

TEST(IsoToDatDef, FixedColumns) {
    for (const IsoCase& c : kTexts) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        DatDef got = {-1, -1, -1, -1, -1, -1, -1};
        EXPECT_EQ(FMTIsoToDatDef(c.text, &got), 1);
        EXPECT_EQ(std::memcmp(&got, &c.want, sizeof got), 0)
            << got.Month << " " << got.Day << " " << got.Year << " " << got.Hour << " " << got.Minute << " "
            << got.Second << " " << got.Microsecond;
    }
}

TEST(IsoToDatDef, NoText) {
    DatDef got = {-1, -1, -1, -1, -1, -1, -1};
    const DatDef zero = {};
    EXPECT_EQ(FMTIsoToDatDef(nullptr, &got), 1);
    EXPECT_EQ(std::memcmp(&got, &zero, sizeof got), 0);
}

}  // namespace
