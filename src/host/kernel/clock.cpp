// The clock, in universal time.
#include <atomic>
#include <chrono>
#include <ctime>
#include <mutex>

#include <morvl15/host_native.h>

namespace {

std::mutex clockLock;
std::atomic<bool> clockStands{false};
SYSTEMTIME standingTime = {};

// As fine as the system's tick, which is the platform's own fineness, and a fraction of the price of the exact time.
timespec Now() {
    timespec now = {};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return now;
}

SYSTEMTIME RunningTime() {
    using namespace std::chrono;
    const timespec now = Now();
    const sys_seconds moment{seconds{now.tv_sec}};
    const sys_days day = floor<days>(moment);
    const year_month_day date{day};
    const hh_mm_ss time{moment - day};
    return SYSTEMTIME{
        .wYear = static_cast<WORD>(static_cast<int>(date.year())),
        .wMonth = static_cast<WORD>(static_cast<unsigned>(date.month())),
        .wDayOfWeek = static_cast<WORD>(weekday{day}.c_encoding()),
        .wDay = static_cast<WORD>(static_cast<unsigned>(date.day())),
        .wHour = static_cast<WORD>(time.hours().count()),
        .wMinute = static_cast<WORD>(time.minutes().count()),
        .wSecond = static_cast<WORD>(time.seconds().count()),
        .wMilliseconds = static_cast<WORD>(now.tv_nsec / 1000000),
    };
}

}  // namespace

void GetSystemTime(SYSTEMTIME* time) {
    if (!clockStands.load(std::memory_order_acquire)) {
        *time = RunningTime();
        return;
    }
    const std::lock_guard guard(clockLock);
    *time = standingTime;
}

void HostSetClock(const SYSTEMTIME* time) {
    const std::lock_guard guard(clockLock);
    if (time != nullptr) standingTime = *time;
    clockStands.store(time != nullptr, std::memory_order_release);
}
