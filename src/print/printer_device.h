// What a printer's device context tells of itself. Device values are pixels; logical ones are in the units of the
// context's map mode, heights made positive.
#pragma once

#include <morvl15/host.h>

struct PrintExtent {
    int32_t width;
    int32_t height;
};

bool PrintDeviceHas(HDC dc, INT escape);

// The paper, by the device's own answer; false for a device that has none.
bool PrintPhysicalPaper(HDC dc, PrintExtent* pixels);

// The paper, by the device's own answer or else by its capabilities.
PrintExtent PrintPaperPixels(HDC dc);

// From the paper's corner to that of the printable area.
PrintExtent PrintOffsetPixels(HDC dc);

PrintExtent PrintToLogical(HDC dc, PrintExtent pixels);

// The printable area.
PrintExtent PrintPrintable(HDC dc);
