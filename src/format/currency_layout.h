// Amounts with a currency symbol: the layout of the settings put round an amount, and taken off again.
#pragma once

#include "region.h"

// How a region writes amounts.
struct FMTCurrencyLayout {
    const char* symbol;  // never null, may be empty
    bool after;          // the symbol follows the amount
    bool space;          // a blank stands between them
    int32_t negative;    // 0 to 10, the layout of a negative amount; any other shows nothing
};

// What stands where in an amount: A for the digits, S for the symbol, any other character for itself.
const char* FMTCurrencyElements(const FMTCurrencyLayout& layout, bool negative);

// Puts symbol and signs round an amount in plain digits, which begins with "-" if it is negative.
//   output  out: room for the amount, the symbol and 3 bytes
void FMTApplyCurrency(const char* amount, const FMTCurrencyLayout& layout, char* output);

FMTCurrencyLayout FMTCurrencyLayoutOf(const FMTRegion& region);

// Takes symbol, minus and parentheses off a text, and puts "-" in front if it was a negative amount.
//   output  out: room for the source and the terminator
void FMTStripCurrency(const char* source, const char* symbol, char* output, bool after);
