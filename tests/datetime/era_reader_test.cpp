// Japanese dates: eras, marks, and a time behind them.
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "datetime/calendar.h"
#include "datetime/era_reader.h"
#include "read_cases.h"
#include "support/locale.h"
#include "support/profile.h"

namespace {

// The bytes that the date takes and what it is; "none", with the block as it was, for a text that doesn't begin with
// one.
std::string ParseEra(const std::string& text, bool needEra, bool boundaryCheck = true) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, text.c_str());
    block.EmpDateBoundryCheck = boundaryCheck ? 1 : 2;
    SetMoment(&block, {2, 3, 0, 5, 5, 5, 5});
    const std::string before = DescribeValue(block);
    const int32_t used = FMTParseEraDate(&block, FMTRegion(&block), needEra);
    if (used == -1 && DescribeValue(block) == before) return "none";
    return std::to_string(used) + ": " + DescribeValue(block);
}

struct EraCase {
    const char *shorthand, *want;
};

TEST(ParseEraDateJapanese, YearsOfEras) {
    const TestLanguage language(kJapanese);
    static constexpr EraCase kRows[] = {
        {"H1y1m8d", "13: 1989-01-08"},    {"S64y1m7d", "14: 1989-01-07"},   {"H99y1m8d", "14: 2087-01-08"},
        {"M1y9m29d", "14: 1868-09-29"},   {"T01y07m30d", "16: 1912-07-30"}, {" _\tH1y1m8dx", "17: 1989-01-08"},
        {"H 1y 1m 8d", "16: 1989-01-08"}, {"H8011y1m8d", "16: 9999-01-08"},
    };
    for (const EraCase& c : kRows) EXPECT_EQ(ParseEra(Japanese(c.shorthand), true), c.want) << c.shorthand;
    for (const char* bad : {"M1y9m28d", "H1y1m7d", "S64y1m8d",  // before the era, past its end
                            "H0y1m8d", "H-1y1m8d", "Hy1m8d", "H8012y1m8d", "H2147483647y1m8d", "H1", "H1y", "H1y1m8",
                            "H1y1y8d", "H1y13m8d", "H1y2m29d", "H1/1/8", "2003y1m8d"}) {
        EXPECT_EQ(ParseEra(Japanese(bad), true), "none") << bad;
    }
    EXPECT_EQ(ParseEra(Japanese("S64y1m8d"), true, false), "14: 1989-01-08");
    EXPECT_EQ(ParseEra(Japanese("H1y1m7d"), true, false), "none");
    EXPECT_EQ(ParseEra("\x95\xBD" + Japanese("1y1m8d"), true), "none") << "half a name";
    EXPECT_EQ(ParseEra("\x95", true), "none");
}

TEST(ParseEraDateJapanese, PlainYears) {
    const TestLanguage language(kJapanese);
    static constexpr EraCase kRows[] = {
        {"H1y1m8d", "13: 1989-01-08"},  {"2003y1m8d", "12: 2003-01-08"}, {"103y1m8d", "11: 0103-01-08"},
        {"003y1m8d", "11: 0003-01-08"}, {"03y1m8d", "10: 1903-01-08"},  // whatever the clock says
        {"3y1m8d", "9: 1903-01-08"},    {"+3y1m8d", "10: 1903-01-08"},
    };
    for (const EraCase& c : kRows) EXPECT_EQ(ParseEra(Japanese(c.shorthand), false), c.want) << c.shorthand;
    for (const char* bad : {"", "-3y1m8d", "-300y1m8d", "10000y1m8d", "2003"}) {
        EXPECT_EQ(ParseEra(Japanese(bad), false), "none") << bad;
    }
    EXPECT_EQ(ParseEra("H" + Japanese("1y1m8d"), false), "none") << "letters stand for no era";
}

TEST(ParseEraDateJapanese, TheProfilesBoundaryCheck) {
    const TestLanguage language(kJapanese);
    const std::string text = Japanese("S64y1m8d");
    for (const char* on : {"0", "1"}) {
        const TestProfile profile({{"MORVANEL", "iEmpDateBoundryCheck", on}});
        FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, text.c_str());
        block.UseProfile = 1;
        EXPECT_EQ(FMTValidateDateTime(&block), *on == '0' ? 1 : 0);
    }
}

