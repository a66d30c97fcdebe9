// Operations on the characters of a text that other operations of the library build on.
#pragma once

#include <cstddef>
#include <cstdint>

// The number of characters; 0 for null.
size_t IntlCharCount(const char* text);

// The byte length of the first n characters of a text; 0 for n below 1.
size_t IntlCharsToBytes(const char* text, int32_t n);

// IntlStrChr where text is double-byte.
const char* IntlStrChrDB(const char* text, uint16_t character);
