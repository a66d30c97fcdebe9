// Plain decimal text to Number.
#include <morvl15/intl.h>

#include "decimal_pack.h"

namespace {

constexpr int32_t kMaxDigits = kDecimalHighDigits + kDecimalLowDigits;  // those behind keep their place, and are lost
constexpr int32_t kTooLarge = -1;
constexpr int32_t kTooSmall = -2;
constexpr int32_t kExponentTextLimit = 10000;  // an exponent that reaches it is too large under either sign

uint32_t DigitValue(char character) {
    return static_cast<uint32_t>(static_cast<unsigned char>(character)) - '0';
}

bool IsDigit(char character) {
    return DigitValue(character) <= 9;
}

bool IsHexPrefix(const char* text) {
    return text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

// Whether a byte is "+", "-", "." or a digit, or else "," or "/": no white space in any language.
bool IsNoSpace(char character) {
    return character >= '+' && character <= '9';
}

// Walks over [digits] [. digits] [e [sign] [digits]] and keeps what counts.
class DecimalScanner {
  public:
    explicit DecimalScanner(const char* text) : at_(text) {}

    // False when there is no digit.
    bool ScanDigits() {
        const char* start = at_;
        while (*at_ == '0') ++at_;
        const char* firstCounted = at_;
        KeepDigits();
        point_ = at_ - firstCounted;
        if (*at_ != '.') return at_ != start;
        const char* point = at_++;
        if (count_ == 0) {
            while (*at_ == '0') ++at_;
            point_ = point + 1 - at_;
        }
        KeepDigits();
        return point != start || at_ != point + 1;
    }

    // False when the exponent is too large to be read on.
    bool ScanExponent() {
        if (*at_ != 'e' && *at_ != 'E') return true;
        ++at_;
        const bool negative = *at_ == '-';
        if (*at_ == '-' || *at_ == '+') ++at_;
        int32_t value = 0;
        for (; IsDigit(*at_); ++at_) {
            value = value * 10 + static_cast<int32_t>(DigitValue(*at_));
            if (value >= kExponentTextLimit) return false;
        }
        point_ += negative ? -value : value;
        return true;
    }

    const char* End() const { return at_; }

    // Packs what was kept. Result: as that of NumAsciiToNumber, but 0 for success.
    int32_t Pack(Number* num, bool negative) const {
        if (count_ == 0) {
            NumPackZero(num);
            return 0;
        }
        const int64_t point = point_ + 2 * int64_t{kNumExponentBias};
        if (point < 0) return kTooSmall;
        if (point > 2 * int64_t{kNumMaxExponent}) return kTooLarge;
        NumPackDecimal(num, LeftAligned(), negative, static_cast<int32_t>(point));
        return 0;
    }

  private:
    void KeepDigits() {
        for (uint32_t digit = DigitValue(*at_); digit <= 9; digit = DigitValue(*++at_)) {
            if (count_ < kDecimalHighDigits) {
                high_ = high_ * 10 + digit;
            } else if (count_ < kMaxDigits) {
                low_ = low_ * 10 + digit;
            } else {
                continue;
            }
            ++count_;
        }
    }

    DecimalDigits LeftAligned() const {
        if (count_ <= kDecimalHighDigits) return {high_ * NumPowerOf10(kDecimalHighDigits - count_), 0};
        return {high_, low_ * static_cast<uint32_t>(NumPowerOf10(kMaxDigits - count_))};
    }

    const char* at_;
    uint64_t high_ = 0;  // the first digits kept, from the first one that isn't 0
    uint32_t low_ = 0;   // those behind
    int32_t count_ = 0;
    int64_t point_ = 0;  // the value is 0.digits times 10 to this power
};

}  // namespace

int32_t MORVL_CALL NumAsciiToNumber(Number* num, const char* text) {
    num->bytes[0] = 0;
    num->bytes[1] = kNumZeroByte;
    if (text == nullptr) return 0;
    const char* start = IsNoSpace(*text) ? text : IntlStripStartSpace(text);
    const bool hasSign = *start == '-' || *start == '+';
    if (IsHexPrefix(start + hasSign)) {
        return static_cast<int32_t>(start - text) + NumHexAsciiToNumber(num, start);
    }

    DecimalScanner scanner(start + hasSign);
    if (!scanner.ScanDigits()) return 0;
    if (!scanner.ScanExponent()) return kTooLarge;
    const int32_t failure = scanner.Pack(num, *start == '-');
    return failure != 0 ? failure : static_cast<int32_t>(scanner.End() - text);
}
