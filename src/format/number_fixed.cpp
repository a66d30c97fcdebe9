#include "number_fixed.h"

bool FMTNumToFixed(const Number& value, int32_t places, char* text) {
    text[0] = 0;
    if (!FMTHasValue(value)) return true;
    Number rounded;
    NumRound(&rounded, &value, places);
    if (!FMTWriteNumber(rounded, text)) return false;
    if (places <= 0) return true;

    const size_t length = std::strlen(text);
    const char* point = std::strchr(text, '.');
    const size_t pointAt = point != nullptr ? static_cast<size_t>(point - text) : length;
    const size_t end = pointAt + 1 + static_cast<size_t>(places);
    if (point == nullptr) text[length] = '.';
    const size_t filledTo = point != nullptr ? length : length + 1;
    std::memset(text + filledTo, '0', end - filledTo);
    text[end] = 0;
    return true;
}

bool FMTIsZeroText(const char* text) {
    return text[std::strspn(text, ".0")] == 0;
}
