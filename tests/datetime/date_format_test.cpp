// Dates and times through pictures, words and the Japanese forms.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <tuple>

#include <morvl15/memory.h>

#include "date_block.h"
#include "datetime/default_pictures.h"
#include "support/locale.h"
#include "support/profile.h"

namespace {

// 2 January 2003, 9:05:07 and 120 microseconds, in a block of its own values: 12-hour clock, hours without a zero.
FMTCntlBlock Block(int32_t type = FMT_TYPE_DATE) {
    FMTCntlBlock block = DateBlock(type, nullptr);
    SetMoment(&block, {1, 2, 2003, 9, 5, 7, 120});
    return block;
}

std::string FormatBy(const char* picture, FMTCntlBlock block = Block()) {
    block.LongDatePic = picture;
    return WriteValue(&block);
}

TEST(FormatDateTime, Elements) {
    EXPECT_EQ(FormatBy("dddd, MMMM dd, yyyy"), "Thursday, January 02, 2003");
    EXPECT_EQ(FormatBy("M/d/yy"), "1/2/03");
    EXPECT_EQ(FormatBy("ddd d MMM yyyy"), "Thu 2 Jan 2003");
    EXPECT_EQ(FormatBy("hh:mm:ss AMPM"), "9:05:07 AM");
    EXPECT_EQ(FormatBy("hhhh.mm.ss.mmmmmm"), "9.05.07.000120");
    EXPECT_EQ(FormatBy("yyyy-MM-dd'T'hh"), "2003-01-02T9");
    EXPECT_EQ(FormatBy("d\t\tM"), "2  1") << "other blanks come out as blanks";
    EXPECT_EQ(FormatBy("''d"), "2");
    EXPECT_EQ(FormatBy("q"), "<0>");
    EXPECT_EQ(FormatBy("d\x02\x01\x02 5of\x02\x02\x02 M"), "2 of 1") << "date text inside, whose numbers write nothing";
}

// Too long or of too many elements, they leave nothing behind in the place of another picture.
TEST(FormatDateTime, PicturesThatAreNotKept) {
    for (int again = 0; again < 2; ++again) {
        EXPECT_EQ(FormatBy("d-"), "2-");
        EXPECT_EQ(FormatBy("dd 'a' 'b' 'c' 'd' 'e' 'f' 'g' 'h' 'i' 'j' 'k' 'l' 'm' 'n' 'o' 'p' 'q' M"),
                  "02 a b c d e f g h i j k l m n o p q 1");
    }
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(FormatBy("d/d/d/d/d/d/d/d/d/d/d/d/d"), "2/2/2/2/2/2/2/2/2/2/2/2/2");
}

TEST(FormatDateTime, Years) {
    static constexpr std::tuple<int32_t, const char*> kRows[] = {
        {3, "03 0003"},      {2003, "03 2003"}, {10, "10 0010"},  {999, "99 0999"},
        {12345, "45 12345"}, {0, "00 0000"},    {-5, "0-5 00-5"}, {INT_MAX, "47 2147483647"},
    };
    for (const auto& [year, text] : kRows) {
        FMTCntlBlock block = Block();
        block.Year = year;
        EXPECT_EQ(FormatBy("yy yyyy", block), text);
    }
}

FMTCntlBlock WithMicrosecond(int32_t microsecond, uint32_t flags = 0) {
    FMTCntlBlock block = Block();
    block.Microsecond = microsecond;
    block.Flags |= flags;
    return block;
}

TEST(FormatDateTime, Microseconds) {
    EXPECT_EQ(FormatBy("hh:mm:ss.mmmmmm", WithMicrosecond(-1)), "9:05:07");
    EXPECT_EQ(FormatBy("hh:mm:ss.mmmmmm", WithMicrosecond(0)), "9:05:07.000000");
    EXPECT_EQ(FormatBy("hh:mm:ss.mmmmmm", WithMicrosecond(0, FMT_ERA_TIME)), "9:05:07");
    EXPECT_EQ(FormatBy("mmmmmm hh", WithMicrosecond(-1)), " 9") << "nothing before it to take away";
    EXPECT_EQ(FormatBy("mmmmmm", WithMicrosecond(1234567)), "234567");
    EXPECT_EQ(FormatBy("mmmmmm", WithMicrosecond(999999)), "999999");
}

TEST(FormatDateTime, ValuesOutOfRangeAreWrittenAsTheyAre) {
    FMTCntlBlock block = Block();
    SetMoment(&block, {0, -3, 2003, 0, 0, 0, 0});
    EXPECT_EQ(FormatBy("MMM MMMM M MM d dd", block), "  0 00 -3 0-3");
    SetMoment(&block, {2000000000, INT_MIN, INT_MAX, 0, 0, 0, 0});
    EXPECT_EQ(FormatBy("M d", block), "2000000000 -2147483648");
    FormatBy("dddd", block);  // no particular day
}

TEST(FormatDateTime, Hours) {
    static constexpr std::tuple<int32_t, const char*, const char*> kRows[] = {
        {0, "12 12 0 0 AM", "12 12 00 0 AM"},     {9, "9 9 9 9 AM", "09 9 09 9 AM"},
        {12, "12 12 12 12 PM", "12 12 12 12 PM"}, {13, "1 1 13 13 PM", "01 1 13 13 PM"},
        {24, "12 12 24 24 PM", "12 12 24 24 PM"},
    };
    for (const auto& [hour, plain, padded] : kRows) {
        FMTCntlBlock block = Block();
        block.Hour = hour;
        EXPECT_EQ(FormatBy("hh h hhhh hhh AMPM", block), plain);
        block.TimeLZero = 1;
        EXPECT_EQ(FormatBy("hh h hhhh hhh AMPM", block), padded);
        block.Flags |= FMT_UNPADDED_HOUR;  // the text that was read had no zero either
        EXPECT_EQ(FormatBy("hh h hhhh hhh AMPM", block), plain);
    }
}

// By dd/MM/yyyy, M-d-yy and the flags of the default time picture.
std::string FormatKind(int32_t type, int32_t form, uint32_t flags, bool has24Hours = false) {
    FMTCntlBlock block = Block(type);
    block.ShortDatePic = "M-d-yy";
    block.DateForm = form;
    block.TimeIs24Hour = has24Hours ? 1 : 0;
    block.Flags = (block.Flags & ~(FMT_DEFAULT_TIME | FMT_MICROSECONDS)) | flags;
    return FormatBy("dd/MM/yyyy", block);
}

TEST(FormatDateTime, KindsAndForms) {
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE, 0, FMT_DEFAULT_TIME), "02/01/2003");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE, 1, FMT_DEFAULT_TIME), "1-2-03");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE, 3, FMT_DEFAULT_TIME), Japanese("H15y01m02d"));
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE, 7, FMT_DEFAULT_TIME), "<0>");
    EXPECT_EQ(FormatKind(FMT_TYPE_TIME, 0, FMT_DEFAULT_TIME), "9:05:07 AM");
    EXPECT_EQ(FormatKind(FMT_TYPE_TIME, 0, FMT_DEFAULT_TIME | FMT_MICROSECONDS, true), "9:05:07:000120");
    EXPECT_EQ(FormatKind(FMT_TYPE_TIME, 0, 0), "02/01/2003") << "without the default time picture";
    EXPECT_EQ(FormatKind(FMT_TYPE_TIME, 1, 0), "1-2-03");
    EXPECT_EQ(FormatKind(FMT_TYPE_TIME, 2, 0), "<0>");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE_TIME, 0, FMT_DEFAULT_TIME, true), "02/01/2003 9:05:07");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE_TIME, 2, FMT_DEFAULT_TIME, true), Japanese("2003y01m02d") + "9:05:07");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE_TIME, 3, FMT_DEFAULT_TIME, true), Japanese("H15y01m02d") + "9:05:07");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE_TIME, 0, 0), "02/01/2003");
    EXPECT_EQ(FormatKind(FMT_TYPE_DATE_TIME, 2, 0), Japanese("2003y01m02d"));
    for (const int32_t bad : {0, 4}) EXPECT_EQ(FormatKind(bad, 0, FMT_DEFAULT_TIME), "<0>as before");
}

