#include "profile_file.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <mutex>

#include <morvl15/host_native.h>

namespace {

constexpr const char* kFileBelowConfigHome = "/morvl15/profile.ini";
constexpr off_t kLargestProfile = 16 << 20;
constexpr mode_t kFileMode = 0666;    // as far as the process's mask lets it
constexpr mode_t kFolderMode = 0700;  // as the convention for configuration folders asks

std::mutex pathLock;
std::string& ChosenPath() {
    static auto* path = new std::string;  // outlives every other object of the process
    return *path;
}

std::string HomeFolder() {
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/') return home;
    passwd entry = {};
    passwd* found = nullptr;
    char texts[4096];
    const bool known = getpwuid_r(getuid(), &entry, texts, sizeof texts, &found) == 0 && found != nullptr;
    return known ? found->pw_dir : "";
}

std::string DefaultPath() {
    const char* configHome = std::getenv("XDG_CONFIG_HOME");
    if (configHome != nullptr && *configHome == '/') return std::string(configHome) + kFileBelowConfigHome;
    const std::string home = HomeFolder();
    return home.empty() ? home : home + "/.config" + kFileBelowConfigHome;
}

std::string ProfilePath() {
    const std::lock_guard guard(pathLock);
    return ChosenPath().empty() ? DefaultPath() : ChosenPath();
}

// ---- files ------------------------------------------------------------------------------------------------------

class File {
  public:
    explicit File(int descriptor) : descriptor_(descriptor) {}
    ~File() {
        if (IsOpen()) close(descriptor_);
    }
    File(File&& other) noexcept : descriptor_(other.descriptor_) { other.descriptor_ = -1; }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    File& operator=(File&&) = delete;

    bool IsOpen() const { return descriptor_ >= 0; }
    int Descriptor() const { return descriptor_; }

  private:
    int descriptor_;
};

// Whether it is a file that a profile can be. Reading a pipe or a device might never end.
bool IsProfileFile(const File& file, struct stat& status) {
    return fstat(file.Descriptor(), &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= kLargestProfile;
}

bool ReadWhole(const File& file, std::string& text) {
    char part[4096];
    for (;;) {
        const ssize_t count = read(file.Descriptor(), part, sizeof part);
        if (count == 0) return true;
        if (count > 0) {
            text.append(part, static_cast<size_t>(count));
        } else if (errno != EINTR) {
            return false;
        }
    }
}

bool WriteWhole(const File& file, const std::string& text) {
    for (size_t written = 0; written < text.size();) {
        const ssize_t count = write(file.Descriptor(), text.data() + written, text.size() - written);
        if (count >= 0) {
            written += static_cast<size_t>(count);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

DWORD ErrorOf(int number) {
    switch (number) {
        case ENOENT:
        case ENOTDIR: return ERROR_PATH_NOT_FOUND;
        case ENOSPC:
        case EDQUOT: return ERROR_DISK_FULL;
        default: return ERROR_ACCESS_DENIED;
    }
}

// ---- changing the file ------------------------------------------------------------------------------------------

void MakeFoldersOf(const std::string& path) {
    for (size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1)) {
        mkdir(path.substr(0, slash).c_str(), kFolderMode);
    }
}

// Where a path leads in the end: a link stays a link, and the file behind it is replaced.
std::string ResolvedPath(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) != nullptr ? resolved : path;
}

bool IsStillThere(const File& file, const std::string& path) {
    struct stat opened = {};
    struct stat named = {};
    return fstat(file.Descriptor(), &opened) == 0 && stat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

// Opens the file and locks out all others that change it. While we waited for the lock, the file that we opened may
// have been replaced by a new one; then it is the new one that counts.
File OpenLocked(const std::string& path) {
    for (;;) {
        File file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, kFileMode));
        if (!file.IsOpen()) return file;
        while (flock(file.Descriptor(), LOCK_EX) != 0) {
            if (errno != EINTR) return File(-1);
        }
        if (IsStillThere(file, path)) return file;
    }
}

// Puts a new file, with the mode and as far as possible the owner of the old one, in the old one's place.
bool Replace(const std::string& path, const std::string& text, const struct stat& old) {
    std::string name = path + ".XXXXXX";
    const File file(mkostemp(name.data(), O_CLOEXEC));
    if (!file.IsOpen()) return false;
    const bool sameOwner = fchown(file.Descriptor(), old.st_uid, old.st_gid) == 0;
    const mode_t mode = old.st_mode & (sameOwner ? 07777 : 0777);
    if (fchmod(file.Descriptor(), mode) == 0 && WriteWhole(file, text) && rename(name.c_str(), path.c_str()) == 0) {
        return true;
    }
    const int reason = errno;
    unlink(name.c_str());
    errno = reason;
    return false;
}

}  // namespace

std::string ReadProfileFile() {
    const File file(open(ProfilePath().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    std::string text;
    if (!file.IsOpen() || !IsProfileFile(file, status) || !ReadWhole(file, text)) return {};
    return text;
}

DWORD ChangeProfileFile(const std::function<void(std::string& text)>& change) {
    const std::string named = ProfilePath();
    MakeFoldersOf(named);
    const std::string path = ResolvedPath(named);
    const File file = OpenLocked(path);
    if (!file.IsOpen()) return ErrorOf(errno);
    struct stat status = {};
    std::string text;
    if (!IsProfileFile(file, status) || !ReadWhole(file, text)) return ERROR_ACCESS_DENIED;
    const std::string before = text;
    change(text);
    return text == before || Replace(path, text, status) ? ERROR_SUCCESS : ErrorOf(errno);
}

void FlushProfileFile() {
    const File file(open(ProfilePath().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.IsOpen()) fsync(file.Descriptor());
}

void HostSetProfilePath(const char* path) {
    const std::lock_guard guard(pathLock);
    ChosenPath() = path != nullptr ? path : "";
}
