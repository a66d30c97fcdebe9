// The matcher: lays the elements of a text beside the elements of a picture.
#pragma once

#include "../format/region.h"
#include "picture_parser.h"

// Reads a date, a time or both out of a list of value elements by the list of a picture's elements. What is compared is
// elements and not bytes: any separator stands for any other, and blanks count nowhere.
// On success the block's seven date fields and the Flags of the last match are set; fields that the picture doesn't
// have get their defaults, 1 January 1900, 0:00:00. On failure the block stays as it was.
// Texts of the lists lose white space at their ends, and a year written out in full loses its mark, match or not.
// Null lists give 0.
int32_t FMTMatchDatePic(DatePicElement* valueList, DatePicElement* pictureList, FMTCntlBlock* block,
                        const FMTRegion& region);

// The fast path beneath it: the same match without lists, of a picture of common size and a text that consists of what
// most texts consist of. It declines any other. A verdict on a text that has no list at all (a bad token behind the
// point where the match fails) is kFails.
enum class QuickVerdict : uint8_t { kDeclined, kFails, kMatches };
QuickVerdict QuickMatchDatePic(const char* text, const char* picture, FMTCntlBlock* block, const FMTRegion& region);

// The month, 1 to 12, whose name and `suffix` together make the word; 0 for any other word.
int32_t FMTFindMonthWithSuffix(const char* word, const char* suffix);
