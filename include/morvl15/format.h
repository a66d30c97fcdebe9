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

MORVL_API int32_t MORVL_CALL FMTFormatNumber(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTGetMaxFormattedNumLen(const char* picture, int32_t maxDigits, int32_t minLength);
MORVL_API int32_t MORVL_CALL FMTValidateNumber(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTUnformatNumberStr(FMTCntlBlock* block);
MORVL_API int32_t MORVL_CALL FMTStrToNumber(FMTCntlBlock* block);

MORVL_END_C

#endif
