// The locale values: what kind of system the library runs on. IntlInit writes them, at load; after that they are only
// read, without a lock.
#pragma once

#include <cstdint>

extern int32_t gIntlDBCS;           // 1 when the system default language is Chinese, Japanese or Korean
extern int32_t gIntlCodePageClass;  // one of the classes below
extern int32_t gIntlBiDi;           // 1 when the system or the user writes from right to left
extern uint16_t gIntlLangId;        // the system default language
extern uint16_t gIntlPrimaryLang;   // its low 10 bits: the language without the country

constexpr int32_t kClassNone = 0;
constexpr int32_t kClassJapanese = 1;
constexpr int32_t kClassChinese = 2;
constexpr int32_t kClassKorean = 3;

// What the code page says about each byte, asked of the host once.
extern uint8_t gIntlLeadBytes[256];  // 1 for a byte that can start a double-byte character; all 0 when gIntlDBCS is 0
extern uint8_t gIntlUpper[256];      // a single-byte character in upper case; lead bytes stay as they are
extern uint8_t gIntlLower[256];      // ... in lower case

// The lead bytes as one interval, for walks over blocks of bytes: byte b is one exactly when, as signed bytes,
// (b xor flip) + shift > below. Each value fills a block. Two ranges that differ in one bit are one interval by the
// flip, as those of Shift-JIS are; where that isn't enough, isKnown is false.
struct IntlLeadInterval {
    alignas(16) char flip[16];
    alignas(16) char shift[16];
    alignas(16) char below[16];
    bool isKnown;
};
extern IntlLeadInterval gIntlLeadInterval;

// Makes the interval of a table of lead bytes.
IntlLeadInterval IntlFindLeadInterval(const uint8_t (&leadBytes)[256]);

// The code of the double-byte blank, 0 where there is none.
extern uint16_t gIntlBlank;
