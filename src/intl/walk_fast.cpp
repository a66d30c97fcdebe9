// The walks over blocks of bytes.
#include "walk.h"

#if defined(__SSE2__)

#include <algorithm>

#include "blocks.h"
#include "character.h"

namespace fast {

namespace {

// ---- bits ---------------------------------------------------------------------------------------------------------

constexpr uint64_t kEveryByte = 0x0101010101010101u;
constexpr uint64_t kHighBits = kEveryByte << 7;

// How many bits are set in each byte of a mask and in the bytes below it.
uint64_t CountUpToEachByte(uint64_t mask) {
    mask -= mask >> 1 & 0x5555555555555555u;
    mask = (mask & 0x3333333333333333u) + (mask >> 2 & 0x3333333333333333u);
    return ((mask + (mask >> 4)) & 0x0F0F0F0F0F0F0F0Fu) * kEveryByte;
}

// The same for the eight bits of a byte.
uint64_t CountUpToEachBit(uint64_t byte) {
    const uint64_t bits = byte * kEveryByte & 0x8040201008040201u;
    return ((bits + (kHighBits - kEveryByte)) >> 7 & kEveryByte) * kEveryByte;
}

// How many of eight ascending counts are n or less. All are below 128.
size_t CountsUpTo(uint64_t counts, size_t n) {
    const uint64_t passed = ((n * kEveryByte | kHighBits) - counts) & kHighBits;
    return static_cast<size_t>((passed >> 7) * kEveryByte >> 56);
}

// The place of the set bit that has n set bits below it: first its byte, by the counts of CountUpToEachByte, then its
// bit in the byte. There is such a bit.
size_t PlaceOfBit(uint64_t mask, uint64_t counts, size_t n) {
    const size_t byteAt = CountsUpTo(counts, n) * 8;
    const auto below = static_cast<size_t>(counts << 8 >> byteAt & 0xFF);
    return byteAt + CountsUpTo(CountUpToEachBit(mask >> byteAt & 0xFF), n - below);
}

}  // namespace

// ---- counting -----------------------------------------------------------------------------------------------------

IntlStretch WalkChars(const char* text, size_t maxChars) {
    if (!gIntlLeadInterval.isKnown) return plain::WalkChars(text, maxChars);
    const LeadTest isLead;
    TrailFinder<uint64_t> trails;
    Window<uint64_t> window(text);
    size_t chars = 0;
    for (size_t seen = 0;; seen = window.Advance()) {
        const FourBlocks blocks(window.At());
        const uint64_t ends = blocks.Zeros() & window.InText();
        const uint64_t inText = window.InText() & Below(ends);
        const uint64_t starts = inText & ~trails.Next(blocks.Mask(isLead) & inText, seen);
        const uint64_t counts = CountUpToEachByte(starts);
        const auto charsHere = static_cast<size_t>(counts >> 56);
        const auto before = static_cast<size_t>(window.At() - text);
        if (charsHere > maxChars - chars) return {before + PlaceOfBit(starts, counts, maxChars - chars), maxChars};
        chars += charsHere;
        if (ends != 0) return {before + static_cast<size_t>(std::countr_zero(ends)), chars};
    }
}

// Most texts fit in one window, where both ends of the range are found at once. To an end beyond it, it walks.
IntlRange FindRange(const char* text, size_t start, size_t maxChars) {
    if (!gIntlLeadInterval.isKnown) return plain::FindRange(text, start, maxChars);
    const Window<uint64_t> window(text);
    const FourBlocks blocks(window.At());
    const uint64_t ends = blocks.Zeros() & window.InText();
    const uint64_t inText = window.InText() & Below(ends);
    const uint64_t starts = inText & ~TrailFinder<uint64_t>().Next(blocks.Mask(LeadTest()) & inText, 0);
    const uint64_t counts = CountUpToEachByte(starts);
    const auto chars = static_cast<size_t>(counts >> 56);
    if (start >= chars || (ends == 0 && maxChars >= chars - start)) {
        const size_t at = WalkChars(text, start).bytes;
        return {at, WalkChars(text + at, maxChars)};
    }
    const size_t rangeChars = std::min(maxChars, chars - start);
    const size_t end = rangeChars < chars - start ? PlaceOfBit(starts, counts, start + rangeChars)
                                                  : static_cast<size_t>(std::countr_zero(ends));
    const size_t first = PlaceOfBit(starts, counts, start);
    return {static_cast<size_t>(window.At() - text) + first, {end - first, rangeChars}};
}

size_t CountChars(const char* text, size_t bytes) {
    if (!gIntlLeadInterval.isKnown) return plain::CountChars(text, bytes);
    const LeadTest isLead;
    TrailFinder<uint64_t> trails;
    Window<uint64_t> window(text);
    const char* end = text + bytes;
    size_t chars = 0;
    for (size_t seen = 0; window.At() < end; seen = window.Advance()) {
        uint64_t inText = window.InText();
        const auto left = static_cast<size_t>(end - window.At());
        if (left < Window<uint64_t>::kBytes) inText &= (uint64_t{1} << left) - 1;
        const uint64_t leadValued = FourBlocks(window.At()).Mask(isLead) & inText;
        chars += static_cast<size_t>(CountUpToEachByte(inText & ~trails.Next(leadValued, seen)) >> 56);
    }
    return chars;
}

// ---- finding ------------------------------------------------------------------------------------------------------

namespace {

// The bytes of a set as vectors. There is room for as many as pay; two, which most sets don't exceed, stay in
// registers.
constexpr size_t kMaxNeedles = 8;

class TwoNeedles {
  public:
    explicit TwoNeedles(const ByteSet& set)
        : isFirst_(set.Size() > 0 ? set.At(0) : '\0'), isSecond_(set.Size() > 1 ? set.At(1) : '\0') {}
    __m128i operator()(__m128i bytes) const { return _mm_or_si128(isFirst_(bytes), isSecond_(bytes)); }

