#include "fast_parse.h"

#include <algorithm>
#include <array>

#include "../intl/character.h"
#include "../number/number_codec.h"

namespace {

constexpr int32_t kGroup = 3;

// What a byte that is neither a digit nor a separator says about a text.
enum ByteKind : uint8_t { kRefused, kUnclear };

constexpr std::array<ByteKind, 256> kKinds = [] {
    std::array<ByteKind, 256> kinds = {};
    for (const char byte : {' ', '\t', '\n', '\v', '\f', '\r', '+', '-', '.', 'e', 'E'}) {
        kinds[static_cast<uint8_t>(byte)] = kUnclear;
    }
    for (size_t byte = 0x80; byte < 0x100; ++byte) kinds[byte] = kUnclear;
    return kinds;
}();

fast::Outcome OutcomeOf(char byte) {
    return kKinds[static_cast<uint8_t>(byte)] == kUnclear ? fast::Outcome::kDeclined : fast::Outcome::kRejected;
}

bool IsSign(char byte) {
    return byte == '+' || byte == '-';
}

// Separators that are no part of a number otherwise.
bool IsUsualSeparator(char separator) {
    if (separator == 0 || separator == '.' || separator == ' ') return true;
    const auto byte = static_cast<uint8_t>(separator);
    return byte < 0x80 && kKinds[byte] == kRefused && (byte < '0' || byte > '9');
}

// Counts the digits between group separators, from the left: one to three first, then three each time. No digit at all
// may stand before the first separator.
class GroupCount {
  public:
    void Digit() { ++length_; }
    bool Separator() {
        const bool sound = seen_ ? length_ == kGroup : length_ <= kGroup;
        seen_ = true;
        length_ = 0;
        return sound;
    }
    bool End() const { return !seen_ || length_ == kGroup; }

  private:
    bool seen_ = false;
    int32_t length_ = 0;
};

// Takes white space off both ends, as far as it is ASCII.
std::string_view TrimSpace(std::string_view text) {
    while (!text.empty() && IntlIsSpaceByte(text.front())) text.remove_prefix(1);
    while (!text.empty() && IntlIsSpaceByte(text.back())) text.remove_suffix(1);
    return text;
}

bool HoldsMinus(std::string_view text) {
    return text.find('-') != std::string_view::npos;
}

// Takes the one minus at either end, or parentheses round the whole text.
bool TakeNegative(std::string_view* text) {
    if (text->empty()) return false;
    if (text->front() == '-' && !HoldsMinus(text->substr(1))) {
        text->remove_prefix(1);
        return true;
    }
    if (text->back() == '-' && !HoldsMinus(text->substr(0, text->size() - 1))) {
        text->remove_suffix(1);
        return true;
    }
    if (text->front() != '(' || text->back() != ')') return false;
    text->remove_prefix(1);
    text->remove_suffix(1);
    return true;
}

void TakeSuffix(std::string_view* text, std::string_view suffix) {
    if (text->ends_with(suffix)) text->remove_suffix(suffix.size());
}

// Takes the currency layout off a text: symbol, minus and parentheses.
fast::Outcome ReadAmount(std::string_view text, const FMTNumberForm& form, fast::ParsedNumber* number) {
    const std::string_view symbol = form.symbol;
    text = TrimSpace(text);
    const bool negative = TakeNegative(&text);
    if (form.after) {
        TakeSuffix(&text, symbol);
    } else if (text.starts_with(symbol)) {
        text.remove_prefix(symbol.size());
    }
    if (negative) TakeSuffix(&text, symbol);
    return number->Read(text, form.separators, negative);
}

}  // namespace

bool fast::IsUnusualText(std::string_view text) {
    if (text.size() >= kLocalTextSize) return true;
    if (gIntlDBCS == 0) return false;
    return std::any_of(text.begin(), text.end(), [](char byte) { return static_cast<uint8_t>(byte) >= 0x80; });
}

