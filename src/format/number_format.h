// Numbers shown through a picture.
#pragma once

#include "picture_scan.h"

// Formats a value by the text form of a picture, of at most 63 bytes.
//   output  out: the text; room as FMTGetMaxFormattedNumLen tells
// Result: 1; an empty picture or no output 0; 0 with an empty output for a value whose plain text is too long.
int32_t FMTFormatNumberPic(char* output, const char* picture, FMTSeparators separators, const Number& value);

// The Type of a block, or that of the layout for which its picture stands.
inline int32_t FMTSettleType(const FMTCntlBlock& block) {
    if (block.Type != kTypePicture || block.Picture == nullptr) return block.Type;
    if (block.Picture[0] == 0) return kTypeNumber;
    return block.Picture[0] == '$' && block.Picture[1] == 0 ? kTypeCurrency : kTypePicture;
}

namespace plain {

// FMTFormatNumber by its definition.
int32_t FormatNumber(const FMTCntlBlock* block);

}  // namespace plain
