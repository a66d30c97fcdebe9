// Dates in Japanese form: an era or a plain year, and the marks for year, month and day behind their numbers.
#pragma once

#include "../format/region.h"

// Reads a Japanese date at the start of the block's Input and stores it, with a time of 0:00:00.
//   needEra   refuses a plain year
// Result: the bytes of Input that were used, white space before the date included; -1 for any other text and for a date
// outside its era, with the block as it was.
int32_t FMTParseEraDate(FMTCntlBlock* block, const FMTRegion& region, bool needEra);

// Reads the whole Input as a Japanese date, or, if `mayHaveTime`, as a Japanese date and a time. 1 or 0; the date alone
// is stored also where what follows it is no time.
int32_t ReadEraText(FMTCntlBlock* block, const FMTRegion& region, bool needEra, bool mayHaveTime);
