// Half-width and full-width codes of Shift-JIS. A half-width pair has the half-width character in the high byte, and in
// the low byte 0, or the voiced mark (0xDE) or the semi-voiced mark (0xDF) that follows it.
#pragma once

#include <cstdint>

// The half-width pair of a full-width code; 0 when it has none.
uint16_t IntlFullToHalfCode(uint16_t full);

// The full-width code of a half-width pair. Control codes and bytes without a full-width form come back as they are, in
// the high byte; 0xFD and above give 0.
uint16_t IntlHalfToFullCode(uint16_t half);
