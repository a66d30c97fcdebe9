// The two kinds of text. An operation that has a routine for each is one template over them: the exported function
// tests gIntlDBCS and calls it for the kind in force.
#pragma once

#include <cstring>

#include "case.h"
#include "character.h"
#include "walk.h"

// Every character is a byte.
struct SingleByteText {
    static size_t Width(const char* at) { return *at != '\0' ? 1 : 0; }
    static uint16_t Code(const char* at) { return static_cast<uint8_t>(*at); }
    static bool IsDoubleByteBlank(const char* /*at*/) { return false; }

    static IntlStretch WalkChars(const char* text, size_t maxChars) {
        if (maxChars == kWholeText) {
            const size_t length = std::strlen(text);
            return {length, length};
        }
        const auto* end = static_cast<const char*>(std::memchr(text, '\0', maxChars));
        const size_t bytes = end != nullptr ? static_cast<size_t>(end - text) : maxChars;
        return {bytes, bytes};
    }
    static IntlRange FindRange(const char* text, size_t start, size_t maxChars) {
        const size_t at = WalkChars(text, start).bytes;
        return {at, WalkChars(text + at, maxChars)};
    }
    static const char* FindAny(const char* text, const ByteSet& set) { return walk::FindByte(text, set); }
    static const char* FindEither(const char* text, uint16_t first, uint16_t second) {
        const char set[] = {static_cast<char>(first), static_cast<char>(second)};
        return walk::FindByte(text, {set, sizeof set});
    }
    static size_t CharsBetween(const char* text, const char* end) { return static_cast<size_t>(end - text); }
    static uint16_t Fold(const char* at, IntlFold direction) { return IntlFoldByte(*at, direction); }
};

// A character is one byte, or a lead byte and the byte behind it.
struct DoubleByteText {
    static size_t Width(const char* at) { return IntlCharWidth(at); }
    static uint16_t Code(const char* at) { return IntlCharCode(at); }
    static bool IsDoubleByteBlank(const char* at) { return IntlCharCode(at) == gIntlBlank; }

    static IntlStretch WalkChars(const char* text, size_t maxChars) { return walk::WalkChars(text, maxChars); }
    static IntlRange FindRange(const char* text, size_t start, size_t maxChars) {
        return walk::FindRange(text, start, maxChars);
    }
    static const char* FindAny(const char* text, const ByteSet& set) { return walk::FindAny(text, set); }
    static const char* FindEither(const char* text, uint16_t first, uint16_t second) {
        return walk::FindEither(text, first, second);
    }
    static size_t CharsBetween(const char* text, const char* end) {
        return walk::CountChars(text, static_cast<size_t>(end - text));
    }
    static uint16_t Fold(const char* at, IntlFold direction) { return IntlFoldChar(at, direction); }
};

// White space: the six bytes, and where text is double-byte its blank too.
template <class Text>
inline bool IntlIsSpace(const char* at) {
    return IntlIsSpaceByte(*at) || Text::IsDoubleByteBlank(at);
}

template <class Text>
inline const char* IntlSkipSpace(const char* text) {
    while (IntlIsSpace<Text>(text)) text += Text::Width(text);
    return text;
}
