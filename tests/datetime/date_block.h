// Control blocks of date operations, for tests.
#pragma once

#include <string>

#include <morvl15/datetime.h>

// A block as a caller sets it up for private use, with English texts and a region of the tests' own.
FMTCntlBlock DateBlock(int32_t type, const char* input);

void SetMoment(FMTCntlBlock* block, const DatDef& moment);

// What FMTFormatDateTime writes; "<0>" and what stands in Output where it fails, at first "as before".
std::string WriteValue(FMTCntlBlock* block);

// The block's date and time and what the last match found: "2003-01-02 12:30:15.000120 DT". A time of 0:00:00 and a
// fraction of 0 are left out; "D" a date was seen, "T" a time, "U" the hour was unpadded.
std::string DescribeValue(const FMTCntlBlock& block);

// The same for an operation with the result 1; the result for any other, and "touched" where a block changed in spite
// of that.
using ReadOperation = int32_t(MORVL_CALL*)(FMTCntlBlock*);
std::string ReadValue(ReadOperation operation, FMTCntlBlock block);

// A Japanese date in Shift-JIS: "H1y1m8d" is 8 January of the year 1 of Heisei. M, T, S and H stand for the eras, y, m
// and d for the marks, _ for a wide blank, all else for itself.
std::string Japanese(const std::string& shorthand);
