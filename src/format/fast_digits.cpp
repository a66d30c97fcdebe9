#include "fast_digits.h"

#include "../number/number_codec.h"

namespace {

constexpr uint64_t kEachByte = 0x0101010101010101;
constexpr uint64_t kEachWord = 0x0001000100010001;
constexpr uint64_t kHighBits = 0x80 * kEachByte;
constexpr int32_t kPairsInWord = 8;
constexpr int32_t kFirstPair = 2;  // behind the length and the head

// Bytes of a Number as an integer, the first one lowest.
uint64_t LoadBytes(const Number& value, int32_t first, int32_t count) {
    uint64_t bytes = 0;
    for (int32_t i = 0; i < count; ++i) bytes |= uint64_t{value.bytes[first + i]} << 8 * i;
    return bytes;
}

// The bytes above a limit below 128, as a mask of high bits.
uint64_t BytesAbove(uint64_t bytes, uint64_t limit) {
    return (((bytes & ~kHighBits) + (127 - limit) * kEachByte) | bytes) & kHighBits;
}

// The first bytes of eight, zeros in the place of the others.
uint64_t KeepBytes(uint64_t bytes, int32_t count) {
    return count >= kPairsInWord ? bytes : bytes & ((uint64_t{1} << (8 * count)) - 1);
}

// The pairs of stored bytes: of a negative value each byte is 100 less the pair. Notes bytes that no operation writes.
uint64_t PlainPairs(uint64_t stored, int32_t count, bool negative, uint64_t* unsound) {
    const uint64_t kept = KeepBytes(stored, count);
    const uint64_t pairs = negative ? KeepBytes(100 * kEachByte - kept, count) : kept;
    *unsound |= BytesAbove(kept, 100) | BytesAbove(pairs, 99);
    return pairs;
}

// Four pairs, each in a word of its own, as two digits each: the tens in the low byte.
uint64_t DigitsOfWords(uint64_t pairs) {
    const uint64_t tens = (pairs * 103 >> 10) & (0x0F * kEachWord);  // x * 103 / 1024 is x / 10 up to 178
    return tens | (pairs - 10 * tens) << 8;
}

// Puts two words of 16 bits into the even places of four.
uint64_t Spread(uint64_t words) {
    return (words | words << 16) & 0x0000FFFF0000FFFF;
}

// Eight pairs, 0 to 99 each, as sixteen digits.
inline void WritePairs(uint64_t pairs, uint64_t* text) {
    const uint64_t even = DigitsOfWords(pairs & 0x00FF00FF00FF00FF);
    const uint64_t odd = DigitsOfWords(pairs >> 8 & 0x00FF00FF00FF00FF);
    text[0] = (Spread(even & 0xFFFFFFFF) | Spread(odd & 0xFFFFFFFF) << 16) + '0' * kEachByte;
    text[1] = (Spread(even >> 32) | Spread(odd >> 32) << 16) + '0' * kEachByte;
}

void StoreText(char* to, uint64_t text) {
    for (int32_t at = 0; at < 8; ++at) to[at] = static_cast<char>(text >> 8 * at);
}

}  // namespace

// Takes all pairs at once, since the processor can't foresee where a loop over the pairs of a value ends.
bool fast::Digits::Take(const Number& value) {
    const int32_t length = NumLength(&value);
    if (length == 0 || length > kNumMaxLength) return false;
    const uint8_t head = value.bytes[1];
    negative_ = (head & kNumPositive) == 0;
    const int32_t pairs = length - 1 - static_cast<int32_t>(negative_);
    if (pairs <= 0) {
        count_ = 0;
        return !negative_;
    }
    uint64_t unsound = 0;
    text_[2] = '0' * kEachByte;
    const uint64_t first = PlainPairs(LoadBytes(value, kFirstPair, kPairsInWord), pairs, negative_, &unsound);
    WritePairs(first, text_);
    if (pairs > kPairsInWord) {
        const uint64_t last = LoadBytes(value, kFirstPair + kPairsInWord, kNumMaxPairs - kPairsInWord);
        uint64_t text[2];
        WritePairs(PlainPairs(last, pairs - kPairsInWord, negative_, &unsound), text);
        text_[2] = text[0];
    }
    const int32_t exponent = (negative_ ? ~head : head) & 0x7F;
    const auto zero = static_cast<int32_t>((first & 0xFF) < 10);
    first_ = kFront + zero;
    count_ = 2 * pairs - zero;
    whole_ = 2 * (exponent - kNumExponentBias) - zero;
    return unsound == 0 && (first & 0xFF) != 0 && exponent >= kNumMinExponent && exponent <= kNumMaxExponent;
}

int32_t fast::Digits::Power() const {
    if (whole_ <= 0) return whole_ - 1;
    int32_t nines = 0;
    while (nines < whole_ && nines < count_ && At(nines) == '9') ++nines;
    const bool carries = nines == whole_ && nines < count_ && At(nines) >= '5';
    return whole_ - 1 + (carries ? 1 : 0);
}

bool fast::Digits::StreamOut(int32_t minWhole, int32_t places, DigitStream* stream) const {
    constexpr int32_t kInStream = 15;  // at least, behind a zero
    constexpr int32_t kMostZeros = 7;
    if (count_ == 0) {
        constexpr uint64_t kZeros = '0' * kEachByte;
        *stream = {kZeros, kZeros};
        return minWhole + places <= kInStream;
    }
    if (count_ > kInStream || whole_ + places < count_ || whole_ + places > kInStream) return false;
    *stream = {text_[0], text_[1]};
    stream->Drop(first_ - kFront);
    if (whole_ >= minWhole) return true;
    const int32_t zeros = minWhole - whole_;
    if (zeros > kMostZeros || minWhole + places > kInStream) return false;
    stream->PutZeros(zeros);
    return true;
}

bool fast::Digits::Percent() {
    if (count_ == 0) return true;
    whole_ += 2;
    return whole_ <= 2 * (kNumMaxExponent - kNumExponentBias);
}

void fast::Digits::Round(int32_t places) {
    if (count_ == 0) return;
    for (int32_t word = 0; word < 3; ++word) StoreText(room_ + kFront + ptrdiff_t{8} * word, text_[word]);
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

char* fast::AppendWhole(char* out, const char* digits, int32_t count, char thousand) {
    constexpr int32_t kGroup = 3;
    if (thousand == 0 || count <= kGroup) return CopyShort(out, digits, count);
    const int32_t rest = count % kGroup;
    const int32_t head = rest == 0 ? kGroup : rest;
    out = CopyShort(out, digits, head);
    for (const char* group = digits + head; group != digits + count; group += kGroup) {
        *out = thousand;
        std::memcpy(out + 1, group, kGroup);
        out += 1 + kGroup;
    }
    return out;
}