TEST(FormatDateTime, Words) {
    const TestProfile profile({{"intl", "sShortDate", "d.M.yy"},
                               {"intl", "sLongDate", "d MMMM yyyy"},
                               {"MORVANEL", "sDateType", "LongGregorian"}});
    const std::string era = Japanese("H15y01m02d");
    EXPECT_EQ(FormatBy("S"), "2.1.03");
    for (const char* word : {"L", "", static_cast<const char*>(nullptr)}) EXPECT_EQ(FormatBy(word), "2 January 2003");
    EXPECT_EQ(FormatBy("s"), "<0>");
    EXPECT_EQ(FormatBy("S", Block(FMT_TYPE_TIME)), "9:05:07:000120 AM");
    EXPECT_EQ(FormatBy("S", Block(FMT_TYPE_DATE_TIME)), "2.1.03 9:05:07:000120 AM");
    for (const int32_t type : {FMT_TYPE_DATE, FMT_TYPE_DATE_TIME}) {
        EXPECT_EQ(FormatBy("T", Block(type)), "9:05:07 AM");
        EXPECT_EQ(FormatBy("ED", Block(type)), era);
        EXPECT_EQ(FormatBy("E", Block(type)), era + "9:05:07:000120 AM");
    }
    FMTCntlBlock block = Block();
    block.LongDatePic = "E";
    block.Microsecond = 0;
    EXPECT_EQ(WriteValue(&block), era + "9:05:07 AM");  // a fraction of 0 is left out, and stays so
    EXPECT_NE(block.Flags & FMT_ERA_TIME, 0u);
    block.LongDatePic = "T";
    WriteValue(&block);
    EXPECT_EQ(block.Flags & FMT_MICROSECONDS, 0u);
}

