// Number pictures read in one pass: the sections and their shapes at once.
#pragma once

#include "picture_scan.h"

namespace fast {

struct SectionShape {
    FMTSectionShape shape;
    bool plainLiterals;  // no quotes; and no pads behind the digits
};

struct PictureShape {
    int32_t count;  // 1 to 3
    SectionShape section[3];
};

// Reads the text form of a picture of ordinary build. The sections and shapes are those of FMTSplitPicture and
// FMTScanNumberPic.
// Result: false for a picture that has to be looked at more closely (tokenized, scientific, too long, with digit places
// outside its digit runs, with double-byte characters) and for one that isn't a sectioned picture (empty, "$").
bool ScanPicture(const char* picture, FMTSeparators separators, PictureShape* result);

}  // namespace fast
