// The walks by their definition.
#include "character.h"
#include "walk.h"

namespace plain {

IntlStretch WalkChars(const char* text, size_t maxChars) {
    const char* at = text;
    size_t chars = 0;
    while (chars < maxChars && *at != '\0') {
        at = IntlNextChar(at);
        ++chars;
    }
    return {static_cast<size_t>(at - text), chars};
}

IntlRange FindRange(const char* text, size_t start, size_t maxChars) {
    const size_t at = WalkChars(text, start).bytes;
    return {at, WalkChars(text + at, maxChars)};
}

size_t CountChars(const char* text, size_t bytes) {
    size_t chars = 0;
    for (const char* at = text; at < text + bytes; at = IntlNextChar(at)) ++chars;
    return chars;
}

const char* FindAny(const char* text, const ByteSet& set) {
    const char* at = text;
    for (; *at != '\0'; at = IntlNextChar(at)) {
        if (IntlCharWidth(at) == 1 && set.Has(*at)) break;
    }
    return at;
}

const char* FindEither(const char* text, uint16_t first, uint16_t second) {
    const char* at = text;
    for (; *at != '\0'; at = IntlNextChar(at)) {
        const uint16_t code = IntlCharCode(at);
        if (code == first || code == second) break;
    }
    return at;
}

const char* FindByte(const char* text, const ByteSet& set) {
    const char* at = text;
    while (*at != '\0' && !set.Has(*at)) ++at;
    return at;
}

}  // namespace plain
