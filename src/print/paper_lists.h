// The papers that a printer offers: their ids, and in the same order their sizes.
#pragma once

#include <morvl15/host.h>

// The place of a paper in the printer's lists, from 0; -1 when the printer doesn't offer it or there is no memory.
int32_t PrintFindPaper(const char* device, const char* port, const DEVMODEA* mode, uint16_t paper);

// The size of the paper at a place of the lists, in tenths of a millimetre. False when it can't be had.
bool PrintPaperSizeAt(const char* device, const char* port, const DEVMODEA* mode, int32_t place, POINT* size);
