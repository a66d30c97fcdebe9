#include "scientific.h"

#include <cstdlib>

#include <morvl15/intl.h>

#include "number_fixed.h"
#include "number_format.h"
#include "number_parse.h"
#include "picture_tokens.h"
#include "text_step.h"

namespace {

constexpr size_t kMantissaSize = kNumberTextSize + kPictureSize;

// ---- powers of ten ----------------------------------------------------------------------------------------------

constexpr int32_t kPowerReach = 50;     // of NumPower10
constexpr int32_t kMinExponent = -102;  // of the smallest magnitude, 1E-102
constexpr int32_t kMaxExponent = 100;   // every magnitude is below 1E+100

// Scales by as many steps as it takes. All but the last are even powers, which move the exponent alone, so that no
// digit is lost on the way.
void ScaleByPower10(Number* value, int32_t power) {
    for (; power > kPowerReach; power -= kPowerReach) NumPower10(value, value, kPowerReach);
    for (; power < -kPowerReach; power += kPowerReach) NumPower10(value, value, -kPowerReach);
    NumPower10(value, value, power);
}

bool IsBelow(const Number& a, const Number& b) {
    return NumCompare(&a, &b) < 0;
}

Number NumberOf(int32_t value) {
    Number number;
    NumLongToNumber(&number, value);
    return number;
}

// ---- formatting -------------------------------------------------------------------------------------------------

// A magnitude as a mantissa of one whole digit, as a rule, and an exponent of ten.
struct SciParts {
    char mantissa[kMantissaSize];
    int32_t exponent;
};

// 1 or more, and zero. The digits of the whole number tell the exponent. It is rounded, not cut, so that a value just
// under a power of ten gets the higher exponent and a mantissa below 1.
bool SplitLarge(Number magnitude, int32_t places, SciParts* parts) {
    if (!FMTNumToFixed(magnitude, 0, parts->mantissa)) return false;
    parts->exponent = static_cast<int32_t>(std::strlen(parts->mantissa)) - 1;
    if (parts->exponent > 0) ScaleByPower10(&magnitude, -parts->exponent);
    if (!FMTNumToFixed(magnitude, places, parts->mantissa)) return false;
    if (parts->mantissa[0] == '.') {
        std::memmove(parts->mantissa + 1, parts->mantissa, std::strlen(parts->mantissa) + 1);
        parts->mantissa[0] = '0';
    }
    return true;
}

// Below 1. The first digit that isn't zero tells the exponent. Where the plain text is too long, the value is first
// brought nearer.
bool SplitSmall(Number magnitude, int32_t places, SciParts* parts) {
    parts->exponent = 0;
    while (!FMTWriteNumber(magnitude, parts->mantissa)) {
        ScaleByPower10(&magnitude, kPowerReach);
        parts->exponent -= kPowerReach;
    }
    const auto firstDigit = static_cast<int32_t>(std::strspn(parts->mantissa, ".0"));
    ScaleByPower10(&magnitude, firstDigit);
    parts->exponent -= firstDigit;
    return FMTNumToFixed(magnitude, places, parts->mantissa);
}

// Rounding may have given "10.00".
void PutPointBehindFirstDigit(SciParts* parts) {
    char* mantissa = parts->mantissa;
    if (mantissa[0] == 0 || mantissa[1] == 0 || mantissa[2] != '.') return;
    mantissa[2] = mantissa[1];
    mantissa[1] = '.';
    mantissa[std::strlen(mantissa) - 1] = 0;
    ++parts->exponent;
}

// Cuts zeros down to the places that always show one; the "." stays.
void CutTrailingZeros(char* mantissa, int32_t fracDigits, int32_t fracZeros) {
    if (std::strchr(mantissa, '.') == nullptr) return;
    char* end = mantissa + std::strlen(mantissa);
    for (; fracDigits > fracZeros && end[-1] == '0'; --fracDigits) *--end = 0;
}

// What stands behind the mantissa in the picture: the letter, the sign place, the exponent's own picture.
struct SciTail {
    std::string_view letter;
    bool showsPlus;
    const char* exponentPicture;
};

SciTail TailOf(std::string_view suffix) {
    SciTail tail = {};
    tail.letter = suffix.substr(0, TextStep(suffix));
    suffix.remove_prefix(tail.letter.size());
    tail.showsPlus = suffix.starts_with('+');
    suffix.remove_prefix(TextStep(suffix));
    tail.exponentPicture = suffix.data();
    return tail;
}

char* Append(char* out, std::string_view text) {
    std::memcpy(out, text.data(), text.size());
    return out + text.size();
}

// ---- parsing ----------------------------------------------------------------------------------------------------

// The letter between mantissa and exponent: the one "e", or the one "E" of a text without an "e".
char* FindLetter(char* text) {
    const char letter = std::strchr(text, 'e') != nullptr ? 'e' : 'E';
    char* found = std::strchr(text, letter);
    return found != nullptr && std::strchr(found + 1, letter) == nullptr ? found : nullptr;
}

bool HoldsOnlySciCharacters(const char* text, char decimal) {
    const char allowed[] = {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '-', '+', 'e', 'E', decimal, 0};
    return text[std::strspn(text, allowed)] == 0;
}

// Passes a sign. True for a minus.
bool TakeSign(char** text) {
    const char sign = **text;
    if (sign == '-' || sign == '+') ++*text;
    return sign == '-';
}

// Whether 10 to the power takes the value out of range. Within the reach of one NumPower10 a value that is out of
// range is clamped, as in all arithmetic.
bool LeavesRange(Number value, int32_t power) {
    if (power >= -kPowerReach && power <= kPowerReach) return false;
    if (NumIsZero(&value) != 0) return false;
    const Number zero = NumberOf(0);
    if (IsBelow(value, zero)) NumNegate(&value);
    Number limit = NumberOf(1);
    ScaleByPower10(&limit, (power > 0 ? kMaxExponent : kMinExponent) - power);
    return power > 0 ? !IsBelow(value, limit) : IsBelow(value, limit);
}

// Scales by ten to the whole part of an exponent. False if no value lies there.
bool ScaleByExponent(Number* value, const Number& exponent, bool negativeExponent) {
    constexpr int32_t kFarthest = kMaxExponent - kMinExponent;
    if (IsBelow(exponent, NumberOf(-kFarthest)) || IsBelow(NumberOf(kFarthest), exponent)) return false;
    const auto whole = static_cast<int32_t>(NumToLong(&exponent));
    const int32_t power = negativeExponent ? -whole : whole;
    if (LeavesRange(*value, power)) return false;
    ScaleByPower10(value, power);
    return true;
}

}  // namespace

