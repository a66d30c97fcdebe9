// The list of printers.
#include "printer_list.h"

#include <cstring>

#include <morvl15/intl.h>
#include <morvl15/memory.h>

#include "../frame/instance.h"

namespace {

enum : UINT { kTextOn = 1964, kTextEntry = 1966, kTextNone = 1967 };

constexpr size_t kTextSize = 64;

HGLOBAL gPrintListHandle = nullptr;
const PRINTER_INFO_2A* gpPrintList = nullptr;  // locked while the block lives
int32_t gPrintListCount = 0;

bool Enumerate(BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
    *count = 0;
    return EnumPrintersA(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, 2, buffer, size, needed, count) != 0;
}

// One try with a block of the size asked for. Result: the last error, 0 for success.
DWORD TryEnumerate(DWORD* needed) {
    gPrintListHandle = GlobalAlloc(GHND, *needed);
    if (gPrintListHandle == nullptr) return ERROR_NOT_ENOUGH_MEMORY;
    auto* buffer = static_cast<BYTE*>(GlobalLock(gPrintListHandle));
    DWORD count = 0;
    if (Enumerate(buffer, *needed, needed, &count)) {
        gpPrintList = reinterpret_cast<const PRINTER_INFO_2A*>(buffer);
        gPrintListCount = static_cast<int32_t>(count);
        return ERROR_SUCCESS;
    }
    const DWORD error = GetLastError();
    PrintFreePrinterList();
    return error;
}

// The texts that lines are made with.
struct EntryTexts {
    char entry[kTextSize];
    char none[kTextSize];
};

EntryTexts LoadEntryTexts() {
    EntryTexts texts = {};
    LoadStringA(gLibInstance, kTextEntry, texts.entry, sizeof texts.entry);
    LoadStringA(gLibInstance, kTextNone, texts.none, sizeof texts.none);
    return texts;
}

// The lines of one printer. `work` has room for the port field.
void WalkPorts(const PRINTER_INFO_2A& printer, const EntryTexts& texts, bool hideNone, char* work, PrintEntryTaker take,
               HWND list) {
    const char* cursor = printer.pPortName;
    while (*cursor != '\0') {
        const char* port = nullptr;
        const size_t length = PrintNextPort(&cursor, &port);
        std::memcpy(work, port, length);
        work[length] = '\0';
        if (length == 0 || (hideNone && IntlIsStrEqual(work, texts.none))) continue;
        char entry[kPrintEntrySize];
        wsprintfA(entry, texts.entry, printer.pPrinterName, work);
        take(list, entry);
    }
}

}  // namespace

size_t PrintNextPort(const char** cursor, const char** port) {
    const char* at = *cursor;
    while (*at != '\0' && *at != ',' && *at != ' ') at += IntlIsDBChar(at) ? 2 : 1;
    *port = *cursor;
    const auto length = static_cast<size_t>(at - *cursor);
    if (*at == ',') ++at;
    *cursor = IntlStripStartSpace(at);
    return length;
}

int32_t PrintLoadPrinterList() {
    PrintFreePrinterList();
    DWORD needed = 0;
    DWORD count = 0;
    if (Enumerate(nullptr, 0, &needed, &count)) return 0;
    DWORD error = GetLastError();
    while (error == ERROR_INSUFFICIENT_BUFFER) error = TryEnumerate(&needed);
    return error == ERROR_SUCCESS ? gPrintListCount : -1;
}

void PrintFreePrinterList() {
    if (gPrintListHandle == nullptr) return;
    GlobalUnlock(gPrintListHandle);
    GlobalFree(gPrintListHandle);
    gPrintListHandle = nullptr;
    gpPrintList = nullptr;
    gPrintListCount = 0;
}

const PRINTER_INFO_2A* PrintFindPrinter(const char* name) {
    for (int32_t i = 0; i < gPrintListCount; ++i) {
        if (_stricmp(gpPrintList[i].pPrinterName, name) == 0) return &gpPrintList[i];
    }
    return nullptr;
}

void PrintWalkEntries(bool hideNone, PrintEntryTaker take, HWND list) {
    const EntryTexts texts = LoadEntryTexts();
    for (int32_t i = 0; i < gPrintListCount; ++i) {
        const PRINTER_INFO_2A& printer = gpPrintList[i];
        if (printer.pPortName == nullptr) continue;
        auto* work = static_cast<char*>(MemAlloc(static_cast<uint32_t>(std::strlen(printer.pPortName)) + 1));
        if (work == nullptr) return;
        WalkPorts(printer, texts, hideNone, work, take, list);
        MemFree(work);
    }
}

void PrintEntryStart(char* entry, const char* device) {
    const EntryTexts texts = LoadEntryTexts();
    wsprintfA(entry, texts.entry, device, "");
}

bool PrintCutEntry(char* entry) {
    char on[kTextSize] = {};
    LoadStringA(gLibInstance, kTextOn, on, sizeof on);
    const int32_t place = IntlStrScan(entry, on);
    if (place < 0) return false;
    *IntlStrNthChar(entry, place) = '\0';
    return true;
}
