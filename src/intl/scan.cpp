// The wild-card scan.
//
// A pattern is laid along the text from a start. "%" takes any run of characters, "_" one character (none at the end
// of the text), a backslash makes the character behind it a literal, and a literal matches in either case. The first
// literal, and the first one behind a "%", is searched for; every other element has to match where the scan stands. On
// a mismatch the scan goes back to the latest "%" and tries further on; without a "%" the start moves one character on.
// The scan ends with the pattern, whatever follows in the text.
#include <morvl15/intl.h>

#include "text_kinds.h"

namespace {

template <class Text>
class Scan {
  public:
    Scan(const char* text, const char* pattern) : text_(text), at_(text), pattern_(pattern), element_(pattern) {}

    // The start of the match, or null.
    const char* Run() {
        bool goesOn = true;
        while (goesOn && *element_ != '\0') {
            if (*element_ == '%') {
                TakeAnyRun();
            } else if (*element_ == '_') {
                TakeAnyCharacter();
            } else {
                if (*element_ == '\\') ++element_;
                if (*element_ == '\0') break;  // a lone backslash at its end ends the pattern
                goesOn = searching_ ? SearchLiteral() : CompareLiteral();
            }
        }
        return goesOn ? start_ : nullptr;
    }

  private:
    void TakeAnyRun() {
        savedElement_ = ++element_;
        searching_ = true;
        afterPercent_ = true;
        if (start_ == nullptr && *at_ != '\0') start_ = text_;
    }

    void TakeAnyCharacter() {
        ++element_;
        at_ += Text::Width(at_);
        if (start_ == nullptr && *at_ != '\0') {
            start_ = text_;
            searching_ = false;
        }
    }

    // False when there is no match.
    bool SearchLiteral() {
        searching_ = false;
        const char* found =
            Text::FindEither(at_, Text::Fold(element_, IntlFold::kUpper), Text::Fold(element_, IntlFold::kLower));
        if (*found == '\0') return false;  // a search stands at the start or behind a "%": there is no way back
        element_ += Text::Width(element_);
        at_ = found + Text::Width(found);
        if (start_ == nullptr) start_ = found;
        if (afterPercent_) savedAt_ = at_;
        return true;
    }

    bool CompareLiteral() {
        if (Text::Fold(at_, IntlFold::kUpper) == Text::Fold(element_, IntlFold::kUpper)) {
            at_ += Text::Width(at_);
            element_ += Text::Width(element_);
            return true;
        }
        if (*start_ == '\0') return false;
        if (afterPercent_) {
            element_ = savedElement_;
            at_ = savedAt_;
            searching_ = true;
        } else {
            start_ += Text::Width(start_);
            at_ = start_;
            element_ = pattern_;
        }
        return true;
    }

    const char* text_;
    const char* at_;  // in the text
    const char* pattern_;
    const char* element_;                 // in the pattern
    const char* start_ = nullptr;         // of the match; null until set
    bool searching_ = true;               // the next literal may lie anywhere ahead
    bool afterPercent_ = false;           // a "%" has been passed
    const char* savedElement_ = nullptr;  // behind the latest "%"
    const char* savedAt_ = nullptr;       // behind the latest find of the literal that follows it
};

template <class Text>
int32_t ScanOf(const char* text, const char* pattern) {
    const char* found = Scan<Text>(text, pattern).Run();
    return found != nullptr ? IntlClampLength(Text::CharsBetween(text, found)) : -1;
}

}  // namespace

int32_t MORVL_CALL IntlStrScan(const char* text, const char* pattern) {
    if (text == nullptr || pattern == nullptr) return -1;
    if (*text == '\0' || *pattern == '\0') return *text == *pattern ? 0 : -1;
    return gIntlDBCS != 0 ? ScanOf<DoubleByteText>(text, pattern) : ScanOf<SingleByteText>(text, pattern);
}