TEST(FormatDateTime, FromTheProfile) {
    const TestProfile profile({{"intl", "sShortDate", "dd.MM.yyyy"},
                               {"intl", "sLongDate", "yyyy"},
                               {"intl", "iTime", "1"},
                               {"intl", "iTLZero", "1"},
                               {"intl", "sTime", "h"}});
    FMTCntlBlock block = Block();
    block.UseProfile = 1;  // and not the form of the block
    EXPECT_EQ(WriteValue(&block), "02.01.2003");
    block.Flags |= FMT_LONG_FORM;
    EXPECT_EQ(WriteValue(&block), "2003");
    block.Type = FMT_TYPE_TIME;
    EXPECT_EQ(WriteValue(&block), "<0>");  // a separator that is no punctuation makes no picture
    block.Flags &= ~FMT_DEFAULT_TIME;
    EXPECT_EQ(WriteValue(&block), "<0>");
    EXPECT_EQ(FMTGetMaxFormattedDTLen(&block, 0), -1);

    const TestProfile time({{"intl", "sTime", "."}, {"MORVANEL", "sDateType", "JapanEmperor"}});
    block.Flags = (block.Flags | FMT_DEFAULT_TIME | FMT_UNPADDED_HOUR) & ~FMT_LONG_FORM;
    EXPECT_EQ(WriteValue(&block), "09.05.07.000120");  // the unpadded hour is for private values
    block.Type = FMT_TYPE_DATE;
    EXPECT_EQ(WriteValue(&block), Japanese("H15y01m02d"));
}

TEST(FormatEraDate, ErasBeginAndEnd) {
    static constexpr std::tuple<int32_t, int32_t, int32_t, const char*> kRows[] = {
        {9, 28, 1868, "<0>"},        {9, 29, 1868, "M01y09m29d"},   {7, 29, 1912, "M45y07m29d"},
        {7, 30, 1912, "T01y07m30d"}, {12, 24, 1926, "T15y12m24d"},  {12, 25, 1926, "S01y12m25d"},
        {1, 7, 1989, "S64y01m07d"},  {1, 8, 1989, "H01y01m08d"},    {1, 1, 2200, "H12y01m01d"},
        {1, 1, -6000000, "<0>"},     {1, 1, 6000000, "H12y01m01d"},  // further off than day numbers reach
    };
    for (const auto& [month, day, year, text] : kRows) {
        FMTCntlBlock block = Block();
        SetMoment(&block, {month, day, year, 0, 0, 0, 0});
        EXPECT_EQ(FormatBy("ED", block), Japanese(text));
        block.DateForm = 3;
        EXPECT_EQ(WriteValue(&block), Japanese(text));
    }
}

