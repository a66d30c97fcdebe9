// Date pictures and date text as lists of elements.
#pragma once

#include <cstdint>

#include "picture_scanner.h"

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

struct DatePicElement {
    int32_t ElementType;  // a DatePicCode
    union {
        uint32_t Number;  // DPE_NUMBER the number, DPE_SEPARATOR the byte, DPE_SPACE the length of the run
        char* Text;       // DPE_TEXT: owned by the element
    } Value;              // the other elements have none
    DatePicElement* Next;
    DatePicElement* Prev;
};
static_assert(sizeof(void*) != 4 || sizeof(DatePicElement) == 16);

// How a text is to be read. The three kinds of value are read alike.
enum DatePicMode : int32_t {
    kModeDate = 1,
    kModeTime = 2,
    kModeDateTime = 3,
    kModePicture = 4,
};

// Reads a text into a list of elements, in blocks of MemAlloc; the caller releases it by FMTFreeDatePic. Null text
// counts as empty. Null for a text that is rejected, for any other mode, and when there is no memory.
DatePicElement* FMTParseDatePic(const char* text, int32_t mode);

// Releases a list from its first element on, texts included. Null is ignored.
void FMTFreeDatePic(DatePicElement* first);

// An element as the reader meets it, before it is put into a list.
struct DateElement {
    int32_t type;      // a DatePicCode
    uint32_t number;   // as DatePicElement's
    const char* text;  // where it stands in the read text, quotes left out; not terminated
    uint32_t length;   // its bytes there
};

// Reads the elements of a text one by one and allocates nothing: for those who walk a picture once and need no list.
// Whether a text is accepted shows at its end only.
class DateElementReader {
  public:
    // `text` is zero-terminated and outlives the reader; the state is kPicture or kValue.
    DateElementReader(const char* text, ScanState state) : scanner_(text, state) {}

    // Reads the next element. False at the end of the text and where it is rejected.
    bool Read(DateElement* element);

    // After the end: whether the text was accepted. A text without elements isn't.
    bool Accepted() const { return accepted_ && any_; }

  private:
    bool Reject();

    DateScanner scanner_;
    bool any_ = false;
    bool accepted_ = true;
};

// A list of elements that lives in the object itself as long as it is of a common size, and in blocks of MemAlloc
// beyond that. The same list as FMTParseDatePic's, but released by the object.
class DatePicList {
  public:
    DatePicList(const char* text, int32_t mode);
    ~DatePicList();
    DatePicList(const DatePicList&) = delete;
    DatePicList& operator=(const DatePicList&) = delete;

    // Null for a rejected text.
    DatePicElement* First() const { return first_; }

  private:
    static constexpr uint32_t kRoom = 1024;

    DatePicElement* first_;
    alignas(DatePicElement) unsigned char room_[kRoom];
};
