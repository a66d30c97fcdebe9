// What Unicode says about the letters and digits of the ANSI code pages.
#pragma once

#include <cstdint>

enum class CharacterKind : uint8_t { kOther, kLetter, kDigit };

struct UnicodeLetter {
    uint16_t code;
    uint16_t upper;       // the code itself where there is no other case
    uint16_t lower;       // the same way
    uint16_t sortedWith;  // the small letter without its marks, or the digit, beside which it is sorted
    CharacterKind kind;   // kOther for the few characters that have case and are no letters: Roman numerals
};

// The facts about a character, null for one that is neither letter nor digit nor has case.
const UnicodeLetter* FindUnicodeLetter(uint32_t code);

// All of them, in order of their codes.
struct UnicodeLetters {
    const UnicodeLetter* first;
    const UnicodeLetter* end;
};
UnicodeLetters AllUnicodeLetters();