fast::Outcome fast::ParsedNumber::ReadDigits(std::string_view text, FMTSeparators separators) {
    GroupCount groups;
    int32_t position = 0;  // digits before the point so far, or all of them once it has come
    int32_t pointAt = -1;
    count_ = 0;
    int32_t leadingZeros = 0;
    for (const char byte : text) {
        const auto digit = static_cast<uint8_t>(byte - '0');
        if (digit <= 9) {
            groups.Digit();
            ++position;
            if (count_ == 0 && digit == 0) {
                ++leadingZeros;
            } else if (count_ == kMaxDigits) {
                return Outcome::kDeclined;
            } else {
                digits_[count_++] = static_cast<char>(digit);
            }
        } else if (byte == separators.decimal && byte != 0) {
            if (pointAt >= 0 || !groups.End()) return Outcome::kRejected;
            pointAt = position;
        } else if (byte == separators.thousand && byte != 0) {
            if (pointAt >= 0 || !groups.Separator()) return Outcome::kRejected;
        } else {
            return OutcomeOf(byte);
        }
    }
    if (pointAt < 0) {
        if (!groups.End()) return Outcome::kRejected;
        pointAt = position;
    }
    whole_ = pointAt - leadingZeros;
    return Outcome::kAccepted;
}

fast::Outcome fast::ParsedNumber::Read(std::string_view text, FMTSeparators separators, bool negative) {
    if (!IsUsualSeparator(separators.thousand) || !IsUsualSeparator(separators.decimal)) return Outcome::kDeclined;
    if (separators.decimal == ' ' || (separators.decimal != 0 && separators.decimal == separators.thousand)) {
        return Outcome::kDeclined;
    }
    negative_ = negative;
    wasNegative_ = true;
    if (negative) {
        while (!text.empty() && IntlIsSpaceByte(text.back())) text.remove_suffix(1);
        return ReadDigits(text, separators);
    }
    text = TrimSpace(text);
    if (!text.empty()) {
        if (IsSign(text.front())) {
            negative_ = text.front() == '-';
            text.remove_prefix(1);
        } else if (IsSign(text.back())) {
            negative_ = text.back() == '-';
            text.remove_suffix(1);
        }
    }
    wasNegative_ = negative_;
    return ReadDigits(text, separators);
}

bool fast::ParsedNumber::Store(Number* value) const {
    if (count_ == 0) {
        NumPackZero(value);
        return true;
    }
    const bool odd = whole_ % 2 != 0;
    const int32_t exponent = kNumExponentBias + (whole_ + (odd ? 1 : 0)) / 2;
    const int32_t pairs = (count_ + (odd ? 2 : 1)) / 2;
    const int32_t maxPairs = wasNegative_ ? kNumMaxNegativePairs : kNumMaxPairs;
    if (pairs > maxPairs || exponent < kNumMinExponent || exponent > kNumMaxExponent) return false;
    uint8_t packed[kNumMaxPairs + 1];
    int32_t at = 0;
    int32_t pair = 0;
    if (odd) packed[pair++] = static_cast<uint8_t>(digits_[at++]);
    for (; at + 1 < count_; at += 2) packed[pair++] = static_cast<uint8_t>(10 * digits_[at] + digits_[at + 1]);
    if (at < count_) packed[pair++] = static_cast<uint8_t>(10 * digits_[at]);
    NumPack(value, packed, pair, negative_, exponent);
    return true;
}

bool fast::ParsedNumber::WriteText(char* text) const {
    constexpr int32_t kSafeLength = kNumberTextWidth - 2;
    int32_t count = count_;
    if (count - whole_ >= kSafeLength) return false;
    while (count > 0 && digits_[count - 1] == 0) --count;
    if (count == 0) {
        text[0] = '0';
        text[1] = 0;
        return true;
    }
    if (negative_) *text++ = '-';
    for (int32_t at = 0; at < whole_; ++at) *text++ = static_cast<char>('0' + (at < count ? digits_[at] : 0));
    if (whole_ < count) *text++ = '.';
    for (int32_t at = whole_; at < 0; ++at) *text++ = '0';
    for (int32_t at = std::max(whole_, 0); at < count; ++at) *text++ = static_cast<char>('0' + digits_[at]);
    *text = 0;
    return true;
}

fast::Outcome fast::ParseNumberText(const char* text, const FMTNumberForm& form, Number* value) {
    if (IsUnusualText(text)) return Outcome::kDeclined;
    ParsedNumber number;
    const Outcome outcome = form.symbol != nullptr ? ReadAmount(text, form, &number)  //
                                                   : number.Read(text, form.separators, false);
    if (outcome != Outcome::kAccepted) return outcome;
    return number.Store(value) ? Outcome::kAccepted : Outcome::kDeclined;
}
