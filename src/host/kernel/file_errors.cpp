#include "file_errors.h"

#include <sys/stat.h>

#include <cerrno>
#include <string>

namespace {

struct FileError {
    int reason;
    DWORD error;
};

constexpr FileError kFileErrors[] = {
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EROFS, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {ELOOP, ERROR_PATH_NOT_FOUND},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {EEXIST, ERROR_FILE_EXISTS},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {EFBIG, ERROR_DISK_FULL},
};

bool HasFolder(const std::string& name) {
    const size_t slash = name.find_last_of('/');
    if (slash == std::string::npos || slash == 0) return true;
    struct stat status = {};
    return stat(name.substr(0, slash).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

DWORD HostFileError(int reason, const char* name) {
    if (reason == ENOENT) return name[0] != 0 && HasFolder(name) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
    for (const FileError& known : kFileErrors) {
        if (known.reason == reason) return known.error;
    }
    return ERROR_INVALID_PARAMETER;
}
