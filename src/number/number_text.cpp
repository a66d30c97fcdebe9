// Plain decimal text to Number.
#include <morvl15/intl.h>

#include "number_codec.h"

namespace {

constexpr int32_t kMaxDigits = 23;  // digits behind these keep their place, and are lost
constexpr int32_t kTooLarge = -1;
constexpr int32_t kTooSmall = -2;
constexpr int32_t kExponentTextLimit = 10000;  // an exponent that reaches it is too large under either sign

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsHexPrefix(const char* text) {
    return text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

// Walks over [digits] [. digits] [e [sign] [digits]] and keeps what counts.
class DecimalScanner {
  public:
    explicit DecimalScanner(const char* text) : at_(text) {}

    // False when there is no digit.
    bool ScanDigits() {
        SkipZeros(0);
        for (; IsDigit(*at_); ++at_) {
            Keep(*at_);
            ++pointAt_;
        }
        if (*at_ == '.') {
            ++at_;
            if (count_ == 0) SkipZeros(-1);
            for (; IsDigit(*at_); ++at_) Keep(*at_);
        }
        return sawDigit_;
    }

    // False when the exponent is too large to be read on.
    bool ScanExponent() {
        if (*at_ != 'e' && *at_ != 'E') return true;
        ++at_;
        const bool negative = *at_ == '-';
        if (*at_ == '-' || *at_ == '+') ++at_;
        int32_t value = 0;
        for (; IsDigit(*at_); ++at_) {
            value = value * 10 + (*at_ - '0');
            if (value >= kExponentTextLimit) return false;
        }
        pointAt_ += negative ? -value : value;
        return true;
    }

    const char* End() const { return at_; }

    // Packs what was kept. Result: as that of NumAsciiToNumber, but 0 for success.
    int32_t Pack(Number* num, bool negative) {
        if (count_ == 0) {
            NumPackZero(num);
            return 0;
        }
        const int64_t position = pointAt_ + 2 * int64_t{kNumExponentBias};  // where the point lies, in digits
        if (position < 0) return kTooSmall;
        // An odd position takes a 0 in front, so that the point falls between two pairs.
        const int32_t lead = static_cast<int32_t>(position & 1);
        const int64_t exponent = (position + lead) / 2;
        if (exponent > kNumMaxExponent) return kTooLarge;
        uint8_t pairs[(kMaxDigits + 1) / 2] = {};
        for (int32_t i = 0; i < count_; ++i) {
            const int32_t digitAt = i + lead;
            pairs[digitAt / 2] = static_cast<uint8_t>(pairs[digitAt / 2] + digits_[i] * (digitAt % 2 != 0 ? 1 : 10));
        }
        NumPack(num, pairs, (count_ + lead + 1) / 2, negative, static_cast<int32_t>(exponent));
        return 0;
    }

  private:
    // Zeros in front of the first digit kept; each moves the point by `move`.
    void SkipZeros(int32_t move) {
        for (; *at_ == '0'; ++at_) {
            pointAt_ += move;
            sawDigit_ = true;
        }
    }

    void Keep(char digit) {
        if (count_ < kMaxDigits) digits_[count_++] = static_cast<uint8_t>(digit - '0');
        sawDigit_ = true;
    }

    const char* at_;
    bool sawDigit_ = false;
    uint8_t digits_[kMaxDigits];
    int32_t count_ = 0;
    int64_t pointAt_ = 0;  // the value is 0.digits times 10 to this power
};

}  // namespace

int32_t MORVL_CALL NumAsciiToNumber(Number* num, const char* text) {
    num->bytes[0] = 0;
    num->bytes[1] = kNumZeroByte;
    if (text == nullptr) return 0;
    const char* start = IntlStripStartSpace(text);
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
