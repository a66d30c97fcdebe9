// Formatting by scientific pictures in one pass.
#include <algorithm>
#include <cstdlib>

#include "fast_digits.h"
#include "fast_number.h"
#include "picture_tokens.h"

namespace {

// The counts of a valid picture, "0.00##E+00##".
struct SciPicture {
    int32_t fracDigits;
    int32_t fracZeros;
    char letter;
    bool showsPlus;
    int32_t exponentZeros;
};

// Passes zeros, then "#"; gives how many there are of each.
const char* PassPlaces(const char* at, int32_t* zeros, int32_t* places) {
    const char* const first = at;
    while (*at == '0') ++at;
    *zeros = static_cast<int32_t>(at - first);
    while (*at == '#') ++at;
    *places = static_cast<int32_t>(at - first);
    return at;
}

// Declines pictures that aren't valid, some that are, and those that aren't scientific.
bool ScanSciPicture(const char* picture, SciPicture* result) {
    if (picture[0] != '0' || picture[1] != '.') return false;
    const char* at = PassPlaces(picture + 2, &result->fracZeros, &result->fracDigits);
    if (result->fracDigits == 0 || result->fracDigits > fast::Digits::kMaxPlaces || (*at != 'E' && *at != 'e')) {
        return false;
    }
    result->letter = *at++;
    if (*at != '+' && *at != '-') return false;
    result->showsPlus = *at++ == '+';
    int32_t places = 0;
    at = PassPlaces(at, &result->exponentZeros, &places);
    return *at == 0 && result->exponentZeros > 0 && at - picture < kPictureSize;
}

char* AppendExponent(char* out, int32_t exponent, int32_t zeros) {
    constexpr int32_t kMostDigits = 3;
    char digits[kMostDigits];
    int32_t count = 0;
    for (int32_t rest = exponent; rest != 0; rest /= 10) digits[count++] = static_cast<char>('0' + rest % 10);
    for (; zeros > count; --zeros) *out++ = '0';
    while (count > 0) *out++ = digits[--count];
    return out;
}

}  // namespace

bool fast::FormatScientific(const char* picture, FMTSeparators separators, const Number& value, char* output) {
    // Scaling a value of more digits by an odd power of ten rounds it.
    constexpr int32_t kScaledDigits = 20;
    SciPicture shape;
    Digits digits;
    if (separators.decimal == 0) return false;
    if (FMTIsDigitPlace(separators.decimal) || FMTIsDigitPlace(separators.thousand)) return false;
    if (!ScanSciPicture(picture, &shape) || !digits.Take(value)) return false;
    if (!digits.HasAtMost(kScaledDigits)) return false;

    int32_t exponent = 0;
    if (!digits.IsZero()) {
        exponent = digits.Power();
        digits.ScaleByPower10(-exponent);
    }
    digits.Round(shape.fracDigits);
    if (digits.WholeDigits() == 2) {  // rounded to 10.00
        digits.ScaleByPower10(-1);
        ++exponent;
    }
    const char* const mantissa = digits.LayOut(1, shape.fracDigits);
    int32_t places = shape.fracDigits;
    while (places > shape.fracZeros && mantissa[places] == '0') --places;

    char* out = output;
    if (digits.IsNegative()) *out++ = '-';
    *out++ = *mantissa;
    *out++ = separators.decimal;
    out = CopyShort(out, mantissa + 1, places);
    *out++ = shape.letter;
    if (exponent < 0) {
        *out++ = '-';
    } else if (shape.showsPlus) {
        *out++ = '+';
    }
    out = AppendExponent(out, std::abs(exponent), shape.exponentZeros);
    *out = 0;
    return true;
}
