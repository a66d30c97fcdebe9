// Mask pictures: the classes of their characters, counts and tests, and positions.
#include "mask_picture.h"

#include <cstring>

#include <morvl15/host.h>
#include <morvl15/intl.h>

namespace {

constexpr uint8_t kLineFeed = 0x0A;

bool IsAlphabetic(uint8_t byte) {
    return IsCharAlphaA(static_cast<char>(byte)) != 0;
}

bool IsAlphanumeric(uint8_t byte) {
    return IsCharAlphaNumericA(static_cast<char>(byte)) != 0;
}

bool IsAnyButLineFeed(uint8_t byte) {
    return byte != kLineFeed;
}

bool IsNumeric(uint8_t byte) {
    return IsAlphanumeric(byte) && !IsAlphabetic(byte);
}

bool IsAny(uint8_t /*byte*/) {
    return true;
}

uint16_t UpperCase(uint8_t byte) {
    char c = static_cast<char>(byte);
    CharUpperBuffA(&c, 1);
    return static_cast<uint8_t>(c);
}

struct MaskClass {
    bool (*accepts)(uint8_t byte);
    char maskChar;
    bool upperCase;
};

constexpr MaskClass kMaskClasses[] = {
    {IsNumeric, '9', false},       {IsAlphabetic, 'a', false},  {IsAlphabetic, 'A', true},
    {IsAlphanumeric, 'n', false},  {IsAlphanumeric, 'N', true}, {IsAnyButLineFeed, 'X', false},
    {IsAnyButLineFeed, '!', true}, {IsAny, '*', false},
};

const MaskClass* FindMaskClass(char c) {
    for (const MaskClass& maskClass : kMaskClasses) {
        if (maskClass.maskChar == c) return &maskClass;
    }
    return nullptr;
}

// The number of characters of a body that are mask characters (1) or literals (0). None for null.
int32_t Count(const char* body, int32_t maskChars) {
    if (body == nullptr) return 0;
    int32_t count = 0;
    for (const char* c = body; *c != 0; ++c) count += FMTIsMaskChar(*c) == maskChars ? 1 : 0;
    return count;
}

int32_t FindNext(const char* picture, int32_t from, int32_t* index, int32_t maskChars) {
    const auto length = static_cast<int32_t>(std::strlen(picture));
    for (int32_t i = from; i < length; ++i) {
        if (FMTIsMaskChar(picture[i]) != maskChars) continue;
        *index = i;
        return 1;
    }
    return 0;
}

}  // namespace

const char* FMTMaskBody(const char* picture) {
    return picture != nullptr && *picture == '^' ? picture + 1 : picture;
}

int32_t FMTIsMaskChar(char c) {
    return FindMaskClass(c) != nullptr ? 1 : 0;
}

int32_t FMTMaskCharTest(char maskChar, uint16_t* c) {
    const MaskClass* maskClass = FindMaskClass(maskChar);
    if (maskClass == nullptr) {
        *c = static_cast<uint8_t>(maskChar);
        return 1;
    }
    const auto byte = static_cast<uint8_t>(*c);
    if (!maskClass->accepts(byte)) return 0;
    if (maskClass->upperCase) *c = UpperCase(byte);
    return 1;
}

int32_t FMTMaskRawPos(const char* picture, int32_t position) {
    int32_t count = 0;
    int32_t i = 0;
    for (; i <= position && picture[i] != 0; ++i) count += FMTIsMaskChar(picture[i]);
    if (count > 0) --count;
    const bool reachedEnd = picture[i] == 0;
    if (reachedEnd && FMTIsPicUnlimited(picture)) count += position - i + 1;
    return count;
}

int32_t FMTMaskNextLiteral(const char* picture, int32_t from, int32_t* index) {
    return FindNext(picture, from, index, 0);
}

int32_t FMTMaskNextInput(const char* picture, int32_t from, int32_t* index) {
    return FindNext(picture, from, index, 1);
}

int32_t FMTMaskMaxLen(const char* picture, const char* text) {
    return Count(picture, 0) + static_cast<int32_t>(std::strlen(text));
}

void FMTStripTrailingBlanks(char* text) {
    size_t length = std::strlen(text);
    while (length > 0 && text[length - 1] == ' ') --length;
    text[length] = 0;
}

int32_t MORVL_CALL FMTIsValidMaskFormat(const char* picture) {
    if (picture == nullptr) return 0;
    int32_t index = 0;
    if (!FMTMaskNextInput(picture, 0, &index)) return 0;
    const char* star = IntlStrChr(picture, '*');
    return star == nullptr || star[1] == 0 ? 1 : 0;
}

int32_t MORVL_CALL FMTCntMaskChars(const char* picture) {
    return Count(FMTMaskBody(picture), 1);
}

int32_t MORVL_CALL FMTCntNonMaskChars(const char* picture) {
    return Count(FMTMaskBody(picture), 0);
}

int32_t MORVL_CALL FMTIsPicNoUnmaskOnGets(const char* picture) {
    return picture != nullptr && *picture == '^' ? 1 : 0;
}

int32_t MORVL_CALL FMTIsPicUnlimited(const char* picture) {
    return IntlStrLastChar(picture) == '*' ? 1 : 0;
}
