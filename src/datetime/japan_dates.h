// The two Japanese date forms.
#pragma once

#include <morvl15/format.h>

// Writes the date of a block to its Output as year, month and day with their marks.
void FMTFormatJapanDate(FMTCntlBlock* block);

// The same with an era and its year in the place of the year. 0, and Output stays, for a date before the first era.
int32_t FMTFormatEraDate(FMTCntlBlock* block);

constexpr int32_t kEraDateLength = 16;  // bytes of an era date
