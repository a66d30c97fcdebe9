// The first of a set of characters.
#include <morvl15/intl.h>

#include "text_kinds.h"

namespace {

// Members that are single bytes are searched for together, a run at a time, double-byte ones each on its own.
const char* SearchDoubleByte(const char* text, const char* set) {
    const char* nearest = nullptr;
    while (*set != '\0') {
        const char* next = set;
        while (IntlCharWidth(next) == 1) ++next;
        const char* found = next > set ? walk::FindAny(text, {set, static_cast<size_t>(next - set)})
                                       : walk::FindEither(text, IntlCharCode(set), IntlCharCode(set));
        if (*found != '\0' && (nearest == nullptr || found < nearest)) nearest = found;
        set = next > set ? next : set + 2;
    }
    return nearest;
}

const char* SearchSingleByte(const char* text, const char* set) {
    const char* found = walk::FindByte(text, {set, std::strlen(set)});
    return *found != '\0' ? found : nullptr;
}

}  // namespace

char* MORVL_CALL IntlStrSearch(const char* text, const char* set) {
    if (text == nullptr || set == nullptr || *text == '\0' || *set == '\0') return nullptr;
    return const_cast<char*>(gIntlDBCS != 0 ? SearchDoubleByte(text, set) : SearchSingleByte(text, set));
}
