// Date pictures and date text as lists of elements.
#pragma once

#include <cstdint>

#include "date_elements.h"
#include "picture_scanner.h"

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

// A value of this many bytes that is a single element, as "19991231" is, is read again with blanks between its year,
// month and day.
constexpr int kCompactLength = 8;

// Reads a text into a list of elements, in blocks of MemAlloc; the caller releases it by FMTFreeDatePic. Null text
// counts as empty. Null for a text that is rejected, for any other mode, and when there is no memory.
DatePicElement* FMTParseDatePic(const char* text, int32_t mode);

// Releases a list from its first element on, texts included. Null is ignored.
void FMTFreeDatePic(DatePicElement* first);

// Reads the elements of a text one by one and allocates nothing: for those who walk a picture once and need no list.
// Whether a text is accepted shows at its end only.
class DateElementReader {
  public:
    // `text` is zero-terminated and outlives the reader; the state is kPicture or kValue.
    DateElementReader(const char* text, ScanState state) : scanner_(text, state) {}

    // Reads the next element. False at the end of the text and where it is rejected.
    bool Read(DateElement* element) {
        const DateToken token = scanner_.Next();
        if (token.kind == ScanToken::kEnd) return false;
        FillDateElement(token, element);
        if (element->type == kNoElement) return Reject();
        any_ = true;
        return true;
    }

    // After the end: whether the text was accepted. A text without elements isn't.
    bool Accepted() const { return accepted_ && any_; }

  private:
    bool Reject() {
        accepted_ = false;
        return false;
    }

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
