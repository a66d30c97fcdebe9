// Dates and times.
#ifndef MORVL15_DATETIME_H
#define MORVL15_DATETIME_H

#include <morvl15/base.h>
#include <morvl15/format.h>

MORVL_BEGIN_C

#pragma pack(push, 1)

// A date and time as seven whole numbers, in the Gregorian calendar. Owns no memory; copying the bytes copies the
// value. All zero is no date.
typedef struct DatDef {
    int32_t Month;        // 1 to 12
    int32_t Day;          // 1 to 31, within the month's length
    int32_t Year;         // 0 to 9999, in full
    int32_t Hour;         // 0 to 24
    int32_t Minute;       // 0 to 59
    int32_t Second;       // 0 to 59
    int32_t Microsecond;  // 0 to 999999; below 0: no fraction is shown
} DatDef;

#pragma pack(pop)

// FMTIsoToDatDef: reads a date and time from fixed columns, "yyyy-MM-dd-hhhh.mm.ss.mmmmmm".
//   text    in:  columns from 0: year 0 to 3, month 5 and 6, day 8 and 9, hour 11 and 12, minute 14 and 15, second 17
//                and 18, microsecond 20 to 25; what stands between them is not looked at. Null counts as empty.
//   datDef  out: each field is its columns as a decimal number: white space and a sign pass, the first byte that is no
//                digit ends it. A field that the text doesn't reach to its end is 0, so that a shorter fraction is
//                lost. No range is checked.
// Result: 1.
// Examples: "2003" -> Year 2003, all else 0; "2003-04-05-06.07.08.123456" -> all seven
MORVL_API int32_t MORVL_CALL FMTIsoToDatDef(const char* text, DatDef* datDef);

// ---- dates and times through pictures ------------------------------------------------------------------------------
//
// A date picture is a text such as "dddd, MMMM dd, yyyy"; docs/date-pictures.md tells the language. In the place of a
// picture a block may name one of these words, byte for byte:
//
//     the empty text  the default date picture: long when the date type of the settings is 0, otherwise short
//     S, L            the short and the long picture of the settings
//     T               the default time picture, without microseconds
//     E               the date in the Japanese era form, followed by the default time
//     ED              the date in the Japanese era form
//
// The default time picture is hours, minutes and seconds with the time separator between them ("hhhh" on the 24-hour
// clock, else "hh" and AMPM at the end), and microseconds where Flags bit 2 asks for them. It is in force with Flags
// bit 0.

// FMTFormatDateTime: writes a date, a time or both as text.
//   block   in:  Type 1 date, 2 time, 3 date and time (the date, and with Flags bit 0 a blank and the default time; by
//                the word T the time alone); Month to Microsecond, of which nothing is checked: a month out of range has
//                no name, numbers are written as they are, a Microsecond below 0 leaves out its field with the byte
//                before it, one above 999999 shows its last six digits; UseProfile, Flags, and without UseProfile
//                DateForm, ShortDatePic, LongDatePic, TimeIs24Hour, TimeSep (15 bytes at most), TimeLZero, AMString,
//                PMString. Null texts count as empty. Picture is not read. Date forms: 0 long picture, 1 short picture,
//                2 year, month and day with the Japanese marks, 3 the Japanese era form. In the last two a time follows
//                the date directly.
//           out: Output, room for FMTGetMaxFormattedDTLen + 1 bytes. The word T clears Flags bit 2, the word E sets
//           bit 6.
// Result: 1. 0 with Output as it was for another Type. 0 with Output empty, or holding the Japanese date that was
// written first: a UseProfile block without Flags bit 0, no picture or one that is rejected, a date before the first
// era in an era form, no memory for a picture of unusual length.
MORVL_API int32_t MORVL_CALL FMTFormatDateTime(FMTCntlBlock* block);

// FMTGetMaxFormattedDTLen: a bound on the length of the text that FMTFormatDateTime then writes for the same block, if
// the date's fields are in range.
//   block   in:  as for FMTFormatDateTime; the date is not read. The words T and E clear Flags bit 2, with which E would
//                write microseconds that aren't counted.
//   minimum in:  a floor for the answer, in bytes
// Result: bytes, the terminator not counted. -1 for a Type outside 1 to 3 and for a UseProfile block without Flags bit
// 0. The minimum where no picture is chosen (the Japanese forms need 16 bytes) or the picture is rejected, but -1 for a
// minimum below that. 16 for the word ED, whatever the minimum. Under UseProfile the settings' pictures are taken as they
// stand: one that is a word or empty is not bounded.
MORVL_API int32_t MORVL_CALL FMTGetMaxFormattedDTLen(FMTCntlBlock* block, int32_t minimum);

// FMTGetDefaultShortDatePic, FMTGetDefaultLongDatePic, FMTGetDefaultDatePic: copy the short picture of the settings,
// the long one, or the one that the date type of the settings chooses.
//   buffer  out: always terminated; null or a length below 1: nothing is written
//   length  in:  size of buffer in bytes; a longer picture is cut, never inside a double-byte character
// Result: 1.
MORVL_API int32_t MORVL_CALL FMTGetDefaultShortDatePic(char* buffer, int32_t length);
MORVL_API int32_t MORVL_CALL FMTGetDefaultLongDatePic(char* buffer, int32_t length);
MORVL_API int32_t MORVL_CALL FMTGetDefaultDatePic(char* buffer, int32_t length);