  private:
    ByteTest isFirst_;
    ByteTest isSecond_;
};

class Needles {
  public:
    explicit Needles(const ByteSet& set) : count_(set.Size()) {
        for (size_t i = 0; i < count_; ++i) isOneOf_[i] = ByteTest(set.At(i));
    }
    __m128i operator()(__m128i bytes) const {
        __m128i found = _mm_setzero_si128();
        for (size_t i = 0; i < count_; ++i) found = _mm_or_si128(found, isOneOf_[i](bytes));
        return found;
    }

  private:
    ByteTest isOneOf_[kMaxNeedles];
    size_t count_;
};

template <class Test>
const char* FindByteBy(const char* text, const Test& isWanted) {
    for (Window<uint16_t> window(text);; window.Advance()) {
        const __m128i bytes = LoadBlock(window.At());
        const uint32_t stops = MaskOf(_mm_or_si128(isWanted(bytes), IsZero(bytes))) & window.InText();
        if (stops != 0) return window.At() + std::countr_zero(stops);
    }
}

// None of the wanted bytes is a lead.
template <class Test>
const char* FindAnyBy(const char* text, const Test& isWanted) {
    const LeadTest isLead;
    TrailFinder<uint16_t> finder;
    Window<uint16_t> window(text);
    for (size_t seen = 0;; seen = window.Advance()) {
        const __m128i bytes = LoadBlock(window.At());
        const uint32_t inText = window.InText();
        const uint32_t trails = finder.Next(static_cast<uint16_t>(MaskOf(isLead(bytes)) & inText), seen);
        const uint32_t stops = ((MaskOf(isWanted(bytes)) & ~trails) | MaskOf(IsZero(bytes))) & inText;
        if (stops != 0) return window.At() + std::countr_zero(stops);
    }
}

// The two bytes of a double-byte character as vectors, and whether the last byte of the block before was its lead.
class PairFinder {
  public:
    explicit PairFinder(uint16_t code) : isLead_(static_cast<char>(code >> 8)), isTrail_(static_cast<char>(code)) {}

    // The trails of the character in the next window.
    uint32_t Next(__m128i bytes, uint32_t leads, size_t seen) {
        const uint32_t behindLead = (MaskOf(isLead_(bytes)) & leads) << 1 | carried_ << seen;
        carried_ = behindLead >> kBlockBytes;
        return behindLead & MaskOf(isTrail_(bytes));
    }

  private:
    ByteTest isLead_;
    ByteTest isTrail_;
    uint32_t carried_ = 0;
};

const char* FindPair(const char* text, uint16_t first, uint16_t second) {
    const LeadTest isLead;
    TrailFinder<uint16_t> trails;
    PairFinder firstPair(first);
    PairFinder secondPair(second);
    Window<uint16_t> window(text);
    for (size_t seen = 0;; seen = window.Advance()) {
        const __m128i bytes = LoadBlock(window.At());
        trails.Next(static_cast<uint16_t>(MaskOf(isLead(bytes)) & window.InText()), seen);
        const uint32_t found =
            firstPair.Next(bytes, trails.Leads(), seen) | secondPair.Next(bytes, trails.Leads(), seen);
        const uint32_t stops = found | (MaskOf(IsZero(bytes)) & window.InText());
        if (stops == 0) continue;
        const char* stop = window.At() + std::countr_zero(stops);
        return *stop == '\0' ? stop : stop - 1;
    }
}

bool HasLead(const ByteSet& set) {
    for (size_t i = 0; i < set.Size(); ++i) {
        if (IntlIsLead(set.At(i))) return true;
    }
    return false;
}

}  // namespace

const char* FindByte(const char* text, const ByteSet& set) {
    if (set.Size() <= 2) return FindByteBy(text, TwoNeedles(set));
    if (set.Size() <= kMaxNeedles) return FindByteBy(text, Needles(set));
    return plain::FindByte(text, set);
}

const char* FindAny(const char* text, const ByteSet& set) {
    if (set.Size() > kMaxNeedles || !gIntlLeadInterval.isKnown || HasLead(set)) return plain::FindAny(text, set);
    if (set.Size() <= 2) return FindAnyBy(text, TwoNeedles(set));
    return FindAnyBy(text, Needles(set));
}

const char* FindEither(const char* text, uint16_t first, uint16_t second) {
    if (first <= 0xFF && second <= 0xFF) {
        const char set[] = {static_cast<char>(first), static_cast<char>(second)};
        return FindAny(text, {set, first == second ? size_t{1} : size_t{2}});
    }
    const bool arePairs = first > 0xFF && second > 0xFF;
    return arePairs && gIntlLeadInterval.isKnown ? FindPair(text, first, second)
                                                 : plain::FindEither(text, first, second);
}

}  // namespace fast

#endif
