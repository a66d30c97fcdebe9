// What a match walks along, on the side of the text and on that of the picture. A cursor stands on an element that
// counts, neither blank nor a text of nothing but white space, or behind the last one.
#pragma once

#include <cstring>

#include <morvl15/intl.h>

#include "picture_elements.h"
#include "picture_parser.h"
#include "quick_token.h"

// Along a list of either side, which the match may change.
class ListCursor {
  public:
    explicit ListCursor(DatePicElement* first) : at_(first) { SkipFiller(); }

    bool AtEnd() const { return at_ == nullptr; }
    int32_t Type() const { return at_->ElementType; }
    uint32_t Number() const { return at_->Value.Number; }
    void SetNumber(uint32_t number) { at_->Value.Number = number; }

    // DPE_TEXT: zero-terminated, for the match to change.
    char* Text() { return at_->Value.Text; }

    void Step() {
        at_ = at_->Next;
        SkipFiller();
    }

    // Steps onto the very next element if it is a text, of white space or not.
    bool StepToText() {
        if (at_->Next == nullptr || at_->Next->ElementType != DPE_TEXT) return false;
        at_ = at_->Next;
        return true;
    }

  private:
    static bool IsFiller(const DatePicElement* element) {
        if (element->ElementType == DPE_SPACE) return true;
        return element->ElementType == DPE_TEXT && *IntlStripStartSpace(element->Value.Text) == 0;
    }

    void SkipFiller() {
        while (at_ != nullptr && IsFiller(at_)) at_ = at_->Next;
    }

    DatePicElement* at_;
};

// Along the elements of a picture as they are kept.
class PictureCursor {
  public:
    explicit PictureCursor(const PictureElements& picture)
        : at_(picture.elements), end_(picture.elements + picture.count) {
        SkipFiller();
    }

    bool AtEnd() const { return at_ == end_; }
    int32_t Type() const { return at_->type; }

    // DPE_TEXT: a copy, zero-terminated, for the match to change.
    char* Text() {
        std::memcpy(text_, at_->text, at_->length);
        text_[at_->length] = 0;
        return text_;
    }

    void Step() {
        ++at_;
        SkipFiller();
    }

    bool StepToText() {
        if (at_ + 1 == end_ || at_[1].type != DPE_TEXT) return false;
        ++at_;
        return true;
    }

  private:
    bool IsFiller() { return at_->type == DPE_SPACE || (at_->type == DPE_TEXT && *IntlStripStartSpace(Text()) == 0); }

    void SkipFiller() {
        while (at_ != end_ && IsFiller()) ++at_;
    }

    const DateElement* at_;
    const DateElement* end_;
    char text_[PictureElements::kRoom];
};

// Along a text itself. It declines what the fast path declines, and what a list would have to keep for later matches or
// to read again: numbers with the year mark, quoted texts, a text that is a single element of eight bytes.
class ValueScanCursor {
  public:
    explicit ValueScanCursor(const char* text) : next_(text) {
        Step();
        if (*next_ == 0 && next_ - text == kCompactLength) Decline();
    }

    bool AtEnd() const { return type_ == kNoElement; }
    int32_t Type() const { return type_; }
    uint32_t Number() const { return number_; }
    void SetNumber(uint32_t number) { number_ = number; }
    bool Declined() const { return declined_; }

    char* Text() {
        std::memcpy(word_, next_ - length_, length_);
        word_[length_] = 0;
        return word_;
    }

    void Step() {
        const char* blanks = next_;
        while (*next_ == ' ') ++next_;
        if (next_ - blanks > kLongestQuickToken) return Decline();
        if (IsDigit(*next_)) return StepOverNumber();
        DateToken token;
        if (!QuickToken(next_, kValueQuickBytes, &token) || token.kind == ScanToken::kQuoted) return Decline();
        type_ = DateElementCode(token);
        length_ = token.length;
        next_ += length_;
        if (type_ == DPE_SPACE) Step();
    }

  private:
    static bool IsDigit(char c) { return c >= '0' && c <= '9'; }

    // One and two digits without a branch between: no processor foresees which it will be.
    void StepOverNumber() {
        const char* start = next_;
        const auto first = static_cast<uint32_t>(next_[0] - '0');
        const auto second = static_cast<uint32_t>(next_[1] - '0');
        const uint32_t isTwo = second <= 9 ? 1 : 0;
        number_ = first + isTwo * (9 * first + second);
        next_ += 1 + isTwo;
        while (IsDigit(*next_)) number_ = number_ * 10 + static_cast<uint32_t>(*next_++ - '0');
        type_ = DPE_NUMBER;
        const bool isMarked = next_ - start == 4 && number_ < 100;
        if (isMarked || next_ - start > kSafeDigits || static_cast<unsigned char>(*next_) >= 0x80) Decline();
    }

    void Decline() {
        declined_ = true;
        type_ = kNoElement;
    }

    static constexpr int kSafeDigits = 9;

    const char* next_;
    int32_t type_ = kNoElement;
    uint32_t number_ = 0;
    uint32_t length_ = 0;
    bool declined_ = false;
    char word_[kLongestQuickToken + 1];
};
