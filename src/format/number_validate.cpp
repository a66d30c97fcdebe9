// FMTValidateNumber: free-form number text under the regional conventions.
#include "currency_layout.h"
#include "fast_number.h"
#include "number_parse.h"

#include <algorithm>

#include <morvl15/intl.h>

namespace {

uint16_t CodeOf(char c) {
    return static_cast<unsigned char>(c);
}

void DeleteByte(char* at) {
    std::memmove(at, at + 1, std::strlen(at));
}

void ReverseText(char* text) {
    std::reverse(text, text + std::strlen(text));
}

// Takes one sign off either end, the leading one first. True for a minus.
bool TakeSign(char* text) {
    if (text[0] == '+' || text[0] == '-') {
        const bool negative = text[0] == '-';
        DeleteByte(text);
        return negative;
    }
    const int16_t last = IntlStrLastChar(text);
    if (last != '+' && last != '-') return false;
    text[std::strlen(text) - 1] = 0;
    return last == '-';
}

// One decimal separator at most, and no group separator behind it.
bool HasSoundDecimal(const char* text, FMTSeparators separators) {
    if (separators.decimal == 0) return true;
    const char* decimal = IntlStrChr(text, CodeOf(separators.decimal));
    if (decimal == nullptr) return true;
    if (IntlStrChr(decimal + 1, CodeOf(separators.decimal)) != nullptr) return false;
    return separators.thousand == 0 || IntlStrChr(decimal + 1, CodeOf(separators.thousand)) == nullptr;
}

// Deletes the group separators of the whole part, counted from its end: each has three bytes behind it, and three at
// most are left in front of the first. False if one stands where none belongs.
bool TakeGroups(char* text, FMTSeparators separators) {
    constexpr std::ptrdiff_t kGroup = 3;
    const uint16_t thousand = CodeOf(separators.thousand);
    if (separators.thousand == 0 || IntlStrChr(text, thousand) == nullptr) return true;
    ReverseText(text);
    char* kept = text;
    if (separators.decimal != 0) {
        const char* decimal = IntlStrChr(text, CodeOf(separators.decimal));
        if (decimal != nullptr) kept = text + (decimal - text) + 1;
    }
    const char* stretch = kept;
    for (const char* group = IntlStrChr(stretch, thousand); group != nullptr; group = IntlStrChr(stretch, thousand)) {
        if (group - stretch != kGroup) return false;
        std::memmove(kept, stretch, kGroup);
        kept += kGroup;
        stretch = group + 1;
    }
    const size_t rest = std::strlen(stretch);
    if (rest > static_cast<size_t>(kGroup)) return false;
    std::memmove(kept, stretch, rest + 1);
    ReverseText(text);
    return true;
}

void SetPoint(char* text, char decimal) {
    if (decimal == 0 || decimal == '.') return;
    char* found = IntlStrChr(text, CodeOf(decimal));
    if (found != nullptr) *found = '.';
}

// Digits and points, then perhaps an exponent, whose digits may be missing.
bool IsPlainNumber(const char* text) {
    text += std::strspn(text, ".0123456789");
    if (*text == 0) return true;
    if (*text != 'e' && *text != 'E') return false;
    ++text;
    if (*text == '+' || *text == '-') ++text;
    return text[std::strspn(text, "0123456789")] == 0;
}

bool HoldsOnlyZeros(const char* text) {
    return text[std::strspn(text, ".0")] == 0;
}

// Reads text that stands in work space of its own.
int32_t ParseInPlace(char* text, FMTSeparators separators, Number* value) {
    IntlStrStripSpace(text);
    const bool negative = TakeSign(text);
    if (!HasSoundDecimal(text, separators) || !TakeGroups(text, separators)) return 0;
    SetPoint(text, separators.decimal);
    if (!IsPlainNumber(text)) return 0;
    if (HoldsOnlyZeros(text)) {
        NumWordToNumber(value, 0);
        return 1;
    }
    if (NumAsciiToNumber(value, text) <= 0) return 0;
    if (negative) NumNegate(value);
    return 1;
}

}  // namespace

int32_t plain::ParseNumberText(const char* text, const FMTNumberForm& form, Number* value) {
    if (text[0] == 0) return 0;
    const size_t size = std::strlen(text) + 1;
    const FMTScratchText copy(size);
    if (copy.Text() == nullptr) return 0;
    if (form.symbol != nullptr) {
        FMTStripCurrency(text, form.symbol, copy.Text(), form.after);
    } else {
        std::memcpy(copy.Text(), text, size);
    }
    return ParseInPlace(copy.Text(), form.separators, value);
}

int32_t FMTParseNumberText(const char* text, const FMTNumberForm& form, Number* value) {
    if (text[0] == 0) return 0;
    switch (fast::ParseNumberText(text, form, value)) {
        case fast::Outcome::kAccepted: return 1;
        case fast::Outcome::kRejected: return 0;
        default: return plain::ParseNumberText(text, form, value);
    }
}

int32_t MORVL_CALL FMTValidateNumber(FMTCntlBlock* block) {
    if (block == nullptr || (block->Flags & kFlagUsable) == 0 || block->Input == nullptr) return 0;
    if (block->Type != kTypeNumber && block->Type != kTypeCurrency) return 0;
    const FMTRegion region(block);
    const FMTNumberForm form = block->Type == kTypeCurrency ? FMTAmountForm(region) : FMTPlainForm(region);
    return FMTParseNumberText(block->Input, form, &block->Value);
}
