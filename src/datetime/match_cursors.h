// What a match walks along, on the side of the text and on that of the picture. A cursor stands on an element that
// counts, neither blank nor a text of nothing but white space, or behind the last one.
#pragma once

#include <cstring>

#include <morvl15/intl.h>

#include "picture_parser.h"
#include "quick_token.h"

// Along a list, which the match may change.
class ListCursor {
  public:
    using Source = DatePicElement*;

    explicit ListCursor(Source first) : at_(first) { SkipFiller(); }

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

    static constexpr bool Declined() { return false; }

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

// Along a text itself, by the scanner's fast path. It declines what that declines, and numbers with the year mark,
// since a list would have to keep what the match does to them: a match that met any of these says nothing.
class ScanCursor {
  public:
    struct Source {
        const char* text;
        const QuickBytes& bytes;
    };

    explicit ScanCursor(const Source& source) : cursor_(source.text), bytes_(source.bytes) { Step(); }

    bool AtEnd() const { return atEnd_; }
    int32_t Type() const { return element_.type; }
    uint32_t Number() const { return element_.number; }
    void SetNumber(uint32_t number) { element_.number = number; }

    char* Text() {
        std::memcpy(word_, element_.text, element_.length);
        word_[element_.length] = 0;
        return word_;
    }

    void Step() {
        DateToken token;
        do {
            if (!QuickToken(cursor_, bytes_, &token)) return Decline();
            cursor_ += token.length;
        } while (token.kind == ScanToken::kSpace);
        FillDateElement(token, &element_);
        atEnd_ = token.kind == ScanToken::kEnd;
        if (element_.type == DPE_NUMBER && element_.number >= kFullYearMark) Decline();
    }

    bool StepToText() {
        DateToken token;
        if (!QuickToken(cursor_, bytes_, &token)) Decline();
        return false;
    }

    bool Declined() const { return declined_; }

  private:
    void Decline() {
        declined_ = true;
        atEnd_ = true;
    }

    const char* cursor_;
    const QuickBytes& bytes_;
    DateElement element_;
    bool atEnd_ = false;
    bool declined_ = false;
    char word_[kLongestQuickToken + 1];
};
