// Raw pictures through the picture operations, under raw regions.
//
// Input: the language; group and decimal separator; currency position; negative layout; the symbol; the picture.
#include <morvl15/format.h>

#include "format/picture_tokens.h"
#include "input.h"

namespace {

using Conversion = int32_t(MORVL_CALL*)(FMTCntlBlock*);

// Into a buffer of exactly the longest picture; the result is empty when the conversion failed.
std::string Convert(Conversion conversion, FMTCntlBlock block, const std::string& picture) {
    Room output(64);
    block.Picture = picture.c_str();
    block.Output = output;
    const int32_t result = conversion(&block);
    Require(result == 0 || result == 1);
    Require(std::memchr(output, 0, 64) != nullptr);
    Require(result == 1 || *block.Output == 0);
    return block.Output;
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
    Input input(data, size);
    input.TakeLanguage();
    FMTCntlBlock block = {};
    FMTInitCntlBlock(&block);
    block.ThousandSep = static_cast<char>(input.TakeByte());
    block.DecimalSep = static_cast<char>(input.TakeByte());
    block.CurrencyPos = input.TakeNumber();
    block.NegCurrency = input.TakeNumber();
    const Room symbol = input.TakeText();
    const Room picture = input.TakeText();
    block.Currency = symbol;
    TryPicture(block, static_cast<const char*>(picture));
    block.UseProfile = 1;
    TryPicture(block, static_cast<const char*>(picture));
    return 0;
}
