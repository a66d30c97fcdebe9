// A list of fonts in the making.
#pragma once

#include <morvl15/font.h>

constexpr UINT kFonBlockFlags = GMEM_MOVEABLE | GMEM_ZEROINIT;
constexpr uint32_t kFonHeadSize = 2;  // the count

// The state of the list with metrics, which keeps its blocks' flags too.
#pragma pack(push, 1)
struct FonMetricsState {
    FonEnumState list;
    UINT flags;
};
#pragma pack(pop)

// Adds a record to the list, whose other records are of the same size. 1; 0 when there is no memory, and then the list
// is gone, or no room in the count.
INT FonAddRecord(FonEnumState* state, UINT flags, const void* record, uint32_t size);

// Takes back what a finished list has more than its records of that size need. Its block.
HGLOBAL FonFinishList(FonEnumState* state, UINT flags, uint32_t size);
