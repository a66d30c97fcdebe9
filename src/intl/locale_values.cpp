#include "locale_values.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include <morvl15/host.h>
#include <morvl15/intl.h>

int32_t gIntlDBCS = 0;
int32_t gIntlCodePageClass = kClassNone;
int32_t gIntlBiDi = 0;
uint16_t gIntlLangId = 0;
uint16_t gIntlPrimaryLang = 0;
uint8_t gIntlLeadBytes[256];
uint8_t gIntlUpper[256];
uint8_t gIntlLower[256];
IntlLeadInterval gIntlLeadInterval;
uint16_t gIntlBlank = 0;

namespace {

constexpr uint16_t kPrimaryLanguageBits = 0x03FF;
constexpr LCID kUserLanguageBits = 0x00FF;

// Languages without their country.
constexpr uint16_t kArabic = 0x01;
constexpr uint16_t kChinese = 0x04;
constexpr uint16_t kHebrew = 0x0D;
constexpr uint16_t kJapanese = 0x11;
constexpr uint16_t kKorean = 0x12;
constexpr uint16_t kFarsi = 0x29;

struct DoubleByteLanguage {
    uint16_t primary;
    int32_t codePageClass;
    uint16_t blank;
};
constexpr DoubleByteLanguage kDoubleByteLanguages[] = {
    {kJapanese, kClassJapanese, 0x8140},
    {kChinese, kClassChinese, 0xA140},
    {kKorean, kClassKorean, 0xA1A1},
};
constexpr uint16_t kRightToLeftLanguages[] = {kArabic, kHebrew, kFarsi};

bool IsRightToLeft(uint32_t language) {
    for (const uint16_t candidate : kRightToLeftLanguages) {
        if (candidate == language) return true;
    }
    return false;
}

const DoubleByteLanguage* FindDoubleByteLanguage(uint16_t primary) {
    for (const DoubleByteLanguage& candidate : kDoubleByteLanguages) {
        if (candidate.primary == primary) return &candidate;
    }
    return nullptr;
}

// One byte at a time, so that no byte is taken for half of a character. A lead byte alone is no letter.
void ReadCodePage() {
    for (uint32_t value = 0; value < std::size(gIntlLeadBytes); ++value) {
        const auto byte = static_cast<uint8_t>(value);
        gIntlLeadBytes[value] = gIntlDBCS != 0 && IsDBCSLeadByte(byte);
        char upper = static_cast<char>(byte);
        char lower = static_cast<char>(byte);
        if (gIntlLeadBytes[value] == 0) {
            CharUpperBuffA(&upper, 1);
            CharLowerBuffA(&lower, 1);
        }
        gIntlUpper[value] = static_cast<uint8_t>(upper);
        gIntlLower[value] = static_cast<uint8_t>(lower);
    }
}

}  // namespace

IntlLeadInterval IntlFindLeadInterval(const uint8_t (&leadBytes)[256]) {
    IntlLeadInterval interval = {};
    for (const int32_t flip : {0x00, 0x20}) {
        int32_t first = 0xFF;
        int32_t last = 0;
        int32_t count = 0;
        for (int32_t byte = 0; byte < 256; ++byte) {
            if (leadBytes[byte] == 0) continue;
            first = std::min(first, byte ^ flip);
            last = std::max(last, byte ^ flip);
            ++count;
        }
        if (count == 0 || last - first + 1 != count) continue;
        // The last one moves to the highest signed byte, so that all above a limit belong to the interval.
        std::memset(interval.flip, flip, sizeof interval.flip);
        std::memset(interval.shift, 0x7F - last, sizeof interval.shift);
        std::memset(interval.below, 0x7F - count, sizeof interval.below);
        interval.isKnown = true;
        break;
    }
    return interval;
}

// The system language alone decides about double-byte text, and such a system never writes from right to left; where
// text is single-byte, the user's language counts for the direction too.
void MORVL_CALL IntlInit() {
    gIntlLangId = GetSystemDefaultLangID();
    gIntlPrimaryLang = gIntlLangId & kPrimaryLanguageBits;
    const uint32_t userLanguage = GetUserDefaultLCID() & kUserLanguageBits;

    const DoubleByteLanguage* doubleByte = FindDoubleByteLanguage(gIntlPrimaryLang);
    gIntlDBCS = doubleByte != nullptr;
    gIntlCodePageClass = doubleByte != nullptr ? doubleByte->codePageClass : kClassNone;
    gIntlBlank = doubleByte != nullptr ? doubleByte->blank : 0;
    gIntlBiDi = doubleByte == nullptr && (IsRightToLeft(gIntlPrimaryLang) || IsRightToLeft(userLanguage));
    ReadCodePage();
    gIntlLeadInterval = IntlFindLeadInterval(gIntlLeadBytes);
}

int32_t MORVL_CALL IntlDBCSEnabled() {
    return gIntlDBCS;
}

int32_t MORVL_CALL IntlIsBiDiEnabled() {
    return gIntlBiDi;
}

uint16_t MORVL_CALL IntlDBCSBlank() {
    return gIntlBlank;
}
