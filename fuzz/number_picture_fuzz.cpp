// Raw pictures through the picture operations, under raw regions.
//
// Input: a letter, J for Japanese; group separator; decimal separator; currency position and negative layout, each as a
// letter from "@" on; the currency symbol up to a byte 0x1F; the picture.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <morvl15/format.h>
#include <morvl15/host_native.h>
#include <morvl15/intl.h>

#include "format/picture_tokens.h"

namespace {

constexpr size_t kHead = 5;
constexpr char kSymbolEnd = 0x1F;

void Require(bool holds) {
    if (!holds) std::abort();
}

void UseLanguage(bool japanese) {
    static int32_t inForce = -1;
    if (inForce == static_cast<int32_t>(japanese)) return;
    inForce = static_cast<int32_t>(japanese);
    const LANGID language = japanese ? 0x0411 : 0x0409;
    HostSetLanguages(language, language);
    IntlInit();
}

using Conversion = int32_t(MORVL_CALL*)(FMTCntlBlock*);

// The result in a buffer of exactly the longest picture; empty when the conversion failed.
std::string Convert(Conversion conversion, FMTCntlBlock block, const std::string& picture) {
    const std::unique_ptr<char[]> output(new char[64]);
    std::memset(output.get(), 'x', 64);
    block.Picture = picture.c_str();
    block.Output = output.get();
    const int32_t result = conversion(&block);
    Require(result == 0 || result == 1);
    Require(std::memchr(output.get(), 0, 64) != nullptr);
    Require(result == 1 || *output.get() == 0);
    return output.get();
}

int32_t IsValid(FMTCntlBlock block, const std::string& picture) {
    block.Picture = picture.c_str();
    block.Output = nullptr;
    return FMTIsNumberPicValid(&block);
}

int32_t IsSciPicByDefinition(const std::string& picture) {
    if (picture.empty() || picture[0] != '0') return 0;
    return IntlStrScan(picture.c_str(), "0.%E_0%") == 0 || IntlStrScan(picture.c_str(), "0.%e_0%") == 0 ? 1 : 0;
}

void TryPicture(const FMTCntlBlock& block, const std::string& picture) {
    const std::string tokens = Convert(FMTTokenizeNumberPic, block, picture);
    const std::string text = Convert(FMTUnTokenizeNumberPic, block, picture);
    Convert(FMTCnvOldNumberPic, block, picture);
    Convert(FMTUnTokenizeNumberPic, block, tokens);
    Convert(FMTTokenizeNumberPic, block, text);

    Require(FMTIsNumberPicTokenized(picture.c_str()) == (picture.find(kTokenRunStart) != std::string::npos ? 1 : 0));
    Require(FMTIsSciPic(picture.c_str()) == IsSciPicByDefinition(picture));
    const int32_t valid = IsValid(block, picture);
    if (picture.size() > 63) Require(valid == 0 && tokens.empty() && text.empty());
    if (FMTIsSciPic(picture.c_str()) != 0 && valid == 1) Require(tokens == picture && text == picture);
    IsValid(block, tokens);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < kHead) return 0;
    UseLanguage(data[0] == 'J');
    const std::string rest(reinterpret_cast<const char*>(data) + kHead, size - kHead);
    const size_t symbolEnd = std::min(rest.find(kSymbolEnd), rest.size());
    const std::string symbol = rest.substr(0, symbolEnd).c_str();
    const std::string picture = symbolEnd < rest.size() ? rest.substr(symbolEnd + 1).c_str() : "";

    FMTCntlBlock block = {};
    FMTInitCntlBlock(&block);
    block.ThousandSep = static_cast<char>(data[1]);
    block.DecimalSep = static_cast<char>(data[2]);
    block.CurrencyPos = static_cast<int8_t>(data[3]) - '@';
    block.NegCurrency = static_cast<int8_t>(data[4]) - '@';
    block.Currency = symbol.c_str();
    TryPicture(block, picture);
    block.UseProfile = 1;
    TryPicture(block, picture);
    return 0;
}
