#include "digits.h"

#include <cstring>

namespace {

constexpr int32_t kLongestNumber = 11;

char Digit(int32_t value) {
    return static_cast<char>('0' + value);
}

bool IsTwoDigits(int32_t value) {
    return value >= 0 && value <= 99;
}

char* PutTwoDigits(char* out, int32_t value) {
    out[0] = Digit(value / 10);
    out[1] = Digit(value % 10);
    return out + 2;
}

}  // namespace

char* FMTPutNumber(char* out, int32_t value) {
    if (value >= 0 && value <= 9) {
        *out = Digit(value);
        return out + 1;
    }
    if (IsTwoDigits(value)) return PutTwoDigits(out, value);
    char digits[kLongestNumber];
    char* first = digits + kLongestNumber;
    uint32_t magnitude = value < 0 ? 0u - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
    do {
        *--first = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (value < 0) *--first = '-';
    const auto length = static_cast<size_t>(digits + kLongestNumber - first);
    std::memcpy(out, first, length);
    return out + length;
}

char* FMTPutPadded(char* out, int32_t value) {
    if (IsTwoDigits(value)) return PutTwoDigits(out, value);
    if (value <= 9) *out++ = '0';
    return FMTPutNumber(out, value);
}

char* FMTPutFilled(char* out, int32_t value, int32_t width) {
    if (width == 4 && value >= 1000 && value <= 9999) return PutTwoDigits(PutTwoDigits(out, value / 100), value % 100);
    char digits[kLongestNumber];
    const auto length = static_cast<int32_t>(FMTPutNumber(digits, value) - digits);
    for (int32_t filled = length; filled < width; ++filled) *out++ = '0';
    std::memcpy(out, digits, static_cast<size_t>(length));
    return out + length;
}

char* FMTPutLastTwo(char* out, int32_t value) {
    return value > 9 ? PutTwoDigits(out, value % 100) : FMTPutPadded(out, value);
}
