// Upper and lower case of single characters.
#pragma once

#include <cstdint>

#include "character.h"

enum class IntlFold { kUpper, kLower };

inline uint16_t IntlFoldByte(char byte, IntlFold direction) {
    const uint8_t* table = direction == IntlFold::kUpper ? gIntlUpper : gIntlLower;
    return table[static_cast<uint8_t>(byte)];
}

// The code of the character under a pointer, in upper or in lower case.
uint16_t IntlFoldChar(const char* text, IntlFold direction);
