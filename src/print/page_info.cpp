// Paper and printable area of a printer.
#include <cstdlib>
#include <utility>

#include <morvl15/print.h>

#include "device_mode.h"
#include "paper_lists.h"
#include "printer_device.h"

namespace {

constexpr DWORD kBothSides = DM_PAPERLENGTH | DM_PAPERWIDTH;

uint16_t PaperOf(const DEVMODEA* mode) {
    return mode != nullptr && (mode->dmFields & DM_PAPERSIZE) != 0 ? static_cast<uint16_t>(mode->dmPaperSize) : 0;
}

// The size of a paper, by the device mode or by the printer's lists, in tenths of a millimetre.
bool SizeOfPaper(const char* device, const char* port, const DEVMODEA* mode, uint16_t paper, PrintExtent* size) {
    if (paper == DMPAPER_USER || (mode->dmFields & kBothSides) == kBothSides) {
        *size = {mode->dmPaperWidth, mode->dmPaperLength};
        return true;
    }
    const int32_t place = PrintFindPaper(device, port, mode, paper);
    POINT listed = {};
    if (place < 0 || !PrintPaperSizeAt(device, port, mode, place, &listed)) return false;
    *size = {listed.x, listed.y};
    return listed.x != 0 && listed.y != 0;
}

PrintExtent OffsetOf(HDC dc) {
    if (!PrintDeviceHas(dc, GETPRINTINGOFFSET)) return {};
    POINT offset = {};
    Escape(dc, GETPRINTINGOFFSET, 0, nullptr, &offset);
    return PrintToLogical(dc, {offset.x, offset.y});
}

struct PageInfo {
    PrintExtent size;
    PrintExtent offset;
    PrintExtent printable;
};

bool ReadPage(HDC dc, const char* device, const char* port, const DEVMODEA* mode, uint16_t paper, PageInfo* info) {
    SetMapMode(dc, MM_LOMETRIC);
    if (paper == 0 || !SizeOfPaper(device, port, mode, paper, &info->size)) {
        PrintExtent pixels = {};
        if (!PrintPhysicalPaper(dc, &pixels)) return false;
        info->size = PrintToLogical(dc, pixels);
    }
    info->offset = OffsetOf(dc);
    info->printable = PrintPrintable(dc);
    if (mode != nullptr && mode->dmOrientation == DMORIENT_LANDSCAPE) {
        std::swap(info->size.width, info->size.height);
        std::swap(info->offset.width, info->offset.height);
    }
    return true;
}

bool ReadPrinter(const char* driver, const char* device, const char* port, const DEVMODEA* mode, uint16_t* paper,
                 PageInfo* info) {
    HDC dc = CreateICA(driver, device, nullptr, mode);
    if (dc == nullptr) return false;
    const uint16_t id = PaperOf(mode);
    if (id != 0 && paper != nullptr) *paper = id;
    const bool read = ReadPage(dc, device, port, mode, id, info);
    DeleteDC(dc);
    return read;
}

void HandOut(const PageInfo& info, POINT* size, RECT* area) {
    if (size != nullptr) *size = {info.size.width, info.size.height};
    if (area != nullptr) {
        *area = {info.offset.width, info.offset.height, info.offset.width + info.printable.width,
                 info.offset.height + info.printable.height};
    }
}

}  // namespace

int32_t MORVL_CALL PageGetPageInfo(const char* driver, const char* device, const char* port, const DEVMODEA* mode,
                                   uint16_t* paper, POINT* size, RECT* area) {
    HANDLE printer = PrintOpen(device);
    if (printer == nullptr) return 0;
    HGLOBAL own = mode == nullptr ? PrintDefaultDevMode(printer, device) : nullptr;
    PageInfo info = {};
    bool read = false;
    {
        const PrintLocked<DEVMODEA> locked(own);
        read = ReadPrinter(driver, device, port, mode != nullptr ? mode : locked.get(), paper, &info);
    }
    if (own != nullptr) GlobalFree(own);
    ClosePrinter(printer);
    if (read) HandOut(info, size, area);
    return read ? 1 : 0;
}
