// Formatting in one pass: the picture's shape and the value's digits are taken straight from their bytes, and the text
// is written once.
#include <algorithm>

#include "currency_layout.h"
#include "fast_digits.h"
#include "fast_number.h"
#include "fast_picture.h"
#include "literal_walk.h"
#include "number_format.h"

namespace {

using PadRule = FMTLiteralWalk::PadRule;

// Literal text is as a rule none or one byte: no branch then tells the two apart.
char* AppendText(char* out, std::string_view text, bool plainText, PadRule padRule) {
    if (!plainText) return FMTAppendLiteral(out, text, padRule);
    const auto size = static_cast<int32_t>(text.size());
    if (size > 1) return fast::CopyShort(out, text.data(), size);
    *out = *text.data();  // a section always has a byte behind it
    return out + size;
}

// The fraction without the zeros at its end that the section doesn't ask for.
int32_t ShownPlaces(const char* fraction, const FMTSectionShape& shape) {
    int32_t shown = shape.fracDigits;
    while (shown > shape.fracZeros && fraction[shown - 1] == '0') --shown;
    return shown;
}

char* AppendRounded(char* out, fast::Digits* digits, const FMTSectionShape& shape, FMTSeparators separators) {
    const int32_t wholeDigits = std::max(digits->WholeDigits(), shape.intZeros);
    const char* const whole = digits->LayOut(shape.intZeros, shape.fracDigits);
    const char* const fraction = whole + wholeDigits;
    out = fast::AppendWhole(out, whole, wholeDigits, shape.grouping ? separators.thousand : '\0');
    const int32_t places = ShownPlaces(fraction, shape);
    if (places == 0) return out;
    *out++ = separators.decimal;
    return fast::CopyShort(out, fraction, places);
}

// Digits go out four bytes at a time, of which the next ones overwrite those that were too many: at the end a point, a
// digit or more and the terminator. At least two digits are to be shown, so that these take as many bytes.
char* AppendStream(char* out, fast::DigitStream digits, int32_t wholeDigits, const FMTSectionShape& shape,
                   FMTSeparators separators) {
    const int32_t groups = (wholeDigits - 1) / 3;
    const int32_t head = wholeDigits - 3 * groups;
    const auto separatorWidth = static_cast<int32_t>(shape.grouping);
    digits.WriteFour(out);
    out += head;
    digits.Drop(head);
    for (int32_t group = 0; group < groups; ++group) {
        *out = separators.thousand;
        out += separatorWidth;
        digits.WriteFour(out);
        out += 3;
        digits.Drop(3);
    }
    int32_t places = shape.fracDigits;
    while (places > shape.fracZeros && digits.Peek(places - 1) == '0') --places;
    if (places == 0) return out;
    *out++ = separators.decimal;
    for (int32_t at = 0; at < places; ++at) *out++ = digits.Peek(at);
    return out;
}

// Digits rounded to the places of a section, to be written in its shape.
class ShownDigits {
  public:
    ShownDigits(fast::Digits* digits, const FMTSectionShape& shape, FMTSeparators separators)
        : digits_(digits), shape_(shape), separators_(separators) {
        constexpr int32_t kStreamPlaces = 8;  // what Peek reaches
        streams_ = shape.fracZeros > 0 && shape.fracDigits <= kStreamPlaces && WholeDigits() + shape.fracZeros > 1 &&
                   digits->StreamOut(shape.intZeros, shape.fracDigits, &stream_);
        if (!streams_) digits->Round(shape.fracDigits);
    }

    char* Append(char* out) const {
        if (!streams_) return AppendRounded(out, digits_, shape_, separators_);
        return AppendStream(out, stream_, WholeDigits(), shape_, separators_);
    }

  private:
    // The same before and behind rounding where digits go out as a stream, since there is nothing to round.
    int32_t WholeDigits() const { return std::max(digits_->WholeDigits(), shape_.intZeros); }

