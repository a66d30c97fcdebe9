// Japanese width conversion.
#include "width.h"

#include <algorithm>
#include <iterator>

#include <morvl15/intl.h>

#include "characters.h"
#include "counted.h"
#include "width_tables.h"

namespace {

bool IsLatin(uint32_t byte) {
    return byte >= kFirstLatin && byte <= kLastLatin;
}

bool IsKana(uint32_t byte) {
    return byte >= kFirstKana && byte <= kLastKana;
}

// The full-width code of a kana with the mark that follows it; 0 where the mark doesn't go with the kana.
uint16_t MarkedKanaToFull(uint32_t base, uint32_t mark) {
    if (mark == kSemiVoicedMark && base >= kFirstSemiVoiced && base <= kLastSemiVoiced) {
        return kSemiVoicedToFull[base - kFirstSemiVoiced];
    }
    if (mark != kVoicedMark) return 0;
    const auto* row = std::lower_bound(std::begin(kVoicedKana), std::end(kVoicedKana), base,
                                       [](const VoicedKana& kana, uint32_t wanted) { return kana.base < wanted; });
    return row != std::end(kVoicedKana) && row->base == base ? row->full : 0;
}

char* Put(char* out, uint16_t code) {
    *out++ = static_cast<char>(code >> 8);
    *out++ = static_cast<char>(code);
    return out;
}

int32_t CopyAll(char* destination, const char* source) {
    const size_t length = std::strlen(source);
    IntlCopyStretch(destination, source, length);
    return IntlClampLength(length);
}

}  // namespace

uint16_t IntlFullToHalfCode(uint16_t full) {
    return full >= kFirstFull && full <= kLastFull ? kFullToHalf.half[full - kFirstFull] : 0;
}

uint16_t IntlHalfToFullCode(uint16_t half) {
    const uint32_t base = half >> 8;
    if (base < kFirstLatin) return static_cast<uint16_t>(base << 8);
    if (IsLatin(base)) return kLatinToFull[base - kFirstLatin];
    if (IsKana(base)) {
        const uint16_t marked = MarkedKanaToFull(base, half & 0xFF);
        return marked != 0 ? marked : kKanaToFull[base - kFirstKana];
    }
    return base < 0xFD ? half : 0;
}

int32_t MORVL_CALL IntlStrJapanFull(char* destination, const char* source) {
    if (destination == nullptr || source == nullptr) return -1;
    if (gIntlDBCS == 0) return CopyAll(destination, source);
    char* out = destination;
    for (const char* at = source; *at != '\0'; at += IntlCharWidth(at)) {
        const uint32_t byte = static_cast<uint8_t>(*at);
        if (IntlCharWidth(at) == 2) {
            out = Put(out, IntlCharCode(at));
        } else if (IsKana(byte)) {
            const uint16_t marked = MarkedKanaToFull(byte, static_cast<uint8_t>(at[1]));
            out = Put(out, marked != 0 ? marked : kKanaToFull[byte - kFirstKana]);
            if (marked != 0) ++at;
        } else if (IsLatin(byte)) {
            out = Put(out, kLatinToFull[byte - kFirstLatin]);
        } else {
            *out++ = *at;
        }
    }
    *out = '\0';
    return IntlClampLength(IntlCharCount(destination));
}

int32_t MORVL_CALL IntlStrJapanHalf(char* destination, const char* source) {
    if (destination == nullptr || source == nullptr) return -1;
    if (gIntlDBCS == 0) return CopyAll(destination, source);
    char* out = destination;
    while (*source != '\0') {
        const size_t width = IntlCharWidth(source);
        const uint16_t code = IntlCharCode(source);
        const uint16_t half = width == 2 ? IntlFullToHalfCode(code) : static_cast<uint16_t>(code << 8);
        if (half == 0) {
            out = Put(out, code);
        } else {
            *out++ = static_cast<char>(half >> 8);
            if ((half & 0xFF) != 0) *out++ = static_cast<char>(half);
        }
        source += width;
    }
    *out = '\0';
    return IntlClampLength(IntlCharCount(destination));
}
