// Faster ways of formatting and parsing numbers. Each gives what the plain routine gives, byte for byte, or declines
// and leaves everything as it was.
#pragma once

#include "number_parse.h"

namespace fast {

// FMTFormatNumber. False if it declines; the result is 1 otherwise.
bool FormatNumber(const FMTCntlBlock& block);

// The same by a scientific picture.
bool FormatScientific(const char* picture, FMTSeparators separators, const Number& value, char* output);

enum class Outcome { kDeclined, kRejected, kAccepted };

// FMTParseNumberText.
Outcome ParseNumberText(const char* text, const FMTNumberForm& form, Number* value);

// FMTUnformatNumberStr.
Outcome UnformatNumberStr(FMTCntlBlock* block);

}  // namespace fast
