// The three tokenizers. They differ in how the end of a token is found.
#include <cstring>

#include <morvl15/intl.h>

#include "text_kinds.h"

namespace {

// ---- the end of a token: the delimiter, or the terminator ---------------------------------------------------------

// The first delimiter outside parentheses; the terminator if there is none. A "(" is never found, a ")" only where it
// has no partner; behind such a one the depth is below 0, and what follows counts as outside until it is 1 again.
template <class Text>
const char* IntlStrChrTopLevel(const char* text, const ByteSet& delimiters) {
    int64_t depth = 0;
    for (; *text != '\0'; text += Text::Width(text)) {
        if (Text::Width(text) == 2) continue;
        if (*text == '(') {
            ++depth;
        } else if (depth < 1 && delimiters.Has(*text)) {
            break;
        } else if (*text == ')') {
            --depth;
        }
    }
    return text;
}

// The first delimiter that is not between two quote bytes. A quote without a second one protects nothing. An opening
// quote that is a delimiter too still opens.
template <class Text>
const char* FindUnquoted(const char* text, const ByteSet& delimiters, char quote) {
    for (;;) {
        const char* open = Text::FindAny(text, {delimiters.bytes, delimiters.count, quote});
        if (*open == '\0' || *open != quote) return open;
        const char* close = Text::FindAny(open + 1, {&quote, 1});
        if (*close == '\0') return Text::FindAny(open, delimiters);
        text = close + 1;
    }
}

// ---- copying a token ----------------------------------------------------------------------------------------------

// Moves short stretches. Most tokens are short and of any length, and a copy that asks how long one is mispredicts. So
// pieces of 8, 4, 2 and 1 bytes always move, and those that the length doesn't have move from nowhere to nowhere.
class ShortMove {
  public:
    static constexpr size_t kLimit = 16;

    ShortMove(char* to, const char* from) : to_(Distance(to)), from_(Distance(from)) {}

    // Moves fewer bytes than the limit.
    void Run(size_t length) {
        MovePiece<uint64_t>(length);
        MovePiece<uint32_t>(length);
        MovePiece<uint16_t>(length);
        MovePiece<uint8_t>(length);
    }

  private:
    template <class Piece>
    void MovePiece(size_t length) {
        const size_t at = length & ~(2 * sizeof(Piece) - 1);
        const uintptr_t mask = 0 - static_cast<uintptr_t>((length & sizeof(Piece)) != 0);
        Piece piece;
        std::memcpy(&piece, Somewhere((from_ + at) & mask), sizeof piece);
        std::memcpy(Somewhere((to_ + at) & mask), &piece, sizeof piece);
    }
    uintptr_t Distance(const char* place) const {
        return reinterpret_cast<uintptr_t>(place) - reinterpret_cast<uintptr_t>(nowhere_);
    }
    char* Somewhere(uintptr_t distance) {
        return reinterpret_cast<char*>(reinterpret_cast<uintptr_t>(nowhere_) + distance);
    }

    char nowhere_[8] = {};
    uintptr_t to_;  // from nowhere
    uintptr_t from_;
};

// Copies and terminates a token. It may lie in the destination, at its start or behind it.
inline void CopyToken(char* destination, const char* token, size_t length) {
    if (length < ShortMove::kLimit) {
        ShortMove(destination, token).Run(length);
    } else {
        std::memmove(destination, token, length);
    }
    destination[length] = '\0';
}

// ---- the steps that all three share -------------------------------------------------------------------------------

struct TokenRequest {
    char* destination;
    const char* source;
    const char* skipSet;
    const char* delimiterSet;
    uint16_t leadCharacter;
    int32_t size;
};

const char* SkipBytes(const char* at, const char* set) {
    return *set != '\0' ? at + std::strspn(at, set) : at;
}

// The start of the token, behind the skipped bytes and the lead character; null if that is missing. A lead character
// whose low byte is 0 never stands there.
const char* FindTokenStart(const TokenRequest& request) {
    const char* start = SkipBytes(request.source, request.skipSet);
    if (request.leadCharacter == 0) return start;
    const bool isThere = *start != '\0' && *start == static_cast<char>(request.leadCharacter);
    return isThere ? start + 1 : nullptr;
}

// Copies the token if it fits. Result: the offset of its end.
int32_t TakeToken(const TokenRequest& request, const char* start, const char* end) {
    const auto length = static_cast<size_t>(end - start);
    if (request.size > 0 && length >= static_cast<size_t>(request.size)) return 0;
    CopyToken(request.destination, start, length);
    return IntlClampLength(static_cast<size_t>(end - request.source));
}

template <class FindEnd>
int32_t GetToken(const TokenRequest& request, FindEnd findEnd) {
    if (request.destination == nullptr || request.source == nullptr || request.skipSet == nullptr ||
        request.delimiterSet == nullptr) {
        return 0;
    }
    const char* start = FindTokenStart(request);
    if (start == nullptr) return 0;
    return TakeToken(request, start, findEnd(start, ByteSet::Of(request.delimiterSet)));
}

}  // namespace

int32_t MORVL_CALL IntlStrGetToken(char* destination, const char* source, const char* skipSet, const char* delimiterSet,
                                   uint16_t leadCharacter, int32_t size) {
    const TokenRequest request{destination, source, skipSet, delimiterSet, leadCharacter, size};
    return gIntlDBCS != 0 ? GetToken(request, DoubleByteText::FindAny) : GetToken(request, SingleByteText::FindAny);
}

int32_t MORVL_CALL IntlStrGetTokenNestedParens(char* destination, const char* source, const char* skipSet,
                                               const char* delimiterSet, uint16_t leadCharacter, int32_t size) {
    const TokenRequest request{destination, source, skipSet, delimiterSet, leadCharacter, size};
    return gIntlDBCS != 0 ? GetToken(request, IntlStrChrTopLevel<DoubleByteText>)
                          : GetToken(request, IntlStrChrTopLevel<SingleByteText>);
}

int32_t MORVL_CALL IntlStrGetTokenQuoted(char* destination, const char* source, const char* skipSet,
                                         const char* delimiterSet, uint16_t leadCharacter, uint8_t quote,
                                         int32_t size) {
    const TokenRequest request{destination, source, skipSet, delimiterSet, leadCharacter, size};
    return GetToken(request, [quote](const char* start, const ByteSet& delimiters) {
        const auto find = gIntlDBCS != 0 ? FindUnquoted<DoubleByteText> : FindUnquoted<SingleByteText>;
        return find(start, delimiters, static_cast<char>(quote));
    });
}