std::string Read(int32_t type, const std::string& text) {
    return ReadValue(FMTValidateDateTime, DateBlock(type, text.c_str()));
}

// Bit 12 stays, and so does a date whose time is bad.
TEST(ValidateDateTimeJapanese, Texts) {
    const TestLanguage language(kJapanese);
    const std::string date = Japanese("H1y1m8d");
    EXPECT_EQ(Read(FMT_TYPE_DATE, date), "1989-01-08 DU");
    EXPECT_EQ(Read(FMT_TYPE_DATE, Japanese("03y1m8d _")), "1903-01-08 DU");
    EXPECT_EQ(Read(FMT_TYPE_DATE, date + "12:30"), "touched: 1989-01-08 DTU");
    EXPECT_EQ(Read(FMT_TYPE_TIME, date), "0");
    EXPECT_EQ(Read(FMT_TYPE_DATE_TIME, date), "1989-01-08 DU");
    EXPECT_EQ(Read(FMT_TYPE_DATE_TIME, date + " 12:30"), "1989-01-08 12:30:00 DTU");
    EXPECT_EQ(Read(FMT_TYPE_DATE_TIME, date + "\x81@1:30:15 PM"), "1989-01-08 13:30:15 DTU");
    EXPECT_EQ(Read(FMT_TYPE_DATE_TIME, date + "25:30"), "touched: 1989-01-08 DTU");
    EXPECT_EQ(Read(FMT_TYPE_DATE, date + "#"), "0") << "no text of elements at all";
    EXPECT_EQ(Read(FMT_TYPE_DATE, "1/8/1989"), "1989-01-08 D");
    EXPECT_EQ(Read(FMT_TYPE_DATE, "H1.1.8"), "0");
}

TEST(ValidateDateTimeJapanese, PicturesWithDoubleByteTexts) {
    const TestLanguage language(kJapanese);
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    const std::string picture = "yyyy'" + Japanese("y") + "'M'" + Japanese("m") + "'d'" + Japanese("d") + "'";
    block.ShortDatePic = picture.c_str();
    ExpectRead(block, Japanese("1989y1m8d").c_str(), "1989-01-08 D");
    ExpectRead(block, Japanese("_1989y1m_8d").c_str(), "1989-01-08 D");
    block.ShortDatePic = "yyyy MMM'\x8C\x8E' d";
    ExpectRead(block, "1989 Jan\x8C\x8E 8", "1989-01-08 D");
    block.ShortDatePic = "yyyy MMM'A' d";
    ExpectRead(block, "1989 Jan\202A 8", "0");  // the suffix's first byte would be a trail byte of the word
}

std::string Unformat(const std::string& text, const char* picture) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, text.c_str());
    block.Picture = picture;
    return ReadValue(FMTUnformatDateTimeStr, block);
}

TEST(UnformatDateTimeStrJapanese, Words) {
    const TestLanguage language(kJapanese);
    const std::string date = Japanese("H1y1m8d");
    EXPECT_EQ(Unformat(date, "ED"), "1989-01-08 DU");
    EXPECT_EQ(Unformat(date + "12:30", "ED"), "touched: 1989-01-08 DTU");
    EXPECT_EQ(Unformat(Japanese("1989y1m8d"), "ED"), "0");
    EXPECT_EQ(Unformat(date, "E"), "1989-01-08 DU");
    EXPECT_EQ(Unformat(date + " 1:30 pm", "E"), "1989-01-08 13:30:00 DTU");
    EXPECT_EQ(Unformat(date + " x", "E"), "touched: 1989-01-08 DTU");
    EXPECT_EQ(Unformat("1/8/1989", "E"), "0");
}

// The bytes of an era's name are letters like others on a single-byte system.
TEST(ValidateDateTime, NoErasOnASingleByteSystem) {
    EXPECT_EQ(Read(FMT_TYPE_DATE, Japanese("H1y1m8d")), "0");
    EXPECT_EQ(Unformat(Japanese("H1y1m8d"), "ED"), "0");
}

}  // namespace
