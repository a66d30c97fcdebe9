// The long date picture of the profile, its separators freed of their quotes.
#include <gtest/gtest.h>

#include <cstring>
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
    int line;
    const char* picture;
    const char* want;
    int32_t country = 1;
};
// clang-format off
constexpr FixCase kPictures[] = {
    {__LINE__, "",                       ""},
    {__LINE__, "dddd, MMMM dd, yyyy",    "dddd, MMMM dd, yyyy"},
    {__LINE__, "d'. 'MMMM",              "d. MMMM"},             // separators and blanks only
    {__LINE__, "d'  'MMMM",              "d  MMMM"},
    {__LINE__, "''",                     ""},
    {__LINE__, "''x",                    "x"},
    {__LINE__, "d'.-/:\\,'M",            "d.-/:\\,M"},           // all the separators
    {__LINE__, "d 'de' MMMM",            "d 'de' MMMM"},         // text only
    {__LINE__, "'x.y.z' d",              "'x'.'y'.'z' d"},       // both
    {__LINE__, "'.x' d",                 ".'x' d"},
    {__LINE__, "'x.' d",                 "'x'. d"},
    {__LINE__, "'a - b' x",              "'a '-' b' x"},
    {__LINE__, "'..x,,'",                "..'x',,"},
    {__LINE__, "'a' 'b",                 "'a' 'b"},              // one without a partner
    {__LINE__, "'",                      "'"},
    {__LINE__, "d'.'MMMM'.'yyyy' x'",    "d.MMMM.yyyy' x'"},     // several runs
    {__LINE__, "d. MMMMta yyyy",         "d. MMMM'ta' yyyy",     358},
    {__LINE__, "d. MMMMta yyyy",         "d. MMMMta yyyy",       357},
    {__LINE__, "d'. 'MMMMta",            "d. MMMM'ta'",          358},
    {__LINE__, "MMMM MMMMta",            "MMMM MMMMta",          358},  // the first run of M counts
    {__LINE__, "dddd yyyy",              "dddd yyyy",            358},
    {__LINE__, "MMMMt",                  "MMMM't'",              358},
    {__LINE__, "MMMM",                   "MMMM",                 358},
    // what grows beyond 39 bytes is cut
    {__LINE__, "'1.2.3.4.5.6.7.8.9.a.b.c'", "'1'.'2'.'3'.'4'.'5'.'6'.'7'.'8'.'9'.'a'"},
    {__LINE__, "dddd, d. dddd, d. dddd, d. d. MMMMta yy", "dddd, d. dddd, d. dddd, d. d. MMMM'ta' ", 358},
};
// clang-format on

TEST(FixLongDatePic, Pictures) {
    for (const FixCase& c : kPictures) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EXPECT_EQ(Fix(c.picture, c.country), c.want);
    }
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
