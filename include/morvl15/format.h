// Regional settings, the format control block, number pictures.
//
// The FMT operations take their order, their texts and their values in one record, the format control block, and the
// regional conventions from the user profile or from the block itself. All are safe to call from many threads at once,
// each on a block of its own: an operation sees the settings as they were at one moment.
#ifndef MORVL15_FORMAT_H
#define MORVL15_FORMAT_H

#include <morvl15/base.h>
#include <morvl15/host.h>
#include <morvl15/number.h>

MORVL_BEGIN_C

#pragma pack(push, 1)

// ---- regional settings ------------------------------------------------------------------------------------------

// The regional settings of the user profile: section "intl", each field under the key of its name. A text is cut to its
// field; a single character is the first byte of its text, 0 for an empty one. Defaults stand in brackets. Owns no
// memory.
typedef struct FMTIntlSettings {
    int32_t iCountry;              // country code [1]
    char sList;                    // list separator [,]
    char sCurrency[5];             // currency symbol [$]
    int32_t iCurrSpace;            // 1: a blank between symbol and amount; "iCurrency" is 2 or 3 [0]
    int32_t iCurrAfter;            // 1: the symbol follows the amount; "iCurrency" is 1 or 3 [0]
    int32_t iDigits;               // decimal places of a number [2]
    char sThousand;                // group separator, 0 for no grouping [,]
    char sDecimal;                 // decimal separator, 0 for none [.]
    int32_t iLzero;                // non-zero: ".5" is shown as "0.5" [0]
    int32_t iDate;                 // date order [0]
    char sDate;                    // date separator [/]
    int32_t iTime;                 // non-zero: 24-hour clock [0]
    char s1159[5];                 // text of the morning, never empty [AM]
    char s2359[5];                 // text of the afternoon, never empty [PM]
    char sTime[3];                 // time separator [:]
    int32_t iTLZero;               // non-zero: hours with a leading zero [0]
    int32_t iMeasure;              // measurement system [1]
    int32_t iCurrDigits;           // decimal places of an amount [2]
    int32_t iNegCurr;              // layout of a negative amount, 0 to 10, see FMTCntlBlock [0]
    char sShortDate[20];           // short date picture [M/d/yy]
    char sLongDate[40];            // long date picture, its separators outside quotes [dddd, MMMM dd, yyyy]
    char sCountry[15];             // country name [United States]
    char sLanguage[4];             // language abbreviation [usa]
    int32_t iDateType;             // date form 0 to 3, see FMTCntlBlock [1]; in section "MORVANEL" under "sDateType" as
                                   // LongGregorian, ShortGregorian, JapanGregorian or JapanEmperor in any case
    int32_t reserved;              // neither written nor read
    int32_t iEmpDateBoundryCheck;  // 1: an era date past the era's end is rejected; in section "MORVANEL" [0]
} FMTIntlSettings;

// ---- the format control block -----------------------------------------------------------------------------------

// Type: the kind of operation.
#define FMT_TYPE_NONE (-1)
#define FMT_TYPE_DATE 1
#define FMT_TYPE_TIME 2
#define FMT_TYPE_DATE_TIME 3
#define FMT_TYPE_NUMBER 4    // a number in the layout of the region
#define FMT_TYPE_CURRENCY 5  // an amount in the currency layout of the region
#define FMT_TYPE_PICTURE 6   // a number by a picture

// Flags. Bits 13 to 31 are the caller's own. mask.h has two more.
#define FMT_DEFAULT_TIME 0x0001u   // the default time picture is in force; needed for dates and times under UseProfile
#define FMT_PICTURES_ONLY 0x0002u  // reading a time: it must fit a picture
#define FMT_MICROSECONDS 0x0004u   // the default time picture has microseconds
#define FMT_EVERY_DIGIT 0x0008u    // writing a number by layout: all digits it has, whatever the decimal places
#define FMT_USABLE 0x0020u         // set up; number operations fail without it
#define FMT_ERA_TIME 0x0040u       // out: an era date was written, a fraction of 0 was left out
#define FMT_FOUND_DATE 0x0080u     // out: the text read had a date,
#define FMT_LONG_FORM 0x0400u      // under UseProfile, the long date form whatever the date type of the settings
#define FMT_FOUND_TIME 0x0800u     // ... a time,
#define FMT_UNPADDED_HOUR 0x1000u  // ... an hour without leading zero

