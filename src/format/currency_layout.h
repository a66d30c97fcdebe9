// Amounts with a currency symbol: the layout of the settings put round an amount, and taken off again.
#pragma once

#include <cstdint>

// How a region writes amounts.
struct FMTCurrencyLayout {
    const char* symbol;  // never null, may be empty
    bool after;          // the symbol follows the amount
    bool space;          // a blank stands between them
    int32_t negative;    // 0 to 10, the layout of a negative amount; any other shows nothing
};

// Puts symbol and signs round an amount in plain digits, which begins with "-" if it is negative.
//   output  out: room for the amount, the symbol and 3 bytes
void FMTApplyCurrency(const char* amount, const FMTCurrencyLayout& layout, char* output);

// Takes symbol, minus and parentheses off a text, and puts "-" in front if it was a negative amount.
//   output  out: room for the source and the terminator
void FMTStripCurrency(const char* source, const char* symbol, char* output, bool after);
