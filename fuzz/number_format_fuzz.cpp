// Raw Numbers through raw pictures and layouts, under private settings: the text ends inside the buffer, and the bound
// on its length can be asked for any picture.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include <morvl15/format.h>
#include <morvl15/host_native.h>
#include <morvl15/intl.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t kHead = 20;
    if (size < kHead || size > 400) return 0;
    HostSetLanguages((data[0] & 0x80) != 0 ? 0x0411 : 0x0409, 0x0409);
    IntlInit();

    const std::string rest(reinterpret_cast<const char*>(data) + kHead, size - kHead);
    const std::string picture = rest.c_str();
    const std::string currency = rest.size() > picture.size() ? rest.substr(picture.size() + 1).c_str() : "$";

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
    const size_t room = 1024 + 2 * rest.size();
    std::string output(room, '\x5A');
    block.Output = output.data();
    if (FMTFormatNumber(&block) && std::memchr(output.data(), 0, room) == nullptr) std::abort();

    const int32_t floor = data[5];
    if (FMTGetMaxFormattedNumLen(picture.c_str(), data[4], floor) < floor) std::abort();
    return 0;
}