int32_t FMTFormatNumberSci(char* output, const char* picture, FMTSeparators separators, const Number& magnitude,
                           bool negative) {
    const FMTSectionShape shape = FMTScanNumberPic(picture, kSciSeparators);
    const SciTail tail = TailOf(shape.suffix);
    const bool small = NumIsZero(&magnitude) == 0 && IsBelow(magnitude, NumberOf(1));
    SciParts parts;
    const bool split = small ? SplitSmall(magnitude, shape.fracDigits, &parts)  //
                             : SplitLarge(magnitude, shape.fracDigits, &parts);
    if (!split) return 0;
    PutPointBehindFirstDigit(&parts);
    CutTrailingZeros(parts.mantissa, shape.fracDigits, shape.fracZeros);

    char* out = output;
    if (negative) *out++ = '-';
    out = Append(out, parts.mantissa);
    out = Append(out, tail.letter);
    if (parts.exponent < 0) {
        *out++ = '-';
    } else if (tail.showsPlus) {
        *out++ = '+';
    }
    FMTFormatNumberPic(out, tail.exponentPicture, separators, NumberOf(std::abs(parts.exponent)));
    if (separators.decimal != '.') {
        char* point = std::strchr(output, '.');
        if (point != nullptr) *point = separators.decimal;
    }
    return 1;
}

int32_t FMTUnformatSci(char* text, char decimal, Number* value) {
    IntlStrStripSpace(text);
    if (!HoldsOnlySciCharacters(text, decimal != 0 ? decimal : '.')) return 0;
    char* letter = FindLetter(text);
    if (letter == nullptr) return 0;
    const bool negative = TakeSign(&text);
    *letter = 0;
    const FMTNumberForm form = FMTPlainForm(FMTRegion::OfProfile());
    Number mantissa;
    if (FMTParseNumberText(text, form, &mantissa) == 0) return 0;
    char* exponentText = letter + 1;
    const bool negativeExponent = TakeSign(&exponentText);
    Number exponent;
    if (FMTParseNumberText(exponentText, form, &exponent) == 0) return 0;
    if (!ScaleByExponent(&mantissa, exponent, negativeExponent)) return 0;
    if (negative) NumNegate(&mantissa);
    *value = mantissa;
    return 1;
}
