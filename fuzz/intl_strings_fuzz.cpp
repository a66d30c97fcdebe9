// Every operation on strings over raw bytes, in exactly the room that it is told to need.
#include "input.h"

namespace {

bool EndsInHalf(const char* text) {
    const uint16_t last = static_cast<uint16_t>(IntlStrLastChar(text));
    return *text != '\0' && (last >> 8 == 0xFF || last >> 8 == 0) && IntlIsKanji(static_cast<uint8_t>(last));
}

// The parts of a text in characters, and how they fit together.
void CutInCharacters(const char* text, int32_t start, int32_t count) {
    const size_t bytes = std::strlen(text);
    const int32_t length = IntlStrLen(text);
    Require(length <= IntlStrLenB(text));
    Room left(bytes + 1);
    Room rest(bytes + 1);
    Require(IntlStrLeft(left, text, count) == IntlStrLen(left));
    Require(IntlStrMid(rest, text, count, INT32_MAX) == IntlStrLen(rest));
    const size_t leftBytes = std::strlen(left);
    Require(std::memcmp(left, text, leftBytes) == 0 && std::strcmp(rest, text + leftBytes) == 0);
    Require(IntlStrLen(left) + IntlStrLen(rest) == length);

    Require(IntlStrRight(rest, text, count) == IntlStrLen(rest));
    Require(std::strcmp(rest, text + bytes - std::strlen(rest)) == 0);
    Require(IntlStrMid(rest, text, start, count) == IntlStrLen(rest));
    const char* first = IntlStrNthChar(text, start);
    Require(first == nullptr || std::strncmp(rest, first, std::strlen(rest)) == 0);
    for (int32_t n = -1; n <= length + 1; ++n) {
        const char* at = IntlStrNthChar(text, n);
        Require((at == nullptr) == (n < 0 || n > length));
        Require(at == nullptr || IntlIsNthCharDB(text, n) == IntlIsDBChar(at));
    }
}

// A part in bytes has the bytes of the source, or a space for half a character.
void ExpectPart(const char* part, const char* source, int32_t result) {
    Require(static_cast<size_t>(result) == std::strlen(part));
    for (int32_t i = 0; i < result; ++i) {
        const bool isEnd = i == 0 || i == result - 1;
        Require(part[i] == source[i] || (isEnd && part[i] == ' ' && IntlDBCSEnabled()));
    }
}

void CutInBytes(const char* text, int32_t start, int32_t count) {
    const size_t bytes = std::strlen(text);
    Room part(bytes + 1);
    const int32_t left = IntlStrLeftB(part, text, count);
    ExpectPart(part, text, left);
    Require(!EndsInHalf(part) || static_cast<size_t>(left) == bytes);
    const int32_t right = IntlStrRightB(part, text, count);
    ExpectPart(part, text + bytes - right, right);
    const int32_t mid = IntlStrMidB(part, text, start, count);
    const size_t from = start < 0 ? 0 : std::min(static_cast<size_t>(start), bytes);
    ExpectPart(part, text + from, mid);
    Require(!EndsInHalf(part) || from + static_cast<size_t>(mid) == bytes);
}

void Replace(const char* text, const char* insertion, int32_t position, int32_t count) {
    Room result(std::strlen(text) + std::strlen(insertion) + 1);
    Require(IntlStrReplace(result, text, insertion, position, count) == IntlStrLen(result));
    Require(IntlStrReplaceB(result, text, insertion, position, count) == IntlStrLenB(result));
}

void Copy(const char* text, uint16_t count) {
    Room copy(2 * size_t{count} + 1);
    copy[2 * size_t{count}] = '\0';
    Require(IntlStrnCpy(copy, text, count) == static_cast<char*>(copy));
    const size_t same = std::min(std::strlen(text), static_cast<size_t>(count));
    Require(IntlIsStrnEqual(copy, text, static_cast<uint16_t>(same)) == 1);
}

void ChangeCase(const char* text) {
    const size_t bytes = std::strlen(text);
    Room copy(bytes + 1);
    Require(IntlStrProper(copy, text) == IntlStrLen(copy) && std::strlen(copy) == bytes);
    Require(std::strlen(IntlStrUpper(copy)) == bytes);
    Require(std::strlen(IntlStrLower(copy)) == bytes);
}

void Strip(const char* text) {
    const size_t bytes = std::strlen(text);
    Room once(bytes + 1);
    Room twice(bytes + 1);
    Require(IntlStrTrim(once, text) == IntlStrLen(once));
    Require(IntlStrTrim(twice, once) == IntlStrLen(twice) && IntlIsStrEqual(once, twice));
    IntlStripEndSpace(once, text);
    IntlStripEndSpace(twice, once);
    Require(IntlIsStrEqual(once, twice) == 1);
    std::memcpy(once, text, bytes + 1);
    IntlStrStripSpace(once);
    Require(IntlStrIsNextChSpace(once) == 0 && IntlStripStartSpace(once) == static_cast<char*>(once));
    const char* blank = IntlStripStartBlank(text);
    Require(blank <= IntlStripStartSpace(text));
}

void LookAtCharacters(const char* text, uint16_t code) {
    const char* found = IntlStrChr(text, code);
    Require(found == nullptr || IntlDBCSChar(found) == (IntlDBCSEnabled() ? code : code & 0xFF));
    const char* firstDouble = IntlNextDBCInStr(text);
    Require(firstDouble == nullptr || IntlIsDBChar(firstDouble) == 1);
    int32_t at = 0;
    for (const char* next = text; *next != '\0'; next += IntlBytesInNextChar(next)) {
        const int32_t width = IntlBytesInNextChar(next);
        Require(IntlIsNthByteDB(text, at) == (width == 2 ? 1 : 0));
        if (width == 2) Require(IntlIsNthByteDB(text, at + 1) == 2);
        at += width;
    }
    Require(IntlIsNthByteDB(text, at) == 0);
    Require(*text == '\0' || IntlStrFirstChar(text) != 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, std::min(size, size_t{1024}));
    input.TakeLanguage();
    const int32_t first = input.TakeNumber();
    const int32_t second = input.TakeNumber();
    const Room text = input.TakeText();
    const Room insertion = input.TakeText();
    CutInCharacters(text, first, second);
    CutInBytes(text, first, second);
    Replace(text, insertion, first, second);
    Copy(text, static_cast<uint16_t>(second & 0x3FF));
    ChangeCase(text);
    Strip(text);
    LookAtCharacters(text, static_cast<uint16_t>(first << 8 | (second & 0xFF)));
    return 0;
}