// FMTIsDatePicValid: 1 for the empty text, each of the words, and a picture of the language; 0 otherwise and for null.
MORVL_API int32_t MORVL_CALL FMTIsDatePicValid(const char* picture);

// FMTDatePicHasDate, FMTDatePicHasTime: 1 if a picture has a field of the date (day, day name, month, year) or of the
// time; 0 if it has none, for a picture that is rejected, for null, and for the words.
MORVL_API int32_t MORVL_CALL FMTDatePicHasDate(const char* picture);
MORVL_API int32_t MORVL_CALL FMTDatePicHasTime(const char* picture);

// FMTGetGeeLongDatePic: the long picture of the settings reduced to fields and punctuation: day names go, with the
// punctuation that belongs to them; words in quotes become a blank.
//   buffer   out: the picture
//   length   in:  size of buffer in bytes; a longer long picture is cut to it before anything else
//   withTime in:  not 0: the default time picture of the settings, without microseconds, follows behind a blank
// Result: 1. 0 with an empty buffer for a long picture that is rejected, as cut, and where the time doesn't fit; 0 with
// nothing written for a null buffer and a length below 1.
MORVL_API int32_t MORVL_CALL FMTGetGeeLongDatePic(char* buffer, int32_t length, int32_t withTime);

// ---- reading ----------------------------------------------------------------------------------------------------
//
// Text is compared with a picture element by element: numbers, words, separators. Any separator stands for any other,
// blanks count nowhere, names of months and days may be abbreviated or full in any case, whatever the picture has.
// docs/date-pictures.md tells pictures and texts in full.
//
// Each entry takes a format control block, never null, and reads from it besides what is told there:
//   UseProfile  non-zero takes pictures, separator, clock, AM and PM texts, country and era check from the settings,
//               and needs Flags bit 0; 0 takes them from the block's own fields, where a null text counts as empty
//   Flags       bit 0: the default time picture is in force; bit 2: it carries microseconds
// On success the block's Month, Day, Year, Hour, Minute, Second and Microsecond hold the value; what the picture has no
// field for is 1 January 1900, 0:00:00. Three bits of Flags tell of the match: bit 7 a day, month or year took a value,
// bit 11 a part of the time did, bit 12 the hour came through "h" or "hhh" (after a Japanese date it is as it was). A
// date always exists (29 February in leap years only), and a day name in the text is that of the date. Two-digit years
// go to the century that brings them within fifty years of the clock's half century, those of a Japanese date to the
// 1900s; four digits are taken as they are, 0099 too.
// On failure the block stays as it was, but for a Japanese date with something unreadable behind it: that date is
// stored. Safe from several threads on different blocks.

// FMTValidateDateTime: reads Input in whatever form it has. In this order: by the short picture, by the long picture
// (for a date and time with the default time picture behind them), in free form ("Jan 2, 2003", "2-Jan-03",
// "2003-01-02", under a Country of 1 "1/2/2003", "12:30", "12:30 PM"), for a date and time by the two pictures with a
// 24-hour time, and on a double-byte system as a Japanese date. A time is read by the default time picture, or without
// Flags bit 0 by the block's ShortDatePic, then in free form unless Flags bit 1 is set.
//   block   Type 1 date, 2 time, 3 date and time; Input; ShortDatePic, LongDatePic, TimeIs24Hour, TimeSep, AMString,
//           PMString, Country, EmpDateBoundryCheck; words such as "S" are no pictures here
// Result: 1, or 0 for any other text, an empty or null one, and any other Type.
MORVL_API int32_t MORVL_CALL FMTValidateDateTime(FMTCntlBlock* block);

// FMTIsValidDateString: tests Input against Picture, which must be the free-form picture for the shape of the text, and
// reads it.
//   block   Type as above; Input; Picture; Country
// Result: 1 valid; 2 the text has no known shape; 4 its shape asks for another picture, or the value is bad; 0 for bad
// arguments: Input or Picture null or empty, any other Type, UseProfile without Flags bit 0.
MORVL_API int32_t MORVL_CALL FMTIsValidDateString(FMTCntlBlock* block);

// FMTUnformatDateTimeStr: reads Input by Picture alone. Type plays no part: the picture's fields tell whether it is a
// date, a time or both; a picture that starts with a time field is a time.
//   block   Input; Picture: a picture, or a word: empty the default date picture, "S" the default short and "L" the
//           default long one, "T" the default time picture without microseconds (clears Flags bit 2), "ED" a Japanese
//           date with its era, "E" the same with a time behind it or none
// Result: 1, or 0 for a text that doesn't fit, a picture that is none or has no field, Input null or empty, Picture
// null, UseProfile without Flags bit 0.
MORVL_API int32_t MORVL_CALL FMTUnformatDateTimeStr(FMTCntlBlock* block);

MORVL_END_C

#endif
