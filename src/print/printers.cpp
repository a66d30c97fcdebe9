// The default printer, device contexts on it, and driver and port of a printer known by name.
#include "printers.h"

#include <cstring>

#include <morvl15/intl.h>
#include <morvl15/memory.h>
#include <morvl15/print.h>

namespace {

constexpr DWORD kDeviceLineSize = 81;

// The text at an offset into a block, or null where the block holds no terminated text there.
const char* TextAt(const char* block, size_t size, size_t offset) {
    if (offset >= size || std::memchr(block + offset, '\0', size - offset) == nullptr) return nullptr;
    return block + offset;
}

// Copies the names block and points the outputs at its texts; they stay null for a block that holds none.
void TakeNames(HGLOBAL names, char* work, const char** device, const char** driver, const char** port) {
    const auto* block = static_cast<const DEVNAMES*>(GlobalLock(names));
    if (block == nullptr) return;
    const size_t blockSize = GlobalSize(names);
    const size_t size = blockSize < kPrintNamesSize ? blockSize : kPrintNamesSize;
    std::memcpy(work, block, size);
    GlobalUnlock(names);
    DEVNAMES offsets;
    if (size < sizeof offsets) return;
    std::memcpy(&offsets, work, sizeof offsets);
    *device = TextAt(work, size, offsets.wDeviceOffset);
    *driver = TextAt(work, size, offsets.wDriverOffset);
    *port = TextAt(work, size, offsets.wOutputOffset);
}

// Cuts a text at its first comma. Result: the field behind it, without the white space in front; null without a comma.
const char* CutField(const char* text) {
    char* comma = IntlStrChr(text, ',');
    if (comma == nullptr) return nullptr;
    *comma = '\0';
    return IntlStripStartSpace(comma + 1);
}

int32_t ReadDeviceLine(char* work, const char** device, const char** driver, const char** port) {
    GetProfileStringA("Windows", "Device", "", work, kDeviceLineSize);
    if (*work == '\0') return 0;
    *device = IntlStripStartSpace(work);
    *driver = CutField(*device);
    if (*driver == nullptr) return 0;
    *port = CutField(*driver);
    return *port != nullptr ? 1 : 0;
}

using OpenContext = HDC(WINAPI*)(LPCSTR driver, LPCSTR device, LPCSTR port, const DEVMODEA* mode);

HDC OpenDefaultPrinter(OpenContext open, const DEVMODEA* mode) {
    char work[kPrintNamesSize];
    const char* device = nullptr;
    const char* driver = nullptr;
    const char* port = nullptr;
    PrintReadDefaultPrinter(work, &device, &driver, &port);
    if (device == nullptr || driver == nullptr || port == nullptr) return nullptr;
    return open(driver, device, port, mode);
}

void CopyIfWanted(char* to, const char* from) {
    if (to != nullptr) std::memcpy(to, from, std::strlen(from) + 1);
}

}  // namespace

int32_t PrintReadDefaultPrinter(char* work, const char** device, const char** driver, const char** port) {
    *device = nullptr;
    *driver = nullptr;
    *port = nullptr;
    PAGESETUPDLGA request = {};
    request.lStructSize = sizeof request;
    request.Flags = PSD_RETURNDEFAULT;
    if (!PageSetupDlgA(&request)) {
        CommDlgExtendedError();
        return ReadDeviceLine(work, device, driver, port);
    }
    if (request.hDevNames != nullptr) TakeNames(request.hDevNames, work, device, driver, port);
    if (request.hDevNames != nullptr) GlobalFree(request.hDevNames);
    if (request.hDevMode != nullptr) GlobalFree(request.hDevMode);
    return *device != nullptr && *driver != nullptr && *port != nullptr ? 1 : 0;
}

PRINTER_INFO_2A* PrintDescribe(HANDLE printer) {
    DWORD needed = 0;
    GetPrinterA(printer, 2, nullptr, 0, &needed);
    auto* description = static_cast<PRINTER_INFO_2A*>(MemAlloc(needed));
    if (description == nullptr) return nullptr;
    if (needed >= sizeof *description &&
        GetPrinterA(printer, 2, reinterpret_cast<BYTE*>(description), needed, &needed)) {
        return description;
    }
    MemFree(description);
    return nullptr;
}

void PrintCopyText(char* to, const char* from, size_t size) {
    size_t length = 0;
    if (from != nullptr) {
        while (length + 1 < size && from[length] != '\0') ++length;
        std::memcpy(to, from, length);
    }
    to[length] = '\0';
}

HDC MORVL_CALL PrintCreateDefaultPrinterDC() {
    return OpenDefaultPrinter(CreateDCA, nullptr);
}

HDC MORVL_CALL PrintCreateDefaultPrinterDCExt(const DEVMODEA* mode) {
    return OpenDefaultPrinter(CreateDCA, mode);
}

HDC MORVL_CALL PrintCreateDefaultPrinterIC() {
    return OpenDefaultPrinter(CreateICA, nullptr);
}

int32_t MORVL_CALL PrintGetDefaultPrinter(char* device, char* driver, char* port) {
    char work[kPrintNamesSize];
    const char* deviceName = nullptr;
    const char* driverName = nullptr;
    const char* portName = nullptr;
    if (!PrintReadDefaultPrinter(work, &deviceName, &driverName, &portName)) return 0;
    CopyIfWanted(device, deviceName);
    CopyIfWanted(driver, driverName);
    CopyIfWanted(port, portName);
    return 1;
}

int32_t MORVL_CALL PrintGetDevice(const char* device, char* driver, char* port) {
    HANDLE printer = nullptr;
    if (!OpenPrinterA(const_cast<char*>(device), &printer, nullptr)) return 0;
    PRINTER_INFO_2A* description = PrintDescribe(printer);
    if (description != nullptr) {
        CopyIfWanted(driver, description->pDriverName);
        CopyIfWanted(port, description->pPortName);
        MemFree(description);
    }
    ClosePrinter(printer);
    return description != nullptr ? 1 : 0;
}
