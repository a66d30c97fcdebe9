// Japanese width conversion.
#include "width.h"

#include <morvl15/intl.h>

#include "characters.h"
#include "counted.h"
#include "width_tables.h"

namespace {

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
    while (*source != '\0') {
        const uint32_t byte = static_cast<uint8_t>(*source);
        size_t used = IntlCharWidth(source);
        if (used == 2) {
            out = Put(out, IntlCharCode(source));
        } else if (IsKana(byte)) {
            const uint16_t marked = MarkedKanaToFull(byte, static_cast<uint8_t>(source[1]));
            out = Put(out, marked != 0 ? marked : kKanaToFull[byte - kFirstKana]);
            if (marked != 0) used = 2;
        } else if (IsLatin(byte)) {
            out = Put(out, kLatinToFull[byte - kFirstLatin]);
        } else {
            *out++ = *source;
        }
        source += used;
    }
    *out = '\0';
    return IntlClampLength(IntlCharCount(destination));
}

// The result is counted anew: in a code page other than the Japanese one, half-width bytes may lead characters.
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
