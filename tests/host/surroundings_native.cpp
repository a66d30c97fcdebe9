// The clock, the version of the system, and modules with their names, strings and notifications.
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <ctime>
#include <string>
#include <thread>
#include <vector>

#include <morvl15/host_native.h>

namespace {

time_t SecondsOf(const SYSTEMTIME& time) {
    using namespace std::chrono;
    const sys_days date = year(time.wYear) / time.wMonth / time.wDay;
    return date.time_since_epoch() / 1s + (time.wHour * 60 + time.wMinute) * 60 + time.wSecond;
}

TEST(Clock, RunsInUniversalTimeOrStandsWhereItIsSet) {
    const SYSTEMTIME moment = {2019, 5, 3, 1, 12, 34, 56, 789};
    HostSetClock(&moment);
    SYSTEMTIME now = {};
    GetSystemTime(&now);
    HostSetClock(nullptr);
    EXPECT_EQ(std::memcmp(&now, &moment, sizeof now), 0);

    const time_t before = time(nullptr);
    GetSystemTime(&now);
    const time_t seconds = SecondsOf(now);
    EXPECT_TRUE(before <= seconds && seconds <= time(nullptr));
    EXPECT_EQ(now.wDayOfWeek, (seconds / 86400 + 4) % 7);  // the first day was a Thursday
    EXPECT_LT(now.wMilliseconds, 1000);
}

std::vector<std::string> heard;

template <int kModule>
BOOL Hear(HINSTANCE instance, DWORD reason, LPVOID) {
    heard.push_back(std::string(instance->name) + " " + std::to_string(kModule) + " " + std::to_string(reason));
    return TRUE;
}

TEST(Modules, HearOfAttachThreadEndAndDetach) {
    HostModule first = {"first", Hear<1>, nullptr, 0, nullptr, 0, nullptr};
    HostModule second = {"second", Hear<2>, nullptr, 0, nullptr, 0, nullptr};
    HostModule silent = {"silent", nullptr, nullptr, 0, nullptr, 0, nullptr};
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
    HostModule module = {"strings", nullptr, strings, 3, nullptr, 0, nullptr};
    struct {
        HINSTANCE instance;
        UINT id;
        INT size;
        INT length;
        const char* text;
    } const kRows[] = {
        {&module, 10, 8, 3, "ten"}, {&module, 10, 4, 3, "ten"},
        {&module, 10, 3, 2, "te"},  {&module, 10, 1, 0, ""},
        {&module, 10, 0, 0, "#"},   {&module, 10, -1, 0, "#"},  // no room, nothing written
        {&module, 11, 8, 0, ""},    {&module, 65535, 8, 4, "last"},
        {&module, 12, 8, 0, ""},    {nullptr, 7, 8, 5, "seven"},
        {nullptr, 10, 8, 0, ""},  // the program's own
    };
    const HostString programStrings[] = {{7, "seven"}};
    HostSetProgramStrings(programStrings, 1);
    for (const auto& c : kRows) {
        SCOPED_TRACE(testing::Message() << c.id << " " << c.size);
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

TEST(SystemVersion, TellsThePlatformAndTheKernel) {
    OSVERSIONINFOA version = {};
    EXPECT_FALSE(GetVersionExA(&version));
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExA(&version));
    EXPECT_EQ(version.dwPlatformId, VER_PLATFORM_WIN32_NT);
    EXPECT_GE(version.dwMajorVersion, 3u);
}

TEST(ModuleNames, AreCutToTheBuffer) {
    char path[520];
    const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
    ASSERT_EQ(length, std::strlen(path));
    EXPECT_NE(std::strstr(path, "host_tests"), nullptr);
    char shortPath[8] = "#######";
    EXPECT_EQ(GetModuleFileNameA(nullptr, shortPath, 5), 5u);
    EXPECT_EQ(std::string(shortPath, 8), std::string(path, 4) + '\0' + "##" + '\0');
    EXPECT_EQ(GetModuleFileNameA(nullptr, shortPath, 0), 0u);
}

}  // namespace
