#include "named_memory.h"

#include <dirent.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>
#include <vector>

namespace {

constexpr char kFolder[] = "/dev/shm/";
constexpr char kPrefix[] = "morvl15.";
constexpr int kAttempts = 1000;  // against a stranger who makes and removes the file without end

constexpr mode_t kOwnerOnly = 0600;
constexpr mode_t kEverybody = 0666;

// ---- files and locks --------------------------------------------------------------------------------------------

class FileHolder {
  public:
    explicit FileHolder(int file) : file_(file) {}
    ~FileHolder() {
        if (file_ >= 0) close(file_);
    }
    FileHolder(const FileHolder&) = delete;
    FileHolder& operator=(const FileHolder&) = delete;

    int Get() const { return file_; }
    int Release() { return std::exchange(file_, -1); }

  private:
    int file_;
};

// Locks the whole file for this open file: F_RDLCK (shared), F_WRLCK (exclusive) or F_UNLCK (not at all). A lock held
// already changes in one step.
bool Lock(int file, short type, bool wait) {
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    int result = 0;
    do {
        result = fcntl(file, wait ? F_OFD_SETLKW : F_OFD_SETLK, &lock);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

bool IsUnused(int file) {
    return Lock(file, F_WRLCK, false);
}

// Opens a file as it is; neither follows a link nor waits for the other end of a pipe.
int OpenExisting(const std::string& path) {
    return open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
}

// A path by which the file behind an open one can be reached, whatever has become of its name.
std::string PathOfOpen(int file) {
    return "/proc/self/fd/" + std::to_string(file);
}

bool IsRegularFile(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// How many names an open file has.
nlink_t Links(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 ? status.st_nlink : 0;
}

uint64_t SizeOf(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 ? static_cast<uint64_t>(status.st_size) : 0;
}

// Takes the name of an unused file away. Where the name is not ours to take, the file gives its memory up, unless it
// has another name too and so may be something else. The caller holds the file exclusively.
void RemoveUnused(int file, const std::string& path) {
    if (unlink(path.c_str()) == 0 || Links(file) != 1) return;
    if (ftruncate(file, 0) != 0) return;  // the next comer tries again
}

DWORD ErrorOf(int error) {
    switch (error) {
        case EACCES:
        case EPERM: return ERROR_ACCESS_DENIED;
        case ENOENT: return ERROR_FILE_NOT_FOUND;
        case EMFILE:
        case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
        case ENOMEM:
        case ENOSPC:
        case EFBIG: return ERROR_NOT_ENOUGH_MEMORY;
        default: return ERROR_INVALID_HANDLE;  // what has the name is no memory
    }
}

// ---- names ------------------------------------------------------------------------------------------------------

// Appends a text with all but letters, digits, "-" and "_" as "%" and two hexadecimal digits.
void AppendEncoded(std::string& path, const char* text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                           (byte >= 'a' && byte <= 'z') || byte == '-' || byte == '_';
        if (plain) {
            path += *text;
        } else {
            path += '%';
            path += kDigits[byte >> 4];
            path += kDigits[byte & 15];
        }
    }
}

// "/dev/shm/morvl15." + kind + "." + name, with the session's name and another "." in front of the kind if there is a
// session. Empty when that makes too long a file name.
std::string PathOf(const char* kind, const char* name) {
    std::string path = std::string(kFolder) + kPrefix;
    const char* session = secure_getenv("MORVL15_SESSION");
    if (session != nullptr && *session != '\0') {
        AppendEncoded(path, session);
        path += '.';
    }
    path += kind;
    path += '.';
    AppendEncoded(path, name);
    return path.size() - std::strlen(kFolder) <= NAME_MAX ? path : std::string();
}

// ---- what is in use, for a fork and for the end of the process ----------------------------------------------------

struct UsedMemory {
    std::mutex lock;
    std::vector<NamedMemory*> all;
};

void BeforeFork();
void AfterForkInParent();
void AfterForkInChild();

// Never destroyed: objects may be closed by other destructors after the one below.
UsedMemory& Used() {
    static auto* used = [] {
        pthread_atfork(BeforeFork, AfterForkInParent, AfterForkInChild);
        return new UsedMemory;
    }();
    return *used;
}

void BeforeFork() {
    Used().lock.lock();
}

void AfterForkInParent() {
    Used().lock.unlock();
}

// Up to here the child has shared its parent's open files and their locks. It gets its own, and so is a user of its
// own.
void AfterForkInChild() {
    for (NamedMemory* memory : Used().all) memory->Reopen();
    Used().lock.unlock();
}

// Takes the names of what is still open away at the end of the process.
struct EndOfProcess {
    EndOfProcess() = default;
    ~EndOfProcess() {
        const std::lock_guard guard(Used().lock);
        for (NamedMemory* memory : Used().all) memory->Release();
        Used().all.clear();
    }
    EndOfProcess(const EndOfProcess&) = delete;
    EndOfProcess& operator=(const EndOfProcess&) = delete;
};

const EndOfProcess endOfProcess;

// Takes away what killed processes have left behind.
void SweepLeftovers() {
    DIR* folder = opendir(kFolder);
    if (folder == nullptr) return;
    while (const dirent* entry = readdir(folder)) {
        if (std::strncmp(entry->d_name, kPrefix, std::strlen(kPrefix)) != 0) continue;
        const std::string path = std::string(kFolder) + entry->d_name;
        const FileHolder file(OpenExisting(path));
        if (file.Get() >= 0 && IsRegularFile(file.Get()) && IsUnused(file.Get())) RemoveUnused(file.Get(), path);
    }
    closedir(folder);
}

// ---- opening and creating ---------------------------------------------------------------------------------------

// Not an outcome of the whole: another process was at work on the name, and what it left is to be looked at.
constexpr DWORD kLookAgain = ERROR_ALREADY_EXISTS;

NamedMemoryResult Failure(DWORD error) {
    return NamedMemoryResult{.error = error};
}

NamedMemoryResult Success(FileHolder& file, const std::string& path, bool existed) {
    return NamedMemoryResult{.memory = std::make_shared<NamedMemory>(file.Release(), path), .existed = existed};
}

// Gives new memory its size, all zero, and its contents. The memory is reserved, so that it can't run out under its
// users.
DWORD Furnish(int file, const NamedMemoryRequest& request) {
    int error = 0;
    do {
        error = posix_fallocate(file, 0, static_cast<off_t>(request.size));
    } while (error == EINTR);
    if (error != 0) return ErrorOf(error);
    return request.fill == nullptr || request.fill(file) ? ERROR_SUCCESS : ERROR_NOT_ENOUGH_MEMORY;
}

// Makes new memory and gives it its name. kLookAgain when another process was faster.
NamedMemoryResult Publish(const std::string& path, const NamedMemoryRequest& request) {
    FileHolder file(open(kFolder, O_TMPFILE | O_RDWR | O_CLOEXEC, kOwnerOnly));
    if (file.Get() < 0) return Failure(ErrorOf(errno));
    if (fchmod(file.Get(), request.everybody ? kEverybody : kOwnerOnly) != 0) return Failure(ErrorOf(errno));
    if (const DWORD error = Furnish(file.Get(), request); error != ERROR_SUCCESS) return Failure(error);
    if (!Lock(file.Get(), F_RDLCK, false)) return Failure(ErrorOf(errno));
    if (path.empty()) return Success(file, path, false);

    if (linkat(AT_FDCWD, PathOfOpen(file.Get()).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0) {
        return Failure(errno == EEXIST ? kLookAgain : ErrorOf(errno));
    }
    return Success(file, path, false);
}

// Makes a leftover anew in its place, since its name can't be taken away. The caller holds it exclusively.
NamedMemoryResult Renew(FileHolder& file, const std::string& path, const NamedMemoryRequest& request) {
    if (!request.everybody || Links(file.Get()) != 1) return Failure(ERROR_ACCESS_DENIED);  // its owner could look in
    if (const DWORD error = Furnish(file.Get(), request); error != ERROR_SUCCESS) {
        RemoveUnused(file.Get(), path);
        return Failure(error);
    }
    Lock(file.Get(), F_RDLCK, false);
    return Success(file, path, false);
}

// Opens memory that others use. ERROR_FILE_NOT_FOUND when there is none any more, kLookAgain when it changed hands on
// the way. With a request, a leftover may be made anew.
NamedMemoryResult Join(const std::string& path, const NamedMemoryRequest* request) {
    FileHolder file(OpenExisting(path));
    if (file.Get() < 0) return Failure(ErrorOf(errno));
    if (!IsRegularFile(file.Get())) return Failure(ERROR_INVALID_HANDLE);
    if (IsUnused(file.Get())) {
        if (Links(file.Get()) == 0) return Failure(kLookAgain);
        RemoveUnused(file.Get(), path);
        if (Links(file.Get()) == 0 || request == nullptr) return Failure(ERROR_FILE_NOT_FOUND);
        return Renew(file, path, *request);
    }
    if (!Lock(file.Get(), F_RDLCK, true)) return Failure(ErrorOf(errno));
    if (Links(file.Get()) == 0 || SizeOf(file.Get()) == 0) return Failure(kLookAgain);
    return Success(file, path, true);
}

}  // namespace

NamedMemory::NamedMemory(int file, std::string path) : file_(file), path_(std::move(path)) {
    const std::lock_guard guard(Used().lock);
    Used().all.push_back(this);
}

NamedMemory::~NamedMemory() {
    {
        const std::lock_guard guard(Used().lock);
        std::erase(Used().all, this);
    }
    Release();
}

uint64_t NamedMemory::Size() const {
    return SizeOf(file_);
}

void NamedMemory::Reopen() {
    const FileHolder own(open(PathOfOpen(file_).c_str(), O_RDWR | O_CLOEXEC));
    if (own.Get() >= 0 && Lock(own.Get(), F_RDLCK, true)) dup3(own.Get(), file_, O_CLOEXEC);
}

// The lock goes first and by itself: a view may keep the file open. Of several users who end at the same time, the last
// to look finds the file unused.
void NamedMemory::Release() {
    if (file_ < 0) return;
    Lock(file_, F_UNLCK, false);
    if (!path_.empty() && IsUnused(file_) && Links(file_) > 0) RemoveUnused(file_, path_);
    close(std::exchange(file_, -1));
}

NamedMemoryResult CreateNamedMemory(const NamedMemoryRequest& request) {
    if (request.name == nullptr || *request.name == '\0') return Publish(std::string(), request);
    const std::string path = PathOf(request.kind, request.name);
    if (path.empty()) return Failure(ERROR_FILENAME_EXCED_RANGE);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        NamedMemoryResult result = Join(path, &request);
        if (result.error == ERROR_FILE_NOT_FOUND) {
            result = Publish(path, request);
            if (result.memory != nullptr) SweepLeftovers();
        }
        if (result.error != kLookAgain) return result;
    }
    return Failure(ERROR_ACCESS_DENIED);
}

NamedMemoryResult OpenNamedMemory(const char* kind, const char* name) {
    if (name == nullptr || *name == '\0') return Failure(ERROR_INVALID_PARAMETER);
    const std::string path = PathOf(kind, name);
    if (path.empty()) return Failure(ERROR_FILENAME_EXCED_RANGE);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        NamedMemoryResult result = Join(path, nullptr);
        if (result.error != kLookAgain) return result;
    }
    return Failure(ERROR_FILE_NOT_FOUND);
}
