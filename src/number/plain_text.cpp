// Number to plain text: the shortest plain form that fits a width, or else an exponent form.
#include <algorithm>
#include <cstring>

#include "number_codec.h"
#include "pair_arithmetic.h"
#include "vector_operations.h"

namespace {

constexpr int32_t kMaxDigits = 2 * kNumMaxPairs;
constexpr int32_t kExponentRoom = 5;  // ".", "E", a sign and two digits
constexpr int32_t kMaxTextExponent = 99;
constexpr int32_t kMinZerosForExponent =
    4;  // zeros behind the point from which the exponent form may be the better one

// A value laid out as text: integer digits, zeros behind them, a point, zeros behind that, fraction digits.
class PlainText {
  public:
    PlainText(const NumParts& parts, int32_t width) : width_(width) {
        TakeDigits(parts);
        LayOut();
    }

    // Result: the end of the text; null when the width has no room for a digit.
    char* Write(char* text) {
        exponentForm_ = TakesExponentForm();
        int32_t shown = exponentForm_ ? width_ - kExponentRoom : PlainDigits();
        if (exponentForm_) zeros_ = 0;
        if (shown < 1) return nullptr;
        if (shown < zeros_ + count_ && !Cut(shown)) return nullptr;
        return exponentForm_ ? WriteExponentForm(text) : WritePlainForm(text);
    }

  private:
    // The digit string, from its first digit other than 0 to its last, and where the point lies in it.
    void TakeDigits(const NumParts& parts) {
        char* at = digits_;
        for (int32_t i = 0; i < parts.count; ++i) {
            *at++ = static_cast<char>('0' + parts.digits[i] / 10);
            *at++ = static_cast<char>('0' + parts.digits[i] % 10);
        }
        count_ = 2 * parts.count;
        while (count_ > 0 && digits_[count_ - 1] == '0') --count_;
        pointAt_ = count_ == 0 ? 0 : 2 * (parts.exponent - kNumExponentBias);
        if (count_ > 0 && digits_[0] == '0') {
            std::copy(digits_ + 1, digits_ + count_, digits_);
            --count_;
            --pointAt_;
        }
    }

    void LayOut() {
        if (count_ == 0) {
            trailing_ = 1;  // zero is "0"
        } else if (pointAt_ < 1) {
            hasPoint_ = true;
            zeros_ = -pointAt_;
            fraction_ = count_;
        } else if (pointAt_ < count_) {
            integer_ = pointAt_;
            hasPoint_ = true;
            fraction_ = count_ - pointAt_;
        } else {
            integer_ = count_;
            trailing_ = pointAt_ - count_;
        }
    }

    bool TakesExponentForm() const {
        if (integer_ > 0) return integer_ + trailing_ > width_;
        return zeros_ >= kMinZerosForExponent && zeros_ + count_ + 1 >= width_;
    }

    // How many digit positions the plain form may show.
    int32_t PlainDigits() const {
        if (trailing_ == 0 && width_ <= integer_) return integer_;
        return width_ - (hasPoint_ ? 1 : 0);
    }

    // Cuts the digit string so that `shown` positions remain, rounding half up. False when there is no room for what
    // the rounding gives.
    bool Cut(int32_t shown) {
        const int32_t cutAt = shown - zeros_;  // below 0: the width ends in front of the first digit
        if (cutAt >= 0 && RoundUpRunsOut(cutAt)) {
            digits_[0] = '1';
            ++pointAt_;
            if (!exponentForm_) MakeRoomForCarry(shown);
            if (exponentForm_ && width_ - kExponentRoom < 1) return false;
        }
        if (!exponentForm_) TrimFraction(cutAt);
        return true;
    }

    // Rounds at `cutAt`. Result: whether a carry has run past the first digit; all digits up to the cut are 0 then.
    bool RoundUpRunsOut(int32_t cutAt) {
        if (digits_[cutAt] < '5') return false;
        digits_[cutAt] = '0';
        int32_t at = cutAt - 1;
        while (at >= 0 && digits_[at] == '9') digits_[at--] = '0';
        if (at < 0) return true;
        ++digits_[at];
        return false;
    }

