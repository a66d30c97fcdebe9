// Copying a counted number of double-byte characters.
#pragma once

#include <cstdint>

// Copies count characters, as strncpy copies bytes: a source that fills the count leaves no terminator; with a shorter
// one, zero bytes are written for the characters that are missing. Source and destination may overlap.
void IntlCopyChars(char* destination, const char* source, uint16_t count);