int32_t MaxLength(const char* picture, int32_t minimum, int32_t type = FMT_TYPE_DATE, int32_t form = 0) {
    FMTCntlBlock block = Block(type);
    block.LongDatePic = picture;
    block.DateForm = form;
    return FMTGetMaxFormattedDTLen(&block, minimum);
}

TEST(MaxFormattedDTLen, BoundsByPicture) {
    EXPECT_EQ(MaxLength("MMM d, yyyy", 0), 12);
    EXPECT_EQ(MaxLength("MMM d, yyyy", 20), 20);
    EXPECT_EQ(MaxLength("dddd, MMMM dd, yyyy", 0), 29);
    EXPECT_EQ(MaxLength("'Week' M/d/yy   h", 0), 18);
    EXPECT_EQ(MaxLength("hh.mm.ss.mmmmmm AMPM", 0), 18);
    EXPECT_EQ(MaxLength("T", 0), 11);
    EXPECT_EQ(MaxLength("E", 0), 27);
    EXPECT_EQ(MaxLength("ED", 50), 16);
    EXPECT_EQ(MaxLength("q", -5), -1);
    EXPECT_EQ(MaxLength("q", 7), 7);
    EXPECT_EQ(MaxLength("d\x02\x01\x02 5of", 0), 5);
    EXPECT_EQ(MaxLength("d", 0, FMT_TYPE_DATE_TIME), 20 + 1 + 2 + 2 + 1 + 18);
    EXPECT_EQ(MaxLength("ignored", 0, FMT_TYPE_TIME), 18);
    EXPECT_EQ(MaxLength("d", 9, 0), -1);
    EXPECT_EQ(MaxLength("d", 16, FMT_TYPE_DATE, 2), 16);
    EXPECT_EQ(MaxLength("d", -9, FMT_TYPE_DATE, 2), -1);
}

TEST(DatePictures, Tests) {
    static constexpr std::tuple<const char*, int32_t, int32_t, int32_t> kRows[] = {
        {"", 1, 0, 0},     {"T", 1, 0, 0}, {"S", 1, 0, 0},       {"L", 1, 0, 0},     {"E", 1, 0, 0},
        {"ED", 1, 0, 0},   {"X", 0, 0, 0}, {"s", 0, 0, 0},       {"hh:mm", 1, 0, 1}, {"dd hh", 1, 1, 1},
        {"yyyy", 1, 1, 0}, {" ", 1, 0, 0}, {"dd hh q", 0, 0, 0}, {"AMPM", 1, 0, 1},  {nullptr, 0, 0, 0},
    };
    for (const auto& [picture, valid, hasDate, hasTime] : kRows) {
        const testing::ScopedTrace row(__FILE__, __LINE__, picture == nullptr ? "null" : picture);
        EXPECT_EQ(FMTIsDatePicValid(picture), valid);
        EXPECT_EQ(FMTDatePicHasDate(picture), hasDate);
        EXPECT_EQ(FMTDatePicHasTime(picture), hasTime);
    }
}

TEST(DatePictures, DefaultsAreCopiedAsFarAsThereIsRoom) {
    const TestProfile profile({{"intl", "sShortDate", "d.M.yy"}, {"intl", "sLongDate", "yyyy MMMM"}});
    char buffer[12] = "xxxxxxxxxxx";
    EXPECT_EQ(FMTGetDefaultShortDatePic(buffer, 4), 1);
    EXPECT_EQ(std::string(buffer, 6), std::string("d.M\0xx", 6));
    EXPECT_EQ(FMTGetDefaultLongDatePic(buffer, 12), 1);
    EXPECT_STREQ(buffer, "yyyy MMMM");
    EXPECT_EQ(FMTGetDefaultDatePic(buffer, 12), 1);
    EXPECT_STREQ(buffer, "d.M.yy");
    EXPECT_EQ(FMTGetDefaultDatePic(buffer, 0), 1);
    EXPECT_STREQ(buffer, "d.M.yy");
}

