// Division, pair by pair.
#include <algorithm>
#include <iterator>

#include "number_codec.h"
#include "pair_arithmetic.h"

namespace {

constexpr int32_t kQuotientPairs = 12;

// A long division in base 100: Knuth's algorithm D (The Art of Computer Programming, volume 2, section 4.3.1).
class LongDivision {
  public:
    // `divisor` has a first pair other than 0.
    LongDivision(const NumParts& dividend, const NumParts& divisor) : divisorPairs_(divisor.count) {
        std::copy_n(dividend.digits, dividend.count, remainder_ + 1);
        std::copy_n(divisor.digits, divisor.count, divisor_ + 1);
        const int32_t factor = 100 / (divisor_[1] + 1);  // makes the first pair of the divisor at least 50
        Scale(remainder_, dividend.count, factor);
        Scale(divisor_, divisor.count, factor);
    }

    // Gives the quotient pairs, up to the last one that is needed. Result: their number, 12 at most.
    int32_t Run(uint8_t* quotient) {
        for (int32_t at = 0; at < kQuotientPairs; ++at) {
            quotient[at] = static_cast<uint8_t>(QuotientPair(at));
            if (IsDone(at)) return at + 1;
        }
        return kQuotientPairs;
    }

  private:
    // Multiplies pairs[1] to pairs[count] by a factor; the carry goes to pairs[0].
    static void Scale(uint8_t* pairs, int32_t count, int32_t factor) {
        int32_t carry = 0;
        for (int32_t i = count; i >= 0; --i) {
            carry += pairs[i] * factor;
            pairs[i] = static_cast<uint8_t>(carry % 100);
            carry /= 100;
        }
    }

    int32_t QuotientPair(int32_t at) {
        int32_t quotient = Estimate(at);
        while (Subtract(at, quotient)) {
            AddBack(at, quotient);
            --quotient;
        }
        return quotient;
    }

    // From the first two pairs of the remainder and the first of the divisor, corrected by one more pair of each: never
    // too small, and at most 1 too large.
    int32_t Estimate(int32_t at) const {
        const int32_t top = remainder_[at] * 100 + remainder_[at + 1];
        int32_t quotient = remainder_[at] == divisor_[1] ? 99 : top / divisor_[1];
        int32_t left = (top - quotient * divisor_[1]) * 100 + remainder_[at + 2];
        int32_t needed = quotient * divisor_[2];
        while (needed > left) {
            left += divisor_[1] * 100;
            needed -= divisor_[2];
            --quotient;
        }
        return quotient;
    }

    // Subtracts a multiple of the divisor from the remainder. Result: whether a borrow is left over.
    bool Subtract(int32_t at, int32_t quotient) {
        int32_t carry = 0;
        int32_t borrow = 0;
        for (int32_t i = divisorPairs_; i >= 0; --i) {
            carry += quotient * divisor_[i];
            const int32_t difference = remainder_[at + i] - carry % 100 - borrow;
            carry /= 100;
            borrow = difference < 0;
            remainder_[at + i] = static_cast<uint8_t>(borrow ? difference + 100 : difference);
        }
        return borrow != 0;
    }

    // Undoes Subtract; the carry out of the first pair meets the borrow.
    void AddBack(int32_t at, int32_t quotient) {
        int32_t carry = 0;
        for (int32_t i = divisorPairs_; i >= 0; --i) {
            carry += quotient * divisor_[i] + remainder_[at + i];
            remainder_[at + i] = static_cast<uint8_t>(carry % 100);
            carry /= 100;
        }
    }

    bool IsDone(int32_t at) const {
        return std::all_of(remainder_ + at, std::end(remainder_), [](uint8_t pair) { return pair == 0; });
    }

    uint8_t remainder_[24] = {};              // a zero pair in front; zero pairs behind
    uint8_t divisor_[kNumMaxPairs + 2] = {};  // a zero pair in front and one behind
    int32_t divisorPairs_;
};

// Zero pairs in front, which no operation writes, would leave nothing to estimate by.
void StripLeadingZeros(NumParts& parts) {
    while (parts.digits[0] == 0) {
        std::copy(parts.digits + 1, parts.digits + parts.count, parts.digits);
        --parts.count;
        --parts.exponent;
    }
}

}  // namespace

int32_t NumDividePairs(Number* result, const Number* a, const Number* b) {
    if (IsNull(b) || NumIsZero(b)) {
        NumMakeNull(result);
        return 0;
    }
    if (IsInvalid(a) || IsInvalid(b)) return NumPackZero(result);
    const NumParts dividend = NumTakeApart(a);
    NumParts divisor = NumTakeApart(b);
    StripLeadingZeros(divisor);
    uint8_t quotient[kQuotientPairs];
    const int32_t count = LongDivision(dividend, divisor).Run(quotient);
    const int32_t exponent = dividend.exponent - divisor.exponent + kNumExponentBias + 1;
    return NumPack(result, quotient, count, dividend.negative != divisor.negative, exponent);
}
