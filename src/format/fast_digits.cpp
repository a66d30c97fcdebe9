#include "fast_digits.h"

#include <array>

#include "../number/number_codec.h"

namespace {

struct PairText {
    char text[2];
};

constexpr std::array<PairText, 100> kPairTexts = [] {
    std::array<PairText, 100> texts = {};
    for (int pair = 0; pair < 100; ++pair) {
        texts[static_cast<size_t>(pair)] = {{static_cast<char>('0' + pair / 10), static_cast<char>('0' + pair % 10)}};
    }
    return texts;
}();

}  // namespace

bool fast::Digits::Take(const Number& value) {
    const int32_t length = NumLength(&value);
    if (length == 0 || length > kNumMaxLength) return false;
    const uint8_t head = value.bytes[1];
    negative_ = (head & kNumPositive) == 0;
    const int32_t pairs = length - (negative_ ? 2 : 1);
    if (pairs <= 0) {
        count_ = 0;
        return !negative_;
    }
    const int32_t exponent = (negative_ ? ~head : head) & 0x7F;
    first_ = kFront;
    bool sound = exponent >= kNumMinExponent && exponent <= kNumMaxExponent;
    char* text = room_ + kFront;
    for (int32_t i = 0; i < pairs; ++i, text += 2) {
        const uint8_t byte = value.bytes[2 + i];
        const auto pair = static_cast<uint8_t>(negative_ ? 100 - byte : byte);
        sound &= pair < 100;
        std::memcpy(text, kPairTexts[sound ? pair : 0].text, 2);
    }
    count_ = 2 * pairs;
    whole_ = 2 * (exponent - kNumExponentBias);
    if (room_[first_] == '0') {
        ++first_;
        --count_;
        --whole_;
    }
    return sound && room_[first_] != '0';
}

bool fast::Digits::Percent() {
    if (count_ == 0) return true;
    whole_ += 2;
    return whole_ <= 2 * (kNumMaxExponent - kNumExponentBias);
}

void fast::Digits::Round(int32_t places) {
    const int32_t kept = whole_ + places;
    if (kept >= count_) return;
    if (kept < 0) {
        count_ = 0;
        return;
    }
    const bool up = room_[first_ + kept] >= '5';
    count_ = kept;
    if (!up) return;
    int32_t at = first_ + kept - 1;
    while (at >= first_ && room_[at] == '9') --at;
    if (at >= first_) {
        ++room_[at];
        count_ = at + 1 - first_;
        return;
    }
    // All nines: a one in front of them, and nothing behind.
    --first_;
    room_[first_] = '1';
    count_ = 1;
    ++whole_;
}

char* fast::Digits::LayOut(int32_t minWhole, int32_t places) {
    if (count_ == 0) {
        first_ = kFront;
        whole_ = 0;
    }
    const int32_t wholeDigits = WholeDigits();
    const int32_t point = first_ + whole_;
    const int32_t start = point - (minWhole > wholeDigits ? minWhole : wholeDigits);
    const int32_t end = point + places;
    for (int32_t at = start; at < first_; ++at) room_[at] = '0';
    for (int32_t at = first_ + count_; at < end; ++at) room_[at] = '0';
    return room_ + start;
}

char* fast::AppendGrouped(char* out, const char* digits, int32_t count, char thousand) {
    constexpr int32_t kGroup = 3;
    if (thousand == 0 || count <= kGroup) return CopyShort(out, digits, count);
    const int32_t rest = count % kGroup;
    const int32_t head = rest == 0 ? kGroup : rest;
    std::memcpy(out, digits, kGroup);  // more follows, so that a byte or two too many do no harm
    out += head;
    for (const char* group = digits + head; group != digits + count; group += kGroup) {
        *out = thousand;
        std::memcpy(out + 1, group, kGroup);
        out += 1 + kGroup;
    }
    return out;
}
