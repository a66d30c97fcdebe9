// Japanese dates: eras, marks, and a time behind them.
#include <gtest/gtest.h>

#include <string>

#include "date_block.h"
#include "datetime/era_reader.h"
#include "support/locale.h"
#include "support/profile.h"

namespace {

#define MEIJI "\x96\xBE\x8E\xA1"
#define TAISHO "\x91\xE5\x90\xB3"
#define SHOWA "\x8F\xBA\x98\x61"
#define HEISEI "\x95\xBD\x90\xAC"
#define Y "\x94\x4E"
#define M "\x8C\x8E"
#define D "\x93\xFA"
#define WIDE_BLANK "\x81\x40"

struct EraCase {
    int line;
    const char* text;
    bool needEra;
    bool boundaryCheck;
    int32_t used;
    const char* want;
};

// clang-format off
constexpr EraCase kEraDates[] = {
    {__LINE__, HEISEI "1" Y "1" M "8" D,       true,  true,  13, "1989-01-08"},
    {__LINE__, HEISEI "1" Y "1" M "8" D,       false, false, 13, "1989-01-08"},
    {__LINE__, HEISEI "1" Y "1" M "7" D,       true,  false, -1, ""},   // before the era
    {__LINE__, SHOWA "64" Y "1" M "7" D,       true,  true,  14, "1989-01-07"},
    {__LINE__, SHOWA "64" Y "1" M "8" D,       true,  false, 14, "1989-01-08"},
    {__LINE__, SHOWA "64" Y "1" M "8" D,       true,  true,  -1, ""},   // past its end
    {__LINE__, HEISEI "99" Y "1" M "8" D,      true,  true,  14, "2087-01-08"},
    {__LINE__, MEIJI "1" Y "9" M "29" D,       true,  true,  14, "1868-09-29"},
    {__LINE__, MEIJI "1" Y "9" M "28" D,       true,  true,  -1, ""},
    {__LINE__, TAISHO "01" Y "07" M "30" D,    true,  true,  16, "1912-07-30"},
    {__LINE__, " " WIDE_BLANK "\t" HEISEI "1" Y "1" M "8" D "x", true, true, 17, "1989-01-08"},
    {__LINE__, HEISEI " 1" Y " 1" M " 8" D,    true,  true,  16, "1989-01-08"},
    {__LINE__, HEISEI "0" Y "1" M "8" D,       true,  true,  -1, ""},
    {__LINE__, HEISEI "-1" Y "1" M "8" D,      true,  true,  -1, ""},
    {__LINE__, HEISEI Y "1" M "8" D,           true,  true,  -1, ""},
    {__LINE__, HEISEI "8011" Y "1" M "8" D,    true,  true,  16, "9999-01-08"},
    {__LINE__, HEISEI "8012" Y "1" M "8" D,    true,  true,  -1, ""},   // the year 10000
    {__LINE__, HEISEI "2147483647" Y "1" M "8" D, true, true, -1, ""},
    {__LINE__, HEISEI "1",                     true,  true,  -1, ""},
    {__LINE__, HEISEI "1" Y,                   true,  true,  -1, ""},
    {__LINE__, HEISEI "1" Y "1" M "8",         true,  true,  -1, ""},
    {__LINE__, HEISEI "1" Y "1" Y "8" D,       true,  true,  -1, ""},
    {__LINE__, HEISEI "1" Y "13" M "8" D,      true,  true,  -1, ""},
    {__LINE__, HEISEI "1" Y "2" M "29" D,      true,  true,  -1, ""},
    {__LINE__, HEISEI "1/1/8",                 true,  true,  -1, ""},
    {__LINE__, "\x95\xBD" "1" Y "1" M "8" D,   true,  true,  -1, ""},   // half a name
    {__LINE__, "\x95",                         true,  true,  -1, ""},
    {__LINE__, "H1" Y "1" M "8" D,             false, true,  -1, ""},   // letters stand for no era
    {__LINE__, "",                             false, true,  -1, ""},
    // plain years
    {__LINE__, "2003" Y "1" M "8" D,           false, true,  12, "2003-01-08"},
    {__LINE__, "2003" Y "1" M "8" D,           true,  true,  -1, ""},
    {__LINE__, "03" Y "1" M "8" D,             false, true,  10, "1903-01-08"},  // whatever the clock says
    {__LINE__, "3" Y "1" M "8" D,              false, true,   9, "1903-01-08"},
    {__LINE__, "+3" Y "1" M "8" D,             false, true,  10, "1903-01-08"},
    {__LINE__, "103" Y "1" M "8" D,            false, true,  11, "0103-01-08"},
    {__LINE__, "003" Y "1" M "8" D,            false, true,  11, "0003-01-08"},
    {__LINE__, "-3" Y "1" M "8" D,             false, true,  -1, ""},
    {__LINE__, "-300" Y "1" M "8" D,           false, true,  -1, ""},
    {__LINE__, "10000" Y "1" M "8" D,          false, true,  -1, ""},
    {__LINE__, "2003",                         false, true,  -1, ""},
};
// clang-format on

TEST(ParseEraDateJapanese, Texts) {
    const TestLanguage language(kJapanese);
    for (const EraCase& c : kEraDates) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        FMTCntlBlock block = DateBlock(1, c.text);
        block.EmpDateBoundryCheck = c.boundaryCheck ? 1 : 2;
        block.Hour = block.Minute = block.Second = block.Microsecond = 5;
        const int32_t used = FMTParseEraDate(&block, FMTRegion(&block), c.needEra);
        EXPECT_EQ(used, c.used);
        if (used > 0) {
            EXPECT_EQ(DescribeValue(block), c.want);
        } else {
            EXPECT_EQ(block.Year + block.Hour, 5) << "the block stays";
        }
    }
}

