// Removing white space and blanks.
#include <cstring>

#include <morvl15/intl.h>

#include "counted.h"

namespace {

char* Mutable(const char* text) {
    return const_cast<char*>(text);
}

template <class Text>
const char* SkipBlanks(const char* text) {
    while (*text == ' ' || Text::IsDoubleByteBlank(text)) text += Text::Width(text);
    return text;
}

// ---- the end of a text without the white space behind it ----------------------------------------------------------

size_t SingleByteEnd(const char* text, size_t length) {
    while (length > 0 && IntlIsSpaceByte(text[length - 1])) --length;
    return length;
}

// From the end back to the front. Whether the last byte is a trail is seen from the row of lead-valued bytes before
// it; while the cut stays inside one row its length is known from the step before, so that a row is counted once.
size_t DoubleByteEnd(const char* text, size_t length) {
    size_t leads = length > 0 ? IntlLeadsBefore(text, length - 1) : 0;
    while (length > 0) {
        const bool isDouble = leads % 2 == 1;
        if (isDouble ? IntlPairCode(text[length - 2], text[length - 1]) != gIntlBlank
                     : !IntlIsSpaceByte(text[length - 1])) {
            break;
        }
        length -= isDouble ? 2 : 1;
        if (isDouble && leads > 2) {
            leads -= 2;
        } else {
            leads = length > 0 ? IntlLeadsBefore(text, length - 1) : 0;
        }
    }
    return length;
}

// ---- trimming ---------------------------------------------------------------------------------------------------

// Line feed and carriage return are no blanks here: they stay in the text.
template <class Text>
bool IsTrimBlank(const char* at) {
    return *at == ' ' || *at == '\t' || *at == '\v' || *at == '\f' || Text::IsDoubleByteBlank(at);
}

template <class Text>
const char* SkipTrimBlanks(const char* text) {
    while (IsTrimBlank<Text>(text)) text += Text::Width(text);
    return text;
}

// Each run of blanks between two words becomes one space. Writes never pass the read position, so that source and
// destination may be the same.
template <class Text>
int32_t TrimOf(char* destination, const char* source) {
    char* out = destination;
    const char* word = SkipTrimBlanks<Text>(source);
    while (*word != '\0') {
        const char* end = word;
        while (*end != '\0' && !IsTrimBlank<Text>(end)) end += Text::Width(end);
        std::memmove(out, word, static_cast<size_t>(end - word));
        out += end - word;
        word = SkipTrimBlanks<Text>(end);
        if (*word != '\0') *out++ = ' ';
    }
    *out = '\0';
    return IntlClampLength(Text::WalkChars(destination, kWholeText).chars);
}

}  // namespace

char* MORVL_CALL IntlStripStartSpace(const char* text) {
    if (text == nullptr) return nullptr;
    return Mutable(gIntlDBCS != 0 ? IntlSkipSpace<DoubleByteText>(text) : IntlSkipSpace<SingleByteText>(text));
}

char* MORVL_CALL IntlStripStartBlank(const char* text) {
    if (text == nullptr) return nullptr;
    return Mutable(gIntlDBCS != 0 ? SkipBlanks<DoubleByteText>(text) : SkipBlanks<SingleByteText>(text));
}

char* MORVL_CALL IntlStripEndSpace(char* destination, const char* source) {
    if (destination == nullptr || source == nullptr) return nullptr;
    const size_t length = std::strlen(source);
    IntlCopyStretch(destination, source,
                    gIntlDBCS != 0 ? DoubleByteEnd(source, length) : SingleByteEnd(source, length));
    return destination;
}

char* MORVL_CALL IntlStrStripSpace(char* text) {
    return IntlStripEndSpace(text, IntlStripStartSpace(text));
}

int32_t MORVL_CALL IntlStrTrim(char* destination, const char* source) {
    return gIntlDBCS != 0 ? TrimOf<DoubleByteText>(destination, source) : TrimOf<SingleByteText>(destination, source);
}

int32_t MORVL_CALL IntlStrIsNextChSpace(const char* text) {
    return gIntlDBCS != 0 ? IntlIsSpace<DoubleByteText>(text) : IntlIsSpace<SingleByteText>(text);
}
