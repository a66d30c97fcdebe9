// What a character is: the small steps that every walk over text is made of. Inline, for all rooms that walk text.
#pragma once

#include <cstddef>
#include <cstdint>

#include "locale_values.h"

inline bool IntlIsLead(char byte) {
    return gIntlLeadBytes[static_cast<uint8_t>(byte)] != 0;
}

// Bytes that one step forward passes: 0 on the terminator. A lead byte directly before the terminator is a character
// of its own, so that no walk steps over a terminator.
inline size_t IntlCharWidth(const char* text) {
    if (*text == '\0') return 0;
    return IntlIsLead(*text) && text[1] != '\0' ? 2 : 1;
}

inline const char* IntlNextChar(const char* text) {
    return text + IntlCharWidth(text);
}

// The code of the double-byte character of these two bytes.
inline uint16_t IntlPairCode(char lead, char trail) {
    return static_cast<uint16_t>(static_cast<uint8_t>(lead) << 8 | static_cast<uint8_t>(trail));
}

// The code of the character under a pointer: 0 on the terminator.
inline uint16_t IntlCharCode(const char* text) {
    return IntlCharWidth(text) == 2 ? IntlPairCode(text[0], text[1]) : static_cast<uint8_t>(*text);
}

// Tab, line feed, vertical tab, form feed, carriage return, space.
inline bool IntlIsSpaceByte(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

// How many lead-valued bytes stand in a row directly before text[at].
inline size_t IntlLeadsBefore(const char* text, size_t at) {
    size_t leads = 0;
    while (leads < at && IntlIsLead(text[at - leads - 1])) ++leads;
    return leads;
}

// Whether text[at] is the second byte of a double-byte character, found without a walk from the start: a byte that
// can't be a lead always ends a character, so in the row of lead-valued bytes before text[at], every other one, from
// the first, is the lead of a character. False on the terminator.
//   at      in:  at most the length of the text
inline bool IntlIsTrail(const char* text, size_t at) {
    return text[at] != '\0' && IntlLeadsBefore(text, at) % 2 == 1;
}

// Positions and lengths as the interface counts them.
inline int32_t IntlClampLength(size_t length) {
    return length < INT32_MAX ? static_cast<int32_t>(length) : INT32_MAX;
}
inline size_t IntlClampCount(int32_t count) {
    return count > 0 ? static_cast<size_t>(count) : 0;
}
