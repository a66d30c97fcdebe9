// Device modes: a printer's own, and one turned and with a paper as wanted.
#include "device_mode.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include <morvl15/memory.h>
#include <morvl15/print.h>

#include "paper_lists.h"
#include "printers.h"
#include "saved_settings.h"

namespace {

constexpr size_t kUnknownSize = 156;  // of the platform's record without private bytes

// What the library reads of a device mode ends here; a driver that claims less is not believed.
constexpr size_t kLeastSize = offsetof(DEVMODEA, dmCopies) + sizeof(int16_t);
static_assert(kLeastSize <= kUnknownSize);

size_t SizeOf(const DEVMODEA* mode) {
    return mode != nullptr ? size_t{mode->dmSize} + mode->dmDriverExtra : 0;
}

LONG AskDriver(HANDLE printer, const char* device, DEVMODEA* out, DEVMODEA* in, DWORD what) {
    return DocumentPropertiesA(nullptr, printer, const_cast<char*>(device), out, in, what);
}

size_t FallbackSize(HANDLE printer) {
    PRINTER_INFO_2A* description = PrintDescribe(printer);
    const size_t size = description != nullptr ? SizeOf(description->pDevMode) : 0;
    MemFree(description);
    return size >= kLeastSize ? size : kUnknownSize;
}

void CopyFromDescription(HANDLE printer, DEVMODEA* mode, size_t size) {
    PRINTER_INFO_2A* description = PrintDescribe(printer);
    if (description != nullptr && description->pDevMode != nullptr) {
        std::memcpy(mode, description->pDevMode, std::min(size, SizeOf(description->pDevMode)));
    }
    MemFree(description);
}

int16_t Orientation(bool landscape) {
    return landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
}

bool HasPaper(const DEVMODEA& mode, uint16_t paper) {
    return (mode.dmFields & DM_PAPERSIZE) != 0 && static_cast<uint16_t>(mode.dmPaperSize) == paper;
}

// What the setup dialog has saved for this printer, if its paper will do.
HGLOBAL SavedFor(const char* device, const char* driver, const char* port, uint16_t paper) {
    HGLOBAL block = PrtLoadSaved(device, driver, port);
    if (block == nullptr || paper == 0) return block;
    bool matches = false;
    {
        const PrintLocked<DEVMODEA> mode(block);
        matches = paper != DMPAPER_USER && HasPaper(*mode.get(), paper);
    }
    if (matches) return block;
    GlobalFree(block);
    return nullptr;
}

// Gives a device mode a paper of the printer's lists.
void SetPaper(DEVMODEA* mode, const char* device, const char* port, uint16_t paper, int32_t place, bool landscape) {
    mode->dmPaperSize = static_cast<int16_t>(paper);
    mode->dmOrientation = Orientation(landscape);
    if ((mode->dmFields & (DM_PAPERLENGTH | DM_PAPERWIDTH)) == 0) return;
    POINT size;
    if (!PrintPaperSizeAt(device, port, mode, place, &size)) return;
    if ((mode->dmFields & DM_PAPERLENGTH) != 0) mode->dmPaperLength = static_cast<int16_t>(size.y);
    if ((mode->dmFields & DM_PAPERWIDTH) != 0) mode->dmPaperWidth = static_cast<int16_t>(size.x);
}

// The device mode with another paper, merged by the driver; the block itself where the printer doesn't offer the paper
// or there is no memory.
HGLOBAL WithPaper(HANDLE printer, HGLOBAL block, const char* device, const char* port, uint16_t paper, bool landscape) {
    const PrintLocked<DEVMODEA> mode(block);
    const int32_t place = PrintFindPaper(device, port, mode.get(), paper);
    if (place < 0) return block;
    HGLOBAL merged = GlobalAlloc(GHND, GlobalSize(block));
    if (merged == nullptr) return block;
    SetPaper(mode.get(), device, port, paper, place, landscape);
    const PrintLocked<DEVMODEA> out(merged);
    AskDriver(printer, device, out.get(), mode.get(), DM_IN_BUFFER | DM_OUT_BUFFER);
    return merged;
}

// Turns the device mode or gives it the paper. Result: the block to go on with.
HGLOBAL Adjust(HANDLE printer, HGLOBAL block, const char* device, const char* port, uint16_t paper, bool landscape) {
    {
        const PrintLocked<DEVMODEA> mode(block);
        if (paper == 0 || paper == DMPAPER_USER) {
            mode->dmOrientation = Orientation(landscape);
            return block;
        }
        if (HasPaper(*mode.get(), paper)) return block;
    }
    HGLOBAL adjusted = WithPaper(printer, block, device, port, paper, landscape);
    if (adjusted != block) GlobalFree(block);
    return adjusted;
}

}  // namespace

HANDLE PrintOpen(const char* device) {
    HANDLE printer = nullptr;
    return OpenPrinterA(const_cast<char*>(device), &printer, nullptr) ? printer : nullptr;
}

HGLOBAL PrintCopyBlock(HGLOBAL block) {
    if (block == nullptr) return nullptr;
    const size_t size = GlobalSize(block);
    HGLOBAL copy = GlobalAlloc(GHND, size);
    if (copy == nullptr) return nullptr;
    const PrintLocked<void> from(block);
    const PrintLocked<void> to(copy);
    std::memcpy(to.get(), from.get(), size);
    return copy;
}

size_t PrintDevModeSize(HANDLE printer, const char* device) {
    const size_t fallback = FallbackSize(printer);
    const LONG size = AskDriver(printer, device, nullptr, nullptr, 0);
    return size >= static_cast<LONG>(kLeastSize) ? static_cast<size_t>(size) : fallback;
}

HGLOBAL PrintDefaultDevMode(HANDLE printer, const char* device) {
    const size_t size = PrintDevModeSize(printer, device);
    HGLOBAL block = GlobalAlloc(GHND, size);
    if (block == nullptr) return nullptr;
    const PrintLocked<DEVMODEA> mode(block);
    if (AskDriver(printer, device, mode.get(), nullptr, DM_OUT_BUFFER) < 0) {
        CopyFromDescription(printer, mode.get(), size);
    }
    return block;
}

HGLOBAL MORVL_CALL PrintGetDevMode(uint16_t landscape, const char* device, const char* driver, const char* port,
                                   uint16_t paper) {
    HGLOBAL saved = SavedFor(device, driver, port, paper);
    if (saved != nullptr) return saved;
    HANDLE printer = PrintOpen(device);
    if (printer == nullptr) return nullptr;
    HGLOBAL block = PrintDefaultDevMode(printer, device);
    if (block != nullptr) block = Adjust(printer, block, device, port, paper, landscape != 0);
    ClosePrinter(printer);
    return block;
}
