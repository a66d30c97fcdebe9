// The decimal digits of a value, taken from its pairs and rounded where they stand.
#pragma once

#include "number_work.h"

namespace fast {

// Digits as text, in a room in which zeros can be put in front and behind.
class Digits {
  public:
    // Takes the digits of the magnitude. False for null, and for bytes that no operation writes.
    bool Take(const Number& value);

    bool IsNegative() const { return negative_; }
    bool IsZero() const { return count_ == 0; }

    // Multiplies by 100. False if the value would leave the range of a Number.
    bool Percent();

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
    static constexpr int32_t kFront = 132;  // zeros in front: minWhole, and those behind the point
    static constexpr int32_t kPairDigits = 24;
    static constexpr int32_t kBehind = 176;  // zeros behind: up to 103 whole digits, and the places

    bool negative_;
    int32_t first_;  // where the digits begin in room_; the first digit is not zero
    int32_t count_;  // how many there are; 0 for zero
    int32_t whole_;  // how many of them stand before the point; below 0: zeros behind the point in front of them
    char room_[kFront + kPairDigits + kBehind];
};

// Copies a few bytes, for which a call would cost more than the copying.
inline char* CopyShort(char* to, const char* from, int32_t count) {
    for (int32_t i = 0; i < count; ++i) to[i] = from[i];
    return to + count;
}

// Appends whole digits with a separator between groups of three, 0 for none.
char* AppendGrouped(char* out, const char* digits, int32_t count, char thousand);

}  // namespace fast
