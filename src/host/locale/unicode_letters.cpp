#include "unicode_letters.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr CharacterKind L = CharacterKind::kLetter;
constexpr CharacterKind D = CharacterKind::kDigit;
constexpr CharacterKind O = CharacterKind::kOther;

constexpr UnicodeLetter kLetters[] = {
#include "unicode_letters.inc"
};

}  // namespace

const UnicodeLetter* FindUnicodeLetter(uint32_t code) {
    const UnicodeLetter* found =
        std::lower_bound(std::begin(kLetters), std::end(kLetters), code,
                         [](const UnicodeLetter& letter, uint32_t wanted) { return letter.code < wanted; });
    return found != std::end(kLetters) && found->code == code ? found : nullptr;
}

UnicodeLetters AllUnicodeLetters() {
    return {std::begin(kLetters), std::end(kLetters)};
}
