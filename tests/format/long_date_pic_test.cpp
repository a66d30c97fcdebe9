// The long date picture of the profile, its separators freed of their quotes.
#include <gtest/gtest.h>

#include <cstring>
#include <span>
#include <string>

#include "format/settings.h"
#include "support/locale.h"

namespace {

std::string Fix(const std::string& picture, int32_t country = 1) {
    char buffer[kLongDatePicSize + 4];
    std::memset(buffer, 0x7E, sizeof buffer);
    std::strcpy(buffer, picture.c_str());
    FMTFixLongDatePic(buffer, country);
    EXPECT_EQ(std::string(buffer + kLongDatePicSize, 4), "~~~~");
    return buffer;
}

struct FixCase {
    const char* picture;
    const char* want;
    int32_t country = 1;
};
constexpr FixCase kPictures[] = {
    {"", ""},
    {"dddd, MMMM dd, yyyy", "dddd, MMMM dd, yyyy"},
    {"d'. 'MMMM", "d. MMMM"},  // separators and blanks only
    {"d'  'MMMM", "d  MMMM"},
    {"''", ""},
    {"''x", "x"},
    {"d'.-/:\\,'M", "d.-/:\\,M"},    // all the separators
    {"d 'de' MMMM", "d 'de' MMMM"},  // text only
    {"'x.y.z' d", "'x'.'y'.'z' d"},  // both
    {"'.x' d", ".'x' d"},
    {"'x.' d", "'x'. d"},
    {"'a - b' x", "'a '-' b' x"},
    {"'..x,,'", "..'x',,"},
    {"'a' 'b", "'a' 'b"},  // one without a partner
    {"'", "'"},
    {"d'.'MMMM'.'yyyy' x'", "d.MMMM.yyyy' x'"},  // several runs
};
constexpr FixCase kFinnish[] = {
    {"d. MMMMta yyyy", "d. MMMM'ta' yyyy", 358}, {"dddd yyyy", "dddd yyyy", 358}, {"d'. 'MMMMta", "d. MMMM'ta'", 358},
    {"MMMM MMMMta", "MMMM MMMMta", 358},  // the first run of M counts
    {"d. MMMMta yyyy", "d. MMMMta yyyy", 357},   {"MMMMt", "MMMM't'", 358},       {"MMMM", "MMMM", 358},
};
// What grows beyond 39 bytes is cut.
constexpr FixCase kLongPictures[] = {
    {"'1.2.3.4.5.6.7.8.9.a.b.c'", "'1'.'2'.'3'.'4'.'5'.'6'.'7'.'8'.'9'.'a'"},
    {"dddd, d. dddd, d. dddd, d. d. MMMMta yy", "dddd, d. dddd, d. dddd, d. d. MMMM'ta' ", 358},
};

void ExpectFixed(std::span<const FixCase> cases) {
    for (const FixCase& c : cases) EXPECT_EQ(Fix(c.picture, c.country), c.want) << c.picture;
}

TEST(FixLongDatePic, Pictures) {
    ExpectFixed(kPictures);
    ExpectFixed(kFinnish);
    ExpectFixed(kLongPictures);
}

// 0x83 0x5C ends in "\", 0x81 0x27 would end in an apostrophe if there were such a character.
TEST(FixLongDatePicJapanese, DoubleByteCharactersStayWhole) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(Fix("yyyy'\x94\x4E'M'\x8C\x8E'"), "yyyy'\x94\x4E'M'\x8C\x8E'");
    EXPECT_EQ(Fix("'\x83\x5C' d"), "'\x83\x5C' d");
    EXPECT_EQ(Fix("'\x83\x5C.' d"), "'\x83\x5C'. d");
    EXPECT_EQ(Fix("\x81' 'x"), "\x81' 'x");  // an apostrophe that is half of a character pairs with nothing
    EXPECT_EQ(Fix("dddd dddd dddd dddd dddd d'x.\x94\x4E.x'y"), "dddd dddd dddd dddd dddd d'x'.'\x94\x4E'.'x'y");
    EXPECT_EQ(Fix("dddd dddd dddd dddd dddd dddd'x,y,\x94\x4E'"), "dddd dddd dddd dddd dddd dddd'x','y','");
}

}  // namespace
