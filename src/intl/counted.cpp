// Left, right, mid and replace, in characters.
#include "counted.h"

#include <morvl15/intl.h>

int32_t MORVL_CALL IntlStrLeft(char* destination, const char* source, int32_t count) {
    return gIntlDBCS != 0 ? IntlLeftOf<DoubleByteText>(destination, source, count)
                          : IntlLeftOf<SingleByteText>(destination, source, count);
}

int32_t MORVL_CALL IntlStrRight(char* destination, const char* source, int32_t count) {
    return gIntlDBCS != 0 ? IntlRightOf<DoubleByteText>(destination, source, count)
                          : IntlRightOf<SingleByteText>(destination, source, count);
}

int32_t MORVL_CALL IntlStrMid(char* destination, const char* source, int32_t start, int32_t count) {
    return gIntlDBCS != 0 ? IntlMidOf<DoubleByteText>(destination, source, start, count)
                          : IntlMidOf<SingleByteText>(destination, source, start, count);
}

int32_t MORVL_CALL IntlStrReplace(char* destination, const char* source, const char* insertion, int32_t position,
                                  int32_t count) {
    return gIntlDBCS != 0 ? IntlReplaceOf<DoubleByteText>(destination, source, insertion, position, count)
                          : IntlReplaceOf<SingleByteText>(destination, source, insertion, position, count);
}
