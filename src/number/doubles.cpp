// Number from and to double.
#include <charconv>
#include <clocale>
#include <cstring>

#include "number_codec.h"

namespace {

constexpr int32_t kSignificantDigits = 15;
constexpr int32_t kLongestText =
    32;  // 15 digits, two signs, a point, an exponent of up to three digits, the terminator

// One multiplication for each pair and each power of 100, in this order: the order is part of the result.
double ToDouble(const NumParts& parts) {
    double value = 0.0;
    for (int32_t i = 0; i < parts.count; ++i) value = value * 100.0 + parts.digits[i];
    const int32_t power = parts.exponent - kNumExponentBias - parts.count;
    for (int32_t i = power; i < 0; ++i) value *= 0.01;
    for (int32_t i = 0; i < power; ++i) value *= 100.0;
    return parts.negative ? -value : value;
}

// The application may rely on a numeric locale of "C" once a double has been converted.
void EnsureNumericLocale() {
    const char* locale = std::setlocale(LC_NUMERIC, nullptr);
    if (locale == nullptr || std::strcmp(locale, "C") != 0) std::setlocale(LC_NUMERIC, "C");
}

}  // namespace

void MORVL_CALL NumToDouble(const Number* num, double* value) {
    if (NumIsNull(num) || NumIsInvalid(num)) {
        NumNullDouble(value);
        return;
    }
    *value = ToDouble(NumTakeApart(num));
}

void MORVL_CALL NumToDoubleNotNull(const Number* num, double* value) {
    if (NumIsNull(num)) {
        *value = 0.0;
        return;
    }
    NumToDouble(num, value);
}

int32_t MORVL_CALL NumDoubleToNumber(Number* num, double value) {
    NumMakeNull(num);
    if (NumIsNullDouble(&value)) return 1;
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
