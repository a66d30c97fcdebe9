// A value as plain text with a fixed count of decimal places.
#pragma once

#include "number_work.h"

// Rounds half away from zero and fills up with zeros: 0.5 with 2 places gives ".50", 0 gives "0.00". No places or fewer
// give a whole number, rounded to tens, hundreds and so on below 0. Without a value the text is empty.
// Result: false, with the text empty, if the value has no plain text of 107 bytes.
bool FMTNumToFixed(const Number& value, int32_t places, char* text);

// True if the text holds only "." and "0".
bool FMTIsZeroText(const char* text);