    // The carry took one position more in front of the digits.
    void MakeRoomForCarry(int32_t shown) {
        if (zeros_ > 0) {
            --zeros_;
            return;
        }
        ++integer_;
        if (integer_ > shown) exponentForm_ = true;
    }

    // The fraction digits in front of the cut, without zeros at their end; without any, the point goes too.
    void TrimFraction(int32_t cutAt) {
        int32_t end = cutAt;
        while (end > integer_ && digits_[end - 1] == '0') --end;
        fraction_ = std::max(end - integer_, 0);
        if (fraction_ == 0) hasPoint_ = false;
    }

    char* WritePlainForm(char* text) const {
        text = std::copy_n(digits_, integer_, text);
        text = std::fill_n(text, trailing_, '0');
        if (hasPoint_) *text++ = '.';
        text = std::fill_n(text, std::min(zeros_, width_), '0');
        return std::copy_n(digits_ + integer_, fraction_, text);
    }

    // Exactly as wide as there is room; beyond two exponent digits all nines.
    char* WriteExponentForm(char* text) const {
        const int32_t exponent = pointAt_ - 1;
        const int32_t magnitude = exponent < 0 ? -exponent : exponent;
        const bool saturated = magnitude > kMaxTextExponent;
        const int32_t decimals = width_ - kExponentRoom - 1;
        *text++ = saturated ? '9' : digits_[0];
        *text++ = '.';
        const int32_t kept = saturated ? 0 : std::min(decimals, count_ - 1);
        text = std::copy_n(digits_ + 1, kept, text);
        text = std::fill_n(text, decimals - kept, saturated ? '9' : '0');
        const int32_t written = std::min(magnitude, kMaxTextExponent);
        *text++ = 'E';
        *text++ = exponent < 0 ? '-' : '+';
        *text++ = static_cast<char>('0' + written / 10);
        *text++ = static_cast<char>('0' + written % 10);
        return text;
    }

    char digits_[kMaxDigits] = {};
    int32_t count_;    // digits in the string, 0 for zero
    int32_t pointAt_;  // the value is 0.digits times 10 to this power
    int32_t width_;    // room, without the sign
    bool exponentForm_ = false;
    int32_t integer_ = 0;   // integer digits
    int32_t trailing_ = 0;  // zeros behind them
    bool hasPoint_ = false;
    int32_t zeros_ = 0;     // zeros behind the point
    int32_t fraction_ = 0;  // digits behind those
};

// Through a text of full width, which is also that of a narrower one if it is shorter than that: then nothing is cut,
// and the exponent form isn't taken.
int32_t ToNarrowText(const Number* num, char* buffer, int32_t width) {
    char text[kNumTextRoom + 1];
    const int32_t length = NumToAsciiVectors(num, text);
    if (length == kNumDeclined || length >= width) return kNumDeclined;
    std::memcpy(buffer, text, static_cast<size_t>(length) + 1);
    return length;
}

}  // namespace

int32_t NumToAsciiPairs(const Number* num, char* buffer, uint16_t width) {
    *buffer = '\0';
    if (IsNull(num) || IsInvalid(num)) return 0;
    const NumParts parts = NumTakeApart(num);
    const bool negative = parts.negative && parts.count > 0;
    char* digits = buffer + negative;
    char* end = PlainText(parts, width - negative).Write(digits);
    if (end == nullptr) return 0;
    if (negative) *buffer = '-';
    if (end == buffer) *end++ = '0';
    *end = '\0';
    return static_cast<int32_t>(end - buffer);
}

int32_t MORVL_CALL NumToAscii(const Number* num, char* buffer, uint16_t width) {
    if (HasPairVectors()) {
        const int32_t length =
            width >= kNumTextRoom ? NumToAsciiVectors(num, buffer) : ToNarrowText(num, buffer, width);
        if (length != kNumDeclined) return length;
    }
    return NumToAsciiPairs(num, buffer, width);
}
