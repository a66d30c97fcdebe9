// The clock, and modules with their strings and notifications.
#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include <morvl15/host_native.h>

namespace {

time_t SecondsOf(const SYSTEMTIME& time) {
    tm utc = {};
    utc.tm_year = time.wYear - 1900;
    utc.tm_mon = time.wMonth - 1;
    utc.tm_mday = time.wDay;
    utc.tm_hour = time.wHour;
    utc.tm_min = time.wMinute;
    utc.tm_sec = time.wSecond;
    return timegm(&utc);
}

TEST(Clock, RunsInUniversalTime) {
    const time_t before = time(nullptr);
    SYSTEMTIME now = {};
    GetSystemTime(&now);
    const time_t after = time(nullptr);
    const time_t seconds = SecondsOf(now);
    EXPECT_LE(before, seconds);
    EXPECT_LE(seconds, after);
    EXPECT_EQ(now.wDayOfWeek, (seconds / 86400 + 4) % 7);  // the first day was a Thursday
    EXPECT_LT(now.wMilliseconds, 1000);
}

TEST(Clock, StandsWhereItIsSet) {
    const SYSTEMTIME moment = {2019, 5, 3, 1, 12, 34, 56, 789};
    HostSetClock(&moment);
    SYSTEMTIME now = {};
    GetSystemTime(&now);
    HostSetClock(nullptr);
    EXPECT_EQ(SecondsOf(now), SecondsOf(moment));
    EXPECT_EQ(now.wMilliseconds, 789);
    GetSystemTime(&now);
    EXPECT_NE(SecondsOf(now), SecondsOf(moment));
}

std::vector<std::string> heard;

template <int kModule>
BOOL Hear(HINSTANCE instance, DWORD reason, LPVOID) {
    heard.push_back(std::string(instance->name) + " " + std::to_string(kModule) + " " + std::to_string(reason));
    return TRUE;
}

TEST(Modules, HearOfAttachThreadEndAndDetach) {
    HostModule first = {"first", Hear<1>, nullptr, 0, nullptr};
    HostModule second = {"second", Hear<2>, nullptr, 0, nullptr};
    HostModule silent = {"silent", nullptr, nullptr, 0, nullptr};
    heard.clear();
    HostAttachModule(&first);
    HostAttachModule(&silent);
    HostAttachModule(&second);
    HostAttachModule(&first);  // there already
    EXPECT_EQ(heard, (std::vector<std::string>{"first 1 1", "second 2 1"}));

    heard.clear();
    const DWORD index = TlsAlloc();
    std::thread([] {}).join();  // without an index the thread ends unheard
    std::thread([index] { TlsSetValue(index, &heard); }).join();
    TlsFree(index);
    EXPECT_EQ(heard, (std::vector<std::string>{"second 2 3", "first 1 3"}));

    heard.clear();
    HostDetachModule(&first);
    HostDetachModule(&first);  // no longer there
    HostDetachModule(&silent);
    HostDetachModule(&second);
    EXPECT_EQ(heard, (std::vector<std::string>{"first 1 0", "second 2 0"}));
}

TEST(Modules, StringsComeFromTheirTables) {
    const HostString strings[] = {{10, "ten"}, {11, ""}, {65535, "last"}};
    HostModule module = {"strings", nullptr, strings, 3, nullptr};
    struct {
        int line;
        HINSTANCE instance;
        UINT id;
        INT size;
        INT length;
        const char* text;
    } const kRows[] = {
        {__LINE__, &module, 10, 8, 3, "ten"},     {__LINE__, &module, 10, 4, 3, "ten"},
        {__LINE__, &module, 10, 3, 2, "te"},      {__LINE__, &module, 10, 1, 0, ""},
        {__LINE__, &module, 10, 0, 0, "#"},  // no room, nothing written
        {__LINE__, &module, 10, -1, 0, "#"},      {__LINE__, &module, 11, 8, 0, ""},
        {__LINE__, &module, 65535, 8, 4, "last"}, {__LINE__, &module, 12, 8, 0, ""},
        {__LINE__, nullptr, 7, 8, 5, "seven"},  // the program's own
        {__LINE__, nullptr, 10, 8, 0, ""},
    };
    const HostString programStrings[] = {{7, "seven"}};
    HostSetProgramStrings(programStrings, 1);
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, "");
        char buffer[] = "#########";
        EXPECT_EQ(LoadStringA(c.instance, c.id, buffer, c.size), c.length);
        EXPECT_EQ(std::string(buffer).substr(0, c.size > 0 ? std::string::npos : 1), c.text);
        EXPECT_EQ(buffer[c.length + 1], '#');
    }
    HostSetProgramStrings(nullptr, 0);
    EXPECT_EQ(LoadStringA(nullptr, 7, nullptr, 8), 0);
}

TEST(LastError, IsTheThreadsOwn) {
    SetLastError(ERROR_ACCESS_DENIED);
    std::thread([] {
        EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
        SetLastError(ERROR_INVALID_PARAMETER);
    }).join();
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    SetLastError(ERROR_SUCCESS);
}

}  // namespace
