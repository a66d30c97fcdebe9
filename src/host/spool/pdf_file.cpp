// PDF files: written under another name in the same folder, and given their own when they are whole and on the disk.
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "../locale/code_text.h"
#include "pdf_sink.h"

namespace {

constexpr size_t kBufferBytes = size_t{64} * 1024;
constexpr size_t kLongestName = 200;  // leaves room for a number and the ending
constexpr INT kMostNumbers = 10000;
constexpr const char* kEnding = ".pdf";

// Keeps the signal by which the system tells of a file size limit from ending the process: the write just fails.
class FileSizeSignalHeld {
  public:
    FileSizeSignalHeld() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGXFSZ);
        sigset_t pending;
        sigpending(&pending);
        wasPending_ = sigismember(&pending, SIGXFSZ) == 1;
        pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }
    ~FileSizeSignalHeld() {
        const timespec now{};
        if (!wasPending_) sigtimedwait(&signal_, nullptr, &now);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    FileSizeSignalHeld(const FileSizeSignalHeld&) = delete;
    FileSizeSignalHeld& operator=(const FileSizeSignalHeld&) = delete;

  private:
    sigset_t signal_;
    sigset_t before_;
    bool wasPending_;
};

// ---- names ------------------------------------------------------------------------------------------------------

// A file name that says what the document's name says: no folders, no hidden file, no control characters.
std::string FileNameOf(const char* documentName) {
    std::string name = Utf8OfText(documentName);
    for (char& character : name)
        if (character == '/' || static_cast<unsigned char>(character) < ' ' || character == 0x7F) character = '_';
    if (name.size() > kLongestName) {
        size_t end = kLongestName;
        while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;  // inside a character
        name.resize(end);
    }
    const size_t ending = name.size() - std::min(name.size(), std::string(kEnding).size());
    if (name.compare(ending, std::string::npos, kEnding) == 0) name.resize(ending);
    if (!name.empty() && name[0] == '.') name[0] = '_';
    return name.empty() ? "Document" : name;
}

std::string NumberedName(const std::string& name, INT number) {
    return number == 1 ? name + kEnding : name + " (" + std::to_string(number) + ")" + kEnding;
}

std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return path.substr(0, slash + 1);
}

// The path from the root: the current folder can be another one when the document ends.
std::string AbsolutePath(const std::string& path) {
    char folder[PATH_MAX];
    return path[0] == '/' || getcwd(folder, sizeof folder) == nullptr ? path : std::string(folder) + "/" + path;
}

// The file itself where a path leads to it by links. False for one that isn't a file, or isn't to be replaced.
bool FindTarget(std::string* path) {
    struct stat status;
    if (stat(path->c_str(), &status) != 0) return errno == ENOENT && path->back() != '/';
    if (!S_ISREG(status.st_mode) || access(path->c_str(), W_OK) != 0) return false;
    char resolved[PATH_MAX];
    if (realpath(path->c_str(), resolved) != nullptr) *path = resolved;
    return true;
}

// ---- the file ---------------------------------------------------------------------------------------------------

class PdfFile : public PdfSink {
  public:
    // A file of that path, which replaces what is there; or, numbered, one of a name that nobody has.
    PdfFile(std::string path, bool isNumbered) : path_(std::move(path)), isNumbered_(isNumbered) {}
    ~PdfFile() override {
        if (file_ < 0) return;
        close(file_);
        if (!temporary_.empty()) unlink(temporary_.c_str());
    }

    bool Open();
    bool Write(const void* bytes, size_t size) override;
    bool Flush() override;
    bool Commit() override;
    INT Failure() const override {
        return error_ == ENOSPC || error_ == EDQUOT || error_ == EFBIG ? SP_OUTOFDISK : SP_ERROR;
    }
    INT JobNumber() const override { return number_; }

  private:
    bool Fail() {
        if (error_ == 0) error_ = errno;
        return false;
    }
    bool GiveName();

    static std::atomic<INT> lastNumber_;

    std::string path_;  // of a numbered file without its ending
    const bool isNumbered_;
    std::string temporary_;
    std::string buffer_;
    int file_ = -1;
    int error_ = 0;  // the first that was met
    const INT number_ = lastNumber_++ % INT16_MAX + 1;
};

std::atomic<INT> PdfFile::lastNumber_ = 0;

bool PdfFile::Open() {
    for (INT attempt = 0; attempt < kMostNumbers && file_ < 0; ++attempt) {
        char name[64];
        std::snprintf(name, sizeof name, ".morvl15-%ld-%d-%d.tmp", static_cast<long>(getpid()), number_, attempt);
        temporary_ = FolderOf(path_) + name;
        file_ = open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (file_ < 0 && errno != EEXIST) break;
    }
    buffer_.reserve(kBufferBytes);
    return file_ >= 0;
}

bool PdfFile::Write(const void* bytes, size_t size) {
    if (error_ != 0) return false;
    buffer_.append(static_cast<const char*>(bytes), size);
    return buffer_.size() < kBufferBytes || Flush();
}

bool PdfFile::Flush() {
    if (error_ != 0) return false;
    const FileSizeSignalHeld held;
    size_t written = 0;
    while (written < buffer_.size()) {
        const ssize_t count = write(file_, buffer_.data() + written, buffer_.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return Fail();
        written += static_cast<size_t>(count);
    }
    buffer_.clear();
    return true;
}

bool PdfFile::Commit() {
    if (!Flush()) return false;
    if (fsync(file_) != 0 && errno != EINVAL) return Fail();  // some file systems have nothing to bring onto a disk
    if (!GiveName()) return Fail();
    temporary_.clear();
    return true;
}

// The name is taken in one step: two jobs with the same document never overwrite each other.
bool PdfFile::GiveName() {
    if (!isNumbered_) return rename(temporary_.c_str(), path_.c_str()) == 0;
    for (INT number = 1; number <= kMostNumbers; ++number) {
        const std::string name = NumberedName(path_, number);
        if (renameat2(AT_FDCWD, temporary_.c_str(), AT_FDCWD, name.c_str(), RENAME_NOREPLACE) == 0) return true;
        if (errno == EINVAL && link(temporary_.c_str(), name.c_str()) == 0) {  // a file system without that step
            unlink(temporary_.c_str());
            return true;
        }
        if (errno != EEXIST) return false;
    }
    return false;
}

}  // namespace

std::unique_ptr<PdfSink> OpenPdfFile(void* /*printer*/, const HostPrintJob& job) {
    std::string path = AbsolutePath(job.output != nullptr ? job.output : FileNameOf(job.documentName));
    if (job.output != nullptr && !FindTarget(&path)) return nullptr;
    auto file = std::make_unique<PdfFile>(std::move(path), job.output == nullptr);
    return file->Open() ? std::move(file) : nullptr;
}
