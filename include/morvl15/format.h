// Regional settings, the format control block, number pictures.
#ifndef MORVL15_FORMAT_H
#define MORVL15_FORMAT_H

#include <morvl15/base.h>
#include <morvl15/host.h>
#include <morvl15/number.h>

MORVL_BEGIN_C

#pragma pack(push, 1)

typedef struct FMTIntlSettings {
    int32_t iCountry;
    char sList;
    char sCurrency[5];
    int32_t iCurrSpace;
    int32_t iCurrAfter;
    int32_t iDigits;
    char sThousand;
    char sDecimal;
    int32_t iLzero;
    int32_t iDate;
    char sDate;
    int32_t iTime;
    char s1159[5];
    char s2359[5];
    char sTime[3];
    int32_t iTLZero;
    int32_t iMeasure;
    int32_t iCurrDigits;
    int32_t iNegCurr;
    char sShortDate[20];
    char sLongDate[40];
    char sCountry[15];
    char sLanguage[4];
    int32_t iDateType;
    int32_t reserved;
    int32_t iEmpDateBoundryCheck;
} FMTIntlSettings;

typedef struct FMTCntlBlock {
    int32_t Type;
    const char* Input;
    char* Output;
    const char* ShortDatePic;
    const char* LongDatePic;
    int32_t TimeIs24Hour;
    const char* TimeSep;
    int32_t TimeLZero;
    const char* AMString;
    const char* PMString;
    int32_t UseProfile;
    int32_t Month;
    int32_t Day;
    int32_t Year;
    int32_t Hour;
    int32_t Minute;
    int32_t Second;
    int32_t Microsecond;
    int32_t DateForm;
    const char* Picture;
    char ThousandSep;
    char DecimalSep;
    double DoubleValue;
    int32_t LeadingZero;
    int32_t Digits;
    const char* Currency;
    int32_t CurrencyPos;
    int32_t NegCurrency;
    int32_t Country;
    int32_t EmpDateBoundryCheck;
    int32_t reserved;
    uint32_t Flags;
    Number Value;
    HWND Window;
    uint32_t Message;
    WPARAM WParam;
    LPARAM LParam;
    LRESULT Result;
    int32_t reserved2[2];
} FMTCntlBlock;

#pragma pack(pop)

MORVL_API void MORVL_CALL FMTInitCntlBlock(FMTCntlBlock* block);
MORVL_API void MORVL_CALL FMTGetProfileIntl(FMTIntlSettings* settings);
MORVL_API void MORVL_CALL FMTWinIniChanged(void);

MORVL_API int32_t MORVL_CALL FMTTokenizeNumberPic(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTUnTokenizeNumberPic(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTCnvOldNumberPic(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTIsNumberPicTokenized(const char* picture);
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
// The length follows from the picture's places. It doesn't foresee a digit that rounding adds, an exponent longer than
// its places, the blank and the sign of the negative layouts 8 to 10, and what an empty picture shows behind the
// digits; and it counts characters in front of the digits. Result: bytes, the terminator not counted. minLength, at
// least 0, for null and for a picture of more than 63 bytes.
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
//   Output  out: the number in plain digits, as NumToAscii gives it; room for the Input, and at least 108 bytes
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
// Result: 1; 0 for a null Input. Flags isn't read.
MORVL_API int32_t MORVL_CALL FMTStrToNumber(FMTCntlBlock* block);

MORVL_END_C

#endif
