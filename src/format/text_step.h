// Steps through text that ends by a count instead of a terminator.
#pragma once

#include <string_view>

#include "../intl/character.h"

// Bytes of the first character: 2 for a double-byte one, 1 for any other and for a lead byte at the very end, 0 at the
// end.
inline size_t TextStep(std::string_view text) {
    if (text.size() < 2) return text.size();
    return IntlIsLead(text[0]) ? 2 : 1;
}

// The position of the first single-byte character that is one of the set, npos for none.
inline size_t FindFirstOf(std::string_view text, std::string_view set, size_t from = 0) {
    for (size_t at = from; at < text.size();) {
        const size_t step = TextStep(text.substr(at));
        if (step == 1 && set.find(text[at]) != std::string_view::npos) return at;
        at += step;
    }
    return std::string_view::npos;
}
