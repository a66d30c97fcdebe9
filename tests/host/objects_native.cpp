// Handles, mutexes and mappings of the native host.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <morvl15/host_native.h>

namespace {

constexpr uid_t kStranger = 65534;
constexpr uid_t kAnotherStranger = 65533;

// A child process that does some work and then waits to be told to end, or killed.
class Child {
  public:
    // The work's result is the first thing to be known of the child.
    explicit Child(const std::function<int()>& work) {
        int results[2];
        int orders[2];
        EXPECT_EQ(pipe(results), 0);
        EXPECT_EQ(pipe(orders), 0);
        id_ = fork();
        if (id_ == 0) {
            close(orders[1]);
            const int result = work();
            if (write(results[1], &result, sizeof result) != sizeof result) _exit(1);
            char order = 0;
            static_cast<void>(!read(orders[0], &order, 1));
            std::exit(0);
        }
        close(results[1]);
        close(orders[0]);
        EXPECT_EQ(read(results[0], &result_, sizeof result_), static_cast<ssize_t>(sizeof result_));
        close(results[0]);
        orders_ = orders[1];
    }
    ~Child() { End(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    int Result() const { return result_; }
    void Kill() {
        kill(id_, SIGKILL);
        End();
    }
    void End() {
        if (id_ < 0) return;
        close(orders_);
        waitpid(id_, nullptr, 0);
        id_ = -1;
    }

  private:
    pid_t id_ = -1;
    int orders_ = -1;
    int result_ = -1;
};

class Objects : public testing::Test {
  protected:
    void SetUp() override {
        kept_ = getenv("MORVL15_SESSION");
        session_ = "test" + std::to_string(getpid());
        setenv("MORVL15_SESSION", session_.c_str(), 1);
        InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor_, TRUE, nullptr, FALSE);
    }
    void TearDown() override {
        EXPECT_NE(access(PathOf("mapping", "m").c_str(), F_OK), 0);
        EXPECT_NE(access(PathOf("mutex", "m").c_str(), F_OK), 0);
        setenv("MORVL15_SESSION", kept_.c_str(), 1);
    }

    std::string PathOf(const std::string& kind, const std::string& name) {
        return "/dev/shm/morvl15." + session_ + "." + kind + "." + name;
    }

    // Creates, and tells the last error beside.
    HANDLE NewMapping(DWORD size, const char* name = "m", DWORD* error = nullptr) {
        const HANDLE handle = CreateFileMappingA(INVALID_HANDLE_VALUE, &everybody_, PAGE_READWRITE, 0, size, name);
        if (error != nullptr) *error = GetLastError();
        return handle;
    }
    static char* View(HANDLE mapping) {
        return static_cast<char*>(MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0, nullptr));
    }
    // The error of making a mapping, which is closed again.
    int ErrorOfNewMapping(LPSECURITY_ATTRIBUTES security) {
        const HANDLE handle = CreateFileMappingA(INVALID_HANDLE_VALUE, security, PAGE_READWRITE, 0, 4096, "m");
        const auto error = static_cast<int>(GetLastError());
        if (handle != nullptr) CloseHandle(handle);
        return error;
    }

