// Number pictures: the currency strings of the region, and the validity of scientific pictures and of sections.
#pragma once

#include <morvl15/format.h>

void FMTBuildCurrencyStrings(int32_t position, int32_t negLayout, char* posPrefix, char* posSuffix, char* negPrefix,
                             char* negSuffix, const char* symbol);
int32_t FMTIsSciPicValid(const char* picture);
