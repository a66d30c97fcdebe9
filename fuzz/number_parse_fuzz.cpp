// Raw text read back as a number, free and by a raw picture: the result is 0 or 1, and what was read by a picture
// stands in Output as plain digits that are a number.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include <morvl15/format.h>
#include <morvl15/host_native.h>
#include <morvl15/intl.h>

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
    HostSetLanguages((data[0] & 0x80) != 0 ? 0x0411 : 0x0409, 0x0409);
    IntlInit();

    const std::string rest(reinterpret_cast<const char*>(data) + kHead, size - kHead);
    const std::string picture = rest.substr(0, rest.find('\n')).c_str();
    const std::string text = rest.size() > picture.size() ? rest.substr(picture.size() + 1).c_str() : rest.c_str();

    FMTCntlBlock block = Block(data);
    block.Input = text.c_str();
    const int32_t valid = FMTValidateNumber(&block);
    if (valid != 0 && valid != 1) std::abort();

    FMTCntlBlock byPicture = Block(data);
    std::string output(std::max<size_t>(text.size(), 108) + 1, '\x5A');
    byPicture.Input = text.c_str();
    byPicture.Picture = picture.c_str();
    byPicture.Output = output.data();
    if (FMTUnformatNumberStr(&byPicture)) {
        Number read{};
        const std::string plain = output.c_str();
        if (!plain.empty() && NumAsciiToNumber(&read, plain.c_str()) <= 0) std::abort();
    }
    FMTStrToNumber(&block);
    return 0;
}