    std::string kept_;
    std::string session_;
    SECURITY_DESCRIPTOR descriptor_ = {};
    SECURITY_ATTRIBUTES everybody_ = {sizeof everybody_, &descriptor_, TRUE};
};

// ---- handles ----------------------------------------------------------------------------------------------------

TEST_F(Objects, HandlesThatAreNoneAreRefused) {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, "m");
    EXPECT_EQ(MapViewOfFileEx(mutex, FILE_MAP_ALL_ACCESS, 0, 0, 0, nullptr), nullptr);  // of another kind
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(CloseHandle(mutex));
    for (const HANDLE handle : {HANDLE{nullptr}, mutex, INVALID_HANDLE_VALUE, static_cast<HANDLE>(&session_)}) {
        EXPECT_FALSE(CloseHandle(handle));
        EXPECT_FALSE(ReleaseMutex(handle));
        EXPECT_EQ(WaitForSingleObject(handle, 0), WAIT_FAILED);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

TEST_F(Objects, NamesOfEveryKind) {
    const std::string long_name(200, 'n');
    for (const char* name : {"Global\\a/b", "..", "m", long_name.c_str()}) {
        const HANDLE first = NewMapping(4096, name);
        DWORD error = 0;
        const HANDLE second = NewMapping(4096, name, &error);
        EXPECT_NE(first, nullptr) << name;
        EXPECT_EQ(error, ERROR_ALREADY_EXISTS) << name;
        CloseHandle(first);
        CloseHandle(second);
    }
    DWORD error = 0;
    EXPECT_EQ(NewMapping(4096, std::string(300, 'n').c_str(), &error), nullptr);
    EXPECT_EQ(error, ERROR_FILENAME_EXCED_RANGE);
    EXPECT_EQ(OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, nullptr), nullptr);
    EXPECT_EQ(OpenMutexA(SYNCHRONIZE, FALSE, "m"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Objects, SessionsKeepTheirNamesApart) {
    const HANDLE here = NewMapping(4096);
    setenv("MORVL15_SESSION", (session_ + "b").c_str(), 1);
    DWORD error = 1;
    const HANDLE there = NewMapping(4096, "m", &error);
    EXPECT_EQ(error, ERROR_SUCCESS);
    CloseHandle(there);
    CloseHandle(here);
    setenv("MORVL15_SESSION", session_.c_str(), 1);
}

// ---- mutexes ----------------------------------------------------------------------------------------------------

TEST_F(Objects, AMutexIsItsOwnersAsOftenAsItIsTaken) {
    const HANDLE mutex = CreateMutexA(nullptr, TRUE, "m");
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    const HANDLE same = CreateMutexA(nullptr, TRUE, "m");
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_EQ(WaitForSingleObject(same, INFINITE), WAIT_OBJECT_0);
    std::thread([mutex] {
        EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_TIMEOUT);
        EXPECT_EQ(WaitForSingleObject(mutex, 1), WAIT_TIMEOUT);
        EXPECT_FALSE(ReleaseMutex(mutex));
        EXPECT_EQ(GetLastError(), ERROR_NOT_OWNER);
    }).join();
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_TRUE(ReleaseMutex(same));
    EXPECT_FALSE(ReleaseMutex(mutex));
    CloseHandle(same);
    CloseHandle(mutex);
}

TEST_F(Objects, AMutexOfADeadOwnerIsHandedOverWithAWord) {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, "m");
    const auto take = [mutex] { return static_cast<int>(WaitForSingleObject(mutex, INFINITE)); };
    std::thread(take).join();
    EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_ABANDONED);
    EXPECT_TRUE(ReleaseMutex(mutex));
    for (int round = 0; round < 20; ++round) {
        Child child(take);
        EXPECT_EQ(child.Result(), static_cast<int>(WAIT_OBJECT_0));
        EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_TIMEOUT);
        child.Kill();
        EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_ABANDONED);
        EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0);
        EXPECT_TRUE(ReleaseMutex(mutex));
        EXPECT_TRUE(ReleaseMutex(mutex));
    }
    CloseHandle(mutex);
}

TEST_F(Objects, AMutexMayBeClosedWhileItIsOwned) {
    std::thread([] {
        const HANDLE mutex = CreateMutexA(nullptr, TRUE, nullptr);
        EXPECT_TRUE(CloseHandle(mutex));
        const HANDLE other = CreateMutexA(nullptr, TRUE, nullptr);
        EXPECT_TRUE(ReleaseMutex(other));
        EXPECT_TRUE(CloseHandle(other));
    }).join();
}

// ---- mappings ---------------------------------------------------------------------------------------------------

TEST_F(Objects, NewMemoryIsZeroAndKeepsItsSize) {
    const HANDLE first = NewMapping(10000);
    char* bytes = View(first);
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(bytes[i], 0);
    bytes[9999] = 'x';
    DWORD error = 0;
    const HANDLE second = NewMapping(5, "m", &error);
    EXPECT_EQ(error, ERROR_ALREADY_EXISTS);
    char* again = View(second);
    EXPECT_NE(again, bytes);
    EXPECT_EQ(again[9999], 'x');
    const char* part = static_cast<char*>(MapViewOfFileEx(second, FILE_MAP_READ, 0, 8192, 1808, nullptr));
    EXPECT_EQ(part[9999 - 8192], 'x');
    for (const void* view :
         {static_cast<const void*>(bytes), static_cast<const void*>(again), static_cast<const void*>(part)}) {
        EXPECT_TRUE(UnmapViewOfFile(view));
        EXPECT_FALSE(UnmapViewOfFile(view));
    }
    EXPECT_EQ(MapViewOfFileEx(first, FILE_MAP_READ, 0, 0, 20000, nullptr), nullptr);
    EXPECT_EQ(MapViewOfFileEx(first, FILE_MAP_READ, 0, 100, 0, nullptr), nullptr);
    EXPECT_EQ(MapViewOfFileEx(first, FILE_MAP_READ, 1, 0, 0, nullptr), nullptr);
    CloseHandle(first);
    CloseHandle(second);
}

