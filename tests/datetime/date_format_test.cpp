// Dates and times through pictures, words and the Japanese forms.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include <morvl15/datetime.h>
#include <morvl15/memory.h>

#include "datetime/calendar.h"
#include "datetime/default_pictures.h"
#include "support/profile.h"

namespace {

constexpr uint32_t kBit0 = 1u << 0;
constexpr uint32_t kBit2 = 1u << 2;
constexpr uint32_t kBit6 = 1u << 6;
constexpr uint32_t kBit10 = 1u << 10;
constexpr uint32_t kBit12 = 1u << 12;

// 2 January 2003, 9:05:07 and 120 microseconds, in a block of its own values: 12-hour clock, hours without a zero.
FMTCntlBlock Block(int32_t type = 1) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.Month = 1;
    block.Day = 2;
    block.Year = 2003;
    block.Hour = 9;
    block.Minute = 5;
    block.Second = 7;
    block.Microsecond = 120;
    block.TimeSep = ":";
    block.AMString = "AM";
    block.PMString = "PM";
    return block;
}

// The text, or "<0>" and what stands in Output.
std::string Format(FMTCntlBlock& block) {
    char text[256] = "untouched";
    block.Output = text;
    const int32_t result = FMTFormatDateTime(&block);
    return (result == 1 ? "" : "<0>") + std::string(text);
}

std::string FormatBy(const char* picture, FMTCntlBlock block = Block()) {
    block.LongDatePic = picture;
    return Format(block);
}

TEST(FormatDateTime, Elements) {
    struct {
        int line;
        const char* picture;
        const char* text;
    } const cases[] = {
        {__LINE__, "dddd, MMMM dd, yyyy", "Thursday, January 02, 2003"},
        {__LINE__, "M/d/yy", "1/2/03"},
        {__LINE__, "ddd d MMM yyyy", "Thu 2 Jan 2003"},
        {__LINE__, "hh:mm:ss AMPM", "9:05:07 AM"},
        {__LINE__, "hhhh.mm.ss.mmmmmm", "9.05.07.000120"},
        {__LINE__, "yyyy-MM-dd'T'hh", "2003-01-02T9"},
        {__LINE__, "d\t\tM", "2  1"},  // other blanks come out as blanks
        {__LINE__, "''d", "2"},
        {__LINE__, "q", "<0>"},
        {__LINE__, "d-", "2-"},
        {__LINE__, "dd 'a' 'b' 'c' 'd' 'e' 'f' 'g' 'h' 'i' 'j' 'k' 'l' 'm' 'n' 'o' 'p' 'q' M",
         "02 a b c d e f g h i j k l m n o p q 1"},  // more elements than are kept at once
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EXPECT_EQ(FormatBy(c.picture), c.text);
    }
}

