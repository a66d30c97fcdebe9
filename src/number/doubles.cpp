// Number from and to double.
#include <bit>
#include <charconv>
#include <clocale>
#include <cstring>

#include "decimal_pack.h"
#include "pair_arithmetic.h"
#include "vector_operations.h"

namespace {

constexpr int32_t kSignificantDigits = 15;
constexpr int32_t kLongestText =
    32;  // 15 digits, two signs, a point, an exponent of up to three digits, the terminator

// The application may rely on a numeric locale of "C" once a double has been converted.
void EnsureNumericLocale() {
    const char* locale = std::setlocale(LC_NUMERIC, nullptr);
    if (locale == nullptr || std::strcmp(locale, "C") != 0) std::setlocale(LC_NUMERIC, "C");
}

constexpr int32_t kMaxScale = 27;  // 5 to the 27th fits 63 bits

constexpr uint64_t PowerOf5(int32_t power) {
    return power == 0 ? 1 : 5 * PowerOf5(power - 1);
}

struct PowersOf5 {
    uint64_t of[kMaxScale + 1];
};

constexpr PowersOf5 MakePowersOf5() {
    PowersOf5 powers{};
    for (int32_t i = 0; i <= kMaxScale; ++i) powers.of[i] = PowerOf5(i);
    return powers;
}
constexpr PowersOf5 kPowersOf5 = MakePowersOf5();

// mantissa * 2^exponent * 10^scale to the nearest integer, ties to even, from the exact product; for a result that is
// below 2^51, which leaves bits to shift out.
#if defined(__SIZEOF_INT128__)
__extension__ using Wide = unsigned __int128;

uint64_t RoundScaled(uint64_t mantissa, int32_t exponent, int32_t scale) {
    const Wide product = static_cast<Wide>(mantissa) * kPowersOf5.of[scale];
    const int32_t shift = -(exponent + scale);
    const auto whole = static_cast<uint64_t>(product >> shift);
    const Wide rest = product & ((static_cast<Wide>(1) << shift) - 1);
    const Wide half = static_cast<Wide>(1) << (shift - 1);
    return whole + (rest > half || (rest == half && whole % 2 != 0));
}
#else
struct Halves {
    uint64_t high;
    uint64_t low;
};

Halves Product(uint64_t a, uint64_t b) {
    const uint64_t lowA = a & 0xFFFFFFFF;
    const uint64_t highA = a >> 32;
    const uint64_t lowB = b & 0xFFFFFFFF;
    const uint64_t highB = b >> 32;
    const uint64_t low = lowA * lowB;
    const uint64_t first = highA * lowB + (low >> 32);
    const uint64_t second = lowA * highB + (first & 0xFFFFFFFF);
    return {highA * highB + (first >> 32) + (second >> 32), second << 32 | (low & 0xFFFFFFFF)};
}

// Rounds whole.rest, the rest being below 2 * half; `below` tells whether anything follows behind the rest.
uint64_t RoundToEven(uint64_t whole, uint64_t rest, uint64_t half, bool below) {
    return whole + (rest > half || (rest == half && (below || whole % 2 != 0)));
}

uint64_t RoundScaled(uint64_t mantissa, int32_t exponent, int32_t scale) {
    const auto [high, low] = Product(mantissa, kPowersOf5.of[scale]);
    const int32_t shift = -(exponent + scale);
    if (shift > 64) {
        const uint64_t unit = uint64_t{1} << (shift - 64);
        return RoundToEven(high >> (shift - 64), high & (unit - 1), unit / 2, low != 0);
    }
    const uint64_t half = uint64_t{1} << (shift - 1);
    const uint64_t whole = shift == 64 ? high : high << (64 - shift) | low >> shift;
    return RoundToEven(whole, low & (half + (half - 1)), half, false);
}
#endif

// The same Number as through the text of FMTgcvt, for magnitudes from 10^-13 to just under 10^15: there the 15 digits
// come out of one exact multiplication. False, with nothing written, for others.
bool PackCommonDouble(Number* num, double value) {
    const auto bits = std::bit_cast<uint64_t>(value);
    const int32_t binaryExponent = static_cast<int32_t>(bits >> 52 & 0x7FF) - 1023;  // 2^it <= magnitude
    const uint64_t mantissa = (bits & 0xFFFFFFFFFFFFF) | 0x10000000000000;
    if (binaryExponent < -43 || binaryExponent > 48) return false;
    // floor(log10(2^binaryExponent)): the magnitude has so many decimal places, or one more.
    const int32_t decimalExponent = binaryExponent * 1233 >> 12;
    int32_t scale = kSignificantDigits - 1 - decimalExponent;
    if (scale > kMaxScale) return false;
    uint64_t digits = RoundScaled(mantissa, binaryExponent - 52, scale);
    const uint64_t limit = NumPowerOf10(kSignificantDigits);
    if (digits >= limit) digits = RoundScaled(mantissa, binaryExponent - 52, --scale);
    if (digits == limit) {
        digits /= 10;
        --scale;
    }
    NumPackDecimal(num, {digits, 0}, value < 0, 2 * kNumExponentBias + kSignificantDigits - scale);
    return true;
}

}  // namespace

// One multiplication for each pair and each power of 100, in this order: the order is part of the result.
double NumToDoublePairs(const Number* num) {
    const NumParts parts = NumTakeApart(num);
    double value = 0.0;
    for (int32_t i = 0; i < parts.count; ++i) value = value * 100.0 + parts.digits[i];
    return NumScaleDouble(value, parts.exponent - kNumExponentBias - parts.count, parts.negative);
}

void MORVL_CALL NumToDouble(const Number* num, double* value) {
    if (IsNull(num) || IsInvalid(num)) {
        NumNullDouble(value);
        return;
    }
    *value = HasPairVectors() ? NumToDoubleVectors(num) : NumToDoublePairs(num);
}

void MORVL_CALL NumToDoubleNotNull(const Number* num, double* value) {
    if (IsNull(num)) {
        *value = 0.0;
        return;
    }
    NumToDouble(num, value);
}

int32_t MORVL_CALL NumDoubleToNumber(Number* num, double value) {
    NumMakeNull(num);
    if (NumIsNullDouble(&value)) return 1;
    if (PackCommonDouble(num, value)) {
        EnsureNumericLocale();
        return 1;
    }
    char text[kLongestText];
    return NumAsciiToNumber(num, FMTgcvt(value, text)) > 0;
}

char* MORVL_CALL FMTgcvt(double value, char* text) {
    if (!(value < 0) && !(value > 0)) {
        std::strcpy(text, "0");
        return text;
    }
    EnsureNumericLocale();
    *std::to_chars(text, text + kLongestText - 1, value, std::chars_format::general, kSignificantDigits).ptr = '\0';
    return text;
}