TEST_F(Objects, WhatCannotBeMappedIsRefused) {
    EXPECT_EQ(NewMapping(0), nullptr);
    EXPECT_EQ(CreateFileMappingA(nullptr, nullptr, PAGE_READWRITE, 0, 1, "m"), nullptr);
    EXPECT_EQ(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, 2, 0, 1, "m"), nullptr);
    EXPECT_EQ(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0x7FFFFFFF, 0, "m"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
}

TEST_F(Objects, AViewIsNeverLaidOverSomethingElse) {
    const HANDLE mapping = NewMapping(8192);
    auto* place = static_cast<char*>(mmap(nullptr, 8192, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    munmap(place, 4096);
    place[4096] = 'x';
    EXPECT_EQ(MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0, place), nullptr);  // its second page is in the way
    EXPECT_EQ(GetLastError(), ERROR_INVALID_ADDRESS);
    EXPECT_EQ(place[4096], 'x');
    munmap(place + 4096, 4096);
    EXPECT_EQ(MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0, place), place);
    EXPECT_TRUE(UnmapViewOfFile(place));
    CloseHandle(mapping);
}

// ---- life -------------------------------------------------------------------------------------------------------

TEST_F(Objects, MemoryLivesAsLongAsAViewOfIt) {
    const HANDLE mapping = NewMapping(4096);
    char* view = View(mapping);
    CloseHandle(mapping);
    const HANDLE again = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, "m");
    EXPECT_NE(again, nullptr);
    CloseHandle(again);
    UnmapViewOfFile(view);
    EXPECT_EQ(OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, "m"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Objects, AForkedChildIsAUserOfItsOwn) {
    const HANDLE mapping = NewMapping(4096);
    char* view = View(mapping);
    view[0] = 'x';
    Child child([] { return 0; });
    UnmapViewOfFile(view);
    CloseHandle(mapping);
    DWORD error = 0;
    const HANDLE again = NewMapping(4096, "m", &error);
    EXPECT_EQ(error, ERROR_ALREADY_EXISTS);
    view = View(again);
    EXPECT_EQ(view[0], 'x');
    UnmapViewOfFile(view);
    CloseHandle(again);
    child.End();  // it took the name away
}

TEST_F(Objects, MemoryGoesWithItsLastUserHoweverThatEnds) {
    for (const bool killed : {false, true}) {
        Child last([this] {
            View(NewMapping(4096))[0] = 'x';
            return 0;
        });
        killed ? last.Kill() : last.End();
        EXPECT_EQ(access(PathOf("mapping", "m").c_str(), F_OK), killed ? 0 : -1);
        DWORD error = 1;
        const HANDLE next = NewMapping(100, "m", &error);
        EXPECT_EQ(error, ERROR_SUCCESS);
        char* view = View(next);
        EXPECT_EQ(view[0], 0);
        UnmapViewOfFile(view);
        CloseHandle(next);
    }
}

TEST_F(Objects, WhatAKilledProcessLeftIsSweptAway) {
    Child killed([this] { return NewMapping(4096) != nullptr ? 1 : 0; });
    killed.Kill();
    ASSERT_EQ(access(PathOf("mapping", "m").c_str(), F_OK), 0);
    CloseHandle(NewMapping(4096, "other"));
    EXPECT_NE(access(PathOf("mapping", "m").c_str(), F_OK), 0);
}

TEST_F(Objects, OneOfManyCreates) {
    for (int round = 0; round < 20; ++round) {
        int start[2];
        ASSERT_EQ(pipe(start), 0);
        std::vector<pid_t> children;
        for (int i = 0; i < 5; ++i) {
            children.push_back(fork());
            if (children.back() != 0) continue;
            close(start[1]);
            char byte = 0;
            static_cast<void>(!read(start[0], &byte, 1));  // until all are there
            DWORD error = 0;
            const HANDLE mapping = NewMapping(4096, "m", &error);
            if (mapping == nullptr) _exit(3);
            auto* users = reinterpret_cast<int*>(View(mapping));
            __atomic_add_fetch(users, 1, __ATOMIC_SEQ_CST);
            while (__atomic_load_n(users, __ATOMIC_SEQ_CST) < 5) sched_yield();  // keep it until all have it
            _exit(error == ERROR_SUCCESS ? 1 : 2);
        }
        close(start[0]);
        close(start[1]);
        int created = 0;
        for (const pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 3);
            created += WEXITSTATUS(status) == 1 ? 1 : 0;
        }
        EXPECT_EQ(created, 1);
    }
    CloseHandle(NewMapping(1));  // sweeps up
}

