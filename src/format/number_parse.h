// Numbers read back: free-form text, and what a picture put round it.
#pragma once

#include <string_view>

#include "number_work.h"

// What a text may look like.
struct FMTNumberForm {
    FMTSeparators separators;
    const char* symbol;  // null for a plain number; for an amount the currency symbol, which may be empty
    bool after;          // the symbol follows the amount
};

inline FMTNumberForm FMTPlainForm(const FMTRegion& region) {
    return {FMTSeparatorsOf(region), nullptr, false};
}
inline FMTNumberForm FMTAmountForm(const FMTRegion& region) {
    const int32_t position = region.CurrencyPos();
    return {FMTSeparatorsOf(region), region.Currency(), position == 1 || position == 3};
}

// Reads free-form text. See FMTValidateNumber.
// Result: 1, or 0; value is then as it was, unless the text had the shape of a number but no digits, or too large an
// exponent: then it is null.
int32_t FMTParseNumberText(const char* text, const FMTNumberForm& form, Number* value);

// Takes off a text what a section of a picture put before and behind the digits. What isn't there needs no taking off.
//   text      in/out: without the section's literal text
//   section   in:     a section of a picture
//   percent   out:    set to true if the section and the text have a percent sign; otherwise as it was
//   skipSign  in:     the text in front may stand behind a leading "-"
// Result: 1; 0 for a section without a digit place.
int32_t FMTStripPicLiterals(char* text, std::string_view section, bool* percent, bool skipSign,
                            FMTSeparators separators);

namespace plain {

// The same by their definition.
int32_t ParseNumberText(const char* text, const FMTNumberForm& form, Number* value);
int32_t UnformatNumberStr(FMTCntlBlock* block);

}  // namespace plain
