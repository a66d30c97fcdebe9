// Searching, checking, deleting, making and opening a file in one call.
#include <morvl15/dialog.h>

namespace {

constexpr int32_t kFailed = -1;
constexpr int32_t kDone = 0;

constexpr uint32_t kAllFlags = CBOPEN_READ_WRITE | CBOPEN_SHARE_NOTHING | CBOPEN_SHARE_READ | CBOPEN_SHARE_ALL |
                               CBOPEN_PARSE | CBOPEN_DELETE | CBOPEN_CREATE | CBOPEN_EXIST;
constexpr uint32_t kErrandFlags = CBOPEN_DELETE | CBOPEN_CREATE | CBOPEN_EXIST;

bool HasOneBitAtMost(uint32_t bits) {
    return (bits & (bits - 1)) == 0;
}

// The path of a file that is there.
bool FindPath(const char* name, char* path) {
    const DWORD length = SearchPathA(nullptr, name, nullptr, CBOPEN_PATH_SIZE, path, nullptr);
    if (length != 0 && length < CBOPEN_PATH_SIZE) return true;
    if (length != 0) SetLastError(ERROR_FILENAME_EXCED_RANGE);
    if (GetLastError() == ERROR_INVALID_PARAMETER) SetLastError(ERROR_FILE_NOT_FOUND);
    return false;
}

// The path of a file that may not be there yet.
bool MakePath(const char* name, char* path) {
    if (_fullpath(path, name, CBOPEN_PATH_SIZE) != nullptr) return true;
    SetLastError(ERROR_FILENAME_EXCED_RANGE);
    return false;
}

DWORD AccessOf(uint32_t flags) {
    return (flags & CBOPEN_READ_WRITE) != 0 ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
}

DWORD ShareOf(uint32_t flags) {
    if ((flags & CBOPEN_SHARE_NOTHING) != 0) return 0;
    return (flags & CBOPEN_SHARE_READ) != 0 ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE;
}

int32_t Open(const char* path, uint32_t flags, DWORD disposition) {
    const HANDLE file =
        CreateFileA(path, AccessOf(flags), ShareOf(flags), nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    return static_cast<int32_t>(reinterpret_cast<intptr_t>(file));
}

int32_t OpenExisting(const char* name, char* pathOut, uint32_t flags) {
    char path[CBOPEN_PATH_SIZE];
    if (!FindPath(name, path)) return kFailed;
    if (pathOut != nullptr) lstrcpyA(pathOut, path);
    return (flags & CBOPEN_EXIST) != 0 ? kDone : Open(path, flags, OPEN_EXISTING);
}

int32_t Create(const char* name, char* pathOut, uint32_t flags) {
    if (pathOut == nullptr) return Open(name, flags, CREATE_ALWAYS);
    char path[CBOPEN_PATH_SIZE];
    if (!MakePath(name, path)) return kFailed;
    lstrcpyA(pathOut, path);
    return Open(path, flags, CREATE_ALWAYS);
}

}  // namespace

int32_t MORVL_CALL CBOpenFile(const char* name, char* pathOut, uint32_t flags) {
    if ((flags & ~kAllFlags) != 0 || !HasOneBitAtMost(flags & kErrandFlags)) return kFailed;
    if ((flags & CBOPEN_PARSE) != 0) return kDone;
    if ((flags & CBOPEN_DELETE) != 0) return DeleteFileA(name) ? kDone : kFailed;
    return (flags & CBOPEN_CREATE) != 0 ? Create(name, pathOut, flags) : OpenExisting(name, pathOut, flags);
}
