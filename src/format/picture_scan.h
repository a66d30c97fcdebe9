// The sections of a number picture and the shape of their digit places.
#pragma once

#include <string_view>

#include "number_work.h"

// Those of a scientific picture, under every region.
constexpr FMTSeparators kSciSeparators = {',', '.'};

// The sections of a picture, cut at each ";" wherever it stands. Those behind the third play no part.
struct FMTPictureSections {
    int32_t count;  // 1 to 3; a section may be empty
    std::string_view section[3];
};

FMTPictureSections FMTSplitPicture(std::string_view picture);

// The index of the section for a value: the first unless the picture has one for negative values or for zero.
inline int32_t FMTChooseSection(int32_t sections, bool negative, bool zero) {
    if (sections > 1 && negative) return 1;
    return sections > 2 && zero ? 2 : 0;
}

// The shape of one section. Without a digit place everything but the prefix is 0 or empty.
struct FMTSectionShape {
    int32_t fracDigits;       // digit places behind the decimal separator, "#" and "0" together
    int32_t intZeros;         // "0" places before the decimal separator
    int32_t fracZeros;        // "0" places behind it
    bool grouping;            // a group separator stands before a digit place
    bool hasPlaces;           // the section has a digit place
    std::string_view prefix;  // what stands before the first digit place
    std::string_view suffix;  // what stands behind the last one
};

// The search for digit places knows nothing of quotes: a "#" or "0" inside a literal counts as one.
FMTSectionShape FMTScanNumberPic(std::string_view section, FMTSeparators separators);