    fast::Digits* digits_;
    const FMTSectionShape& shape_;
    FMTSeparators separators_;
    fast::DigitStream stream_{};
    bool streams_ = false;
};

// Formats a value by the shape of a picture. Declines where rounding to nothing puts another section in force.
bool FormatByShape(const fast::PictureShape& picture, FMTSeparators separators, const Number& value, char* output) {
    fast::Digits digits;
    if (!digits.Take(value)) return false;
    bool negative = digits.IsNegative();
    int32_t chosen = static_cast<int32_t>(negative) & static_cast<int32_t>(picture.count > 1);
    if (digits.IsZero()) chosen = FMTChooseSection(picture.count, negative, true);
    const FMTSectionShape& shape = picture.section[chosen].shape;
    if (shape.suffix.starts_with('%') && !digits.Percent()) return false;
    const ShownDigits shown(&digits, shape, separators);
    if (digits.IsZero()) {
        if (chosen == 1 || (picture.count == 3 && chosen == 0)) return false;
        negative = false;
    }

    const bool plainLiterals = picture.section[chosen].plainLiterals;
    char* out = output;
    *out = '-';
    out += static_cast<int32_t>(negative) & static_cast<int32_t>(picture.count == 1);
    out = AppendText(out, shape.prefix, plainLiterals, PadRule::kShown);
    if (shape.hasPlaces) {
        out = shown.Append(out);
        out = AppendText(out, shape.suffix, plainLiterals, PadRule::kPads);
    }
    *out = 0;
    return true;
}

// The layouts of the region have the shape of a section. Declines unusual counts of places, texts that end where the
// decimal separator would stand, and a separator that makes a fraction look negative.
bool FormatByLayout(const FMTRegion& region, bool isCurrency, const Number& value, char* output) {
    const int32_t places = isCurrency ? region.CurrencyDigits() : region.NumberDigits();
    const FMTSeparators separators = FMTSeparatorsOf(region);
    if (places < 0 || places > fast::Digits::kMaxPlaces) return false;
    if (separators.decimal == 0 || separators.decimal == '-') return false;
    FMTSectionShape shape = {};
    shape.fracDigits = places;
    shape.fracZeros = places;
    shape.intZeros = region.LeadingZero() != 0 ? 1 : 0;
    shape.grouping = separators.thousand != 0;

    fast::Digits digits;
    if (!digits.Take(value)) return false;
    const ShownDigits shown(&digits, shape, separators);
    const bool negative = digits.IsNegative() && !digits.IsZero();
    const FMTCurrencyLayout layout = isCurrency ? FMTCurrencyLayoutOf(region) : FMTCurrencyLayout{};
    const char* element = isCurrency ? FMTCurrencyElements(layout, negative) : negative ? "-A" : "A";
    char* out = output;
    for (; *element != 0; ++element) {
        if (*element == 'A') {
            out = shown.Append(out);
        } else if (*element == 'S') {
            for (const char* byte = layout.symbol; *byte != 0; ++byte) *out++ = *byte;
        } else {
            *out++ = *element;
        }
    }
    *out = 0;
    return true;
}

bool FormatByPicture(const char* picture, FMTSeparators separators, const Number& value, char* output) {
    if (fast::FormatScientific(picture, separators, value, output)) return true;
    fast::PictureShape shape;
    return fast::ScanPicture(picture, separators, &shape) && FormatByShape(shape, separators, value, output);
}

}  // namespace

bool fast::FormatNumber(const FMTCntlBlock& block) {
    if ((block.Flags & (kFlagUsable | kFlagEveryDigit)) != kFlagUsable || block.Output == nullptr) return false;
    const FMTRegion region(&block);
    switch (FMTSettleType(block)) {
        case kTypeNumber: return FormatByLayout(region, false, block.Value, block.Output);
        case kTypeCurrency: return FormatByLayout(region, true, block.Value, block.Output);
        case kTypePicture:
            return block.Picture != nullptr &&
                   FormatByPicture(block.Picture, FMTSeparatorsOf(region), block.Value, block.Output);
        default: return false;
    }
}