TEST(ParseEraDateJapanese, TheProfilesBoundaryCheck) {
    const TestLanguage language(kJapanese);
    for (const char* on : {"0", "1"}) {
        const TestProfile profile({{"MORVANEL", "iEmpDateBoundryCheck", on}});
        FMTCntlBlock block = DateBlock(1, SHOWA "64" Y "1" M "8" D);
        block.UseProfile = 1;
        EXPECT_EQ(FMTValidateDateTime(&block), *on == '0' ? 1 : 0);
    }
}

struct TextCase {
    int line;
    int32_t type;
    const char* text;
    const char* want;
};

TEST(ValidateDateTimeJapanese, Texts) {
    const TestLanguage language(kJapanese);
    // clang-format off
    static constexpr TextCase kRows[] = {
        {__LINE__, 1, HEISEI "1" Y "1" M "8" D,               "1989-01-08 DU"},  // bit 12 stays
        {__LINE__, 1, "03" Y "1" M "8" D " " WIDE_BLANK,      "1903-01-08 DU"},
        {__LINE__, 1, HEISEI "1" Y "1" M "8" D "12:30",       "touched: 1989-01-08 DTU"},
        {__LINE__, 2, HEISEI "1" Y "1" M "8" D,               "0"},
        {__LINE__, 3, HEISEI "1" Y "1" M "8" D,               "1989-01-08 DU"},
        {__LINE__, 3, HEISEI "1" Y "1" M "8" D " 12:30",      "1989-01-08 12:30:00 DTU"},
        {__LINE__, 3, HEISEI "1" Y "1" M "8" D WIDE_BLANK "1:30:15 PM", "1989-01-08 13:30:15 DTU"},
        {__LINE__, 3, HEISEI "1" Y "1" M "8" D "25:30",       "touched: 1989-01-08 DTU"},
        {__LINE__, 1, HEISEI "1" Y "1" M "8" D "#",           "0"},              // no text of elements at all
        {__LINE__, 1, "1/8/1989",                             "1989-01-08 D"},
        {__LINE__, 1, "H1.1.8",                               "0"},
    };
    // clang-format on
    for (const TextCase& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(c.type, c.text)), c.want);
    }
}

TEST(ValidateDateTimeJapanese, PicturesWithDoubleByteTexts) {
    const TestLanguage language(kJapanese);
    FMTCntlBlock block = DateBlock(1, "1989" Y "1" M "8" D);
    block.ShortDatePic = "yyyy'" Y "'M'" M "'d'" D "'";
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "1989-01-08 D");
    block.Input = WIDE_BLANK "1989" Y "1" M WIDE_BLANK "8" D;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), "1989-01-08 D");
    block.ShortDatePic = "yyyy MMM'" M "' d";
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "1989 Jan" M " 8", block)), "1989-01-08 D");
    // the suffix's first byte would be a trail byte of the word
    block.ShortDatePic = "yyyy MMM'A' d";
    EXPECT_EQ(ReadValue(FMTValidateDateTime, (block.Input = "1989 Jan\x82"
                                                            "A 8",
                                              block)),
              "0");
}

TEST(UnformatDateTimeStrJapanese, Words) {
    const TestLanguage language(kJapanese);
    struct Case {
        int line;
        const char* picture;
        const char* text;
        const char* want;
    };
    // clang-format off
    static constexpr Case kRows[] = {
        {__LINE__, "ED", HEISEI "1" Y "1" M "8" D,           "1989-01-08 DU"},
        {__LINE__, "ED", HEISEI "1" Y "1" M "8" D "12:30",   "touched: 1989-01-08 DTU"},
        {__LINE__, "ED", "1989" Y "1" M "8" D,               "0"},
        {__LINE__, "E",  HEISEI "1" Y "1" M "8" D,           "1989-01-08 DU"},
        {__LINE__, "E",  HEISEI "1" Y "1" M "8" D " 1:30 pm", "1989-01-08 13:30:00 DTU"},
        {__LINE__, "E",  HEISEI "1" Y "1" M "8" D " x",      "touched: 1989-01-08 DTU"},
        {__LINE__, "E",  "1/8/1989",                         "0"},
    };
    // clang-format on
    for (const Case& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        FMTCntlBlock block = DateBlock(1, c.text);
        block.Picture = c.picture;
        EXPECT_EQ(ReadValue(FMTUnformatDateTimeStr, block), c.want);
    }
}

// The bytes of an era's name are letters like others on a single-byte system.
TEST(ValidateDateTime, NoErasOnASingleByteSystem) {
    EXPECT_EQ(ReadValue(FMTValidateDateTime, DateBlock(1, HEISEI "1" Y "1" M "8" D)), "0");
    FMTCntlBlock block = DateBlock(1, HEISEI "1" Y "1" M "8" D);
    block.Picture = "ED";
    EXPECT_EQ(ReadValue(FMTUnformatDateTimeStr, block), "0");
}

}  // namespace
