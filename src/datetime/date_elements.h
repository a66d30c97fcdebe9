// The elements that date pictures and date text consist of.
#pragma once

#include <cstdint>

#include "scan_tokens.h"

// What an element is. Codes 4 to 13 are the date fields, 14 to 21 the time fields.
enum DatePicCode : int32_t {
    DPE_NUMBER = 0,        // digits in date text
    DPE_TEXT = 1,          // a quoted text, or a word in date text
    DPE_SEPARATOR = 2,     // , - . / : or backslash
    DPE_SPACE = 3,         // blanks, tabs, line feeds
    DPE_DAY = 4,           // d
    DPE_DAY2 = 5,          // dd
    DPE_WEEKDAY3 = 6,      // ddd
    DPE_WEEKDAY = 7,       // dddd
    DPE_MONTH = 8,         // M
    DPE_MONTH2 = 9,        // MM
    DPE_MONTH3 = 10,       // MMM
    DPE_MONTHNAME = 11,    // MMMM
    DPE_YEAR2 = 12,        // yy
    DPE_YEAR4 = 13,        // yyyy
    DPE_HOUR12_2 = 14,     // hh
    DPE_HOUR24_2 = 15,     // hhhh
    DPE_MINUTE = 16,       // mm
    DPE_SECOND = 17,       // ss
    DPE_MICROSECOND = 18,  // mmmmmm
    DPE_AMPM = 19,         // AMPM
    DPE_HOUR12 = 20,       // h
    DPE_HOUR24 = 21,       // hhh
};

constexpr bool IsDateField(int32_t elementType) {
    return elementType >= DPE_DAY && elementType <= DPE_YEAR4;
}
constexpr bool IsTimeField(int32_t elementType) {
    return elementType >= DPE_HOUR12_2 && elementType <= DPE_HOUR24;
}

// The top byte of a number that was written as four digits beginning with "00": a year in full, to which no century is
// added.
constexpr uint32_t kFullYearMark = 0xFF000000;

// What a run of digits counts as that is too large for a number: above every range, and without the year mark.
constexpr uint32_t kNumberTooLarge = 0x7FFFFFFF;

struct DateElement {
    int32_t type;      // a DatePicCode
    uint32_t number;   // DPE_NUMBER the number, DPE_SEPARATOR the byte, DPE_SPACE the length of the run
    const char* text;  // where it stands in the read text, quotes left out; not terminated
    uint32_t length;   // its bytes there
};

// ---- from tokens to elements ----------------------------------------------------------------------------------------

// The type of what makes a text bad, and of its end.
constexpr int32_t kNoElement = -1;

// The element of a token by the token's length.
// clang-format off
inline constexpr int32_t kElementCodes[][5] = {
    //                1              2             3             4              more bytes
    /* kYear */        {kNoElement,         DPE_YEAR2,    kNoElement,        DPE_YEAR4,     kNoElement},
    /* kMonth */       {DPE_MONTH,     DPE_MONTH2,   DPE_MONTH3,   DPE_MONTHNAME, kNoElement},
    /* kDay */         {DPE_DAY,       DPE_DAY2,     DPE_WEEKDAY3, DPE_WEEKDAY,   kNoElement},
    /* kHour */        {DPE_HOUR12,    DPE_HOUR12_2, DPE_HOUR24,   DPE_HOUR24_2,  kNoElement},
    /* kMinute */      {kNoElement,         DPE_MINUTE,   kNoElement,        kNoElement,         kNoElement},
    /* kSecond */      {kNoElement,         DPE_SECOND,   kNoElement,        kNoElement,         kNoElement},
    /* kMicrosecond */ {kNoElement,         kNoElement,        kNoElement,        kNoElement,         DPE_MICROSECOND},
    /* kAmPm */        {kNoElement,         kNoElement,        kNoElement,        DPE_AMPM,      kNoElement},
    /* kSeparator */   {DPE_SEPARATOR, kNoElement,        kNoElement,        kNoElement,         kNoElement},
    /* kQuoted */      {kNoElement,         DPE_TEXT,     DPE_TEXT,     DPE_TEXT,      DPE_TEXT},
    /* kSpace */       {DPE_SPACE,     DPE_SPACE,    DPE_SPACE,    DPE_SPACE,     DPE_SPACE},
    /* kNumber */      {DPE_NUMBER,    DPE_NUMBER,   DPE_NUMBER,   DPE_NUMBER,    DPE_NUMBER},
    /* kWord */        {DPE_TEXT,      DPE_TEXT,     DPE_TEXT,     DPE_TEXT,      DPE_TEXT},
};
// clang-format on
static_assert(sizeof kElementCodes / sizeof kElementCodes[0] ==
              static_cast<int>(ScanToken::kWord) - static_cast<int>(ScanToken::kYear) + 1);

inline int32_t DateElementCode(const DateToken& token) {
    if (token.kind < ScanToken::kYear || token.kind > ScanToken::kWord) return kNoElement;
    const int row = static_cast<int>(token.kind) - static_cast<int>(ScanToken::kYear);
    return kElementCodes[row][token.length < 5 ? token.length - 1 : 4];
}

// A number's digits. A year written out in four digits below 0100 gets the mark.
inline uint32_t DateNumber(const DateToken& token) {
    constexpr int kSafeDigits = 9;
    uint32_t number = 0;
    for (int i = 0; i < token.length; ++i) {
        const auto digit = static_cast<uint32_t>(token.start[i] - '0');
        if (i >= kSafeDigits && number > (kNumberTooLarge - digit) / 10) return kNumberTooLarge;
        number = number * 10 + digit;
    }
    const bool marked = token.length == 4 && token.start[0] == '0' && token.start[1] == '0';
    return marked ? number | kFullYearMark : number;
}

// Fills the element of a token, field by field: a record that is put together and then copied whole stalls the
// processor.
inline void FillDateElement(const DateToken& token, DateElement* element) {
    element->type = DateElementCode(token);
    element->number = 0;
    element->text = token.start;
    element->length = token.length;
    if (token.kind < ScanToken::kSeparator) return;  // a field
    if (token.kind == ScanToken::kNumber) {
        element->number = DateNumber(token);
    } else if (token.kind == ScanToken::kSeparator) {
        element->number = static_cast<unsigned char>(*token.start);
    } else if (token.kind == ScanToken::kSpace) {
        element->number = token.length;
    } else if (token.kind == ScanToken::kQuoted) {
        element->text += 1;
        element->length -= 2;
    }
}
