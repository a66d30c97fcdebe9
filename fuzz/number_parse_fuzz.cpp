// Raw text read back as a number, free and by a raw picture: the result is 0 or 1, and what was read by a picture
// stands in Output as plain digits that are a number.
#include <morvl15/format.h>

#include "input.h"

namespace {

FMTCntlBlock Block(const uint8_t* head) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = 4 + (head[0] & 1);
    block.ThousandSep = static_cast<char>(head[1]);
    block.DecimalSep = static_cast<char>(head[2]);
    block.CurrencyPos = head[3] % 5;
    block.NegCurrency = head[4] % 12;
    block.Currency = "DM";
    return block;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t kHead = 5;
    if (size < kHead || size > 1000) return 0;
    SetLanguage((data[0] & 0x80) != 0 ? 0x0411 : 0x0409);
    const auto [picture, text] = SplitAt('\n', data + kHead, size - kHead);

    FMTCntlBlock block = Block(data);
    block.Input = text.c_str();
    const int32_t valid = FMTValidateNumber(&block);
    Require(valid == 0 || valid == 1);

    FMTCntlBlock byPicture = Block(data);
    Room output(std::max<size_t>(text.size(), 108) + 1);
    byPicture.Input = text.c_str();
    byPicture.Picture = picture.c_str();
    byPicture.Output = output;
    if (FMTUnformatNumberStr(&byPicture)) {
        Number read{};
        Require(*output == 0 || NumAsciiToNumber(&read, output) > 0);
    }
    FMTStrToNumber(&block);
    return 0;
}
