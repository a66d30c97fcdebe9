// Formatting in one pass: the picture's shape and the value's digits are taken straight from their bytes, and the text
// is written once.
#include <algorithm>

#include "fast_digits.h"
#include "fast_number.h"
#include "fast_picture.h"
#include "literal_walk.h"

namespace {

using PadRule = FMTLiteralWalk::PadRule;

char* AppendText(char* out, std::string_view text, bool plainText, PadRule padRule) {
    if (!plainText) return FMTAppendLiteral(out, text, padRule);
    return fast::CopyShort(out, text.data(), static_cast<int32_t>(text.size()));
}

// The fraction without the zeros at its end that the section doesn't ask for.
char* AppendFraction(char* out, const char* fraction, const FMTSectionShape& shape, char decimal) {
    int32_t shown = shape.fracDigits;
    while (shown > shape.fracZeros && fraction[shown - 1] == '0') --shown;
    if (shown == 0) return out;
    *out++ = decimal;
    return fast::CopyShort(out, fraction, shown);
}

char* AppendDigits(char* out, fast::Digits* digits, const FMTSectionShape& shape, FMTSeparators separators) {
    const int32_t wholeDigits = std::max(digits->WholeDigits(), shape.intZeros);
    const char* text = digits->LayOut(shape.intZeros, shape.fracDigits);
    out = fast::AppendGrouped(out, text, wholeDigits, shape.grouping ? separators.thousand : '\0');
    return AppendFraction(out, text + wholeDigits, shape, separators.decimal);
}

// Formats a value by the shape of a picture. Declines where rounding to nothing puts another section in force.
bool FormatByShape(const fast::PictureShape& picture, FMTSeparators separators, const Number& value, char* output) {
    fast::Digits digits;
    if (!digits.Take(value)) return false;
    bool negative = digits.IsNegative();
    const int32_t chosen = FMTChooseSection(picture.count, negative, digits.IsZero());
    const FMTSectionShape& shape = picture.section[chosen].shape;
    if (shape.suffix.starts_with('%') && !digits.Percent()) return false;
    digits.Round(shape.fracDigits);
    if (digits.IsZero()) {
        if (chosen == 1 || (picture.count == 3 && chosen == 0)) return false;
        negative = false;
    }

    const bool plainLiterals = picture.section[chosen].plainLiterals;
    char* out = output;
    if (negative && picture.count == 1) *out++ = '-';
    out = AppendText(out, shape.prefix, plainLiterals, PadRule::kShown);
    if (shape.hasPlaces) {
        out = AppendDigits(out, &digits, shape, separators);
        out = AppendText(out, shape.suffix, plainLiterals, PadRule::kPads);
    }
    *out = 0;
    return true;
}

}  // namespace

bool fast::FormatNumber(const FMTCntlBlock& block) {
    if (block.Type != kTypePicture || block.Picture == nullptr) return false;
    if ((block.Flags & kFlagUsable) == 0 || block.Output == nullptr) return false;
    const FMTSeparators separators = FMTSeparatorsOf(FMTRegion(&block));
    PictureShape picture;
    return ScanPicture(block.Picture, separators, &picture) &&
           FormatByShape(picture, separators, block.Value, block.Output);
}
