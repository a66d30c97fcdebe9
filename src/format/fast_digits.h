// The decimal digits of a value, taken from its pairs and rounded where they stand.
#pragma once

#include "number_work.h"

namespace fast {

// Sixteen digits in two registers, as text, the next one in the lowest byte. What is not stored to memory need not be
// waited for when it is read again.
class DigitStream {
  public:
    DigitStream() = default;
    DigitStream(uint64_t low, uint64_t high) : low_(low), high_(high) {}

    char Peek(int32_t at) const { return static_cast<char>(low_ >> 8 * at); }
    void WriteFour(char* out) const {
        for (int32_t at = 0; at < 4; ++at) out[at] = Peek(at);
    }

    // Drops digits from the front, or puts zeros there; 7 at most.
    void Drop(int32_t count) {
        low_ = low_ >> 8 * count | high_ << 8 << (56 - 8 * count);
        high_ >>= 8 * count;
    }
    void PutZeros(int32_t count) {
        constexpr uint64_t kZeros = 0x3030303030303030;
        high_ = high_ << 8 * count | low_ >> 8 >> (56 - 8 * count);
        low_ = low_ << 8 * count | kZeros >> 8 >> (56 - 8 * count);
    }

  private:
    uint64_t low_;
    uint64_t high_;
};

// Digits as text, in a room in which zeros can be put in front and behind.
class Digits {
  public:
    // Takes the digits of the magnitude. False for null, and for bytes that no operation writes.
    bool Take(const Number& value);

    bool IsNegative() const { return negative_; }
    bool IsZero() const { return count_ == 0; }

    // Multiplies by 100. False if the value would leave the range of a Number.
    bool Percent();

    // For scientific texts: the power of ten of the first digit, or of the one that rounding to a whole number would
    // put in front of it. Not for zero.
    int32_t Power() const;

    // Multiplies by ten to a power. Not for zero.
    void ScaleByPower10(int32_t power) { whole_ += power; }

    // Whether all digits are among the first ones.
    bool HasAtMost(int32_t digits) const { return count_ <= digits; }

    // A value of ordinary size that needs no rounding, with at least minWhole digits before the point and `places`
    // behind it, as a stream. False for any other.
    bool StreamOut(int32_t minWhole, int32_t places, DigitStream* stream) const;

    // Rounds half away from zero to decimal places, 0 to kMaxPlaces.
    void Round(int32_t places);

    // How many digits stand before the decimal point in plain text: none for .5, one for zero.
    int32_t WholeDigits() const { return count_ == 0 ? 1 : whole_ > 0 ? whole_ : 0; }

    // Lays rounded digits out: at least minWhole digits before the point, `places` behind it.
    // Result: the first of them; the fraction follows the whole digits without a point.
    char* LayOut(int32_t minWhole, int32_t places);

    static constexpr int32_t kMaxPlaces = 64;
    static constexpr int32_t kMaxWhole = 64;  // for minWhole

  private:
    char At(int32_t digit) const {
        const int32_t at = first_ - kFront + digit;
        return static_cast<char>(text_[at / 8] >> 8 * (at % 8));
    }

    static constexpr int32_t kFront = 132;  // zeros in front: minWhole, and those behind the point
    static constexpr int32_t kPairDigits = 24;
    static constexpr int32_t kBehind = 176;  // zeros behind: up to 103 whole digits, and the places

    bool negative_;
    int32_t first_;     // the digits begin here, with the first that is not zero
    int32_t count_;     // how many there are; 0 for zero
    int32_t whole_;     // how many of them stand before the point; below 0: zeros behind the point in front of them
    uint64_t text_[3];  // what the pairs hold, "0" behind
    char room_[kFront + kPairDigits + kBehind];  // from Round on: text_ at kFront
};

// Copies a few bytes, for which a call would cost more than the copying.
inline char* CopyShort(char* to, const char* from, int32_t count) {
    for (int32_t i = 0; i < count; ++i) to[i] = from[i];
    return to + count;
}

// Appends whole digits with a separator between groups of three, 0 for none.
char* AppendWhole(char* out, const char* digits, int32_t count, char thousand);

}  // namespace fast
