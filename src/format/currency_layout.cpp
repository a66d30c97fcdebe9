#include "currency_layout.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include <morvl15/intl.h>

namespace {

constexpr const char* kNegativeLayouts[] = {
    "(SA)",  // 0
    "-SA",   // 1
    "S-A",   // 2
    "SA-",   // 3
    "(AS)",  // 4
    "-AS",   // 5
    "A-S",   // 6
    "AS-",   // 7
    "-A S",  // 8
    "-S A",  // 9
    "A S-",  // 10
};

char* Append(char* to, const char* text) {
    return std::copy_n(text, std::strlen(text), to);
}

void DeleteBytes(char* at, size_t count) {
    std::memmove(at, at + count, std::strlen(at + count) + 1);
}

void DeleteLast(char* text) {
    text[std::strlen(text) - 1] = 0;
}

// Deletes the one "-" of a text that begins or ends with it.
bool TakeMinus(char* text) {
    char* minus = IntlStrChr(text, '-');
    if (minus == nullptr || (minus != text && IntlStrLastChar(text) != '-')) return false;
    if (IntlStrChr(minus + 1, '-') != nullptr) return false;
    DeleteBytes(minus, 1);
    return true;
}

// Deletes parentheses round the whole text.
bool TakeParentheses(char* text) {
    if (text[0] != '(' || IntlStrLastChar(text) != ')') return false;
    DeleteLast(text);
    DeleteBytes(text, 1);
    return true;
}

void TakeSymbolAtFront(char* text, const char* symbol) {
    const size_t length = std::strlen(symbol);
    if (std::strncmp(text, symbol, length) == 0) DeleteBytes(text, length);
}

void TakeSymbolAtEnd(char* text, const char* symbol) {
    const size_t length = std::strlen(text);
    const size_t symbolLength = std::strlen(symbol);
    if (length >= symbolLength && std::strcmp(text + length - symbolLength, symbol) == 0) {
        text[length - symbolLength] = 0;
    }
}

}  // namespace

FMTCurrencyLayout FMTCurrencyLayoutOf(const FMTRegion& region) {
    const int32_t position = region.CurrencyPos();
    return {region.Currency(), position == 1 || position == 3, position == 2 || position == 3, region.NegCurrency()};
}

const char* FMTCurrencyElements(const FMTCurrencyLayout& layout, bool negative) {
    if (negative) {
        const bool known = layout.negative >= 0 && layout.negative < static_cast<int32_t>(std::size(kNegativeLayouts));
        return known ? kNegativeLayouts[layout.negative] : "";
    }
    if (layout.after) return layout.space ? "A S" : "AS";
    return layout.space ? "S A" : "SA";
}

void FMTApplyCurrency(const char* amount, const FMTCurrencyLayout& layout, char* output) {
    const bool negative = amount[0] == '-';
    if (negative) ++amount;
    for (const char* element = FMTCurrencyElements(layout, negative); *element != 0; ++element) {
        switch (*element) {
            case 'A': output = Append(output, amount); break;
            case 'S': output = Append(output, layout.symbol); break;
            default: *output++ = *element; break;
        }
    }
    *output = 0;
}

void FMTStripCurrency(const char* source, const char* symbol, char* output, bool after) {
    std::memcpy(output, source, std::strlen(source) + 1);
    IntlStrStripSpace(output);
    const bool negative = TakeMinus(output) || TakeParentheses(output);
    if (after) {
        TakeSymbolAtEnd(output, symbol);
    } else {
        TakeSymbolAtFront(output, symbol);
    }
    if (!negative) return;
    TakeSymbolAtEnd(output, symbol);  // on the far side of the sign
    std::memmove(output + 1, output, std::strlen(output) + 1);
    output[0] = '-';
}
