// Paper lists, as drivers tell them.
#include "paper_lists.h"

#include <morvl15/memory.h>
#include <morvl15/print.h>

#include "device_mode.h"

namespace {

// Fills a list that has room for as many entries as the driver has told.
int32_t AskPapers(const char* device, const char* port, const DEVMODEA* mode, WORD what, void* list) {
    return static_cast<int32_t>(DeviceCapabilitiesA(device, port, what, static_cast<char*>(list), mode));
}

int32_t CountPapers(const char* device, const char* port, const DEVMODEA* mode) {
    return AskPapers(device, port, mode, DC_PAPERS, nullptr);
}

struct PaperLists {
    HGLOBAL papers;
    HGLOBAL sizes;
};

// A block of `count` zeroed entries, filled by the driver; null when there is no memory.
HGLOBAL MakeList(const char* device, const char* port, const DEVMODEA* mode, WORD what, size_t size) {
    HGLOBAL block = GlobalAlloc(GHND, size);
    if (block == nullptr) return nullptr;
    const PrintLocked<void> list(block);
    AskPapers(device, port, mode, what, list.get());
    return block;
}

int32_t MakeLists(const char* device, const char* port, const DEVMODEA* mode, PaperLists* lists) {
    const int32_t count = CountPapers(device, port, mode);
    if (count <= 0) return -1;
    const auto entries = static_cast<size_t>(count);
    lists->papers = MakeList(device, port, mode, DC_PAPERS, entries * sizeof(WORD));
    if (lists->papers == nullptr) return -1;
    lists->sizes = MakeList(device, port, mode, DC_PAPERSIZE, entries * sizeof(POINT));
    if (lists->sizes != nullptr) return count;
    GlobalFree(lists->papers);
    return -1;
}

}  // namespace

int32_t PrintFindPaper(const char* device, const char* port, const DEVMODEA* mode, uint16_t paper) {
    const int32_t count = CountPapers(device, port, mode);
    if (count <= 0) return -1;
    auto* papers = static_cast<WORD*>(MemAlloc(static_cast<uint32_t>(count) * uint32_t{sizeof(WORD)}));
    if (papers == nullptr) return -1;
    AskPapers(device, port, mode, DC_PAPERS, papers);
    int32_t place = 0;
    while (place < count && papers[place] != paper) ++place;
    MemFree(papers);
    return place < count ? place : -1;
}

bool PrintPaperSizeAt(const char* device, const char* port, const DEVMODEA* mode, int32_t place, POINT* size) {
    const int32_t count = AskPapers(device, port, mode, DC_PAPERSIZE, nullptr);
    if (count <= place) return false;
    auto* sizes = static_cast<POINT*>(MemAlloc(static_cast<uint32_t>(count) * uint32_t{sizeof(POINT)}));
    if (sizes == nullptr) return false;
    AskPapers(device, port, mode, DC_PAPERSIZE, sizes);
    *size = sizes[place];
    MemFree(sizes);
    return true;
}

int32_t MORVL_CALL PrintGetPageSizes(const char* device, const char* /*driver*/, const char* port, const DEVMODEA* mode,
                                     HGLOBAL* papers, HGLOBAL* sizes) {
    HANDLE printer = PrintOpen(device);
    if (printer == nullptr) return 0;
    HGLOBAL own = mode == nullptr ? PrintDefaultDevMode(printer, device) : nullptr;
    PaperLists lists = {};
    int32_t count = 0;
    {
        const PrintLocked<DEVMODEA> locked(own);
        count = MakeLists(device, port, own != nullptr ? locked.get() : mode, &lists);
    }
    if (own != nullptr) GlobalFree(own);
    ClosePrinter(printer);
    if (count > 0) {
        *papers = lists.papers;
        *sizes = lists.sizes;
    }
    return count;
}
