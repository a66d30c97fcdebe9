// Hexadecimal text to Number.
#include <algorithm>

#include "number_codec.h"

namespace {

constexpr uint8_t kLargestFirstByte = kNumPositive + kNumMaxExponent;

// The value of a hexadecimal digit, or -1.
int32_t HexDigit(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    if (character >= 'A' && character <= 'F') return character - 'A' + 10;
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    return -1;
}

// The pairs of an encoded positive value, as the multiplication in place works on them.
class EncodedPairs {
  public:
    explicit EncodedPairs(Number* num) : num_(num), count_(NumLength(num) - 1) {}

    void Multiply(int32_t factor) {
        int32_t carry = 0;
        for (int32_t i = count_ - 1; i >= 0; --i) {
            carry += Pairs()[i] * factor;
            Pairs()[i] = static_cast<uint8_t>(carry % 100);
            carry /= 100;
        }
        if (carry != 0) PutInFront(static_cast<uint8_t>(carry));
        num_->bytes[0] = static_cast<uint8_t>(count_ + 1);
    }

  private:
    uint8_t* Pairs() { return num_->bytes + 2; }

    void PutInFront(uint8_t pair) {
        if (count_ == kNumMaxPairs) DropLast();
        std::copy_backward(Pairs(), Pairs() + count_, Pairs() + count_ + 1);
        Pairs()[0] = pair;
        ++count_;
        RaiseExponent();
    }

    // Takes the last pair away, rounding. The pairs that the carry turns to 0 go too, but for one, which readers
    // ignore.
    void DropLast() {
        const bool up = Pairs()[--count_] >= 50;
        if (!up) return;
        int32_t at = count_ - 1;
        while (at >= 0 && Pairs()[at] == 99) Pairs()[at--] = 0;
        if (at < 0) {
            Pairs()[0] = 1;
            count_ = 1;
            RaiseExponent();
            return;
        }
        ++Pairs()[at];
        count_ = std::min(count_, at + 2);
    }

    // The exponent stays at its limit, and the digits go on as they are.
    void RaiseExponent() {
        if (num_->bytes[1] < kLargestFirstByte) ++num_->bytes[1];
    }

    Number* num_;
    int32_t count_;
};

const char* SkipZeros(const char* text) {
    while (*text == '0') ++text;
    return text;
}

// Skips "0x" or "0X", and zeros in front of the first digit that counts.
const char* SkipPrefix(const char* text) {
    if (*text != '0') return text;
    const bool hasPrefix = text[1] == 'x' || text[1] == 'X';
    return SkipZeros(hasPrefix ? text + 2 : text);
}

}  // namespace

int32_t MORVL_CALL NumHexAsciiToNumber(Number* num, const char* text) {
    NumPackZero(num);
    if (text == nullptr) return 0;
    const char* at = text;
    while (*at == ' ' || *at == '\t') ++at;
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+') ++at;
    at = SkipPrefix(at);
    for (int32_t digit = HexDigit(*at); digit >= 0; digit = HexDigit(*++at)) {
        EncodedPairs(num).Multiply(16);
        if (digit == 0) continue;
        Number addend;
        NumWordToNumber(&addend, static_cast<uint16_t>(digit));
        NumAddition(num, num, &addend);
    }
    if (negative) NumNegate(num);
    return static_cast<int32_t>(at - text);
}
