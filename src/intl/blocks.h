// Blocks of text as vectors of 16 bytes, and what is true of their bytes as masks: bit i of a mask stands for byte i.
// For processors with SSE2; all others run walk_plain.cpp alone.
//
// Where characters start: a byte that can't be a lead always ends a character, so the first byte of each row of
// lead-valued bytes starts one, and in the row every other byte, from the first, is a lead and the one behind it its
// trail. With rows as runs of set bits: adding its first bit to a run carries through it and leaves zeros. So one
// addition, of the first bits that stand at even places, tells for all runs at once which start at an even place and
// which at an odd one. Of the former the even bits are leads, of the latter the odd ones.
#pragma once

#include <emmintrin.h>

#include <bit>
#include <cstddef>
#include <cstdint>

#include "locale_values.h"

namespace fast {

constexpr size_t kBlockBytes = 16;

// Reads a block that begins in a text and may reach beyond its terminator, or lie partly before its start. It must not
// cross a page that the text doesn't: then the read can't fault, and what lies outside the text is masked off.
// Sanitizers check single bytes against the bounds of objects, so they are told to leave this one read alone.
__attribute__((no_sanitize("address"), no_sanitize("thread"))) inline __m128i LoadBlock(const char* block) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(block));
}

// The part of a text that a mask shows: one block for 16 bits, four for 64. The first window begins at the text's start
// where it may, so that a short text needs no second one; all others begin at a multiple of their size, and so never
// cross a page.
template <class Mask>
class Window {
  public:
    static constexpr size_t kBytes = sizeof(Mask) * 8;

    explicit Window(const char* text) : at_(text), inText_(static_cast<Mask>(~Mask{0})) {
        constexpr size_t kPage = 4096;  // or a multiple of it
        if (reinterpret_cast<uintptr_t>(text) % kPage <= kPage - kBytes) return;
        at_ = AlignDown(text);
        inText_ = static_cast<Mask>(inText_ << (text - at_));
    }

    const char* At() const { return at_; }
    // The bytes that belong to the text and to no window before this one.
    Mask InText() const { return inText_; }

    // Moves on. Result: how many bytes were in the window before.
    size_t Advance() {
        const char* end = at_ + kBytes;
        at_ = AlignDown(end);
        const auto seen = static_cast<size_t>(end - at_);
        inText_ = static_cast<Mask>(~Mask{0} << seen);
        return seen;
    }

  private:
    static const char* AlignDown(const char* at) { return at - reinterpret_cast<uintptr_t>(at) % kBytes; }

    const char* at_;
    Mask inText_;
};

inline uint32_t MaskOf(__m128i bytes) {
    return static_cast<uint32_t>(_mm_movemask_epi8(bytes));
}

inline __m128i IsZero(__m128i bytes) {
    return _mm_cmpeq_epi8(bytes, _mm_setzero_si128());
}

// Tells one byte.
class ByteTest {
  public:
    ByteTest() = default;
    explicit ByteTest(char byte) : byte_(_mm_set1_epi8(byte)) {}
    __m128i operator()(__m128i bytes) const { return _mm_cmpeq_epi8(bytes, byte_); }

  private:
    __m128i byte_;
};

// Tells the bytes that can be a lead.
class LeadTest {
  public:
    LeadTest()
        : flip_(LoadBlock(gIntlLeadInterval.flip)),
          shift_(LoadBlock(gIntlLeadInterval.shift)),
          below_(LoadBlock(gIntlLeadInterval.below)) {}

    __m128i operator()(__m128i bytes) const {
        return _mm_cmpgt_epi8(_mm_add_epi8(_mm_xor_si128(bytes, flip_), shift_), below_);
    }

  private:
    __m128i flip_;
    __m128i shift_;
    __m128i below_;
};

// The bytes of a window of 64. Tests work on one vector; their result for all bytes is one mask.
class FourBlocks {
  public:
    explicit FourBlocks(const char* at)
        : first_(LoadBlock(at)),
          second_(LoadBlock(at + kBlockBytes)),
          third_(LoadBlock(at + 2 * kBlockBytes)),
          fourth_(LoadBlock(at + 3 * kBlockBytes)) {}

    template <class Test>
    uint64_t Mask(const Test& test) const {
        const uint32_t low = MaskOf(test(first_)) | MaskOf(test(second_)) << 16;
        const uint32_t high = MaskOf(test(third_)) | MaskOf(test(fourth_)) << 16;
        return static_cast<uint64_t>(high) << 32 | low;
    }

    // Where bytes are zero; cheap for a window without one.
    uint64_t Zeros() const {
        const __m128i lowest = _mm_min_epu8(_mm_min_epu8(first_, second_), _mm_min_epu8(third_, fourth_));
        return MaskOf(IsZero(lowest)) != 0 ? Mask(IsZero) : 0;
    }

  private:
    __m128i first_;
    __m128i second_;
    __m128i third_;
    __m128i fourth_;
};

// The bits below the lowest one that is set; all where none is.
inline uint64_t Below(uint64_t mask) {
    return (mask & (0 - mask)) - 1;
}

// Tells leads from trails among the lead-valued bytes of consecutive windows. A lead directly before the terminator has
// the terminator for its trail here.
template <class Mask>
class TrailFinder {
  public:
    // The trails of the next window, of whose bytes the first `seen` were in the one before.
    Mask Next(Mask leadValued, size_t seen) {
        constexpr auto kEven = static_cast<Mask>(0x5555555555555555u);
        const auto carried = static_cast<Mask>(carried_ << seen);
        const auto runs = static_cast<Mask>(leadValued & ~carried);
        const auto evenStarts = static_cast<Mask>(runs & ~(runs << 1) & kEven);
        leads_ = static_cast<Mask>(runs & ((runs + evenStarts) ^ kEven));
        carried_ = static_cast<Mask>(leads_ >> (sizeof(Mask) * 8 - 1));
        return static_cast<Mask>(leads_ << 1 | carried);
    }
    // The leads of that window.
    Mask Leads() const { return leads_; }

  private:
    Mask leads_ = 0;
    Mask carried_ = 0;
};

}  // namespace fast
