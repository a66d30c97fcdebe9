#include "file_sharing.h"

#include <fcntl.h>
#include <sys/file.h>
#include <time.h>
#include <unistd.h>

namespace {

// The facts, as places of their bytes.
constexpr off_t kFacts = off_t{1} << 62;
constexpr off_t kReads = kFacts;
constexpr off_t kWrites = kFacts + 1;
constexpr off_t kForbidsReading = kFacts + 2;
constexpr off_t kForbidsWriting = kFacts + 3;
constexpr off_t kForbidsDeleting = kFacts + 4;
constexpr off_t kFactCount = 5;

// What an opener that doesn't share a thing forbids, and what stands against it.
struct ShareRule {
    DWORD access;
    DWORD share;
    off_t fact;
    off_t opposite;
};

constexpr ShareRule kRules[] = {
    {GENERIC_READ, FILE_SHARE_READ, kReads, kForbidsReading},
    {GENERIC_WRITE, FILE_SHARE_WRITE, kWrites, kForbidsWriting},
};

struct flock Range(short type, off_t start, off_t length) {
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = start;
    range.l_len = length;
    return range;
}

void Note(int file, off_t fact) {
    struct flock range = Range(F_RDLCK, fact, 1);
    fcntl(file, F_OFD_SETLK, &range);
}

void ForgetAll(int file) {
    struct flock range = Range(F_UNLCK, kFacts, kFactCount);
    fcntl(file, F_OFD_SETLK, &range);
}

bool OthersHave(int file, off_t fact) {
    struct flock range = Range(F_WRLCK, fact, 1);
    return fcntl(file, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
}

// Keeps other openers out for a moment. A program of another kind may hold such a lock for long: after a while the
// opener goes on without.
class Moment {
  public:
    explicit Moment(int file) : file_(file) {
        constexpr int kTries = 200;
        constexpr timespec kPause = {0, 1000000};
        for (int i = 0; i < kTries && !held_; ++i) {
            held_ = flock(file, LOCK_EX | LOCK_NB) == 0;
            if (!held_) nanosleep(&kPause, nullptr);
        }
    }
    ~Moment() {
        if (held_) flock(file_, LOCK_UN);
    }
    Moment(const Moment&) = delete;
    Moment& operator=(const Moment&) = delete;

  private:
    int file_;
    bool held_ = false;
};

}  // namespace

bool HostShareFile(int file, DWORD access, DWORD share) {
    if (access == 0) return true;
    const Moment moment(file);
    for (const ShareRule& rule : kRules) {
        const bool uses = (access & rule.access) != 0;
        const bool shares = (share & rule.share) != 0;
        if ((uses && OthersHave(file, rule.opposite)) || (!shares && OthersHave(file, rule.fact))) {
            ForgetAll(file);
            return false;
        }
        if (uses) Note(file, rule.fact);
        if (!shares) Note(file, rule.opposite);
    }
    if ((share & FILE_SHARE_DELETE) == 0) Note(file, kForbidsDeleting);
    return true;
}

bool HostMayEmpty(int file) {
    return !OthersHave(file, kForbidsWriting);
}

bool HostMayDelete(int file) {
    return !OthersHave(file, kForbidsDeleting);
}
