// Putting a mask on a text and taking it off.
#include <cstring>

#include <morvl15/memory.h>

#include "mask_picture.h"

namespace {

bool IsLiteralAt(const char* picture, int32_t at) {
    return picture[at] != 0 && !FMTIsMaskChar(picture[at]);
}

// What a masked text can grow to, terminator included.
size_t WorkSize(const char* text, const char* picture) {
    const size_t length =
        FMTIsPicUnlimited(picture) ? static_cast<size_t>(FMTMaskMaxLen(picture, text)) : std::strlen(picture);
    return length + 1;
}

// The classes that taking a mask off looks at.
bool PassesUnmasked(char maskChar, char c) {
    if (c == ' ' || (maskChar != '9' && maskChar != 'n' && maskChar != 'N')) return true;
    auto code = static_cast<uint16_t>(static_cast<uint8_t>(c));
    return FMTMaskCharTest(maskChar, &code) != 0;
}

}  // namespace

FMTMaskWalk FMTMaskLayText(const char* text, char* out, const char* picture, int32_t matchLiterals) {
    int32_t at = 0;
    while (picture[at] != 0 && *text != 0) {
        if (!FMTIsMaskChar(picture[at])) {
            if (matchLiterals && *text == picture[at]) ++text;
            out[at] = picture[at];
            ++at;
            continue;
        }
        auto c = static_cast<uint16_t>(static_cast<uint8_t>(*text++));
        if (FMTMaskCharTest(picture[at], &c)) out[at++] = static_cast<char>(c);
    }
    return {at, text};
}

void FMTMaskLayAll(const char* text, char* out, const char* picture, int32_t matchLiterals) {
    auto [at, rest] = FMTMaskLayText(text, out, picture, matchLiterals);
    if (!FMTIsPicUnlimited(picture)) {
        if (IsLiteralAt(picture, at)) {
            out[at] = picture[at];
            ++at;
        }
        out[at] = 0;
        return;
    }
    for (; IsLiteralAt(picture, at); ++at) out[at] = picture[at];
    std::strcpy(out + at, rest);
}

int32_t FMTMaskApply(const char* text, char* out, const char* picture, int32_t matchLiterals) {
    if (text == nullptr || out == nullptr || picture == nullptr) return 0;
    if (!FMTIsValidMaskFormat(picture)) return 0;
    auto* work = static_cast<char*>(MemAlloc(static_cast<uint32_t>(WorkSize(text, picture))));
    if (work == nullptr) return 0;
    FMTMaskLayAll(text, work, picture, matchLiterals);
    std::strcpy(out, work);
    MemFree(work);
    return 1;
}

int32_t MORVL_CALL FMTMaskText(const char* text, char* out, const char* picture) {
    return FMTMaskApply(text, out, FMTMaskBody(picture), 1);
}

int32_t FMTMaskRemove(const char* text, char* out, const char* picture) {
    if (text == nullptr || picture == nullptr || out == nullptr || *picture == 0) return 0;
    if (!FMTIsPicUnlimited(picture) && std::strlen(picture) < std::strlen(text)) return 0;

    char* const start = out;
    for (; *text != 0 && *picture != 0 && *picture != '*'; ++text, ++picture) {
        const bool isInput = FMTIsMaskChar(*picture) != 0;
        if (isInput ? !PassesUnmasked(*picture, *text) : *text != *picture) {
            *start = 0;
            return 0;
        }
        if (isInput) *out++ = *text;
    }
    const size_t restLength = *picture == '*' ? std::strlen(text) : 0;
    std::memmove(out, text, restLength);
    out[restLength] = 0;
    return 1;
}

int32_t MORVL_CALL FMTUnmaskInput(FMTCntlBlock* block) {
    if (block == nullptr) return 0;
    return FMTMaskRemove(block->Input, block->Output, FMTMaskBody(block->Picture));
}
