// The Japanese eras.
#include <cstddef>

#include "calendar.h"

static_assert(sizeof(FMTEra) == 10 && offsetof(FMTEra, start) == 5 && offsetof(FMTEra, letter) == 9);

// clang-format off
const FMTEra gFMTEraTable[kEras + 1] = {
    // name                start     letter   first day
    {"\x96\xBE\x8E\xA1",   2403605,  'M'},  // 29 September 1868, Meiji
    {"\x91\xE5\x90\xB3",   2419614,  'T'},  // 30 July 1912, Taisho
    {"\x8F\xBA\x98\x61",   2424875,  'S'},  // 25 December 1926, Showa
    {"\x95\xBD\x90\xAC",   2447535,  'H'},  // 8 January 1989, Heisei
    {"",                   0,        0},
};
// clang-format on