// The format control block. FMTInitCntlBlock sets it up; then the caller sets what its operation reads. The texts and
// buffers belong to the caller, and the library frees none of them. Copying the bytes copies the block.
//
// With UseProfile the regional values are those of the settings in force. Without it they are the private fields, which
// are named behind their counterparts here:
//   CurrencyPos  0 $1, 1 1$, 2 $ 1, 3 1 $
//   NegCurrency  0 ($1), 1 -$1, 2 $-1, 3 $1-, 4 (1$), 5 -1$, 6 1-$, 7 1$-, 8 -1 $, 9 -$ 1, 10 1 $-
//   DateForm     0 long picture, 1 short picture, 2 Japanese marks in the Gregorian calendar, 3 Japanese eras
typedef struct FMTCntlBlock {
    int32_t Type;              // FMT_TYPE_...
    const char* Input;         // text to read
    char* Output;              // buffer for the result, as large as the operation tells
    const char* ShortDatePic;  // private: sShortDate
    const char* LongDatePic;   // private: sLongDate
    int32_t TimeIs24Hour;      // private: iTime
    const char* TimeSep;       // private: sTime
    int32_t TimeLZero;         // private: iTLZero
    const char* AMString;      // private: s1159
    const char* PMString;      // private: s2359
    int32_t UseProfile;        // non-zero: the settings in force; 0: the private fields
    int32_t Month;             // the date and time value, as in DatDef
    int32_t Day;
    int32_t Year;
    int32_t Hour;
    int32_t Minute;
    int32_t Second;
    int32_t Microsecond;
    int32_t DateForm;     // private: iDateType
    const char* Picture;  // a number picture in either form, or a mask
    char ThousandSep;     // private: sThousand
    char DecimalSep;      // private: sDecimal
    double DoubleValue;   // result of FMTStrToNumber
    int32_t LeadingZero;  // private: iLzero
    int32_t Digits;       // private: iDigits and iCurrDigits
    // FMTInitCntlBlock doesn't set these three: amounts and number pictures without UseProfile need them.
    const char* Currency;         // private: sCurrency
    int32_t CurrencyPos;          // private: iCurrency
    int32_t NegCurrency;          // private: iNegCurr
    int32_t Country;              // private: iCountry
    int32_t EmpDateBoundryCheck;  // private: iEmpDateBoundryCheck
    int32_t reserved;
    uint32_t Flags;  // FMT_...
    Number Value;    // the value of a number operation
    // What FMTValidateInput reads and answers.
    HWND Window;       // the edit control
    uint32_t Message;  // of this and of WParam the low 16 bits count
    WPARAM WParam;
    LPARAM LParam;
    LRESULT Result;
    int32_t reserved2[2];
} FMTCntlBlock;

#pragma pack(pop)

// FMTInitCntlBlock: sets a block up: Type FMT_TYPE_NONE, Country 1, Flags FMT_DEFAULT_TIME, FMT_MICROSECONDS and
// FMT_USABLE, Value zero, all else zero or null.
//   block   out: never null; Currency, CurrencyPos, NegCurrency, Result, the reserved fields and Flags from bit 13 on
//                stay as they are
MORVL_API void MORVL_CALL FMTInitCntlBlock(FMTCntlBlock* block);

// FMTGetProfileIntl: reads the regional settings from the user profile. The settings that the library works with stay
// as they are.
//   settings    out: never null; all fields but the reserved one
// An absent key gives the default; numbers are taken as they are. Some pictures are mended: the short one
// "yyyy-MM-dddd" of country 43 loses its last "dd", "yy-MM-dd" of "Canada (French)" gets slashes; in the long one
// separators come out of quotes ("d'. 'MMMM" becomes "d. MMMM"), in country 358 the ending "ta" of a month goes in.
// What then doesn't fit is cut, never inside a double-byte character.
MORVL_API void MORVL_CALL FMTGetProfileIntl(FMTIntlSettings* settings);

