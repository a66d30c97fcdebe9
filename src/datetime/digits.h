// Whole numbers as text, for dates.
#pragma once

#include <cstdint>

// Writes a number as it is, sign included; the result is behind it. At most 11 bytes.
char* FMTPutNumber(char* out, int32_t value);

// A "0" before a number of 9 or less.
char* FMTPutPadded(char* out, int32_t value);

// Zeros on the left up to a width of 4 or 6; a longer number stays whole.
char* FMTPutFilled(char* out, int32_t value, int32_t width);

// The number padded if it is 9 or less, otherwise its last two characters.
char* FMTPutLastTwo(char* out, int32_t value);