// The reduced picture; "<0>" and what is left where it fails.
std::string Reduced(const char* longPicture, int32_t withTime = 0, int32_t size = 80) {
    const TestProfile profile({{"intl", "sLongDate", longPicture}});
    char buffer[80] = "x";
    const int32_t result = FMTGetGeeLongDatePic(buffer, size, withTime);
    return (result == 1 ? "" : "<0>") + std::string(buffer);
}

TEST(DatePictures, LongPictureReducedToItsFields) {
    EXPECT_EQ(Reduced("dddd, MMMM dd, yyyy"), "MMMM dd, yyyy");
    EXPECT_EQ(Reduced("yyyy MMMM d dddd"), "yyyy MMMM d");
    EXPECT_EQ(Reduced("ddd d. MMMM yyyy"), "d. MMMM yyyy");
    EXPECT_EQ(Reduced("dd'.'MM"), "dd.MM");
    EXPECT_EQ(Reduced("yyyy'x'MM"), "yyyy MM");
    EXPECT_EQ(Reduced("dddd"), "");
    EXPECT_EQ(Reduced("yyyy, dddd, ddd"), "yyyy");
    EXPECT_EQ(Reduced("yyyy   'x'"), "yyyy    ");
    EXPECT_EQ(Reduced("yyyy q"), "<0>");
    EXPECT_EQ(Reduced("dddd, MMMM dd", 1), "MMMM dd hh:mm:ss AMPM");
    EXPECT_EQ(Reduced("MMMM dddd", 1), "MMMM hh:mm:ss AMPM");
    EXPECT_EQ(Reduced("d\x02\x01\x02 5of\x02\x02\x02M"), "d  M");
    EXPECT_EQ(Reduced("yyyy-MM-dd", 1, 15), "<0>") << "no room for the time";
    EXPECT_EQ(Reduced("d", 1, 16), "d hh:mm:ss AMPM");
    EXPECT_EQ(Reduced("d", 1, 15), "<0>");
}

TEST(DatePictures, TimePictureAndJoining) {
    FMTCntlBlock block = Block(FMT_TYPE_TIME);
    char picture[kTimePicSize];
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hh:mm:ss:mmmmmm AMPM");
    block.TimeSep = "0123456789abcdefg";  // 15 bytes at most
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hh0123456789abcdemm0123456789abcdess0123456789abcdemmmmmm AMPM");
    block.TimeIs24Hour = 1;
    block.TimeSep = "' h '";
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hhhh' h 'mm' h 'ss' h 'mmmmmm");
    block.TimeSep = nullptr;
    block.Flags &= ~FMT_MICROSECONDS;
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hhhhmmss");
    char* joined = FMTJoinDatePic("d", picture);
    EXPECT_STREQ(joined, "d hhhhmmss");
    MemFree(joined);
}

TEST(DatePicturesJapanese, ALongSeparatorIsCutAtACharacter) {
    const TestLanguage language(kJapanese);
    FMTCntlBlock block = Block(FMT_TYPE_TIME);
    block.Flags &= ~FMT_MICROSECONDS;
    block.TimeIs24Hour = 1;
    block.TimeSep = "0123456789abcd\x8E\x9E";
    char picture[kTimePicSize];
    FMTBuildTimePic(&block, picture);
    EXPECT_STREQ(picture, "hhhh0123456789abcdmm0123456789abcdss");
}

TEST(FormatDateTime, ALongJoinedPicture) {
    const std::string text(90, 'x');
    const std::string picture = "'" + text + "''" + text + "'d";
    FMTCntlBlock block = Block(FMT_TYPE_DATE_TIME);
    block.Flags &= ~FMT_MICROSECONDS;
    EXPECT_EQ(FormatBy(picture.c_str(), block), text + text + "2 9:05:07 AM");
}

}  // namespace
