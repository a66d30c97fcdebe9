// Questions to a printer's device context.
#include "printer_device.h"

#include <cstdlib>

bool PrintDeviceHas(HDC dc, INT escape) {
    return Escape(dc, QUERYESCSUPPORT, sizeof escape, reinterpret_cast<const char*>(&escape), nullptr) > 0;
}

bool PrintPhysicalPaper(HDC dc, PrintExtent* pixels) {
    if (!PrintDeviceHas(dc, GETPHYSPAGESIZE)) return false;
    POINT size = {};
    Escape(dc, GETPHYSPAGESIZE, 0, nullptr, &size);
    *pixels = {size.x, std::abs(size.y)};
    return true;
}

PrintExtent PrintPaperPixels(HDC dc) {
    PrintExtent pixels = {};
    if (PrintPhysicalPaper(dc, &pixels)) return pixels;
    return {GetDeviceCaps(dc, PHYSICALWIDTH), GetDeviceCaps(dc, PHYSICALHEIGHT)};
}

PrintExtent PrintOffsetPixels(HDC dc) {
    return {GetDeviceCaps(dc, PHYSICALOFFSETX), GetDeviceCaps(dc, PHYSICALOFFSETY)};
}

PrintExtent PrintToLogical(HDC dc, PrintExtent pixels) {
    POINT point = {pixels.width, pixels.height};
    DPtoLP(dc, &point, 1);
    return {point.x, std::abs(point.y)};
}

PrintExtent PrintPrintable(HDC dc) {
    RECT box = {};
    GetClipBox(dc, &box);
    return {std::abs(box.right - box.left), std::abs(box.bottom - box.top)};
}
