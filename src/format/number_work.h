// What formatting and parsing of numbers share: separators, a value's magnitude, work space.
#pragma once

#include <cstddef>
#include <cstring>

#include <morvl15/memory.h>
#include <morvl15/number.h>

#include "region.h"

// NumToAscii is always given this width.
constexpr uint16_t kNumberTextWidth = 108;
constexpr size_t kNumberTextSize = kNumberTextWidth + 1;

// The kinds of a number operation, and the flags that it reads.
enum FMTNumberType : int32_t {
    kTypeNumber = FMT_TYPE_NUMBER,
    kTypeCurrency = FMT_TYPE_CURRENCY,
    kTypePicture = FMT_TYPE_PICTURE
};
constexpr uint32_t kFlagEveryDigit = FMT_EVERY_DIGIT;
constexpr uint32_t kFlagUsable = FMT_USABLE;

// The two separators of an operation, 0 for none.
struct FMTSeparators {
    char thousand;
    char decimal;
};

inline FMTSeparators FMTSeparatorsOf(const FMTRegion& region) {
    return {region.ThousandSep(), region.DecimalSep()};
}

// False for null, and for a length that no value has.
inline bool FMTHasValue(const Number& number) {
    const int length = number.bytes[0] & 0x0F;
    return length >= 1 && length <= 12;
}

// Writes a value as plain text, for which alone the text needs room: NumToAscii may use all of the width on the way.
// False, with the text empty, if only an exponent form would fit the width.
inline bool FMTWriteNumber(const Number& value, char* text) {
    char written[kNumberTextSize];
    NumToAscii(&value, written, kNumberTextWidth);
    text[0] = 0;
    if (std::strchr(written, 'E') != nullptr) return false;
    std::memcpy(text, written, std::strlen(written) + 1);
    return true;
}

// Texts of up to this size, terminator included, are worked on in local space.
constexpr size_t kLocalTextSize = 256;

// Text space for the length of an operation, from the heap where the local space is too small.
class FMTScratchText {
  public:
    explicit FMTScratchText(size_t size) {
        if (size <= sizeof local_) {
            text_ = local_;
        } else if (size <= UINT32_MAX) {
            block_ = MemAlloc(static_cast<uint32_t>(size));
            text_ = static_cast<char*>(block_);
        }
    }
    ~FMTScratchText() { MemFree(block_); }
    FMTScratchText(const FMTScratchText&) = delete;
    FMTScratchText& operator=(const FMTScratchText&) = delete;

    char* Text() const { return text_; }  // null when there is no memory

  private:
    char* text_ = nullptr;
    void* block_ = nullptr;
    char local_[kLocalTextSize];
};
