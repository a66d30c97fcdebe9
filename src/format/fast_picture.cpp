#include "fast_picture.h"

#include <array>

#include "../intl/character.h"
#include "picture_tokens.h"

namespace {

// What a byte means outside a digit run. Those before kHash are literal text.
enum ByteKind : uint8_t { kText, kPad, kLetterE, kQuote, kHash, kZero, kCut, kEnd, kToken, kHigh };

constexpr std::array<ByteKind, 256> kKinds = [] {
    std::array<ByteKind, 256> kinds = {};
    for (size_t byte = 0x80; byte < 0x100; ++byte) kinds[byte] = kHigh;
    kinds[0] = kEnd;
    kinds['_'] = kPad;
    kinds['e'] = kLetterE;
    kinds['E'] = kLetterE;
    kinds['\''] = kQuote;
    kinds['"'] = kQuote;
    kinds['#'] = kHash;
    kinds['0'] = kZero;
    kinds[';'] = kCut;
    kinds[static_cast<uint8_t>(kTokenRunStart)] = kToken;
    return kinds;
}();

ByteKind KindOf(char byte) {
    return kKinds[static_cast<uint8_t>(byte)];
}

bool IsPlace(char byte) {
    return byte == '#' || byte == '0';
}

bool IsUsualSeparator(char separator) {
    const ByteKind kind = KindOf(separator);
    return kind <= kQuote || kind == kEnd || (kind == kHigh && gIntlDBCS == 0);
}

class Scanner {
  public:
    Scanner(const char* picture, FMTSeparators separators) : at_(picture), separators_(separators) {}

    const char* At() const { return at_; }
    bool SawLetterE() const { return sawLetterE_; }

    // Passes the ";" behind a section; false if the picture ends there.
    bool PassCut() {
        if (*at_ == 0) return false;
        ++at_;
        return true;
    }

    // Reads up to the ";" or the terminator, on which it stops.
    bool ScanSection(fast::SectionShape* section) {
        section->shape = {};
        section->plainLiterals = true;
        const char* start = at_;
        if (!PassText(section, kHash, false)) return false;
        section->shape.prefix = Since(start);
        if (!IsPlace(*at_)) return true;
        section->shape.hasPlaces = true;
        if (!PassWhole(&section->shape)) return false;
        const bool hasFraction = IsDecimal(*at_);
        if (hasFraction && !PassFraction(&section->shape)) return false;
        start = at_;
        // A zero in the text behind a whole number counts as one of its places.
        if (!PassText(section, kCut, !hasFraction)) return false;
        section->shape.suffix = Since(start);
        return true;
    }

  private:
    bool IsThousand(char byte) const { return byte == separators_.thousand && byte != 0; }
    bool IsDecimal(char byte) const { return byte == separators_.decimal && byte != 0; }
    std::string_view Since(const char* start) const { return {start, static_cast<size_t>(at_ - start)}; }

    // Passes literal text up to a byte of a kind from stop on. Pads matter behind the digits only.
    bool PassText(fast::SectionShape* section, ByteKind stop, bool refuseZero) {
        for (;; ++at_) {
            const ByteKind kind = KindOf(*at_);
            if (kind == kText) continue;
            if (kind == kToken || (kind == kHigh && gIntlDBCS != 0) || (kind == kZero && refuseZero)) return false;
            if (kind >= stop && kind != kHigh) return true;
            if (kind == kLetterE) sawLetterE_ = true;
            if (kind == kQuote || (kind == kPad && stop == kCut)) section->plainLiterals = false;
        }
    }

    bool PassWhole(FMTSectionShape* shape) {
        for (;; ++at_) {
            if (*at_ == '#') continue;
            if (*at_ == '0') {
                ++shape->intZeros;
            } else if (IsThousand(*at_) && IsPlace(at_[1])) {
                shape->grouping = true;
            } else {
                return !IsThousand(*at_) || (!IsThousand(at_[1]) && !IsDecimal(at_[1]));
            }
        }
    }

    bool PassFraction(FMTSectionShape* shape) {
        for (++at_; IsPlace(*at_); ++at_) {
            ++shape->fracDigits;
            if (*at_ == '0') ++shape->fracZeros;
        }
        return !IsThousand(*at_) && !IsDecimal(*at_);
    }

    const char* at_;
    FMTSeparators separators_;
    bool sawLetterE_ = false;
};

}  // namespace

bool fast::ScanPicture(const char* picture, FMTSeparators separators, PictureShape* result) {
    if (picture[0] == 0 || (picture[0] == '$' && picture[1] == 0)) return false;
    if (!IsUsualSeparator(separators.thousand) || !IsUsualSeparator(separators.decimal)) return false;
    if (separators.thousand == separators.decimal && separators.decimal != 0) return false;
    Scanner scanner(picture, separators);
    result->count = 0;
    do {
        if (result->count == 3 || !scanner.ScanSection(&result->section[result->count++])) return false;
    } while (scanner.PassCut());
    const bool perhapsScientific = picture[0] == '0' && picture[1] == '.' && scanner.SawLetterE();
    return scanner.At() - picture < kPictureSize && !perhapsScientific;
}
