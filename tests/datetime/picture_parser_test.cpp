// Date pictures and date text as lists of elements: what is accepted, what is rejected.
#include <gtest/gtest.h>

#include <initializer_list>
#include <span>
#include <string>
#include <utility>

#include "elements.h"

namespace {

struct ParseCase {
    const char* text;
    const char* want;
};

void ExpectParsed(int32_t mode, std::span<const ParseCase> rows) {
    for (const ParseCase& c : rows) EXPECT_EQ(DescribeText(c.text, mode), c.want) << c.text;
}

void ExpectRejected(int32_t mode, std::initializer_list<const char*> texts) {
    for (const char* text : texts) EXPECT_EQ(DescribeText(text, mode), "none") << text;
}

TEST(ParseDatePic, Pictures) {
    static constexpr ParseCase kRows[] = {
        {"dddd, MMMM dd, yyyy", "dddd , _1 MMMM _1 dd , _1 yyyy"},
        {"hh.mm.ss.mmmmmm AMPM", "hh . mm . ss . mmmmmm _1 AMPM"},
        {"M/d/yy", "M / d / yy"},
        {"hhh:mm", "hhh : mm"},
        {"h hhhh", "h _1 hhhh"},
        {"ddd MMM", "ddd _1 MMM"},
        {"yyyyMMdd", "yyyy MM dd"},  // eight bytes, and yet no second reading
        {"AMPMAMPM", "AMPM AMPM"},
        {"'Week' d", "'Week' _1 d"},
        {"''", "''"},
        {"'a''b'", "'a' 'b'"},  // no way to quote a quote
        {"'\x94\x4E;\n\x01'", "'\x94\x4E;\n\x01'"},
        {",-./:\\", ", - . / : \\"},
        {" ", "_1"},
        {"\t", "_1"},
        {" \t\n d", "_4 d"},
    };
    ExpectParsed(kModePicture, kRows);
    ExpectRejected(kModePicture, {"", "12345678", "1", "\r", "'", "'ab", "d'", "MM;dd", "MM_dd"});
    ExpectRejected(kModePicture, {"A", "AM", "AMP", "PM", "ampm", "D", "Y", "H"});  // letters count in their case
    ExpectRejected(kModePicture, {"\x94\x4E"});  // double-byte text stands in quotes only
}

TEST(ParseDatePic, RunsAreCutFromTheLeft) {
    static constexpr ParseCase kRows[] = {
        {"yyyyyy", "yyyy yy"}, {"mmmm", "mm mm"}, {"mmmmmmmm", "mmmmmm mm"},
        {"mmss", "mm ss"},     {"ssss", "ss ss"}, {"dMh", "d M h"},
    };
    ExpectParsed(kModePicture, kRows);
    ExpectRejected(kModePicture, {"y", "yyy", "yyyyy", "m", "mmm", "mmmmm", "mmmmmmm", "s", "sss"});
    ExpectRejected(kModePicture, {"MMMMM", "ddddd", "hhhhh"});  // these are never cut
}

constexpr ParseCase kValues[] = {
    {"1/2/2003", "1 / 2 / 2003"},    {"Jan 2, 2003", "'Jan' _1 2 , _1 2003"},
    {"12:30 PM", "12 : 30 _1 'PM'"}, {"1/2/03x", "1 / 2 / 3 'x'"},
    {"'Jan 1'2", "'Jan 1' 2"},       {"''", "''"},
};
// The year mark: four digits that begin with "00". What is too large lies above every range.
constexpr ParseCase kNumbers[] = {
    {"0099", "99!"},
    {"0000", "0!"},
    {"099", "99"},
    {"00099", "99"},
    {"0100", "100"},
    {"2147483647", "2147483647"},
    {"2147483648", "2147483647"},
    {"4278190081", "2147483647"},  // would read as the year 1, written out
    {"99999999999999999999", "2147483647"},
};
// Single bytes, and pairs of a lead and a trail byte.
constexpr ParseCase kWords[] = {
    {"\xA0\xDF\xFD\xFEx", "'\xA0\xDF\xFD\xFEx'"},
    {"\x94N1\x8C\x8E", "'\x94N' 1 '\x8C\x8E'"},
    {"\x81@\x81[", "'\x81@\x81['"},  // trail bytes that are no letters
    {"\x81", "'\x81'"},              // a lead byte alone at the end
    {"\x81 \2011\x81/", "'\x81' _1 '\x81' 1 '\x81' /"},
    {"\x81\x80", "'\x81\x80'"},
};
// Eight bytes and one element: read again with blanks between.
constexpr ParseCase kEightBytes[] = {
    {"19991231", "1999 _1 12 _1 31"},
    {"12345678", "1234 _1 56 _1 78"},
    {"00991231", "99! _1 12 _1 31"},
    {"December", "'Dece' _1 'mb' _1 'er'"},
    {"        ", "_10"},
    {"'abcdef'", "'abc de f'"},
    {"'abc/12'", "'abc /1 2'"},
    {"1999-123", "1999 - 123"},
    {"199912312", "199912312"},
    {"\x94N\x94N\x94N\x94N", "'\x94N\x94N' _1 '\x94N' _1 '\x94N'"},
    {"a\x94N\x94N\x94Nz", "'a\x94N\x94' _1 'N\x94' _1 'Nz'"},
};

TEST(ParseDatePic, ValuesAreReadAlikeInAllModes) {
    for (const int32_t mode : {kModeDate, kModeTime, kModeDateTime}) {
        ExpectParsed(mode, kValues);
        ExpectParsed(mode, kNumbers);
        ExpectParsed(mode, kWords);
        ExpectParsed(mode, kEightBytes);
        ExpectRejected(mode, {"", "#", "1 (2)", "'Jan", "1\r2", "\x7F", "\x80", "\x81\x7F"});
        ExpectRejected(mode, {"\x81\x81["});  // the first two are a pair: no lead is left for the third
    }
}

TEST(ParseDatePic, OtherModesGiveNothing) {
    for (const int32_t mode : {-1, 0, 5, 0x7FFFFFFF}) EXPECT_EQ(DescribeText("M", mode), "none") << mode;
    for (const int32_t mode : {1, 2, 3, 4}) EXPECT_EQ(FMTParseDatePic(nullptr, mode), nullptr) << mode;
    FMTFreeDatePic(nullptr);
}

// A byte 0xFF ends the text where a token would begin, and closes a token that is waiting for more.
TEST(ParseDatePic, InnerEnds) {
    static constexpr ParseCase kRows[] = {
        {"MM\xFF", "MM"},      {"MM\xFFMM", "MM MM"},      {"MM\xFF\xFFMM", "MM"},
        {"yy\xFFyy", "yy yy"}, {"yyyy\xFFyy", "yyyy"},  // complete before the byte is looked at
        {"M/\xFF!", "M /"},    {"mmmm\xFFmm", "mm mm mm"},
    };
    ExpectParsed(kModePicture, kRows);
    ExpectRejected(kModePicture, {"\xFF", "M\xFF!", "mmm\xFFm", "'a\xFF'"});
    EXPECT_EQ(DescribeText("12\37734", kModeDate), "12 34");
}

// The bytes 0x02, n, 0x02 put another state in force inside a text.
TEST(ParseDatePic, StateSwitches) {
    static constexpr ParseCase kRows[] = {
        {"M\x02\x01\x02Mar\x02\x02\x02M", "M 'Mar' M"},
        {"\x02\x02\x02M", "M"},
        {"'\x02\x01\x02'", "'\x02\x01\x02'"},
        {"M\x02\x03\x02", "M"},  // shapes have no elements
        {"M\x02\x03\x02\n", "M"},
        {"M\x02\x05\x02\x02\x02\x02M", "M M"},
    };
    ExpectParsed(kModePicture, kRows);
    ExpectRejected(kModePicture, {"\x02\x01\x02", "M\x02\x06\x02", "M\x02\x01", "M\x02\x04\x02 ", "\x02\x03\x02"});
    ExpectRejected(kModePicture, {"M\x02\x03\x02\n1/2/2003", "\x02\x03\x02\n1/2/2003"});
    EXPECT_EQ(DescribeText("\x02\x01\x02March", kModeDate), "'M' _1 'ar' _1 'ch'");
}

// What comes before a token of over 100 bytes is the whole result.
TEST(ParseDatePic, LongTokens) {
    const auto run = [](size_t length, char c) { return std::string(length, c); };
    const auto quoted = [run](size_t inside) { return "'" + run(inside, 'x') + "'"; };
    const std::pair<std::string, std::string> pictures[] = {
        {"MM" + quoted(98), "MM " + quoted(98)},
        {"MM" + quoted(99), "MM"},
        {"MM" + quoted(99) + "#", "MM"},
        {quoted(99), "none"},
        {"MM" + run(99, ' ') + "dd", "MM _99 dd"},
        {"MM" + run(100, ' ') + "dd", "MM"},
        {"MM" + run(100, ' '), "MM"},
        {"dd" + run(99, 'M'), "none"},
        {"dd" + run(100, 'M'), "dd"},
    };
    for (const auto& [text, want] : pictures) EXPECT_EQ(DescribeText(text, kModePicture), want);
    EXPECT_EQ(DescribeText("1/" + run(99, '0'), kModeDate), "1 / 0");
    EXPECT_EQ(DescribeText("1/" + run(100, '0'), kModeDate), "1 /");
    EXPECT_EQ(DescribeText(run(98, 'x') + "\x81/", kModeDate), "'" + run(98, 'x') + "\x81' /");
    EXPECT_EQ(DescribeText(run(99, 'x') + "\x81/", kModeDate), "none");
}

// A list beyond the room that a DatePicList has of its own.
TEST(ParseDatePic, LongLists) {
    std::string picture = "d";
    std::string want = "d";
    for (int i = 0; i < 60; ++i) {
        picture += "'text'd";
        want += " 'text' d";
    }
    EXPECT_EQ(DescribeText(picture, kModePicture), want);
}

}  // namespace
