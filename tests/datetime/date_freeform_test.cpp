// The free-form attempt: shapes of texts and the pictures chosen for them.
#include <gtest/gtest.h>

#include <string>

#include "datetime/date_freeform.h"

namespace {

std::string Guess(const std::string& text, int32_t kind, bool allowUs = true) {
    char picture[kGuessedPicSize];
    return FMTGuessDatePic(text.c_str(), kind, picture, allowUs) == 1 ? picture : "none";
}

struct GuessCase {
    int line;
    const char* text;
    int32_t kind;
    const char* want;
};

// clang-format off
constexpr GuessCase kRows[] = {
    {__LINE__, "1/2/2003",          1, "M/d/yyyy"},
    {__LINE__, "01.02\\2003",       1, "M/d/yyyy"},
    {__LINE__, "1/2/03",            1, "none"},
    {__LINE__, "123/2/2003",        1, "none"},
    {__LINE__, "1/223/2003",        1, "none"},
    {__LINE__, "1/2/20033",         1, "none"},
    {__LINE__, "1 /2/2003",         1, "none"},
    {__LINE__, "2003-01-02",        1, "yyyy-MM-dd"},
    {__LINE__, "2003-1-2",          1, "yyyy-MM-dd"},
    {__LINE__, "2003/01/02",        1, "none"},
    {__LINE__, "2003-01/02",        1, "none"},
    {__LINE__, "2003-001-02",       1, "none"},
    {__LINE__, "2003-01-002",       1, "none"},
    {__LINE__, "Jan 2, 2003",       1, "MMM d, yyyy"},
    {__LINE__, "Jan 12, 2003",      1, "MMM dd, yyyy"},
    {__LINE__, "Sept 2 2003",       1, "MMMM d, yyyy"},
    {__LINE__, "January 12, 2003",  1, "MMMM dd, yyyy"},
    {__LINE__, "Xyz 2,2003",        1, "MMM d, yyyy"},   // words are looked up later
    {__LINE__, "Ja 2, 2003",        1, "none"},
    {__LINE__, "Jan 123, 2003",     1, "none"},
    {__LINE__, "Jan 2, 203",        1, "none"},
    {__LINE__, "Jan 2, 20033",      1, "none"},
    {__LINE__, "Jan\t2, 2003",      1, "none"},          // the shape has room for a tab, its reading hasn't
    {__LINE__, "Jan \t2, 2003",     1, "none"},
    {__LINE__, "Jan 2,\t2003",      1, "none"},
    {__LINE__, "2 Jan, 2003",       1, "d MMM, yyyy"},
    {__LINE__, "12 Jan 2003",       1, "dd MMM, yyyy"},
    {__LINE__, "2 June, 2003",      1, "d MMMM, yyyy"},
    {__LINE__, "12 January, 2003",  1, "dd MMMM, yyyy"},
    {__LINE__, "12 Ja, 2003",       1, "none"},
    {__LINE__, "112 Jan, 2003",     1, "none"},
    {__LINE__, "2-Jan-2003",        1, "d-MMM-yyyy"},
    {__LINE__, "12-Jan-03",         1, "d-MMM-yyyy"},
    {__LINE__, "2/Jan,2003",        1, "d-MMM-yyyy"},
    {__LINE__, "2-June-2003",       1, "none"},
    {__LINE__, "2-Jan-003",         1, "none"},
    {__LINE__, "122-Jan-2003",      1, "none"},
    {__LINE__, " \t1/2/2003\r\n",   1, "M/d/yyyy"},
    {__LINE__, "1/2/2003 x",        1, "none"},
    {__LINE__, "1/2/2003 1/2/2003", 1, "none"},
    {__LINE__, "1/2/2003 12:30",    1, "none"},
    {__LINE__, "12:30",             1, "none"},
    {__LINE__, "",                  1, "none"},
    {__LINE__, "1/2/2003\n",        1, "M/d/yyyy"},
    {__LINE__, "#1/2/2003",         1, "none"},

    {__LINE__, "12:30",             2, "hhhh.mm.ss.mmmmmm"},
    {__LINE__, "12",                2, "hhhh.mm.ss.mmmmmm"},
    {__LINE__, "12:30 PM",          2, "hh.mm.ss.mmmmmm AMPM"},
    {__LINE__, "12x",               2, "hh.mm.ss.mmmmmm AMPM"},
    {__LINE__, "1.2,3:456789",      2, "hhhh.mm.ss.mmmmmm"},
    {__LINE__, "1.2,3:4567890",     2, "none"},
    {__LINE__, "12:345",            2, "none"},
    {__LINE__, "123:45",            2, "none"},
    {__LINE__, "12-30",             2, "none"},
    {__LINE__, "12:30:",            2, "none"},
    {__LINE__, "12:30 P.M.",        2, "none"},
    {__LINE__, "12:30 12:30",       2, "none"},
    {__LINE__, "1/2/2003",          2, "none"},

    {__LINE__, "2003-01-02-12.30.15.123456", 3, "yyyy-MM-dd-hhhh.mm.ss.mmmmmm"},
    {__LINE__, "2003-01-02 12.30",   3, "yyyy-MM-dd-hhhh.mm.ss.mmmmmm"},
    {__LINE__, "Jan 2, 2003 1:15 AM", 3, "MMM d, yyyy hh.mm.ss.mmmmmm AMPM"},
    {__LINE__, "12 January, 2003 12:30", 3, "dd MMMM, yyyy hhhh.mm.ss.mmmmmm"},
    {__LINE__, "2-Jan-2003 1",       3, "d-MMM-yyyy hhhh.mm.ss.mmmmmm"},
    {__LINE__, "1/2/2003",           3, "M/d/yyyy hh.mm.ss.mmmmmm AMPM"},
    {__LINE__, "1/2/2003-12",        3, "M/d/yyyy hhhh.mm.ss.mmmmmm"},
    {__LINE__, "1/2/2003 ",          3, "none"},          // waits for a time
    {__LINE__, " 1/2/2003",          3, "none"},
    {__LINE__, " 1/2/2003 12:30 ",   3, "M/d/yyyy hhhh.mm.ss.mmmmmm"},
    {__LINE__, "1/2/03 12:30",       3, "none"},
    {__LINE__, "12:30",              3, "none"},
    {__LINE__, "1/2/2003 12:30 12",  3, "none"},
    {__LINE__, "1/2/2003 1/2/2003",  3, "none"},
    // text that switches the scanner to another state
    {__LINE__, "1/2/2003\x02\x04\x02",      1, "M/d/yyyy"},
    {__LINE__, "1/2/2003\x02\x04\x02" "12", 1, "none"},
    {__LINE__, "1/2/2003\x02\x01\x02" "12", 1, "none"},
    {__LINE__, "\x02\x01\x02" "12",         1, "none"},
    {__LINE__, "1/2/2003\xFF",              1, "M/d/yyyy"},
    {__LINE__, "1/2/2003\xFF\xFF#",         1, "M/d/yyyy"},
    // line feeds before a shape vanish
    {__LINE__, "1/2/2003\xFF\n\n",          1, "M/d/yyyy"},
    {__LINE__, "1/2/2003\xFF\nx",           1, "none"},
};
// clang-format on

TEST(GuessDatePic, Shapes) {
    for (const GuessCase& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        EXPECT_EQ(Guess(c.text, c.kind), c.want);
    }
}

TEST(GuessDatePic, OnlyOneShapeDependsOnTheCountry) {
    for (const GuessCase& c : kRows) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        const bool isUs = std::string(c.want).rfind("M/d/yyyy", 0) == 0;
        EXPECT_EQ(Guess(c.text, c.kind, false), isUs ? "none" : c.want);
    }
}

// A shape is one token, of at most 99 bytes; what follows a shape in one token too long is not looked at.
TEST(GuessDatePic, LongTexts) {
    const auto blanks = [](size_t count) { return std::string(count, ' '); };
    EXPECT_EQ(Guess("Jan" + blanks(90) + "2, 2003", 1), "none") << "100 bytes";
    EXPECT_EQ(Guess("Jan" + blanks(89) + "2, 2003", 1), "MMM d, yyyy") << "99 bytes";
    EXPECT_EQ(Guess(blanks(300) + "Jan 2, 2003" + blanks(300), 1), "MMM d, yyyy");
    EXPECT_EQ(Guess("1/2/2003" + std::string(99, 'x'), 1), "none");
    EXPECT_EQ(Guess("1/2/2003" + std::string(100, 'x'), 1), "M/d/yyyy");
}

}  // namespace
