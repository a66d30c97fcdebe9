// Dates and times.
#ifndef MORVL15_DATETIME_H
#define MORVL15_DATETIME_H

#include <morvl15/base.h>
#include <morvl15/format.h>

MORVL_BEGIN_C

#pragma pack(push, 1)
typedef struct DatDef {
    int32_t Month;
    int32_t Day;
    int32_t Year;
    int32_t Hour;
    int32_t Minute;
    int32_t Second;
    int32_t Microsecond;
} DatDef;
#pragma pack(pop)

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
//   block   in:  Type 1 date, 2 time, 3 date and time (the date, a blank, the default time); Month to Microsecond, of
//   which
//                nothing is checked: a month out of range has no name, numbers are written as they are, a Microsecond
//                below 0 leaves out its field with the byte before it, one above 999999 shows its last six digits;
//                UseProfile, Flags, and without UseProfile DateForm, ShortDatePic, LongDatePic, TimeIs24Hour, TimeSep
//                (two bytes at most), TimeLZero, AMString, PMString. Null texts count as empty. Picture is not read.
//                Date forms: 0 long picture, 1 short picture, 2 year, month and day with the Japanese marks, 3 the
//                Japanese era form. In the last two a time follows the date directly.
//           out: Output, room for FMTGetMaxFormattedDTLen + 1 bytes. The word T clears Flags bit 2, the word E sets
//           bit 6.
// Result: 1. 0 with Output as it was for another Type. 0 with Output empty, or holding the Japanese date that was
// written first: a UseProfile block without Flags bit 0, no picture or one that is rejected, a date before the first
// era in an era form, no memory for a picture of unusual length.
MORVL_API int32_t MORVL_CALL FMTFormatDateTime(FMTCntlBlock* block);

// FMTGetMaxFormattedDTLen: a bound on the length of the text that FMTFormatDateTime writes for a block.
//   block   in:  as for FMTFormatDateTime; the date is not read. The words T and E clear Flags bit 2.
//   minimum in:  a floor for the answer, in bytes
// Result: bytes, the terminator not counted. -1 for a Type outside 1 to 3 and for a UseProfile block without Flags bit
// 0. The minimum where no picture is chosen (the Japanese forms need 16 bytes) or the picture is rejected, but -1 for a
// minimum below that. 16 for the word ED, whatever the minimum.
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
//   length   in:  size of buffer in bytes
//   withTime in:  not 0: the default time picture of the settings, without microseconds, follows behind a blank
// Result: 1. 0 with an empty buffer for a long picture that is rejected, and where the buffer is too small; 0 with
// nothing written for a null buffer and a length below 1.
MORVL_API int32_t MORVL_CALL FMTGetGeeLongDatePic(char* buffer, int32_t length, int32_t withTime);

MORVL_END_C

#endif
