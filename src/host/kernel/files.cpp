// Files: opening, reading and writing, deleting.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "file_errors.h"
#include "file_sharing.h"
#include "handles.h"

namespace {

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

  private:
    int number_;
};

class File : public KernelObject {
  public:
    static constexpr ObjectKind kObjectKind = ObjectKind::kFile;

    File(Descriptor descriptor, DWORD access)
        : KernelObject(kObjectKind), descriptor_(std::move(descriptor)), access_(access) {}

    int Number() const { return descriptor_.Number(); }
    bool Allows(DWORD access) const { return (access_ & access) != 0; }

  private:
    Descriptor descriptor_;
    DWORD access_;
};

struct Disposition {
    DWORD value;
    int flags;
    bool empties;
    bool tellsExisting;
};

constexpr Disposition kDispositions[] = {
    {CREATE_NEW, O_CREAT | O_EXCL, false, false},
    {CREATE_ALWAYS, O_CREAT, true, true},
    {OPEN_EXISTING, 0, false, false},
    {OPEN_ALWAYS, O_CREAT, false, true},
    {TRUNCATE_EXISTING, 0, true, false},
};

const Disposition* FindDisposition(DWORD value) {
    const auto* found = std::find_if(std::begin(kDispositions), std::end(kDispositions),
                                     [value](const Disposition& d) { return d.value == value; });
    return found != std::end(kDispositions) ? found : nullptr;
}

HANDLE Refuse(DWORD error) {
    SetLastError(error);
    return INVALID_HANDLE_VALUE;
}

// Opens without waiting for the other end of a pipe. Emptying takes the right to write, whatever access is asked for.
Descriptor OpenDescriptor(const char* name, DWORD access, const Disposition& disposition) {
    const bool writes = (access & GENERIC_WRITE) != 0 || disposition.empties;
    return Descriptor(
        open(name, (writes ? O_RDWR : O_RDONLY) | disposition.flags | O_CLOEXEC | O_NONBLOCK, kNewFileMode));
}

bool IsFolder(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

bool Exists(const char* name) {
    struct stat status = {};
    return stat(name, &status) == 0;
}

// The file of a handle that allows an access; null, with the last error set, for any other.
File* FindFile(HANDLE handle, DWORD access) {
    auto* file = HostFindObject<File>(handle);
    if (file == nullptr || access == 0 || file->Allows(access)) return file;
    SetLastError(ERROR_ACCESS_DENIED);
    return nullptr;
}

DWORD Low(uint64_t value) {
    return static_cast<DWORD>(value);
}

DWORD High(uint64_t value) {
    return static_cast<DWORD>(value >> 32);
}

}  // namespace

HANDLE CreateFileA(LPCSTR name, DWORD access, DWORD share, SECURITY_ATTRIBUTES* /*security*/, DWORD disposition,
                   DWORD /*attributes*/, HANDLE /*templateFile*/) {
    const Disposition* chosen = FindDisposition(disposition);
    if (chosen == nullptr) return Refuse(ERROR_INVALID_PARAMETER);
    if (name == nullptr || name[0] == 0) return Refuse(ERROR_PATH_NOT_FOUND);
    const bool existed = Exists(name);
    Descriptor descriptor = OpenDescriptor(name, access, *chosen);
    if (!descriptor.IsOpen()) return Refuse(HostFileError(errno, name));
    const int file = descriptor.Number();
    if (IsFolder(file)) return Refuse(ERROR_ACCESS_DENIED);
    if (!HostShareFile(file, access, share)) return Refuse(ERROR_SHARING_VIOLATION);
    if (chosen->empties && existed) {
        if (!HostMayEmpty(file)) return Refuse(ERROR_SHARING_VIOLATION);
        if (ftruncate(file, 0) != 0 && errno != EINVAL) return Refuse(HostFileError(errno, name));
    }
    const HANDLE handle = HostOpenHandle(std::make_unique<File>(std::move(descriptor), access));
    if (handle == nullptr) return INVALID_HANDLE_VALUE;
    SetLastError(existed && chosen->tellsExisting ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return handle;
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD bytes, DWORD* bytesRead, OVERLAPPED* /*overlapped*/) {
    if (bytesRead != nullptr) *bytesRead = 0;
    const File* file = FindFile(handle, GENERIC_READ);
    if (file == nullptr) return FALSE;
    const ssize_t count = read(file->Number(), buffer, bytes);
    if (count < 0) {
        SetLastError(HostFileError(errno, ""));
        return FALSE;
    }
    if (bytesRead != nullptr) *bytesRead = static_cast<DWORD>(count);
    return TRUE;
}

BOOL WriteFile(HANDLE handle, LPCVOID buffer, DWORD bytes, DWORD* bytesWritten, OVERLAPPED* /*overlapped*/) {
    if (bytesWritten != nullptr) *bytesWritten = 0;
    const File* file = FindFile(handle, GENERIC_WRITE);
    if (file == nullptr) return FALSE;
    const auto* at = static_cast<const char*>(buffer);
    for (DWORD done = 0; done < bytes;) {
        const ssize_t count = write(file->Number(), at + done, bytes - done);
        if (count < 0) {
            SetLastError(HostFileError(errno, ""));
            return FALSE;
        }
        done += static_cast<DWORD>(count);
        if (bytesWritten != nullptr) *bytesWritten = done;
    }
    return TRUE;
}

DWORD SetFilePointer(HANDLE handle, LONG distance, LONG* distanceHigh, DWORD from) {
    constexpr int kOrigins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    const File* file = FindFile(handle, 0);
    if (file == nullptr) return INVALID_SET_FILE_POINTER;
    if (from > FILE_END) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_SET_FILE_POINTER;
    }
    int64_t by = distance;
    if (distanceHigh != nullptr) by = int64_t{*distanceHigh} * (int64_t{1} << 32) + static_cast<DWORD>(distance);
    const off_t at = lseek(file->Number(), by, kOrigins[from]);
    if (at < 0) {
        SetLastError(ERROR_NEGATIVE_SEEK);
        return INVALID_SET_FILE_POINTER;
    }
    SetLastError(ERROR_SUCCESS);
    if (distanceHigh != nullptr) *distanceHigh = static_cast<LONG>(High(static_cast<uint64_t>(at)));
    return Low(static_cast<uint64_t>(at));
}

DWORD GetFileSize(HANDLE handle, DWORD* sizeHigh) {
    const File* file = FindFile(handle, 0);
    struct stat status = {};
    if (file == nullptr || fstat(file->Number(), &status) != 0) return INVALID_FILE_SIZE;
    SetLastError(ERROR_SUCCESS);
    if (sizeHigh != nullptr) *sizeHigh = High(static_cast<uint64_t>(status.st_size));
    return Low(static_cast<uint64_t>(status.st_size));
}

// A file that can't be opened can still be deleted, as the folder's owner wants it: nobody can be asked then.
BOOL DeleteFileA(LPCSTR name) {
    if (name == nullptr || name[0] == 0) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    struct stat status = {};
    DWORD error = ERROR_SUCCESS;
    if (lstat(name, &status) != 0) {
        error = HostFileError(errno, name);
    } else if (S_ISDIR(status.st_mode)) {
        error = ERROR_ACCESS_DENIED;
    } else {
        const Descriptor descriptor(S_ISREG(status.st_mode) ? open(name, O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1);
        if (descriptor.IsOpen() && !HostMayDelete(descriptor.Number())) {
            error = ERROR_SHARING_VIOLATION;
        } else if (unlink(name) != 0) {
            error = HostFileError(errno, name);
        }
    }
    if (error != ERROR_SUCCESS) SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}
