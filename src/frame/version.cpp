// Version texts of a module, from its version resource.
#include <morvl15/frame.h>
#include <morvl15/host.h>
#include <morvl15/memory.h>

namespace {

constexpr DWORD kPathSize = 520;

// Where a text may stand: US English with the Unicode code page, then with the Latin one of Windows.
using VersionKeys = const char* const[2];

constexpr VersionKeys kProductVersion = {"\\StringFileInfo\\040904b0\\ProductVersion",
                                         "\\StringFileInfo\\040904E4\\ProductVersion"};
constexpr VersionKeys kFileVersion = {"\\StringFileInfo\\040904b0\\FileVersion",
                                      "\\StringFileInfo\\040904E4\\FileVersion"};

// The version record of a file, a block of MemAlloc. Null when there is none.
void* VERReadRecord(const char* path) {
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &handle);
    void* record = MemAlloc(size);
    if (record == nullptr || GetFileVersionInfoA(path, handle, size, record) != FALSE) return record;
    MemFree(record);
    return nullptr;
}

const char* VERFindText(const void* record, const VersionKeys& keys) {
    for (const char* key : keys) {
        void* text = nullptr;
        UINT length = 0;
        if (VerQueryValueA(record, key, &text, &length) != FALSE && length > 0) return static_cast<const char*>(text);
    }
    return nullptr;
}

int32_t VERGetText(HMODULE module, const VersionKeys& keys, char* text) {
    char path[kPathSize] = {};
    const DWORD length = GetModuleFileNameA(module, path, kPathSize);
    if (text == nullptr || length == 0 || length >= kPathSize) return 0;
    void* record = VERReadRecord(path);
    if (record == nullptr) return 0;
    const char* found = VERFindText(record, keys);
    if (found != nullptr) lstrcpyA(text, found);
    MemFree(record);
    return found != nullptr ? 1 : 0;
}

}  // namespace

int32_t MORVL_CALL VERGetVersionString(HMODULE module, char* text) {
    return VERGetText(module, kProductVersion, text);
}

int32_t MORVL_CALL VERGetBuildString(HMODULE module, char* text) {
    return VERGetText(module, kFileVersion, text);
}
