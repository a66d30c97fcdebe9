// The currency layout of a region as four texts round the digits.
#include <atomic>

#include "../frame/section.h"
#include "../intl/character.h"
#include "picture_tokens.h"

namespace {

// Texts before and after the digits. The letter S is the place of the symbol.
struct CurrencyLayout {
    const char* prefix;
    const char* suffix;
};

// clang-format off
constexpr CurrencyLayout kPositive[] = {
    {"S",  ""},    // 0
    {"",   "S"},   // 1
    {"S ", ""},    // 2
    {"",   " S"},  // 3
};
constexpr CurrencyLayout kNegative[] = {
    {"(S",  ")"},    // 0
    {"-S",  ""},     // 1
    {"S-",  ""},     // 2
    {"S",   "-"},    // 3
    {"(",   "S)"},   // 4
    {"-",   "S"},    // 5
    {"",    "-S"},   // 6
    {"",    "S-"},   // 7
    {"-",   " S"},   // 8
    {"-S ", ""},     // 9
    {"",    " S-"},  // 10
};
// clang-format on
constexpr CurrencyLayout kNone = {"", ""};

constexpr size_t kSymbolRoom = 7;

FMTCurrencyStrings gFMTCurrencyStrings;  // of the profile, complete once the flag is up
CR_EARLY CRSection currencySection;

template <int32_t kCount>
const CurrencyLayout& LayoutAt(const CurrencyLayout (&layouts)[kCount], int32_t index) {
    return index >= 0 && index < kCount ? layouts[index] : kNone;
}

// Bytes of a symbol that a text has room for; a character goes in whole or not at all.
size_t SymbolLength(const char* symbol) {
    size_t length = 0;
    while (symbol[length] != 0) {
        const size_t size = IntlCharWidth(symbol + length);
        if (length + size > kSymbolRoom) break;
        length += size;
    }
    return length;
}

void Fill(char* text, const char* layout, const char* symbol, size_t symbolLength) {
    for (; *layout != 0; ++layout) {
        if (*layout != 'S') {
            *text++ = *layout;
            continue;
        }
        for (size_t i = 0; i < symbolLength; ++i) *text++ = symbol[i];
    }
    *text = 0;
}

void BuildFor(const FMTRegion& region, FMTCurrencyStrings* strings) {
    FMTBuildCurrencyStrings(region.CurrencyPos(), region.NegCurrency(), strings->posPrefix, strings->posSuffix,
                            strings->negPrefix, strings->negSuffix, region.Currency());
}

}  // namespace

std::atomic<bool> gFMTCurrencyBuilt{false};

void FMTBuildCurrencyStrings(int32_t position, int32_t negLayout, char* posPrefix, char* posSuffix, char* negPrefix,
                             char* negSuffix, const char* symbol) {
    const CurrencyLayout& positive = LayoutAt(kPositive, position);
    const CurrencyLayout& negative = LayoutAt(kNegative, negLayout);
    const size_t symbolLength = SymbolLength(symbol);
    Fill(posPrefix, positive.prefix, symbol, symbolLength);
    Fill(posSuffix, positive.suffix, symbol, symbolLength);
    Fill(negPrefix, negative.prefix, symbol, symbolLength);
    Fill(negSuffix, negative.suffix, symbol, symbolLength);
}

const FMTCurrencyStrings& FMTCurrencyStringsOf(const FMTRegion& region, FMTCurrencyStrings* privateStrings) {
    if (!region.UsesProfile()) {
        BuildFor(region, privateStrings);
        return *privateStrings;
    }
    if (!gFMTCurrencyBuilt.load(std::memory_order_acquire)) {
        const CRSectionHold hold(currencySection);
        if (!gFMTCurrencyBuilt.load(std::memory_order_relaxed)) {
            BuildFor(region, &gFMTCurrencyStrings);
            gFMTCurrencyBuilt.store(true, std::memory_order_release);
        }
    }
    return gFMTCurrencyStrings;
}
