// Decimal numbers.
#ifndef MORVL15_NUMBER_H
#define MORVL15_NUMBER_H

#include <morvl15/base.h>

MORVL_BEGIN_C

#pragma pack(push, 1)
typedef struct Number {
    uint8_t bytes[13];  // the length byte, then up to 12 data bytes
} Number;
#pragma pack(pop)

MORVL_API void MORVL_CALL NumWordToNumber(Number* num, uint16_t value);
MORVL_API int32_t MORVL_CALL NumDWordToNumber(Number* num, uint32_t value);
MORVL_API int32_t MORVL_CALL NumLongToNumber(Number* num, int32_t value);
MORVL_API Number* MORVL_CALL NumGet(uint16_t value);
MORVL_API uint32_t MORVL_CALL NumToLong(const Number* num);
MORVL_API uint32_t MORVL_CALL NumToWord(const Number* num);
MORVL_API uint32_t MORVL_CALL NumToDWord(const Number* num);
MORVL_API uint32_t MORVL_CALL NumToLongReply(const Number* num, uint32_t* reply);
MORVL_API uint32_t MORVL_CALL NumToWordReply(const Number* num, uint32_t* reply);
MORVL_API uint32_t MORVL_CALL NumToDWordReply(const Number* num, uint32_t* reply);
MORVL_API int32_t MORVL_CALL NumIsNull(const Number* num);
MORVL_API void MORVL_CALL NumMakeNull(Number* num);
MORVL_API Number* MORVL_CALL NumNullToZero(Number* num);
MORVL_API int32_t MORVL_CALL NumIsZero(const Number* num);
MORVL_API double* MORVL_CALL NumNullDouble(double* value);
MORVL_API int32_t MORVL_CALL NumIsNullDouble(const double* value);

MORVL_API int32_t MORVL_CALL NumAddition(Number* result, const Number* a, const Number* b);
MORVL_API int32_t MORVL_CALL NumSubtract(Number* result, const Number* a, const Number* b);
MORVL_API int32_t MORVL_CALL NumMultiply(Number* result, const Number* a, const Number* b);
MORVL_API int32_t MORVL_CALL NumDivide(Number* result, const Number* a, const Number* b);
MORVL_API int32_t MORVL_CALL NumNegate(Number* num);
MORVL_API int32_t MORVL_CALL NumCompare(const Number* a, const Number* b);
MORVL_API int32_t MORVL_CALL NumTruncate(Number* num, int32_t precision, int32_t scale);
MORVL_API int32_t MORVL_CALL NumRound(Number* result, const Number* source, int32_t decimals);
MORVL_API int32_t MORVL_CALL NumPower10(Number* result, const Number* source, int32_t power);

MORVL_API int32_t MORVL_CALL NumAsciiToNumber(Number* num, const char* text);
MORVL_API int32_t MORVL_CALL NumHexAsciiToNumber(Number* num, const char* text);
MORVL_API int32_t MORVL_CALL NumToAscii(const Number* num, char* buffer, uint16_t width);
MORVL_API void MORVL_CALL NumToDouble(const Number* num, double* value);
MORVL_API void MORVL_CALL NumToDoubleNotNull(const Number* num, double* value);
MORVL_API int32_t MORVL_CALL NumDoubleToNumber(Number* num, double value);
MORVL_API char* MORVL_CALL FMTgcvt(double value, char* text);

MORVL_END_C

#endif
