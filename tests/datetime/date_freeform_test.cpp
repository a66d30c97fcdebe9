// The free-form attempt: shapes of texts and the pictures chosen for them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "datetime/date_freeform.h"

namespace {

std::string Guess(const std::string& text, int32_t kind, bool allowUs = true) {
    char picture[kGuessedPicSize];
    return FMTGuessDatePic(text.c_str(), kind, picture, allowUs) == 1 ? picture : "none";
}

// Texts of one kind, 1 dates, 2 times, 3 dates and times, that are read by one picture.
struct GuessCase {
    int32_t kind;
    const char* picture;
    std::vector<const char*> texts;
};

const GuessCase kCases[] = {
    {1, "M/d/yyyy", {"1/2/2003", "01.02\\2003", " \t1/2/2003\r\n", "1/2/2003\n"}},
    {1, "yyyy-MM-dd", {"2003-01-02", "2003-1-2"}},
    {1, "MMM d, yyyy", {"Jan 2, 2003", "Xyz 2,2003"}},  // words are looked up later
    {1, "MMM dd, yyyy", {"Jan 12, 2003"}},
    {1, "MMMM d, yyyy", {"Sept 2 2003"}},
    {1, "MMMM dd, yyyy", {"January 12, 2003"}},
    {1, "d MMM, yyyy", {"2 Jan, 2003"}},
    {1, "dd MMM, yyyy", {"12 Jan 2003"}},
    {1, "d MMMM, yyyy", {"2 June, 2003"}},
    {1, "dd MMMM, yyyy", {"12 January, 2003"}},
    {1, "d-MMM-yyyy", {"2-Jan-2003", "12-Jan-03", "2/Jan,2003"}},
    {1, "none", {"1/2/03", "123/2/2003", "1/223/2003", "1/2/20033", "1 /2/2003"}},
    {1, "none", {"2003/01/02", "2003-01/02", "2003-001-02", "2003-01-002"}},
    {1, "none", {"Ja 2, 2003", "Jan 123, 2003", "Jan 2, 203", "Jan 2, 20033"}},
    // the shape has room for a tab, its reading hasn't
    {1, "none", {"Jan\t2, 2003", "Jan \t2, 2003", "Jan 2,\t2003"}},
    {1, "none", {"12 Ja, 2003", "112 Jan, 2003", "2-June-2003", "2-Jan-003", "122-Jan-2003"}},
    {1, "none", {"", "#1/2/2003", "1/2/2003 x", "1/2/2003 1/2/2003", "1/2/2003 12:30", "12:30"}},
    {2, "hhhh.mm.ss.mmmmmm", {"12:30", "12", "1.2,3:456789"}},
    {2, "hh.mm.ss.mmmmmm AMPM", {"12:30 PM", "12x"}},
    {2, "none", {"1.2,3:4567890", "12:345", "123:45", "12-30", "12:30:", "12:30 P.M.", "12:30 12:30", "1/2/2003"}},
    {3, "yyyy-MM-dd-hhhh.mm.ss.mmmmmm", {"2003-01-02-12.30.15.123456", "2003-01-02 12.30"}},
    {3, "MMM d, yyyy hh.mm.ss.mmmmmm AMPM", {"Jan 2, 2003 1:15 AM"}},
    {3, "dd MMMM, yyyy hhhh.mm.ss.mmmmmm", {"12 January, 2003 12:30"}},
    {3, "d-MMM-yyyy hhhh.mm.ss.mmmmmm", {"2-Jan-2003 1"}},
    {3, "M/d/yyyy hh.mm.ss.mmmmmm AMPM", {"1/2/2003"}},
    {3, "M/d/yyyy hhhh.mm.ss.mmmmmm", {"1/2/2003-12", " 1/2/2003 12:30 "}},
    {3, "none", {"1/2/2003 ", " 1/2/2003"}},  // these wait for a time
    {3, "none", {"1/2/03 12:30", "12:30", "1/2/2003 12:30 12", "1/2/2003 1/2/2003"}},
    // text that switches the scanner to another state, or ends it
    {1, "M/d/yyyy", {"1/2/2003\x02\x04\x02", "1/2/2003\xFF", "1/2/2003\xFF\xFF#"}},
    {1, "none", {"1/2/2003\x02\x04\00212", "1/2/2003\x02\x01\00212", "\x02\x01\00212"}},
    // line feeds before a shape vanish
    {1, "M/d/yyyy", {"1/2/2003\xFF\n\n"}},
    {1, "none", {"1/2/2003\xFF\nx"}},
};

// Under other countries one shape is none.
TEST(GuessDatePic, Shapes) {
    for (const GuessCase& c : kCases) {
        const std::string picture = c.picture;
        for (const char* text : c.texts) {
            EXPECT_EQ(Guess(text, c.kind), picture) << text;
            EXPECT_EQ(Guess(text, c.kind, false), picture.starts_with("M/d/yyyy") ? "none" : picture) << text;
        }
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
