// The fast path beneath the scanner's longest match: the tokens of which most pictures and texts consist, recognised
// without the tables of rules. What it isn't sure of it declines.
#pragma once

#include <cstring>

#include "scan_tokens.h"

// The token that a byte begins, kNone for bytes that the fast path declines.
struct QuickBytes {
    ScanToken token[256];

    constexpr void Put(const char* bytes, ScanToken begun) {
        for (; *bytes != 0; ++bytes) token[static_cast<unsigned char>(*bytes)] = begun;
    }
};

consteval QuickBytes CommonQuickBytes() {
    QuickBytes bytes{};
    bytes.token[0] = ScanToken::kEnd;
    bytes.Put(",-./:\\", ScanToken::kSeparator);
    bytes.Put(" \t\n", ScanToken::kSpace);
    bytes.Put("'", ScanToken::kQuoted);
    return bytes;
}

consteval QuickBytes ValueQuickBytes() {
    QuickBytes bytes = CommonQuickBytes();
    bytes.Put("0123456789", ScanToken::kNumber);
    bytes.Put("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", ScanToken::kWord);
    return bytes;
}

consteval QuickBytes PictureQuickBytes() {
    QuickBytes bytes = CommonQuickBytes();
    bytes.Put("y", ScanToken::kYear);
    bytes.Put("M", ScanToken::kMonth);
    bytes.Put("d", ScanToken::kDay);
    bytes.Put("h", ScanToken::kHour);
    bytes.Put("m", ScanToken::kMinute);
    bytes.Put("s", ScanToken::kSecond);
    bytes.Put("A", ScanToken::kAmPm);
    return bytes;
}

inline constexpr QuickBytes kValueQuickBytes = ValueQuickBytes();
inline constexpr QuickBytes kPictureQuickBytes = PictureQuickBytes();

inline const QuickBytes& QuickBytesOf(ScanState state) {
    return state == ScanState::kPicture ? kPictureQuickBytes : kValueQuickBytes;
}

constexpr int kLongestQuickToken = 31;

// Lengths, as bits, at which a run of a picture's letter is one token, whatever follows.
constexpr uint32_t QuickLengths(ScanToken token) {
    switch (token) {
        case ScanToken::kYear: return 1U << 2 | 1U << 4;
        case ScanToken::kMonth:
        case ScanToken::kDay:
        case ScanToken::kHour: return 1U << 1 | 1U << 2 | 1U << 3 | 1U << 4;
        case ScanToken::kMinute: return 1U << 2 | 1U << 6;  // the longer one is the microsecond
        case ScanToken::kSecond: return 1U << 2;
        default: return ~0U;
    }
}

inline bool QuickQuoted(const char* text, DateToken* token) {
    int length = 1;
    while (length < kLongestQuickToken && text[length] != 0 && static_cast<unsigned char>(text[length]) < 0x80 &&
           text[length] != '\'')
        ++length;
    if (text[length] != '\'') return false;
    *token = {ScanToken::kQuoted, static_cast<uint8_t>(length + 1), text};
    return true;
}

// The token at the start of a text. False, with nothing done, where only the rules can tell.
inline bool QuickToken(const char* text, const QuickBytes& bytes, DateToken* token) {
    const auto* at = reinterpret_cast<const unsigned char*>(text);
    ScanToken kind = bytes.token[at[0]];
    switch (kind) {
        case ScanToken::kNone: return false;
        case ScanToken::kEnd: *token = {kind, 0, text}; return true;
        case ScanToken::kSeparator: *token = {kind, 1, text}; return true;
        case ScanToken::kAmPm:
            if (std::strncmp(text, "AMPM", 4) != 0) return false;
            *token = {kind, 4, text};
            return true;
        case ScanToken::kQuoted: return QuickQuoted(text, token);
        default: break;
    }
    int length = 1;
    while (bytes.token[at[length]] == kind && length <= kLongestQuickToken) ++length;
    // A byte above ASCII may belong to a word, or end the text and be used up with the token.
    if (length > kLongestQuickToken || at[length] >= 0x80 || (QuickLengths(kind) >> length & 1) == 0) return false;
    if (kind == ScanToken::kMinute && length == 6) kind = ScanToken::kMicrosecond;
    *token = {kind, static_cast<uint8_t>(length), text};
    return true;
}
