// The three tokenizers. They differ in how the end of a token is found.
#include <cstring>

#include <morvl15/intl.h>

#include "text_kinds.h"

namespace {

// ---- the end of a token: the delimiter, or the terminator ---------------------------------------------------------

template <class Text>
const char* FindDelimiter(const char* text, const ByteSet& delimiters) {
    return Text::FindAny(text, delimiters);
}

// The first delimiter outside parentheses; the terminator if there is none. A "(" is never found, a ")" only where it
// has no partner; behind such a one the depth is below 0, and what follows counts as outside until it is 1 again.
template <class Text>
const char* IntlStrChrTopLevel(const char* text, const ByteSet& delimiters) {
    int64_t depth = 0;
    for (; *text != '\0'; text += Text::Width(text)) {
        if (Text::Width(text) == 2) continue;
        if (*text == '(') {
            ++depth;
        } else if (depth < 1 && delimiters.Has(*text)) {
            break;
        } else if (*text == ')') {
            --depth;
        }
    }
    return text;
}

// The first delimiter that is not between two quote bytes. A quote without a second one protects nothing. An opening
// quote that is a delimiter too still opens.
template <class Text>
const char* FindUnquoted(const char* text, const ByteSet& delimiters, char quote) {
    for (;;) {
        const char* open = Text::FindAny(text, {delimiters.bytes, delimiters.count, quote});
        if (*open == '\0' || *open != quote) return open;
        const char* close = Text::FindAny(open + 1, {&quote, 1});
        if (*close == '\0') return FindDelimiter<Text>(open, delimiters);
        text = close + 1;
    }
}

// ---- the steps that all three share -------------------------------------------------------------------------------

// The start of the token, behind the skipped bytes and the lead character; null if that is missing. A lead character
// whose low byte is 0 never stands there.
const char* FindTokenStart(const char* source, const char* skipSet, uint16_t leadCharacter) {
    const char* start = source + std::strspn(source, skipSet);
    if (leadCharacter == 0) return start;
    const bool isThere = *start != '\0' && *start == static_cast<char>(leadCharacter);
    return isThere ? start + 1 : nullptr;
}

// Copies the token if it fits. Result: the offset of its end.
int32_t TakeToken(char* destination, const char* source, const char* start, const char* end, int32_t size) {
    const auto length = static_cast<size_t>(end - start);
    if (size > 0 && length >= static_cast<size_t>(size)) return 0;
    std::memmove(destination, start, length);
    destination[length] = '\0';
    return IntlClampLength(static_cast<size_t>(end - source));
}

template <class FindEnd>
int32_t GetToken(char* destination, const char* source, const char* skipSet, const char* delimiterSet,
                 uint16_t leadCharacter, int32_t size, FindEnd findEnd) {
    if (destination == nullptr || source == nullptr || skipSet == nullptr || delimiterSet == nullptr) return 0;
    const char* start = FindTokenStart(source, skipSet, leadCharacter);
    if (start == nullptr) return 0;
    return TakeToken(destination, source, start, findEnd(start, ByteSet{delimiterSet, std::strlen(delimiterSet)}),
                     size);
}

}  // namespace

int32_t MORVL_CALL IntlStrGetToken(char* destination, const char* source, const char* skipSet, const char* delimiterSet,
                                   uint16_t leadCharacter, int32_t size) {
    return GetToken(destination, source, skipSet, delimiterSet, leadCharacter, size,
                    gIntlDBCS != 0 ? FindDelimiter<DoubleByteText> : FindDelimiter<SingleByteText>);
}

int32_t MORVL_CALL IntlStrGetTokenNestedParens(char* destination, const char* source, const char* skipSet,
                                               const char* delimiterSet, uint16_t leadCharacter, int32_t size) {
    return GetToken(destination, source, skipSet, delimiterSet, leadCharacter, size,
                    gIntlDBCS != 0 ? IntlStrChrTopLevel<DoubleByteText> : IntlStrChrTopLevel<SingleByteText>);
}

int32_t MORVL_CALL IntlStrGetTokenQuoted(char* destination, const char* source, const char* skipSet,
                                         const char* delimiterSet, uint16_t leadCharacter, uint8_t quote,
                                         int32_t size) {
    const auto findEnd = [quote](const char* start, const ByteSet& delimiters) {
        const auto find = gIntlDBCS != 0 ? FindUnquoted<DoubleByteText> : FindUnquoted<SingleByteText>;
        return find(start, delimiters, static_cast<char>(quote));
    };
    return GetToken(destination, source, skipSet, delimiterSet, leadCharacter, size, findEnd);
}
