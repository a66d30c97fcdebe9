// Scientific pictures: "0.00E+00" and its like.
#pragma once

#include "picture_scan.h"

// The ways of a scientific picture for FMTFormatNumberPic and FMTUnformatNumberStr. A value in range is reached however
// far its exponent lies.

// Formats the magnitude of a value by a scientific picture.
int32_t FMTFormatNumberSci(char* output, const char* picture, FMTSeparators separators, const Number& magnitude,
                           bool negative);

// Reads a text of a mantissa, a letter E and an exponent. Mantissa and exponent are read under the profile's
// separators; decimal is the one that the text may hold.
//   text    in:  changed on the way
// Result: 1, or 0 with value as it was.
int32_t FMTUnformatSci(char* text, char decimal, Number* value);
