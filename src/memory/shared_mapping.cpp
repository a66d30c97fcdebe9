// The named mapping of the shared heap: attaching it at the one address, and letting it go.
#include <morvl15/host.h>
#include <morvl15/memory.h>

#include "shared_layout.h"
#include "shared_mutex.h"

namespace {

constexpr char kMappingName[] = "MORVEL_SHARED_MEM";

HANDLE gMemMapping = nullptr;
void* gMemView = nullptr;

// Where the view lies in every process, since the heap holds absolute addresses.
void* MemViewAddress() {
    constexpr DWORD kWindowsNT = 2;
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    return MemSharedPointer(version.dwPlatformId == kWindowsNT ? 0x40000000 : 0xA0000000);
}

// Opens the mapping, or makes it if there is none; `existed` tells which.
HANDLE MemOpenMapping(uint32_t size, bool* existed) {
    MemOpenSecurity security;
    SetLastError(ERROR_SUCCESS);
    const HANDLE mapping =
        CreateFileMappingA(INVALID_HANDLE_VALUE, security.Attributes(), PAGE_READWRITE, 0, size, kMappingName);
    *existed = GetLastError() == ERROR_ALREADY_EXISTS;
    return mapping;
}

// Attaches the mapping. When a view is there already, no second one can be had at its address, and the first goes too.
void* MemAttach(uint32_t* created, uint32_t size) {
    bool existed = false;
    const HANDLE mapping = MemOpenMapping(size, &existed);
    void* view = nullptr;
    if (mapping != nullptr) view = MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0, MemViewAddress());
    if (view == nullptr) {
        if (mapping != nullptr) CloseHandle(mapping);
        MemSharedTerminate();
        return nullptr;
    }
    gMemMapping = mapping;
    gMemView = view;
    if (created != nullptr) *created = existed ? 0 : 1;
    return view;
}

}  // namespace

void* MORVL_CALL MemSharedInit(uint32_t* created, uint32_t size) {
    if (MemAcquireMutex() == 0) return nullptr;
    void* view = MemAttach(created, size);
    return MemReleaseMutex() != 0 ? view : nullptr;
}

void MORVL_CALL MemSharedTerminate() {
    if (gMemView != nullptr) {
        UnmapViewOfFile(gMemView);
        gMemView = nullptr;
        gMemSharedHeap = nullptr;
        gMemSharedSize = 0;
    }
    if (gMemMapping != nullptr) {
        CloseHandle(gMemMapping);
        gMemMapping = nullptr;
    }
}