TEST(FormatDateTime, Years) {
    struct {
        int line;
        int32_t year;
        const char* text;
    } const cases[] = {
        {__LINE__, 3, "03 0003"},   {__LINE__, 2003, "03 2003"},   {__LINE__, 10, "10 0010"},
        {__LINE__, 999, "99 0999"}, {__LINE__, 12345, "45 12345"}, {__LINE__, 0, "00 0000"},
        {__LINE__, -5, "0-5 00-5"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        FMTCntlBlock block = Block();
        block.Year = c.year;
        EXPECT_EQ(FormatBy("yy yyyy", block), c.text);
    }
}

TEST(FormatDateTime, Hours) {
    struct {
        int line;
        int32_t hour;
        const char* plain;
        const char* padded;
    } const cases[] = {
        {__LINE__, 0, "12 12 0 0 AM", "12 12 00 0 AM"},     {__LINE__, 9, "9 9 9 9 AM", "09 9 09 9 AM"},
        {__LINE__, 12, "12 12 12 12 PM", "12 12 12 12 PM"}, {__LINE__, 13, "1 1 13 13 PM", "01 1 13 13 PM"},
        {__LINE__, 24, "12 12 24 24 PM", "12 12 24 24 PM"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.plain);
        FMTCntlBlock block = Block();
        block.Hour = c.hour;
        EXPECT_EQ(FormatBy("hh h hhhh hhh AMPM", block), c.plain);
        block.TimeLZero = 1;
        EXPECT_EQ(FormatBy("hh h hhhh hhh AMPM", block), c.padded);
        block.Flags |= kBit12;  // the text that was read had no zero either
        EXPECT_EQ(FormatBy("hh h hhhh hhh AMPM", block), c.plain);
    }
}

TEST(FormatDateTime, Microseconds) {
    struct {
        int line;
        int32_t microsecond;
        uint32_t flags;
        const char* picture;
        const char* text;
    } const cases[] = {
        {__LINE__, -1, 0, "hh:mm:ss.mmmmmm", "9:05:07"},
        {__LINE__, 0, 0, "hh:mm:ss.mmmmmm", "9:05:07.000000"},
        {__LINE__, 0, kBit6, "hh:mm:ss.mmmmmm", "9:05:07"},
        {__LINE__, -1, 0, "mmmmmm hh", " 9"},  // nothing before it to take away
        {__LINE__, 1234567, 0, "mmmmmm", "234567"},
        {__LINE__, 999999, 0, "mmmmmm", "999999"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        FMTCntlBlock block = Block();
        block.Microsecond = c.microsecond;
        block.Flags |= c.flags;
        EXPECT_EQ(FormatBy(c.picture, block), c.text);
    }
}

TEST(FormatDateTime, ValuesOutOfRangeAreWrittenAsTheyAre) {
    FMTCntlBlock block = Block();
    block.Month = 0;
    block.Day = -3;
    EXPECT_EQ(FormatBy("MMM MMMM M MM d dd", block), "  0 00 -3 0-3");
    block.Month = 2000000000;
    block.Day = -2147483647 - 1;
    EXPECT_EQ(FormatBy("M d", block), "2000000000 -2147483648");
    block.Year = 2147483647;
    EXPECT_EQ(FormatBy("yy yyyy", block), "47 2147483647");
    FormatBy("dddd", block);  // no particular day
}

TEST(FormatDateTime, KindsAndForms) {
    struct {
        int line;
        int32_t type, form;
        bool has24Hours;
        uint32_t flags;  // in the place of bits 0 and 2
        const char* text;
    } const cases[] = {
        {__LINE__, 1, 0, false, kBit0, "02/01/2003"},
        {__LINE__, 1, 1, false, kBit0, "1-2-03"},
        {__LINE__, 1, 7, false, kBit0, "<0>"},
        {__LINE__, 2, 0, false, kBit0, "9:05:07 AM"},
        {__LINE__, 2, 0, true, kBit0 | kBit2, "9:05:07:000120"},
        {__LINE__, 2, 0, false, 0, "02/01/2003"},  // without the default time picture
        {__LINE__, 2, 1, false, 0, "1-2-03"},
        {__LINE__, 2, 2, false, 0, "<0>"},
        {__LINE__, 3, 0, true, kBit0, "02/01/2003 9:05:07"},
        {__LINE__, 3, 0, false, 0, "02/01/2003"},
        {__LINE__, 3, 2, true, kBit0,
         "2003\x94\x4E"
         "01\x8C\x8E"
         "02\x93\xFA"
         "9:05:07"},
        {__LINE__, 3, 2, true, 0,
         "2003\x94\x4E"
         "01\x8C\x8E"
         "02\x93\xFA"},
        {__LINE__, 1, 3, true, kBit0,
         "\x95\xBD\x90\xAC"
         "15\x94\x4E"
         "01\x8C\x8E"
         "02\x93\xFA"},
        {__LINE__, 3, 3, true, kBit0,
         "\x95\xBD\x90\xAC"
         "15\x94\x4E"
         "01\x8C\x8E"
         "02\x93\xFA"
         "9:05:07"},
        {__LINE__, 0, 0, false, kBit0, "<0>untouched"},
        {__LINE__, 4, 0, false, kBit0, "<0>untouched"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.text);
        FMTCntlBlock block = Block(c.type);
        block.LongDatePic = "dd/MM/yyyy";
        block.ShortDatePic = "M-d-yy";
        block.DateForm = c.form;
        block.TimeIs24Hour = c.has24Hours ? 1 : 0;
        block.Flags = (block.Flags & ~(kBit0 | kBit2)) | c.flags;
        EXPECT_EQ(Format(block), c.text);
    }
}

TEST(FormatDateTime, Words) {
    const TestProfile profile({{"intl", "sShortDate", "d.M.yy"},
                               {"intl", "sLongDate", "d MMMM yyyy"},
                               {"MORVANEL", "sDateType", "LongGregorian"}});
    constexpr char kEra[] =
        "\x95\xBD\x90\xAC"
        "15\x94\x4E"
        "01\x8C\x8E"
        "02\x93\xFA";
    struct {
        int line;
        int32_t type;
        const char* word;
        std::string text;
    } const cases[] = {
        {__LINE__, 1, "S", "2.1.03"},
        {__LINE__, 1, "L", "2 January 2003"},
        {__LINE__, 1, "", "2 January 2003"},
        {__LINE__, 1, nullptr, "2 January 2003"},
        {__LINE__, 1, "T", "9:05:07 AM"},
        {__LINE__, 3, "T", "9:05:07 AM"},  // once
        {__LINE__, 3, "S", "2.1.03 9:05:07:000120 AM"},
        {__LINE__, 1, "ED", kEra},
        {__LINE__, 3, "ED", kEra},
        {__LINE__, 1, "E", kEra + std::string("9:05:07:000120 AM")},
        {__LINE__, 3, "E", kEra + std::string("9:05:07:000120 AM")},
        {__LINE__, 1, "s", "<0>"},
        {__LINE__, 2, "S", "9:05:07:000120 AM"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.word == nullptr ? "null" : c.word);
        FMTCntlBlock block = Block(c.type);
        block.LongDatePic = c.word;
        EXPECT_EQ(Format(block), c.text);
    }
    FMTCntlBlock block = Block();
    block.LongDatePic = "E";
    block.Microsecond = 0;
    EXPECT_EQ(Format(block), kEra + std::string("9:05:07 AM"));  // a fraction of 0 is left out, and stays so
    EXPECT_NE(block.Flags & kBit6, 0u);
    block.LongDatePic = "T";
    Format(block);
    EXPECT_EQ(block.Flags & kBit2, 0u);
}

TEST(FormatDateTime, FromTheProfile) {
    const TestProfile profile({{"intl", "sShortDate", "dd.MM.yyyy"},
                               {"intl", "sLongDate", "yyyy"},
                               {"intl", "iTime", "1"},
                               {"intl", "iTLZero", "1"},
                               {"intl", "sTime", "h"}});
    FMTCntlBlock block = Block(1);
    block.UseProfile = 1;
    block.DateForm = 0;  // not read
    EXPECT_EQ(Format(block), "02.01.2003");
    block.Flags |= kBit10;
    EXPECT_EQ(Format(block), "2003");
    block.Type = 2;
    EXPECT_EQ(Format(block), "<0>");  // a separator that is no punctuation makes no picture
    block.Flags &= ~kBit0;
    EXPECT_EQ(Format(block), "<0>");
    EXPECT_EQ(FMTGetMaxFormattedDTLen(&block, 0), -1);

    const TestProfile time({{"intl", "sTime", "."}});
    block.Flags |= kBit0 | kBit12;
    EXPECT_EQ(Format(block), "09.05.07.000120");  // bit 12 is for private values
}

TEST(FormatDateTime, JapaneseFormIsTakenFromTheProfile) {
    const TestProfile profile({{"MORVANEL", "sDateType", "JapanEmperor"}});
    FMTCntlBlock block = Block(1);
    block.UseProfile = 1;
    EXPECT_EQ(Format(block),
              "\x95\xBD\x90\xAC"
              "15\x94\x4E"
              "01\x8C\x8E"
              "02\x93\xFA");
}

TEST(FormatEraDate, ErasBeginAndEnd) {
    struct {
        int line;
        int32_t year, month, day;
        const char* era;
        const char* eraYear;
    } const cases[] = {
        {__LINE__, 1868, 9, 29, "\x96\xBE\x8E\xA1", "01"},  {__LINE__, 1912, 7, 29, "\x96\xBE\x8E\xA1", "45"},
        {__LINE__, 1912, 7, 30, "\x91\xE5\x90\xB3", "01"},  {__LINE__, 1926, 12, 24, "\x91\xE5\x90\xB3", "15"},
        {__LINE__, 1926, 12, 25, "\x8F\xBA\x98\x61", "01"}, {__LINE__, 1989, 1, 7, "\x8F\xBA\x98\x61", "64"},
        {__LINE__, 1989, 1, 8, "\x95\xBD\x90\xAC", "01"},   {__LINE__, 2200, 1, 1, "\x95\xBD\x90\xAC", "12"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.eraYear);
        FMTCntlBlock block = Block();
        block.DateForm = 3;
        block.Year = c.year;
        block.Month = c.month;
        block.Day = c.day;
        const std::string text = Format(block);
        EXPECT_EQ(text.size(), 16u);
        EXPECT_EQ(text.substr(0, 6), std::string(c.era) + c.eraYear);
    }
    FMTCntlBlock before = Block(3);
    before.DateForm = 3;
    before.Year = 1868;
    before.Month = 9;
    before.Day = 28;
    EXPECT_EQ(Format(before), "<0>");
    before.DateForm = 0;
    before.LongDatePic = "E";
    EXPECT_EQ(Format(before), "<0>");
}

TEST(MaxFormattedDTLen, BoundsByPicture) {
    struct {
        int line;
        int32_t type;
        const char* picture;
        int32_t minimum, length;
    } const cases[] = {
        {__LINE__, 1, "MMM d, yyyy", 0, 12},
        {__LINE__, 1, "MMM d, yyyy", 20, 20},
        {__LINE__, 1, "dddd, MMMM dd, yyyy", 0, 29},
        {__LINE__, 1, "'Week' M/d/yy   h", 0, 18},
        {__LINE__, 1, "hh.mm.ss.mmmmmm AMPM", 0, 18},
        {__LINE__, 1, "T", 0, 11},
        {__LINE__, 1, "E", 0, 27},
        {__LINE__, 1, "ED", 50, 16},
        {__LINE__, 1, "q", -5, -1},
        {__LINE__, 1, "q", 7, 7},
        {__LINE__, 3, "d", 0, 20 + 1 + 2 + 2 + 1 + 18},
        {__LINE__, 2, "ignored", 0, 18},
        {__LINE__, 0, "d", 9, -1},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        FMTCntlBlock block = Block(c.type);
        block.LongDatePic = c.picture;
        EXPECT_EQ(FMTGetMaxFormattedDTLen(&block, c.minimum), c.length);
    }
    FMTCntlBlock japanese = Block();
    japanese.DateForm = 2;
    EXPECT_EQ(FMTGetMaxFormattedDTLen(&japanese, 16), 16);
    EXPECT_EQ(FMTGetMaxFormattedDTLen(&japanese, -9), -1);
}

TEST(DatePictures, Tests) {
    struct {
        int line;
        const char* picture;
        int32_t valid, hasDate, hasTime;
    } const cases[] = {
        {__LINE__, "", 1, 0, 0},        {__LINE__, "T", 1, 0, 0},    {__LINE__, "S", 1, 0, 0},
        {__LINE__, "L", 1, 0, 0},       {__LINE__, "E", 1, 0, 0},    {__LINE__, "ED", 1, 0, 0},
        {__LINE__, "X", 0, 0, 0},       {__LINE__, "s", 0, 0, 0},    {__LINE__, "hh:mm", 1, 0, 1},
        {__LINE__, "dd hh", 1, 1, 1},   {__LINE__, "yyyy", 1, 1, 0}, {__LINE__, " ", 1, 0, 0},
        {__LINE__, "dd hh q", 0, 0, 0}, {__LINE__, "AMPM", 1, 0, 1}, {__LINE__, nullptr, 0, 0, 0},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture == nullptr ? "null" : c.picture);
        EXPECT_EQ(FMTIsDatePicValid(c.picture), c.valid);
        EXPECT_EQ(FMTDatePicHasDate(c.picture), c.hasDate);
        EXPECT_EQ(FMTDatePicHasTime(c.picture), c.hasTime);
    }
}

TEST(DatePictures, DefaultsAreCopiedAsFarAsThereIsRoom) {
    const TestProfile profile({{"intl", "sShortDate", "d.M.yy"}, {"intl", "sLongDate", "yyyy MMMM"}});
    char buffer[12] = "xxxxxxxxxxx";
    EXPECT_EQ(FMTGetDefaultShortDatePic(buffer, 4), 1);
    EXPECT_STREQ(buffer, "d.M");
    EXPECT_EQ(buffer[4], 'x');
    EXPECT_EQ(FMTGetDefaultLongDatePic(buffer, 12), 1);
    EXPECT_STREQ(buffer, "yyyy MMMM");
    EXPECT_EQ(FMTGetDefaultDatePic(buffer, 12), 1);
    EXPECT_STREQ(buffer, "d.M.yy");
    EXPECT_EQ(FMTGetDefaultDatePic(buffer, 0), 1);
    EXPECT_STREQ(buffer, "d.M.yy");
}

TEST(DatePictures, LongPictureReducedToItsFields) {
    struct {
        int line;
        const char* longPicture;
        int32_t withTime;
        const char* reduced;
    } const cases[] = {
        {__LINE__, "dddd, MMMM dd, yyyy", 0, "MMMM dd, yyyy"},
        {__LINE__, "yyyy MMMM d dddd", 0, "yyyy MMMM d"},
        {__LINE__, "ddd d. MMMM yyyy", 0, "d. MMMM yyyy"},
        {__LINE__, "dd'.'MM", 0, "dd.MM"},
        {__LINE__, "yyyy'x'MM", 0, "yyyy MM"},
        {__LINE__, "dddd", 0, ""},
        {__LINE__, "yyyy, dddd, ddd", 0, "yyyy"},
        {__LINE__, "yyyy   'x'", 0, "yyyy    "},
        {__LINE__, "dddd, MMMM dd", 1, "MMMM dd hh:mm:ss AMPM"},
        {__LINE__, "MMMM dddd", 1, "MMMM hh:mm:ss AMPM"},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.longPicture);
        const TestProfile profile({{"intl", "sLongDate", c.longPicture}});
        char buffer[80] = "x";
        EXPECT_EQ(FMTGetGeeLongDatePic(buffer, sizeof buffer, c.withTime), 1);
        EXPECT_STREQ(buffer, c.reduced);
    }
    const TestProfile bad({{"intl", "sLongDate", "yyyy q"}});
    char buffer[20] = "x";
    EXPECT_EQ(FMTGetGeeLongDatePic(buffer, sizeof buffer, 0), 0);
    EXPECT_STREQ(buffer, "");
    const TestProfile fits({{"intl", "sLongDate", "yyyy-MM-dd"}});
    EXPECT_EQ(FMTGetGeeLongDatePic(buffer, 15, 1), 0);  // no room for the time
    EXPECT_STREQ(buffer, "");
}

TEST(DatePictures, TimePictureAndJoining) {
    FMTCntlBlock block = Block(2);
    char picture[24];
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hh:mm:ss:mmmmmm AMPM");
    block.TimeIs24Hour = 1;
    block.TimeSep = "-/.";  // two bytes at most
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hhhh-/mm-/ss-/mmmmmm");
    block.TimeSep = nullptr;
    block.Flags &= ~kBit2;
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hhhhmmss");
    char* joined = FMTJoinDatePic("d", picture);
    EXPECT_STREQ(joined, "d hhhhmmss");
    MemFree(joined);
}

TEST(FormatDateTime, ALongJoinedPicture) {
    const std::string text(90, 'x');
    const std::string picture = "'" + text + "''" + text + "'d";
    FMTCntlBlock block = Block(3);
    block.Flags &= ~kBit2;
    EXPECT_EQ(FormatBy(picture.c_str(), block), text + text + "2 9:05:07 AM");
}

}  // namespace
