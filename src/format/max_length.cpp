// FMTGetMaxFormattedNumLen: how long the text of a picture can get.
#include <algorithm>

#include <morvl15/intl.h>

#include "picture_scan.h"
#include "picture_tokens.h"
#include "text_step.h"

namespace {

int64_t CountCharacters(std::string_view text) {
    int64_t count = 0;
    for (; !text.empty(); text.remove_prefix(TextStep(text))) ++count;
    return count;
}

int64_t GroupsIn(int64_t digits) {
    return (digits - 1) / 3;
}

// The mantissa's zeros, as many of its "#" as the digits leave, the letter, a sign, the exponent's places.
int64_t SciLength(std::string_view section, int64_t maxDigits) {
    constexpr int64_t kZeroAndPoint = 2;
    constexpr int64_t kLetterAndSign = 2;
    const FMTSectionShape shape = FMTScanNumberPic(section, kSciSeparators);
    std::string_view exponent = shape.suffix;
    for (int64_t passed = 0; passed < kLetterAndSign; ++passed) exponent.remove_prefix(TextStep(exponent));
    const int64_t zeros = shape.fracZeros;
    const int64_t optional = shape.fracDigits - shape.fracZeros;
    return kZeroAndPoint + zeros + (optional != 0 ? std::min(optional, maxDigits - zeros) : 0) + kLetterAndSign +
           static_cast<int64_t>(exponent.size());
}

int64_t CurrencyLength(const FMTRegion& region, int64_t maxDigits) {
    const int32_t position = region.CurrencyPos();
    const int32_t negative = region.NegCurrency();
    const int32_t places = region.CurrencyDigits();
    return static_cast<int64_t>(std::strlen(region.Currency())) + (position == 2 || position == 3 ? 1 : 0) + places +
           (places != 0 ? 1 : 0) + maxDigits + GroupsIn(maxDigits) + (negative == 0 || negative == 4 ? 1 : 0);
}

int64_t SuffixLength(std::string_view suffix) {
    const size_t pad = FindFirstOf(suffix, "_");
    const bool isPair = pad != std::string_view::npos && pad + 1 < suffix.size();
    return static_cast<int64_t>(suffix.size()) - (isPair ? 1 : 0) + (suffix.starts_with('%') ? 2 : 0);
}

int64_t PlacesLength(std::string_view section, const FMTRegion& region, int64_t maxDigits) {
    const FMTSectionShape shape = FMTScanNumberPic(section, FMTSeparatorsOf(region));
    const int64_t whole = std::max<int64_t>(maxDigits, shape.intZeros);
    return CountCharacters(shape.prefix) + shape.fracDigits + (shape.fracDigits != 0 ? 1 : 0) + whole +
           (shape.grouping ? GroupsIn(whole) : 0) + SuffixLength(shape.suffix);
}

int64_t SectionLength(std::string_view section, const FMTRegion& region, int64_t maxDigits) {
    char text[kPictureSize];
    std::memcpy(text, section.data(), section.size());
    text[section.size()] = 0;
    if (FMTIsSciPic(text) != 0) return SciLength(section, maxDigits);
    if (section == "$") return CurrencyLength(region, maxDigits);
    return PlacesLength(section, region, maxDigits);
}

}  // namespace

int32_t MORVL_CALL FMTGetMaxFormattedNumLen(const char* picture, int32_t maxDigits, int32_t minLength) {
    // A picture that is too long shows nothing.
    const size_t pictureLength = picture != nullptr ? strnlen(picture, kPictureSize) : kPictureSize;
    if (pictureLength == kPictureSize) return std::max(0, minLength);

    const FMTRegion region = FMTRegion::OfProfile();
    const FMTPictureSections sections = FMTSplitPicture({picture, pictureLength});
    int64_t length = 0;
    for (int32_t index = 0; index < sections.count; ++index) {
        length = std::max(length, SectionLength(sections.section[index], region, maxDigits));
    }
    if (sections.count == 1) ++length;  // the sign
    return static_cast<int32_t>(std::clamp<int64_t>(length, minLength, INT32_MAX));
}
