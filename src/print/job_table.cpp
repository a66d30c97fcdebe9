// The table of jobs.
#include "job_table.h"

#include <cstring>

namespace {

constexpr int32_t kStep = 2;  // entries by which the table grows

HLOCAL gPrintJobHandle = nullptr;
PrintJobContext* gpPrintJobs = nullptr;  // locked while the block lives
int32_t gPrintJobCount = 0;

template <class Matches>
PrintJobContext* FindEntry(Matches matches) {
    for (int32_t i = 0; i < gPrintJobCount; ++i) {
        if (matches(gpPrintJobs[i])) return &gpPrintJobs[i];
    }
    return nullptr;
}

PrintJobContext* FindFree() {
    return FindEntry([](const PrintJobContext& entry) { return entry.dc == nullptr; });
}

size_t SizeFor(int32_t count) {
    return static_cast<size_t>(count) * sizeof(PrintJobContext);
}

// A handle of the block with room for `count` entries; null, and the block as it was, when there is no memory.
HLOCAL Resize(int32_t count) {
    if (gPrintJobHandle == nullptr) return LocalAlloc(LMEM_MOVEABLE | LMEM_ZEROINIT, SizeFor(count));
    LocalUnlock(gPrintJobHandle);
    HLOCAL handle = LocalReAlloc(gPrintJobHandle, SizeFor(count), LMEM_MOVEABLE | LMEM_ZEROINIT);
    if (handle == nullptr) gpPrintJobs = static_cast<PrintJobContext*>(LocalLock(gPrintJobHandle));
    return handle;
}

bool Grow() {
    const int32_t count = gPrintJobCount + kStep;
    HLOCAL handle = Resize(count);
    if (handle == nullptr) return false;
    gPrintJobHandle = handle;
    gpPrintJobs = static_cast<PrintJobContext*>(LocalLock(handle));
    gPrintJobCount = count;
    return true;
}

void FreeTable() {
    LocalUnlock(gPrintJobHandle);
    LocalFree(gPrintJobHandle);
    gPrintJobHandle = nullptr;
    gpPrintJobs = nullptr;
    gPrintJobCount = 0;
}

}  // namespace

PrintJobContext* PrintLookUpJob(HDC dc) {
    if (dc == nullptr) return nullptr;
    return FindEntry([dc](const PrintJobContext& entry) { return entry.dc == dc; });
}

PrintJobContext* PrintLookUpDialog(HWND dialog) {
    if (dialog == nullptr) return nullptr;
    return FindEntry([dialog](const PrintJobContext& entry) { return entry.dialogWindow == dialog; });
}

PrintJobContext* PrintFindJobContext(HDC dc) {
    if (dc == nullptr) return nullptr;
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry != nullptr) return entry;
    entry = FindFree();
    if (entry == nullptr && Grow()) entry = FindFree();
    if (entry != nullptr) entry->dc = dc;
    return entry;
}

void PrintReleaseJob(HDC dc) {
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    std::memset(static_cast<void*>(entry), 0, sizeof *entry);
    const bool used = FindEntry([](const PrintJobContext& other) { return other.dc != nullptr; }) != nullptr;
    if (!used) FreeTable();
}

void PrintStopJob(PrintJobContext* entry, int16_t code) {
    entry->abortFlag = 1;
    entry->abortCode = code;
}
