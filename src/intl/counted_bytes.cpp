// Left, right, mid and replace, in bytes. A result has exactly the bytes that were asked for; a double-byte character
// that the range cuts in two leaves one space in the place of its half, so that no half character reaches a result.
#include <morvl15/intl.h>

#include "counted.h"

namespace {

// Bytes up to the end of the text or the limit, whichever comes first.
size_t BytesUpTo(const char* text, size_t limit) {
    return SingleByteText::WalkChars(text, limit).bytes;
}

// Copies source[at, at + count), which lies inside the source, with a space for each half character at its ends.
int32_t CopyRange(char* destination, const char* source, size_t at, size_t count) {
    const bool cutsFirst = count > 0 && IntlIsTrail(source, at);
    const bool cutsLast = count > 0 && IntlIsTrail(source, at + count);
    IntlCopyStretch(destination, source + at, count);
    if (cutsFirst) destination[0] = ' ';
    if (cutsLast) destination[count - 1] = ' ';
    return IntlClampLength(count);
}

int32_t ReplaceBytes(char* destination, const char* source, const char* insertion, int32_t position, int32_t count) {
    const size_t before = BytesUpTo(source, IntlClampCount(position));
    const size_t end = before + BytesUpTo(source + before, IntlClampCount(count));
    const size_t inserted = std::strlen(insertion);
    const size_t rest = std::strlen(source + end);

    CopyRange(destination, source, 0, before);
    IntlCopyStretch(destination + before, insertion, inserted);
    CopyRange(destination + before + inserted, source, end, rest);
    return IntlClampLength(before + inserted + rest);
}

}  // namespace

int32_t MORVL_CALL IntlStrLeftB(char* destination, const char* source, int32_t count) {
    if (gIntlDBCS == 0) return IntlLeftOf<SingleByteText>(destination, source, count);
    return CopyRange(destination, source, 0, BytesUpTo(source, IntlClampCount(count)));
}

int32_t MORVL_CALL IntlStrRightB(char* destination, const char* source, int32_t count) {
    if (gIntlDBCS == 0) return IntlRightOf<SingleByteText>(destination, source, count);
    const size_t length = std::strlen(source);
    const size_t right = std::min(length, IntlClampCount(count));
    return CopyRange(destination, source, length - right, right);
}

int32_t MORVL_CALL IntlStrMidB(char* destination, const char* source, int32_t start, int32_t count) {
    if (gIntlDBCS == 0) return IntlMidOf<SingleByteText>(destination, source, start, count);
    const size_t at = BytesUpTo(source, IntlClampCount(start));
    return CopyRange(destination, source, at, BytesUpTo(source + at, IntlClampCount(count)));
}

int32_t MORVL_CALL IntlStrReplaceB(char* destination, const char* source, const char* insertion, int32_t position,
                                   int32_t count) {
    return gIntlDBCS != 0 ? ReplaceBytes(destination, source, insertion, position, count)
                          : IntlReplaceOf<SingleByteText>(destination, source, insertion, position, count);
}
