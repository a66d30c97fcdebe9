// International strings.
#ifndef MORVL15_INTL_H
#define MORVL15_INTL_H

#include <morvl15/base.h>

MORVL_BEGIN_C

MORVL_API void MORVL_CALL IntlInit(void);
MORVL_API int32_t MORVL_CALL IntlDBCSEnabled(void);
MORVL_API int32_t MORVL_CALL IntlIsBiDiEnabled(void);
MORVL_API int32_t MORVL_CALL IntlIsDBChar(const char* text);
MORVL_API int32_t MORVL_CALL IntlBytesInNextChar(const char* text);
MORVL_API uint16_t MORVL_CALL IntlDBCSChar(const char* text);
MORVL_API uint16_t MORVL_CALL IntlDBCSBlank(void);
MORVL_API int32_t MORVL_CALL IntlIsNthCharDB(const char* text, int32_t n);
MORVL_API int32_t MORVL_CALL IntlIsNthByteDB(const char* text, int32_t n);
MORVL_API char* MORVL_CALL IntlNextDBCInStr(const char* text);
MORVL_API int32_t MORVL_CALL IntlCharIsHexDigit(uint16_t character);
MORVL_API int32_t MORVL_CALL IntlIsKanji(uint8_t byte);
MORVL_API int32_t MORVL_CALL IntlIsKatakana(uint8_t byte);
MORVL_API char* MORVL_CALL IntlStrChr(const char* text, uint16_t character);

MORVL_API int32_t MORVL_CALL IntlStrLeft(char* destination, const char* source, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrLeftB(char* destination, const char* source, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrRight(char* destination, const char* source, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrRightB(char* destination, const char* source, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrMid(char* destination, const char* source, int32_t start, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrMidB(char* destination, const char* source, int32_t start, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrReplace(char* destination, const char* source, const char* insertion,
                                            int32_t position, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrReplaceB(char* destination, const char* source, const char* insertion,
                                             int32_t position, int32_t count);
MORVL_API int32_t MORVL_CALL IntlStrLen(const char* text);
MORVL_API int32_t MORVL_CALL IntlStrLenB(const char* text);
MORVL_API char* MORVL_CALL IntlStrnCpy(char* destination, const char* source, uint16_t count);
MORVL_API char* MORVL_CALL IntlStrUpper(char* text);
MORVL_API char* MORVL_CALL IntlStrLower(char* text);
MORVL_API int32_t MORVL_CALL IntlStrProper(char* destination, const char* source);
MORVL_API int32_t MORVL_CALL IntlStrTrim(char* destination, const char* source);
MORVL_API char* MORVL_CALL IntlStrNthChar(const char* text, int32_t index);
MORVL_API int16_t MORVL_CALL IntlStrFirstChar(const char* text);
MORVL_API int16_t MORVL_CALL IntlStrLastChar(const char* text);
MORVL_API int32_t MORVL_CALL IntlIsStrEqual(const char* first, const char* second);
MORVL_API int32_t MORVL_CALL IntlIsStrnEqual(const char* first, const char* second, uint16_t count);
MORVL_API char* MORVL_CALL IntlStripStartSpace(const char* text);
MORVL_API char* MORVL_CALL IntlStripStartBlank(const char* text);
MORVL_API char* MORVL_CALL IntlStripEndSpace(char* destination, const char* source);
MORVL_API char* MORVL_CALL IntlStrStripSpace(char* text);
MORVL_API int32_t MORVL_CALL IntlStrIsNextChSpace(const char* text);

MORVL_API int32_t MORVL_CALL IntlStrScan(const char* text, const char* pattern);
MORVL_API char* MORVL_CALL IntlStrSearch(const char* text, const char* set);
MORVL_API int32_t MORVL_CALL IntlStrGetToken(char* destination, const char* source, const char* skipSet,
                                             const char* delimiterSet, uint16_t leadCharacter, int32_t size);
MORVL_API int32_t MORVL_CALL IntlStrGetTokenNestedParens(char* destination, const char* source, const char* skipSet,
                                                         const char* delimiterSet, uint16_t leadCharacter,
                                                         int32_t size);
MORVL_API int32_t MORVL_CALL IntlStrGetTokenQuoted(char* destination, const char* source, const char* skipSet,
                                                   const char* delimiterSet, uint16_t leadCharacter, uint8_t quote,
                                                   int32_t size);
MORVL_API int32_t MORVL_CALL IntlFetchNextNumLong(int32_t* value, const char* text);
MORVL_API int32_t MORVL_CALL IntlFetchNextNumDouble(double* value, const char* text);

MORVL_API int32_t MORVL_CALL IntlStrJapanFull(char* destination, const char* source);
MORVL_API int32_t MORVL_CALL IntlStrJapanHalf(char* destination, const char* source);

MORVL_END_C

#endif
