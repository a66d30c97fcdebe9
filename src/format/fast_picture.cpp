#include "fast_picture.h"

#include <array>

#include "../intl/character.h"
#include "picture_tokens.h"

namespace {

// What a byte means outside a digit run; plain literal text has no mark.
enum Mark : uint8_t {
    kPad = 1,
    kLetterE = 2,
    kQuote = 4,
    kHash = 8,
    kZero = 16,
    kCut = 32,
    kEnd = 64,
    kRefused = 128,
};
constexpr int kPlace = kHash | kZero;
constexpr int kSectionEnd = kCut | kEnd | kRefused;

using Marks = std::array<uint8_t, 256>;

constexpr Marks MakeMarks(bool doubleByte) {
    Marks marks = {};
    marks[0] = kEnd;
    marks['_'] = kPad;
    marks['e'] = kLetterE;
    marks['E'] = kLetterE;
    marks['\''] = kQuote;
    marks['"'] = kQuote;
    marks['#'] = kHash;
    marks['0'] = kZero;
    marks[';'] = kCut;
    marks[static_cast<uint8_t>(kTokenRunStart)] = kRefused;
    for (size_t byte = 0x80; doubleByte && byte < 0x100; ++byte) marks[byte] = kRefused;
    return marks;
}

constexpr Marks kMarks = MakeMarks(false);
constexpr Marks kDoubleByteMarks = MakeMarks(true);

// A separator as a byte's value, -1 for none.
int ByteOf(char separator) {
    return separator != 0 ? static_cast<uint8_t>(separator) : -1;
}

class Scanner {
  public:
    explicit Scanner(FMTSeparators separators)
        : marks_(gIntlDBCS != 0 ? kDoubleByteMarks : kMarks),
          thousand_(ByteOf(separators.thousand)),
          decimal_(ByteOf(separators.decimal)) {}

    // Separators that mean something else in a picture are refused.
    bool HasUsualSeparators() const {
        constexpr int kUsual = kPad | kLetterE | kQuote;
        const auto isUsual = [this](int separator) {
            return separator < 0 || (marks_[static_cast<size_t>(separator)] & ~kUsual) == 0;
        };
        return isUsual(thousand_) && isUsual(decimal_) && (thousand_ != decimal_ || decimal_ < 0);
    }

    // Whether a picture read so far has a letter E.
    bool SawLetterE() const { return (seen_ & kLetterE) != 0; }

    // Reads a section up to its ";" or the terminator. Result: where that stands, null if the section is refused.
    const char* ScanSection(const char* at, fast::SectionShape* section) {
        const char* const start = at;
        int seen = 0;
        at = PassText(at, kPlace | kSectionEnd, &seen);
        section->shape.prefix = {start, static_cast<size_t>(at - start)};
        section->shape.hasPlaces = (MarkOf(*at) & kPlace) != 0;
        at = section->shape.hasPlaces ? ScanPlaces(at, &section->shape, &seen) : ScanNoPlaces(at, &section->shape);
        section->plainLiterals = (seen & (kQuote | kPadBehind)) == 0;
        seen_ |= seen;
        return at != nullptr && (MarkOf(*at) & kRefused) == 0 ? at : nullptr;
    }

  private:
    static constexpr int kPadBehind = 256;  // a pad behind the digits; in front it is text

    int MarkOf(char byte) const { return marks_[static_cast<uint8_t>(byte)]; }
    bool IsThousand(char byte) const { return static_cast<uint8_t>(byte) == thousand_; }
    bool IsDecimal(char byte) const { return static_cast<uint8_t>(byte) == decimal_; }

    const char* PassText(const char* at, int stop, int* seen) const {
        int mark = 0;
        for (; ((mark = MarkOf(*at)) & stop) == 0; ++at) *seen |= mark;
        return at;
    }

    static const char* ScanNoPlaces(const char* at, FMTSectionShape* shape) {
        shape->fracDigits = 0;
        shape->intZeros = 0;
        shape->fracZeros = 0;
        shape->grouping = false;
        shape->suffix = {};
        return at;
    }

    // The digit run, and the text behind it.
    const char* ScanPlaces(const char* at, FMTSectionShape* shape, int* seen) const {
        int32_t intZeros = 0;
        bool grouping = false;
        for (;; ++at) {
            if (*at == '#') continue;
            if (*at == '0') {
                ++intZeros;
            } else if (IsThousand(*at) && (MarkOf(at[1]) & kPlace) != 0) {
                grouping = true;
            } else {
                break;
            }
        }
        if (IsThousand(*at) && (IsThousand(at[1]) || IsDecimal(at[1]))) return nullptr;
        shape->intZeros = intZeros;
        shape->grouping = grouping;

        const bool hasFraction = IsDecimal(*at);
        int32_t fracDigits = 0;
        int32_t fracZeros = 0;
        if (hasFraction) {
            for (++at; (MarkOf(*at) & kPlace) != 0; ++at) {
                ++fracDigits;
                fracZeros += *at == '0' ? 1 : 0;
            }
            if (IsThousand(*at) || IsDecimal(*at)) return nullptr;
        }
        shape->fracDigits = fracDigits;
        shape->fracZeros = fracZeros;

        const char* const start = at;
        int seenBehind = 0;
        at = PassText(at, kSectionEnd, &seenBehind);
        shape->suffix = {start, static_cast<size_t>(at - start)};
        // A zero in the text behind a whole number counts as one of its places.
        if (!hasFraction && (seenBehind & kZero) != 0) return nullptr;
        *seen |= seenBehind | ((seenBehind & kPad) != 0 ? kPadBehind : 0);
        return at;
    }

    const Marks& marks_;
    int thousand_;
    int decimal_;
    int seen_ = 0;
};

}  // namespace

bool fast::ScanPicture(const char* picture, FMTSeparators separators, PictureShape* result) {
    if (picture[0] == 0 || (picture[0] == '$' && picture[1] == 0)) return false;
    Scanner scanner(separators);
    if (!scanner.HasUsualSeparators()) return false;
    const char* at = picture;
    for (result->count = 0; result->count < 3; ++at) {
        at = scanner.ScanSection(at, &result->section[result->count++]);
        if (at == nullptr) return false;
        if (*at != 0) continue;
        const bool perhapsScientific = picture[0] == '0' && picture[1] == '.' && scanner.SawLetterE();
        return at - picture < kPictureSize && !perhapsScientific;
    }
    return false;
}
