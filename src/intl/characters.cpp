// The characters of a text: how many there are, what each is, and where one stands.
#include "characters.h"

#include <cstring>

#include <morvl15/intl.h>

#include "text_kinds.h"

namespace {

// What a compiler would make of a plain char: the callers compare with ASCII codes.
int16_t SignExtend(char byte) {
    return static_cast<int16_t>(static_cast<signed char>(byte));
}

int16_t DoubleByteValue(char lead, char trail) {
    return static_cast<int16_t>(IntlPairCode(lead, trail));
}

bool IsBetween(uint32_t value, uint32_t first, uint32_t last) {
    return value >= first && value <= last;
}

char* Mutable(const char* text) {
    return const_cast<char*>(text);
}

}  // namespace

size_t IntlCharCount(const char* text) {
    return text != nullptr ? walk::WalkChars(text, kWholeText).chars : 0;
}

size_t IntlCharsToBytes(const char* text, int32_t n) {
    return walk::WalkChars(text, IntlClampCount(n)).bytes;
}

const char* IntlStrChrDB(const char* text, uint16_t character) {
    const char* found = walk::FindEither(text, character, character);
    return *found != '\0' || character == 0 ? found : nullptr;
}

// ---- one character ----------------------------------------------------------------------------------------------

int32_t MORVL_CALL IntlIsDBChar(const char* text) {
    return IntlCharWidth(text) == 2;
}

int32_t MORVL_CALL IntlBytesInNextChar(const char* text) {
    return static_cast<int32_t>(IntlCharWidth(text));
}

uint16_t MORVL_CALL IntlDBCSChar(const char* text) {
    return text != nullptr ? IntlCharCode(text) : 0;
}

int32_t MORVL_CALL IntlCharIsHexDigit(uint16_t character) {
    return IsBetween(character, '0', '9') || IsBetween(character, 'A', 'F') || IsBetween(character, 'a', 'f');
}

int32_t MORVL_CALL IntlIsKanji(uint8_t byte) {
    if (gIntlDBCS == 0) return 0;
    if (gIntlCodePageClass == kClassJapanese) return IsBetween(byte, 0x81, 0x9F) || IsBetween(byte, 0xE0, 0xFC);
    return gIntlLeadBytes[byte];
}

int32_t MORVL_CALL IntlIsKatakana(uint8_t byte) {
    return gIntlCodePageClass == kClassJapanese && IsBetween(byte, 0xA0, 0xDF);
}

// ---- length and position ----------------------------------------------------------------------------------------

int32_t MORVL_CALL IntlStrLen(const char* text) {
    if (text == nullptr) return 0;
    return IntlClampLength(gIntlDBCS != 0 ? IntlCharCount(text) : std::strlen(text));
}

int32_t MORVL_CALL IntlStrLenB(const char* text) {
    return IntlClampLength(std::strlen(text));
}

int32_t MORVL_CALL IntlIsNthCharDB(const char* text, int32_t n) {
    if (gIntlDBCS == 0 || text == nullptr || n < 0) return 0;
    return IntlIsDBChar(text + IntlCharsToBytes(text, n));
}

int32_t MORVL_CALL IntlIsNthByteDB(const char* text, int32_t n) {
    if (gIntlDBCS == 0 || text == nullptr || n < 0) return 0;
    const auto at = static_cast<size_t>(n);
    if (std::memchr(text, '\0', at + 1) != nullptr) return 0;
    if (IntlIsTrail(text, at)) return 2;
    return IntlIsDBChar(text + at);
}

char* MORVL_CALL IntlStrNthChar(const char* text, int32_t index) {
    if (text == nullptr || index < 0) return nullptr;
    const auto wanted = static_cast<size_t>(index);
    const IntlStretch before =
        gIntlDBCS != 0 ? DoubleByteText::WalkChars(text, wanted) : SingleByteText::WalkChars(text, wanted);
    return before.chars == wanted ? Mutable(text + before.bytes) : nullptr;
}

// All that stands before the first lead-valued byte is single-byte, so that byte starts a character.
char* MORVL_CALL IntlNextDBCInStr(const char* text) {
    if (text == nullptr || gIntlDBCS == 0) return nullptr;
    while (*text != '\0' && !IntlIsLead(*text)) ++text;
    return IntlCharWidth(text) == 2 ? Mutable(text) : nullptr;
}

int16_t MORVL_CALL IntlStrFirstChar(const char* text) {
    if (text == nullptr) return 0;
    return IntlCharWidth(text) == 2 ? DoubleByteValue(text[0], text[1]) : SignExtend(*text);
}

int16_t MORVL_CALL IntlStrLastChar(const char* text) {
    if (text == nullptr || *text == '\0') return 0;
    const size_t last = std::strlen(text) - 1;
    return IntlIsTrail(text, last) ? DoubleByteValue(text[last - 1], text[last]) : SignExtend(text[last]);
}

char* MORVL_CALL IntlStrChr(const char* text, uint16_t character) {
    if (gIntlDBCS == 0) return Mutable(std::strchr(text, static_cast<char>(character)));
    return Mutable(IntlStrChrDB(text, character));
}
