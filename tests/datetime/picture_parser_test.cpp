// Date pictures and date text as lists of elements: what is accepted, what is rejected.
#include <gtest/gtest.h>

#include <string>

#include "elements.h"

namespace {

struct ParseCase {
    int line;
    const char* text;
    const char* want;
};

template <size_t kRows>
void ExpectParsed(const ParseCase (&rows)[kRows], int32_t mode) {
    for (const ParseCase& c : rows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(DescribeText(c.text, mode), c.want);
    }
}

// clang-format off

constexpr ParseCase kPictures[] = {
    {__LINE__, "dddd, MMMM dd, yyyy",  "dddd , _1 MMMM _1 dd , _1 yyyy"},
    {__LINE__, "M/d/yy",               "M / d / yy"},
    {__LINE__, "yyyy-MM-dd",           "yyyy - MM - dd"},
    {__LINE__, "hh.mm.ss.mmmmmm AMPM", "hh . mm . ss . mmmmmm _1 AMPM"},
    {__LINE__, "hhh:mm",               "hhh : mm"},
    {__LINE__, "h hhhh",               "h _1 hhhh"},
    {__LINE__, "ddd MMM",              "ddd _1 MMM"},
    {__LINE__, "yyyyMMdd",             "yyyy MM dd"},          // eight bytes, and yet no second reading
    {__LINE__, "12345678",             "none"},
    {__LINE__, "'Week' d",             "'Week' _1 d"},
    {__LINE__, "''",                   "''"},
    {__LINE__, "'a''b'",               "'a' 'b'"},             // no way to quote a quote
    {__LINE__, "'\x94\x4E;\n\x01'",    "'\x94\x4E;\n\x01'"},
    {__LINE__, "'",                    "none"},
    {__LINE__, "'ab",                  "none"},
    {__LINE__, "d'",                   "none"},
    {__LINE__, "\x94\x4E",             "none"},                // double-byte text stands in quotes only
    {__LINE__, ",-./:\\",              ", - . / : \\"},
    {__LINE__, " ",                    "_1"},
    {__LINE__, "\t",                   "_1"},
    {__LINE__, " \t\n d",              "_4 d"},
    {__LINE__, "\r",                   "none"},
    {__LINE__, "",                     "none"},
    // runs that are cut from the left
    {__LINE__, "y",                    "none"},
    {__LINE__, "yyy",                  "none"},
    {__LINE__, "yyyyy",                "none"},
    {__LINE__, "yyyyyy",               "yyyy yy"},
    {__LINE__, "m",                    "none"},
    {__LINE__, "mmm",                  "none"},
    {__LINE__, "mmmm",                 "mm mm"},
    {__LINE__, "mmmmm",                "none"},
    {__LINE__, "mmmmmmm",              "none"},
    {__LINE__, "mmmmmmmm",             "mmmmmm mm"},
    {__LINE__, "mmss",                 "mm ss"},
    {__LINE__, "s",                    "none"},
    {__LINE__, "sss",                  "none"},
    {__LINE__, "ssss",                 "ss ss"},
    // runs that are not
    {__LINE__, "MMMMM",                "none"},
    {__LINE__, "ddddd",                "none"},
    {__LINE__, "hhhhh",                "none"},
    {__LINE__, "dMh",                  "d M h"},
    // letters count in their case, and nothing else is a picture
    {__LINE__, "AMPM",                 "AMPM"},
    {__LINE__, "AMPMAMPM",             "AMPM AMPM"},
    {__LINE__, "A",                    "none"},
    {__LINE__, "AM",                   "none"},
    {__LINE__, "AMP",                  "none"},
    {__LINE__, "PM",                   "none"},
    {__LINE__, "ampm",                 "none"},
    {__LINE__, "D",                    "none"},
    {__LINE__, "Y",                    "none"},
    {__LINE__, "H",                    "none"},
    {__LINE__, "1",                    "none"},
    {__LINE__, "MM;dd",                "none"},
    {__LINE__, "MM_dd",                "none"},
};

constexpr ParseCase kValues[] = {
    {__LINE__, "1/2/2003",             "1 / 2 / 2003"},
    {__LINE__, "Jan 2, 2003",          "'Jan' _1 2 , _1 2003"},
    {__LINE__, "12:30 PM",             "12 : 30 _1 'PM'"},
    {__LINE__, "1/2/03x",              "1 / 2 / 3 'x'"},
    {__LINE__, "'Jan 1'2",             "'Jan 1' 2"},
    {__LINE__, "''",                   "''"},
    {__LINE__, "#",                    "none"},
    {__LINE__, "1 (2)",                "none"},
    {__LINE__, "'Jan",                 "none"},
    {__LINE__, "1\r2",                 "none"},
    {__LINE__, "\x7F",                 "none"},
    {__LINE__, "\x80",                 "none"},
    {__LINE__, "",                     "none"},
    // the year mark: four digits that begin with "00"
    {__LINE__, "0099",                 "99!"},
    {__LINE__, "0000",                 "0!"},
    {__LINE__, "099",                  "99"},
    {__LINE__, "00099",                "99"},
    {__LINE__, "0100",                 "100"},
    {__LINE__, "2147483647",           "2147483647"},
    {__LINE__, "2147483648",           "2147483647"},          // too large, and above every range
    {__LINE__, "4278190081",           "2147483647"},          // would read as the year 1, written out
    {__LINE__, "99999999999999999999", "2147483647"},
    // words: single bytes, and pairs of a lead and a trail byte
    {__LINE__, "\xA0\xDF\xFD\xFE" "a", "'\xA0\xDF\xFD\xFE" "a'"},
    {__LINE__, "\x94\x4E" "1\x8C\x8E", "'\x94\x4E' 1 '\x8C\x8E'"},
    {__LINE__, "\x81\x40\x81\x5B",     "'\x81\x40\x81\x5B'"},  // trail bytes that are no letters
    {__LINE__, "\x81",                 "'\x81'"},              // a lead byte alone at the end
    {__LINE__, "\x81 \x81" "1\x81/",   "'\x81' _1 '\x81' 1 '\x81' /"},
    {__LINE__, "\x81\x80",             "'\x81\x80'"},
    {__LINE__, "\x81\x81\x5B",         "none"},                // the first two are a pair: no lead is left for the third
    {__LINE__, "\x81\x7F",             "none"},
    // eight bytes and one element: read again with blanks between
    {__LINE__, "19991231",             "1999 _1 12 _1 31"},
    {__LINE__, "12345678",             "1234 _1 56 _1 78"},
    {__LINE__, "00991231",             "99! _1 12 _1 31"},
    {__LINE__, "December",             "'Dece' _1 'mb' _1 'er'"},
    {__LINE__, "        ",             "_10"},
    {__LINE__, "'abcdef'",             "'abc de f'"},
    {__LINE__, "'abc/12'",             "'abc /1 2'"},
    {__LINE__, "1999-123",             "1999 - 123"},
    {__LINE__, "199912312",            "199912312"},
    {__LINE__, "\x94\x4E\x94\x4E\x94\x4E\x94\x4E", "'\x94\x4E\x94\x4E' _1 '\x94\x4E' _1 '\x94\x4E'"},
    {__LINE__, "a\x94\x4E\x94\x4E\x94\x4E" "b", "'a\x94\x4E\x94' _1 'N\x94' _1 'Nb'"},
};

// clang-format on

TEST(ParseDatePic, Pictures) {
    ExpectParsed(kPictures, kModePicture);
}

TEST(ParseDatePic, ValuesAreReadAlikeInAllModes) {
    for (const int32_t mode : {kModeDate, kModeTime, kModeDateTime}) ExpectParsed(kValues, mode);
}

TEST(ParseDatePic, OtherModesGiveNothing) {
    for (const int32_t mode : {-1, 0, 5, 0x7FFFFFFF}) EXPECT_EQ(DescribeText("M", mode), "none") << mode;
    for (const int32_t mode : {1, 2, 3, 4}) EXPECT_EQ(FMTParseDatePic(nullptr, mode), nullptr) << mode;
    FMTFreeDatePic(nullptr);
}

// A byte 0xFF ends the text where a token would begin, and closes a token that is waiting for more.
TEST(ParseDatePic, InnerEnds) {
    static constexpr ParseCase kRows[] = {
        {__LINE__, "\xFF", "none"},
        {__LINE__, "MM\xFF", "MM"},
        {__LINE__, "MM\xFFMM", "MM MM"},
        {__LINE__, "MM\xFF\xFFMM", "MM"},
        {__LINE__, "yy\xFFyy", "yy yy"},
        {__LINE__, "yyyy\xFFyy", "yyyy"},  // complete before the byte is looked at
        {__LINE__, "M/\xFF!", "M /"},
        {__LINE__, "M\xFF!", "none"},
        {__LINE__, "mmmm\xFFmm", "mm mm mm"},
        {__LINE__, "mmm\xFFm", "none"},
        {__LINE__, "'a\xFF'", "none"},
    };
    ExpectParsed(kRows, kModePicture);
    EXPECT_EQ(DescribeText("12\xFF"
                           "34",
                           kModeDate),
              "12 34");
}

// The bytes 0x02, n, 0x02 put another state in force inside a text.
TEST(ParseDatePic, StateSwitches) {
    static constexpr ParseCase kRows[] = {
        {__LINE__, "M\x02\x01\x02Mar\x02\x02\x02M", "M 'Mar' M"},
        {__LINE__, "\x02\x02\x02M", "M"},
        {__LINE__, "\x02\x01\x02", "none"},
        {__LINE__, "M\x02\x03\x02", "none"},  // shapes have no elements
        {__LINE__, "M\x02\x05\x02\x02\x02\x02M", "none"},
        {__LINE__, "M\x02\x06\x02", "none"},
        {__LINE__, "M\x02\x01", "none"},
        {__LINE__, "'\x02\x01\x02'", "'\x02\x01\x02'"},
    };
    ExpectParsed(kRows, kModePicture);
    EXPECT_EQ(DescribeText("\x02\x01\x02March", kModeDate), "'M' _1 'ar' _1 'ch'");
}

// What comes before a token of over 100 bytes is the whole result.
TEST(ParseDatePic, LongTokens) {
    const auto quoted = [](size_t inside) { return "'" + std::string(inside, 'x') + "'"; };
    EXPECT_EQ(DescribeText("MM" + quoted(98), kModePicture), "MM " + quoted(98));
    EXPECT_EQ(DescribeText("MM" + quoted(99), kModePicture), "MM");
    EXPECT_EQ(DescribeText("MM" + quoted(99) + "#", kModePicture), "MM");
    EXPECT_EQ(DescribeText(quoted(99), kModePicture), "none");
    EXPECT_EQ(DescribeText("MM" + std::string(99, ' ') + "dd", kModePicture), "MM _99 dd");
    EXPECT_EQ(DescribeText("MM" + std::string(100, ' ') + "dd", kModePicture), "MM");
    EXPECT_EQ(DescribeText("MM" + std::string(100, ' '), kModePicture), "MM");
    EXPECT_EQ(DescribeText("dd" + std::string(99, 'M'), kModePicture), "none");
    EXPECT_EQ(DescribeText("dd" + std::string(100, 'M'), kModePicture), "dd");
    EXPECT_EQ(DescribeText("1/" + std::string(99, '0'), kModeDate), "1 / 0");
    EXPECT_EQ(DescribeText("1/" + std::string(100, '0'), kModeDate), "1 /");
    EXPECT_EQ(DescribeText(std::string(98, 'x') + "\x81" + "1", kModeDate), "'" + std::string(98, 'x') + "\x81' 1");
    EXPECT_EQ(DescribeText(std::string(99, 'x') + "\x81" + "1", kModeDate), "none");
}

// A list beyond the room that a DatePicList has of its own.
TEST(ParseDatePic, LongLists) {
    std::string picture;
    std::string want;
    for (int i = 0; i < 60; ++i) {
        picture += "'text'd";
        want += i == 0 ? "'text' d" : " 'text' d";
    }
    EXPECT_EQ(DescribeText(picture, kModePicture), want);
}

}  // namespace
