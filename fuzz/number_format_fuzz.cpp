// Raw Numbers through raw pictures and layouts, under private settings: the text ends inside the buffer, and the bound
// on its length can be asked for any picture.
#include <morvl15/format.h>

#include "input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t kHead = 20;
    if (size < kHead || size > 400) return 0;
    SetLanguage((data[0] & 0x80) != 0 ? 0x0411 : 0x0409);
    const auto [picture, currency] = SplitAt('\0', data + kHead, size - kHead);

    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = 3 + data[0] % 5;
    block.Flags ^= (data[1] & 1) != 0 ? 8u : 0u;  // every digit
    block.ThousandSep = static_cast<char>(data[2]);
    block.DecimalSep = static_cast<char>(data[3]);
    block.Digits = data[4] % 90 - 5;
    block.LeadingZero = data[1] & 2;
    block.CurrencyPos = data[5] % 6 - 1;
    block.NegCurrency = data[6] % 13 - 1;
    block.Currency = (data[1] & 4) != 0 ? nullptr : currency.c_str();
    block.Picture = picture.c_str();
    std::memcpy(&block.Value, data + 7, sizeof block.Value);

    // No layout shows more than the digits of the value and of the places, their groups, and the literals twice.
    Room output(1024 + 2 * size);
    block.Output = output;
    FMTFormatNumber(&block);
    const int32_t floor = data[5];
    Require(FMTGetMaxFormattedNumLen(picture.c_str(), data[4], floor) >= floor);
    return 0;
}
