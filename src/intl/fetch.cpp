// The next number of a text.
#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>

#include <morvl15/intl.h>

#include "character.h"

namespace {

// A real number is taken from at most 99 bytes of text, what stands before it included.
constexpr size_t kMaxRealText = 99;

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool IsSign(char byte) {
    return byte == '-' || byte == '+';
}

const char* SkipDigits(const char* at) {
    while (IsDigit(*at)) ++at;
    return at;
}

// ---- whole numbers ------------------------------------------------------------------------------------------------

// Takes the digits under *at. False without a digit, and when their value leaves 31 bits.
bool TakeWhole(const char** at, int32_t* value) {
    const char* first = *at;
    int32_t total = 0;
    for (; IsDigit(**at); ++*at) {
        const int32_t digit = **at - '0';
        if (total > (INT32_MAX - digit) / 10) return false;
        total = total * 10 + digit;
    }
    *value = total;
    return *at != first;
}

// ---- real numbers -------------------------------------------------------------------------------------------------

// The end of the number that starts here, sign included; null if there is none.
const char* FindRealEnd(const char* at) {
    if (IsSign(*at)) ++at;
    const char* fraction = SkipDigits(at);
    if (fraction == at && !(at[0] == '.' && IsDigit(at[1]))) return nullptr;
    at = *fraction == '.' ? SkipDigits(fraction + 1) : fraction;
    if (*at != 'e' && *at != 'E') return at;
    ++at;
    if (IsSign(*at)) ++at;
    return IsDigit(*at) ? SkipDigits(at) : nullptr;
}

bool IsWrittenZero(const char* text, const char* end) {
    return std::all_of(text, end, [](char byte) { return std::strchr(".0+-eE", byte) != nullptr; });
}

// Beyond the range of a double only the sign of the written exponent can tell which way: 99 bytes of digits alone
// leave it on neither side.
double OutOfRange(const char* text, const char* end) {
    const char* exponent = std::find_if(text, end, [](char byte) { return byte == 'e' || byte == 'E'; });
    return exponent + 1 < end && exponent[1] == '-' ? 0.0 : std::numeric_limits<double>::infinity();
}

// The value of a number with all that stands before it, as the language's own conversion of a text gives it; but the
// decimal point is a point whatever locale the process has set. A double-byte blank before the number makes it 0.
double ToDouble(const char* text, const char* end) {
    while (IntlIsSpaceByte(*text)) ++text;
    const bool isNegative = *text == '-';
    if (IsSign(*text)) ++text;
    double value = 0.0;
    if (std::from_chars(text, end, value).ec == std::errc::result_out_of_range) value = OutOfRange(text, end);
    return isNegative ? -value : value;
}

}  // namespace

int32_t MORVL_CALL IntlFetchNextNumLong(int32_t* value, const char* text) {
    if (text == nullptr || *text == '\0') return 0;
    const char* at = IntlStripStartSpace(text);
    const bool isNegative = *at == '-';
    if (IsSign(*at)) ++at;
    int32_t magnitude = 0;
    if (!TakeWhole(&at, &magnitude)) return 0;
    *value = isNegative ? -magnitude : magnitude;
    return IntlClampLength(static_cast<size_t>(at - text));
}

int32_t MORVL_CALL IntlFetchNextNumDouble(double* value, const char* text) {
    if (text == nullptr || *text == '\0') return 0;
    const char* end = FindRealEnd(IntlStripStartSpace(text));
    if (end == nullptr) return 0;
    const auto used = static_cast<size_t>(end - text);
    if (used > kMaxRealText) return -1;
    if (IsWrittenZero(text, end)) {
        *value = 0.0;
        return static_cast<int32_t>(used);
    }
    *value = ToDouble(text, end);
    return *value != 0.0 ? static_cast<int32_t>(used) : -1;
}