// FMTWinIniChanged: says that the profile has changed. The next operation that needs the settings reads them anew; it
// is read once, whatever the number of threads. Operations under way finish with the settings that they began with. The
// currency symbol and its place in number pictures stay as they were first used, for the life of the process.
MORVL_API void MORVL_CALL FMTWinIniChanged(void);

// ---- number pictures ----------------------------------------------------------------------------------------------
//
// A number picture is a text such as "#,##0.00;($#,##0.00)"; docs/number-pictures.md tells the language. The text form
// is written in the separators and currency strings of a region. The tokenized form holds a token byte in the place of
// each of these, and so can be kept and read back under any region. Neither form may have more than 63 bytes.
//
// Of the block each reads Picture, UseProfile, and without UseProfile ThousandSep, DecimalSep (0 for none), Currency
// (null for none; more than 7 bytes are cut at a character), CurrencyPos and NegCurrency. Flags is not read.

// FMTTokenizeNumberPic: from the text form to the tokenized form.
// FMTUnTokenizeNumberPic: from the tokenized form to the text form of the region.
// FMTCnvOldNumberPic: from the old notation, with "," and "." as separators and text without quotes, to the text form.
//   block   in:  Picture
//           out: Output, room for 64 bytes; it may be the buffer of the Picture
// The empty picture, "$" and scientific pictures are the same in every form and are copied.
// Result: 1. 0 with Output empty for a null Picture and where the picture or the result has more than 63 bytes; 0 for a
// null block or Output. What is no valid picture is converted as far as it goes.
// Examples (US): "$#,##0.00" <-> 03 0F "#" 01 "##0" 02 "00" 10; "#,##0.00 DM" of the old notation -> "#,##0.00 'DM'"
MORVL_API int32_t MORVL_CALL FMTTokenizeNumberPic(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTUnTokenizeNumberPic(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTCnvOldNumberPic(FMTCntlBlock* block);

// FMTIsNumberPicTokenized: 1 if a picture is in the tokenized form, that is, if it holds a digit run's mark 0x0F. 0 for
// any other, for a picture without digits in either form, and for null.
MORVL_API int32_t MORVL_CALL FMTIsNumberPicTokenized(const char* picture);

// FMTIsNumberPicValid: whether a picture follows the language.
//   block   in:  Picture, in either form; nothing is written
// Result: 1 or 0; 0 for a null block or Picture, and for a picture of more than 63 bytes.
MORVL_API int32_t MORVL_CALL FMTIsNumberPicValid(FMTCntlBlock* block);

// ---- numbers as text --------------------------------------------------------------------------------------------
//
// Each takes the regional values from the settings in force if UseProfile is set, else from the block's private fields:
// ThousandSep and DecimalSep (0 for none), LeadingZero, Digits, and for amounts Currency (null: no symbol), CurrencyPos
// and NegCurrency. Any number of threads may work at the same time, each on a block of its own.

// FMTFormatNumber: shows Value as text.
//   Type    in:  4 the number layout of the region: Digits places, groups of three, "-" in front
//                5 its currency layout: the symbol by CurrencyPos, a negative amount by NegCurrency (0 to 10; any other
//                  shows nothing)
//                6 by Picture, in either form; an empty one acts as 4, "$" as 5
//   Flags   in:  bit 5, the block is usable. Bit 3, types 4 and 5 show every digit that the value has.
//   Value   in:  rounded half away from zero, on its decimal digits, to the places shown; by a picture with "%" after
//                the multiplication by 100. A value that rounds to nothing shows no sign and goes to a picture's
//                section for zero. Null shows nothing.
//   Output  out: the text; the caller makes it as long as FMTGetMaxFormattedNumLen tells
// A scientific picture shows as exponent the count of the digits of the rounded whole number, less one, so that 9.7 by
// "0.00E+00" is "0.97E+01". A section without a digit place shows its literal text.
// Result: 1, also for an empty text. 0 with Output untouched for a block that isn't usable, another Type, a null
// Picture or Output. 0 with Output empty for a picture of more than 63 bytes (in either form), for a value without a
// plain text of 107 bytes, and when there is no memory, which only Digits beyond some 200 need.
// Example (US): -1234.5 by "#,##0.00;(#,##0.00)" -> "(1,234.50)"
MORVL_API int32_t MORVL_CALL FMTFormatNumber(FMTCntlBlock* block);

// FMTGetMaxFormattedNumLen: how long the text of a number can get under the settings of the profile.
//   picture     in: a picture in text form; "$" for the currency layout
//   maxDigits   in: the most digits that a value has before the decimal separator
//   minLength   in: the least result
// The length follows from the picture's places. It doesn't foresee a digit that rounding adds, a group separator that
// this or a "%" adds, the decimals that a value rounded to nothing brings along from another section, the "#" places of
// a scientific picture beyond maxDigits, an exponent longer than its places, the blank and the sign of the negative
// layouts 8 to 10, and what an empty picture shows behind the digits; and it counts characters in front of the digits.
// Result: bytes, the terminator not counted. minLength, at least 0, for null and for a picture of more than 63 bytes.
MORVL_API int32_t MORVL_CALL FMTGetMaxFormattedNumLen(const char* picture, int32_t maxDigits, int32_t minLength);

// FMTValidateNumber: reads a number that a person wrote.
//   Type    in:  4 a number, 5 an amount, which may have the currency symbol on the side that CurrencyPos tells, "-" at
//                either end or parentheses
//   Flags   in:  bit 5, the block is usable
//   Input   in:  digits with or without group separators (which stand where they belong, counted from the decimal
//                separator), one sign at either end, an exponent, white space round it. What is empty but for a sign,
//                a symbol and white space is zero.
//   Value   out: the number
// Result: 1. 0 with Value as it was for a block that isn't usable, another Type, a null or empty Input, a text that is
// no number, and when there is no memory, which only an Input of 256 bytes or more needs. 0 with a null Value for a
// text with an exponent but no digits ("e5"), and for a number too large or too small.
// Example (US): "1,234.50-" -> -1234.5; "12,34" -> 0; amount "($12)" -> -12
MORVL_API int32_t MORVL_CALL FMTValidateNumber(FMTCntlBlock* block);

// FMTUnformatNumberStr: reads a text that FMTFormatNumber made by a picture.
//   Input   in:  the text. The literal text of the picture that stands in front of the digits may be missing. It may be
//                the Output.
//   Picture in:  in either form. The sections are tried in order: what the second accepts is negated, what the third
//                accepts is zero. A section without a digit place accepts nothing and ends the search. A "%" that both
//                the section and the text have divides by 100. A text that a scientific picture made is read under the
//                separators of the profile.
//   Flags   in:  bit 5, the block is usable
//   Value   out: the number
//   Output  out: the number in plain digits, as NumToAscii gives it; room for 108 bytes
// Result: 1. 0 with Output and Value as they were for a block that isn't usable, a null Input, Picture or Output, an
// empty Input or Picture. 0 with Output empty and Value as it was for a text that the picture doesn't accept, a picture
// of more than 63 bytes, a number without a plain text of 107 bytes, and when there is no memory, which only an Input
// of 256 bytes or more needs.
// Example (US): "(1,234.50)" by "#,##0.00;(#,##0.00)" -> "-1234.5"
MORVL_API int32_t MORVL_CALL FMTUnformatNumberStr(FMTCntlBlock* block);

// FMTStrToNumber: a text as a double, by the run-time library's atof.
//   Input        in:  the text; neither group separators nor the region's decimal separator are known
//   DoubleValue  out: the double; 0 where the text begins with no number. For an empty Input its upper two bytes become
//                     0x7FF8, which makes the null double of a field that was zero.
// Result: 1; 0 for a null block or Input. Flags isn't read.
MORVL_API int32_t MORVL_CALL FMTStrToNumber(FMTCntlBlock* block);

MORVL_END_C

#endif
