// The clock, in universal time.
#include <ctime>
#include <mutex>

#include <morvl15/host_native.h>

namespace {

std::mutex clockLock;
bool clockStands = false;
SYSTEMTIME standingTime = {};

SYSTEMTIME RunningTime() {
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    tm utc = {};
    gmtime_r(&now.tv_sec, &utc);
    return SYSTEMTIME{
        .wYear = static_cast<WORD>(utc.tm_year + 1900),
        .wMonth = static_cast<WORD>(utc.tm_mon + 1),
        .wDayOfWeek = static_cast<WORD>(utc.tm_wday),
        .wDay = static_cast<WORD>(utc.tm_mday),
        .wHour = static_cast<WORD>(utc.tm_hour),
        .wMinute = static_cast<WORD>(utc.tm_min),
        .wSecond = static_cast<WORD>(utc.tm_sec),
        .wMilliseconds = static_cast<WORD>(now.tv_nsec / 1000000),
    };
}

}  // namespace

void GetSystemTime(SYSTEMTIME* time) {
    const std::lock_guard guard(clockLock);
    *time = clockStands ? standingTime : RunningTime();
}

void HostSetClock(const SYSTEMTIME* time) {
    const std::lock_guard guard(clockLock);
    clockStands = time != nullptr;
    if (time != nullptr) standingTime = *time;
}
