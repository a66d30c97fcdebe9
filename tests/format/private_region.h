// Control blocks with a region of their own.
#pragma once

#include <cstring>

#include <morvl15/format.h>

struct TestRegion {
    char thousand = ',';
    char decimal = '.';
    const char* currency = "$";
    int32_t position = 0;
    int32_t negLayout = 0;
};

// A number operation's block under the region, or under the profile.
inline FMTCntlBlock BlockOf(const TestRegion& region) {
    FMTCntlBlock block;
    std::memset(&block, 0xA5, sizeof block);
    FMTInitCntlBlock(&block);
    block.ThousandSep = region.thousand;
    block.DecimalSep = region.decimal;
    block.Currency = region.currency;
    block.CurrencyPos = region.position;
    block.NegCurrency = region.negLayout;
    block.Digits = 2;
    return block;
}

inline FMTCntlBlock BlockOfProfile() {
    FMTCntlBlock block = BlockOf({});
    block.UseProfile = 1;
    return block;
}
