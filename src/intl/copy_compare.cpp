// Copying a counted number of characters, and comparing texts byte for byte.
#include <cstring>

#include <morvl15/intl.h>

#include "copy.h"
#include "text_kinds.h"

namespace {

template <class Text>
void CopyChars(char* destination, const char* source, uint16_t count) {
    const IntlStretch copied = Text::WalkChars(source, count);
    std::memmove(destination, source, copied.bytes);
    std::memset(destination + copied.bytes, 0, count - copied.chars);
}

}  // namespace

void IntlCopyChars(char* destination, const char* source, uint16_t count) {
    CopyChars<DoubleByteText>(destination, source, count);
}

char* MORVL_CALL IntlStrnCpy(char* destination, const char* source, uint16_t count) {
    gIntlDBCS != 0 ? IntlCopyChars(destination, source, count) : CopyChars<SingleByteText>(destination, source, count);
    return destination;
}

int32_t MORVL_CALL IntlIsStrEqual(const char* first, const char* second) {
    return std::strcmp(first, second) == 0;
}

int32_t MORVL_CALL IntlIsStrnEqual(const char* first, const char* second, uint16_t count) {
    return std::strncmp(first, second, count) == 0;
}
