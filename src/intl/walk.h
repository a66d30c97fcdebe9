// Walks over double-byte text: counting characters, and finding a character without taking half of one for it. Each is
// written down twice: by its definition, a character at a time (plain), and a block of bytes at a time (fast). Both
// give the same for every text and every code page.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

struct IntlStretch {
    size_t bytes;
    size_t chars;
};

// A stretch inside a text.
struct IntlRange {
    size_t at;  // in bytes
    IntlStretch stretch;
};

constexpr size_t kWholeText = SIZE_MAX;

// Single bytes to look for: those of a text or an array, and one more (0 for none, since the terminator is never
// found).
struct ByteSet {
    const char* bytes;
    size_t count;
    char extra = '\0';

    size_t Size() const { return count + (extra != '\0' ? 1 : 0); }
    char At(size_t i) const { return i < count ? bytes[i] : extra; }

    // The bytes of a text. Sets are short, so a call of strlen would not pay.
    static ByteSet Of(const char* text) {
        size_t count = 0;
        while (text[count] != '\0') ++count;
        return {text, count};
    }
    bool Has(char byte) const {
        return (byte == extra && byte != '\0') || (count != 0 && std::memchr(bytes, byte, count) != nullptr);
    }
};

namespace plain {

// The first maxChars characters of a text, or all it has.
IntlStretch WalkChars(const char* text, size_t maxChars);

// The first maxChars characters, or all there are, behind the first `start` ones.
IntlRange FindRange(const char* text, size_t start, size_t maxChars);

// How many characters the first bytes of a text are. The last of them ends a character.
size_t CountChars(const char* text, size_t bytes);

// The first single-byte character that is one of the bytes of a set; the terminator if there is none. A member that is
// a lead byte matches only where it stands directly before the terminator.
const char* FindAny(const char* text, const ByteSet& set);

// The first character with one of two codes; the terminator if there is none.
const char* FindEither(const char* text, uint16_t first, uint16_t second);

// The first byte that is in the set, in single-byte text; the terminator if there is none.
const char* FindByte(const char* text, const ByteSet& set);

}  // namespace plain

#if defined(__SSE2__)

namespace fast {

IntlStretch WalkChars(const char* text, size_t maxChars);
IntlRange FindRange(const char* text, size_t start, size_t maxChars);
size_t CountChars(const char* text, size_t bytes);
const char* FindAny(const char* text, const ByteSet& set);
const char* FindEither(const char* text, uint16_t first, uint16_t second);
const char* FindByte(const char* text, const ByteSet& set);

}  // namespace fast

namespace walk = fast;

#else

namespace walk = plain;

#endif
