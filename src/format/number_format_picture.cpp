// Formatting by the sections of a picture.
#include "literal_walk.h"
#include "number_fixed.h"
#include "number_format.h"
#include "picture_tokens.h"
#include "scientific.h"

namespace {

// Plain text with the places of the picture; a picture has at most 63 of them.
constexpr size_t kTextSize = 328;

bool IsZero(const Number& value) {
    Number zero;
    NumWordToNumber(&zero, 0);
    return NumCompare(&value, &zero) == 0;
}

// A value on its way through one picture. The text is written once, with the places of the section chosen first; it
// keeps them when another section takes over, whose counts then lay it out.
struct PictureWork {
    FMTSeparators separators;
    FMTPictureSections sections;
    std::string_view section;  // the one in use
    FMTSectionShape shape;
    bool negative;
    char text[kTextSize];
};

void UseSection(PictureWork* work, int32_t index) {
    work->section = work->sections.section[index];
    work->shape = FMTScanNumberPic(work->section, work->separators);
}

// The section for a value that the places rounded to nothing, -1 if the one in use stays.
int32_t ChooseAfterRounding(PictureWork* work) {
    const bool hasZeroSection = work->sections.count > 2;
    if (work->negative) {
        work->negative = false;
        if (work->sections.count > 1) return hasZeroSection ? 2 : 0;
    }
    return hasZeroSection ? 2 : -1;
}

// The places in front of the fraction. Counts of another section than the text's make it any number.
int32_t WholeLength(const PictureWork& work) {
    const int32_t length = static_cast<int32_t>(std::strlen(work.text));
    return work.shape.fracDigits == 0 ? length : length - work.shape.fracDigits - 1;
}

// Cuts zeros at the end of the fraction as far as the section asks for no digit there, and the "." with the last one.
void CutTrailingZeros(PictureWork* work) {
    char* point = std::strchr(work->text, '.');
    if (point == nullptr) return;
    char* last = point + std::strlen(point) - 1;
    while (last > point && *last == '0' && work->shape.fracDigits > work->shape.fracZeros) {
        *last-- = 0;
        --work->shape.fracDigits;
    }
    if (last == point) *point = 0;
}

// Lays the text out: zeros in front up to the section's "0" places, groups counted from the decimal separator.
char* AppendDigits(char* out, const PictureWork& work, int32_t wholeLength) {
    const bool grouping = work.shape.grouping;
    int32_t intZeros = work.shape.intZeros;
    int32_t remaining = wholeLength;
    int32_t groupCount = wholeLength;
    bool first = true;
    const auto group = [&](int32_t placesLeft) {
        if (grouping && placesLeft % 3 == 0 && !first) *out++ = work.separators.thousand;
        first = false;
    };
    for (const char* digit = work.text; *digit != 0;) {
        if (remaining > intZeros) {
            group(remaining);
            *out++ = *digit++;
            --remaining;
            --groupCount;
        } else if (remaining < intZeros) {
            group(intZeros);
            *out++ = '0';
            --intZeros;
        } else {
            if (grouping && groupCount > 2) group(groupCount--);
            *out++ = *digit == '.' ? work.separators.decimal : *digit;
            ++digit;
        }
    }
    return out;
}

void Render(PictureWork* work, char* out) {
    const int32_t wholeLength = WholeLength(*work);
    CutTrailingZeros(work);
    if (work->negative && work->sections.count == 1) *out++ = '-';
    out = FMTAppendLiteral(out, work->shape.prefix, FMTLiteralWalk::PadRule::kShown);
    if (work->shape.hasPlaces) {
        out = AppendDigits(out, *work, wholeLength);
        out = FMTAppendLiteral(out, work->shape.suffix, FMTLiteralWalk::PadRule::kPads);
    }
    *out = 0;
}

int32_t FormatSections(char* output, const char* picture, FMTSeparators separators, Number magnitude, bool negative) {
    PictureWork work;
    work.separators = separators;
    work.sections = FMTSplitPicture(picture);
    work.negative = negative;

    const int32_t chosen = FMTChooseSection(work.sections.count, negative, IsZero(magnitude));
    UseSection(&work, chosen);
    if (work.section.empty()) return 1;
    if (work.shape.suffix.starts_with('%')) NumPower10(&magnitude, &magnitude, 2);
    if (!FMTNumToFixed(magnitude, work.shape.fracDigits, work.text)) return 0;

    if (FMTIsZeroText(work.text) && chosen != 2) {
        const int32_t instead = ChooseAfterRounding(&work);
        if (instead >= 0) UseSection(&work, instead);
        if (work.section.empty()) return 1;
    }
    Render(&work, output);
    return 1;
}

}  // namespace

int32_t FMTFormatNumberPic(char* output, const char* picture, FMTSeparators separators, const Number& value) {
    if (output == nullptr || picture == nullptr || *picture == 0) return 0;
    output[0] = 0;
    if (!FMTHasValue(value)) return 1;
    Number zero;
    NumWordToNumber(&zero, 0);
    const bool negative = NumCompare(&value, &zero) < 0;
    Number magnitude = value;
    if (negative) NumNegate(&magnitude);
    if (FMTIsSciPic(picture) != 0) return FMTFormatNumberSci(output, picture, separators, magnitude, negative);
    return FormatSections(output, picture, separators, magnitude, negative);
}
