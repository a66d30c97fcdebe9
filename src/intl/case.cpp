// Upper and lower case: of whole texts, of the first letters of words, of single characters.
#include "case.h"

#include <morvl15/host.h>
#include <morvl15/intl.h>

#include "counted.h"
#include "width.h"

namespace {

void CapitaliseByte(char* at) {
    *at = static_cast<char>(IntlFoldByte(*at, IntlFold::kUpper));
}

// Double-byte characters outside these ranges have no case: kana, hangul, hanzi, most signs. Asking the host about one
// is a long way to learn that it stays as it is.
struct CasedRange {
    int32_t codePageClass;
    uint16_t first;
    uint16_t last;
};
constexpr CasedRange kCasedRanges[] = {
    {kClassJapanese, 0x81F0, 0x81F0},  // the angstrom sign
    {kClassJapanese, 0x8260, 0x829A},  // Latin
    {kClassJapanese, 0x839F, 0x83D6},  // Greek
    {kClassJapanese, 0x8440, 0x8491},  // Cyrillic
    {kClassJapanese, 0x8754, 0x875D},  // Roman numbers: capital, small, and small again
    {kClassJapanese, 0xEEEF, 0xEEF8}, {kClassJapanese, 0xFA40, 0xFA53},
    {kClassChinese, 0xA140, 0xA9FF},  // the rows of letters and signs
    {kClassKorean, 0xA141, 0xACFF},
};

bool MayHaveCase(uint16_t code) {
    for (const CasedRange& range : kCasedRanges) {
        if (range.codePageClass == gIntlCodePageClass && code >= range.first && code <= range.last) return true;
    }
    return false;
}

// A full-width character is capitalised by way of its half-width form: kana and signs may come back as another
// full-width character of the same half-width form. One without such a form, or with a voice mark, stays.
void CapitaliseFullWidth(char* at) {
    const uint16_t half = IntlFullToHalfCode(IntlCharCode(at));
    if (half == 0 || (half & 0xFF) != 0) return;
    const uint16_t capital = IntlFoldByte(static_cast<char>(half >> 8), IntlFold::kUpper);
    const uint16_t full = IntlHalfToFullCode(static_cast<uint16_t>(capital << 8));
    at[0] = static_cast<char>(full >> 8);
    at[1] = static_cast<char>(full);
}

template <class Text>
void CapitaliseWords(char* text) {
    for (;;) {
        while (IntlIsSpace<Text>(text)) text += Text::Width(text);
        if (*text == '\0') return;
        Text::Width(text) == 2 ? CapitaliseFullWidth(text) : CapitaliseByte(text);
        while (*text != '\0' && !IntlIsSpace<Text>(text)) text += Text::Width(text);
    }
}

template <class Text>
int32_t ProperOf(char* destination, const char* source) {
    const IntlStretch whole = Text::WalkChars(source, kWholeText);
    IntlCopyStretch(destination, source, whole.bytes);
    IntlStrLower(destination);
    CapitaliseWords<Text>(destination);
    return IntlClampLength(whole.chars);
}

}  // namespace

uint16_t IntlFoldChar(const char* text, IntlFold direction) {
    if (IntlCharWidth(text) != 2) return IntlFoldByte(*text, direction);
    const uint16_t code = IntlPairCode(text[0], text[1]);
    if (!MayHaveCase(code)) return code;
    char character[3] = {text[0], text[1], '\0'};
    direction == IntlFold::kUpper ? IntlStrUpper(character) : IntlStrLower(character);
    return IntlCharCode(character);
}

char* MORVL_CALL IntlStrUpper(char* text) {
    CharUpperA(text);
    return text;
}

char* MORVL_CALL IntlStrLower(char* text) {
    CharLowerA(text);
    return text;
}

int32_t MORVL_CALL IntlStrProper(char* destination, const char* source) {
    return gIntlDBCS != 0 ? ProperOf<DoubleByteText>(destination, source)
                          : ProperOf<SingleByteText>(destination, source);
}
