// FMTFormatNumber: the choice between the layouts of the settings and a picture, and the layouts.
#include "number_format.h"

#include <algorithm>

#include "currency_layout.h"
#include "fast_number.h"
#include "number_fixed.h"
#include "picture_tokens.h"

namespace {

// Writes the value as plain text and tells how many decimal places the text has.
bool WriteValue(const FMTCntlBlock& block, int32_t settingsPlaces, char* text, int32_t* places) {
    const Number value = block.Value;
    if ((block.Flags & kFlagEveryDigit) == 0) {
        *places = settingsPlaces;
        return FMTNumToFixed(value, settingsPlaces, text);
    }
    if (!FMTWriteNumber(value, text)) return false;
    const char* point = std::strchr(text, '.');
    *places = point != nullptr ? static_cast<int32_t>(std::strlen(point + 1)) : 0;
    return true;
}

// ".5" becomes "0.5", and "-.5" becomes "-0.5".
void AddLeadingZero(char* text) {
    if (*text == '-') ++text;
    if (*text != '.') return;
    std::memmove(text + 1, text, std::strlen(text) + 1);
    *text = '0';
}

void SetDecimalSeparator(char* text, char decimal) {
    char* point = std::strchr(text, '.');
    if (point != nullptr) *point = decimal;
}

// Puts the separator between groups of three digits. The fraction, as many characters as there are places and one more,
// stays as it is. Works from the last character to the first and turns the result round at the end.
void GroupDigits(char* text, int32_t places, char thousand, char* work) {
    const size_t length = std::strlen(text);
    const size_t fraction = places > 0 ? std::min(length, static_cast<size_t>(places) + 1) : 0;
    char* out = work;
    size_t left = length;
    for (; left > length - fraction; --left) *out++ = text[left - 1];
    while (left > 3) {
        for (int digit = 0; digit < 3; ++digit) *out++ = text[--left];
        if (text[left - 1] != '-') *out++ = thousand;
    }
    for (; left > 0; --left) *out++ = text[left - 1];
    std::reverse_copy(work, out, text);
    text[out - work] = 0;
}

// The layouts of the settings. The text grows in output step by step.
int32_t FormatByLayout(const FMTRegion& region, const FMTCntlBlock& block, bool isCurrency) {
    char* output = block.Output;
    output[0] = 0;
    int32_t places = 0;
    if (!WriteValue(block, isCurrency ? region.CurrencyDigits() : region.NumberDigits(), output, &places)) return 0;
    if (output[0] == 0) return 1;

    const size_t length = std::strlen(output);
    const FMTScratchText work(length + length / 3 + 7 + (isCurrency ? std::strlen(region.Currency()) : 0));
    if (work.Text() == nullptr) {
        output[0] = 0;
        return 0;
    }
    if (region.LeadingZero() != 0) AddLeadingZero(output);
    if (places > 0) SetDecimalSeparator(output, region.DecimalSep());
    if (region.ThousandSep() != 0) GroupDigits(output, places, region.ThousandSep(), work.Text());
    if (isCurrency) {
        FMTApplyCurrency(output, FMTCurrencyLayoutOf(region), work.Text());
        std::memcpy(output, work.Text(), std::strlen(work.Text()) + 1);
    }
    return 1;
}

int32_t FormatByPicture(const FMTRegion& region, const FMTCntlBlock& block) {
    char buffer[kPictureSize];
    const char* picture = FMTPictureText(region, block.Picture, buffer);
    if (picture == nullptr) {
        block.Output[0] = 0;
        return 0;
    }
    return FMTFormatNumberPic(block.Output, picture, FMTSeparatorsOf(region), block.Value);
}

}  // namespace

int32_t plain::FormatNumber(const FMTCntlBlock* block) {
    if (block == nullptr || (block->Flags & kFlagUsable) == 0 || block->Output == nullptr) return 0;
    const FMTRegion region(block);
    switch (FMTSettleType(*block)) {
        case kTypeNumber: return FormatByLayout(region, *block, false);
        case kTypeCurrency: return FormatByLayout(region, *block, true);
        case kTypePicture: return block->Picture != nullptr ? FormatByPicture(region, *block) : 0;
        default: return 0;
    }
}

int32_t MORVL_CALL FMTFormatNumber(FMTCntlBlock* block) {
    if (block != nullptr && fast::FormatNumber(*block)) return 1;
    return plain::FormatNumber(block);
}
