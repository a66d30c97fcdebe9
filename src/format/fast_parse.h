// Plain digits read from number text in one pass.
#pragma once

#include "fast_number.h"

namespace fast {

// A value as its digits, on the way from text to a Number.
class ParsedNumber {
  public:
    // Reads a text of digits, separators and one sign, white space round it.
    //   negative  in: the text had a minus that has been taken off: it has no other sign then
    // kRejected is a text that is no number whatever else it holds; kDeclined one that needs a closer look, because of
    // an exponent, a byte beyond ASCII, too many digits, or a sign or a blank within.
    Outcome Read(std::string_view text, FMTSeparators separators, bool negative);

    bool IsNegative() const { return negative_; }
    void Negate() {
        negative_ = !negative_;
        wasNegative_ = true;
    }
    void SetZero() { count_ = 0; }
    void DivideBy100() { whole_ -= 2; }

    // The value, as the plain routines would round it. False, with value as it was, if it doesn't fit unrounded.
    bool Store(Number* value) const;

    // The text that NumToAscii writes. False, with nothing written, if that might be one with an exponent.
    bool WriteText(char* text) const;

  private:
    static constexpr int32_t kMaxDigits = 22;

    Outcome ReadDigits(std::string_view text, FMTSeparators separators);

    bool negative_;
    bool wasNegative_;  // on its way: a negative value holds fewer digits
    int32_t count_;     // digits from the first that is not zero on; 0 for zero
    int32_t whole_;     // how many of them stand before the point; below 0: zeros behind the point in front of them
    char digits_[kMaxDigits + 2];  // 0 to 9
};

// Whether a text has to be walked by characters, or is so long that the plain routine needs memory for it.
bool IsUnusualText(std::string_view text);

}  // namespace fast
