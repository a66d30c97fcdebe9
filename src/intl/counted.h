// Moving counted stretches of text: what the operations that count characters and those that count bytes share.
#pragma once

#include <algorithm>
#include <cstring>

#include "text_kinds.h"

// Copies a stretch to the start of a destination and terminates it there. Source and destination may overlap.
inline void IntlCopyStretch(char* destination, const char* source, size_t bytes) {
    std::memmove(destination, source, bytes);
    destination[bytes] = '\0';
}

// Left, right, mid and replace in the unit of a kind of text. The single-byte ones are the byte-counted twins as well.
// Counts and positions beyond the end stand for the end.
template <class Text>
int32_t IntlLeftOf(char* destination, const char* source, int32_t count) {
    const IntlStretch left = Text::WalkChars(source, IntlClampCount(count));
    IntlCopyStretch(destination, source, left.bytes);
    return IntlClampLength(left.chars);
}

template <class Text>
int32_t IntlRightOf(char* destination, const char* source, int32_t count) {
    const IntlStretch whole = Text::WalkChars(source, kWholeText);
    const size_t right = std::min(whole.chars, IntlClampCount(count));
    const size_t skipped = Text::WalkChars(source, whole.chars - right).bytes;
    IntlCopyStretch(destination, source + skipped, whole.bytes - skipped);
    return IntlClampLength(right);
}

template <class Text>
int32_t IntlMidOf(char* destination, const char* source, int32_t start, int32_t count) {
    const IntlRange mid = Text::FindRange(source, IntlClampCount(start), IntlClampCount(count));
    IntlCopyStretch(destination, source + mid.at, mid.stretch.bytes);
    return IntlClampLength(mid.stretch.chars);
}

// Reads the source after the insertion is written: the destination must be another buffer.
template <class Text>
int32_t IntlReplaceOf(char* destination, const char* source, const char* insertion, int32_t position, int32_t count) {
    const size_t before = Text::WalkChars(source, IntlClampCount(position)).bytes;
    const size_t removed = Text::WalkChars(source + before, IntlClampCount(count)).bytes;
    const size_t inserted = std::strlen(insertion);
    std::memmove(destination, source, before);
    IntlCopyStretch(destination + before, insertion, inserted);
    const char* rest = source + before + removed;
    IntlCopyStretch(destination + before + inserted, rest, std::strlen(rest));
    return IntlClampLength(Text::WalkChars(destination, kWholeText).chars);
}