// ---- strangers --------------------------------------------------------------------------------------------------

TEST_F(Objects, LeftoversInThePlaceOfMemory) {
    const std::string path = PathOf("mapping", "m");
    const auto makeFile = [&](off_t size) {
        const int file = open(path.c_str(), O_CREAT | O_RDWR, 0666);
        EXPECT_EQ(ftruncate(file, size), 0);
        EXPECT_EQ(pwrite(file, "rubbish", size < 7 ? static_cast<size_t>(size) : 7, 0), size < 7 ? size : 7);
        close(file);
    };
    for (const off_t size : {0, 5, 100000}) {  // a file that nobody uses
        makeFile(size);
        DWORD error = 1;
        const HANDLE mapping = NewMapping(4096, "m", &error);
        EXPECT_EQ(error, ERROR_SUCCESS);
        char* view = View(mapping);
        for (int i = 0; i < 4096; ++i) ASSERT_EQ(view[i], 0);
        UnmapViewOfFile(view);
        CloseHandle(mapping);
    }
    const std::function<int()> things[] = {
        [&] { return mkdir(path.c_str(), 0777); },
        [&] { return mkfifo(path.c_str(), 0666); },
        [&] { return symlink("/etc/hostname", path.c_str()); },
    };
    for (const auto& make : things) {  // what can't be memory fails, and stays
        ASSERT_EQ(make(), 0);
        DWORD error = 0;
        EXPECT_EQ(NewMapping(4096, "m", &error), nullptr);
        EXPECT_EQ(error, ERROR_INVALID_HANDLE);
        EXPECT_EQ(remove(path.c_str()), 0);
    }
    // What is no mutex, but in use as one.
    const std::string mutexPath = PathOf("mutex", "m");
    const HANDLE mapping = NewMapping(4096);
    ASSERT_EQ(link(path.c_str(), mutexPath.c_str()), 0);
    EXPECT_EQ(CreateMutexA(nullptr, FALSE, "m"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(unlink(mutexPath.c_str()), 0);
    CloseHandle(mapping);
}

// Runs work as another user, if this one may change.
int AsUser(uid_t user, const std::function<int()>& work) {
    Child child([&] { return setresuid(user, user, user) == 0 ? work() : -1; });
    return child.Result();
}

TEST_F(Objects, EverybodyOrTheOwner) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can become other users";
    const auto open = [this] { return ErrorOfNewMapping(&everybody_); };
    const HANDLE forAll = NewMapping(4096);
    EXPECT_EQ(AsUser(kStranger, open), static_cast<int>(ERROR_ALREADY_EXISTS));
    CloseHandle(forAll);
    const HANDLE forOne = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, "m");
    EXPECT_EQ(AsUser(kStranger, open), static_cast<int>(ERROR_ACCESS_DENIED));
    CloseHandle(forOne);

    // One stranger's leftover: for another it is as good as new, but not as memory of his own.
    const auto leave = [this] {
        Child killed([this] {
            if (setresuid(kStranger, kStranger, kStranger) != 0) return 0;
            View(NewMapping(20000))[0] = 'x';
            return 1;
        });
        EXPECT_EQ(killed.Result(), 1);
        killed.Kill();
    };
    leave();
    EXPECT_EQ(AsUser(kAnotherStranger, [this] { return ErrorOfNewMapping(nullptr); }),
              static_cast<int>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(AsUser(kAnotherStranger,
                     [this] {
                         DWORD error = 1;
                         const HANDLE mapping = NewMapping(4096, "m", &error);
                         return error == ERROR_SUCCESS && View(mapping)[0] == 0 ? 1 : 0;
                     }),
              1);
    struct stat left = {};
    EXPECT_EQ(stat(PathOf("mapping", "m").c_str(), &left), 0);
    EXPECT_EQ(left.st_size, 0);  // he could take the memory away, but not the name
    EXPECT_EQ(AsUser(kStranger, open), static_cast<int>(ERROR_SUCCESS));
}

// ---- the rest ---------------------------------------------------------------------------------------------------

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
