// Mappings of the native host: how long they live, and who may use them.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "objects.h"

namespace {

constexpr uid_t kStranger = 65534;
constexpr uid_t kAnotherStranger = 65533;

// ---- mappings ---------------------------------------------------------------------------------------------------

TEST_F(Objects, NewMemoryIsZeroAndKeepsItsSize) {
    const HANDLE first = NewMapping(10000);
    char* bytes = View(first);
    for (int i = 0; i < 10000; ++i) ASSERT_EQ(bytes[i], 0);
    bytes[9999] = 'x';
    const HANDLE second = NewMapping(5);
    EXPECT_EQ(error_, ERROR_ALREADY_EXISTS);
    char* again = View(second);
    EXPECT_NE(again, bytes);
    EXPECT_EQ(again[9999], 'x');
    const char* part = static_cast<char*>(MapViewOfFileEx(second, FILE_MAP_READ, 0, 8192, 1808, nullptr));
    EXPECT_EQ(part[9999 - 8192], 'x');
    for (const char* view : {static_cast<const char*>(bytes), static_cast<const char*>(again), part}) {
        EXPECT_TRUE(UnmapViewOfFile(view));
        EXPECT_FALSE(UnmapViewOfFile(view));
    }
    EXPECT_EQ(MapViewOfFileEx(first, FILE_MAP_READ, 0, 0, 20000, nullptr), nullptr);
    EXPECT_EQ(MapViewOfFileEx(first, FILE_MAP_READ, 0, 100, 0, nullptr), nullptr);
    EXPECT_EQ(MapViewOfFileEx(first, FILE_MAP_READ, 1, 0, 0, nullptr), nullptr);
    EXPECT_TRUE(CloseHandle(first) && CloseHandle(second));
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
    Drop(view, mapping);
    const HANDLE again = NewMapping(4096);
    EXPECT_EQ(error_, ERROR_ALREADY_EXISTS);
    view = View(again);
    EXPECT_EQ(view[0], 'x');
    Drop(view, again);
    child.End();  // it took the name away
}

TEST_F(Objects, MemoryGoesWithItsLastUserHoweverThatEnds) {
    for (const bool killed : {false, true}) {
        Child last([this] {
            View(NewMapping(4096))[0] = 'x';
            return 0;
        });
        killed ? last.Kill() : last.End();
        EXPECT_EQ(IsThere("mapping"), killed);
        const HANDLE next = NewMapping(100);
        EXPECT_EQ(error_, ERROR_SUCCESS);
        char* view = View(next);
        EXPECT_EQ(view[0], 0);
        Drop(view, next);
    }
}

TEST_F(Objects, WhatAKilledProcessLeftIsSweptAway) {
    Child killed([this] { return NewMapping(4096) != nullptr ? 1 : 0; });
    killed.Kill();
    ASSERT_TRUE(IsThere("mapping"));
    CloseHandle(NewMapping(4096, "other"));
    EXPECT_FALSE(IsThere("mapping"));
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
            const HANDLE mapping = NewMapping(4096);
            if (mapping == nullptr) _exit(3);
            auto* users = reinterpret_cast<int*>(View(mapping));
            __atomic_add_fetch(users, 1, __ATOMIC_SEQ_CST);
            while (__atomic_load_n(users, __ATOMIC_SEQ_CST) < 5) sched_yield();  // keep it until all have it
            _exit(error_ == ERROR_SUCCESS ? 1 : 2);
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
    const std::string path = PathOf("mapping");
    for (const size_t size : {0, 5, 100000}) {  // a file that nobody uses
        std::ofstream(path) << std::string(size, 'r');
        const HANDLE mapping = NewMapping(4096);
        EXPECT_EQ(error_, ERROR_SUCCESS);
        char* view = View(mapping);
        for (int i = 0; i < 4096; ++i) ASSERT_EQ(view[i], 0);
        Drop(view, mapping);
    }
    const std::function<int()> things[] = {
        [&] { return mkdir(path.c_str(), 0777); },
        [&] { return mkfifo(path.c_str(), 0666); },
        [&] { return symlink("/etc/hostname", path.c_str()); },
    };
    for (const auto& make : things) {  // what can't be memory fails, and stays
        ASSERT_EQ(make(), 0);
        EXPECT_EQ(NewMapping(4096), nullptr);
        EXPECT_EQ(error_, ERROR_INVALID_HANDLE);
        EXPECT_EQ(remove(path.c_str()), 0);
    }
    // What is no mutex, but in use as one.
    const std::string mutexPath = PathOf("mutex");
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
    const auto openAlone = [] { return ErrorOfNewMapping(nullptr); };
    const HANDLE forAll = NewMapping(4096);
    EXPECT_EQ(AsUser(kStranger, open), static_cast<int>(ERROR_ALREADY_EXISTS));
    CloseHandle(forAll);
    const HANDLE forOne = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096, "m");
    EXPECT_EQ(AsUser(kStranger, open), static_cast<int>(ERROR_ACCESS_DENIED));
    CloseHandle(forOne);

    // One stranger's leftover: for another it is as good as new, but not as memory of his own.
    Child killed([this] {
        if (setresuid(kStranger, kStranger, kStranger) != 0) return 0;
        View(NewMapping(20000))[0] = 'x';
        return 1;
    });
    EXPECT_EQ(killed.Result(), 1);
    killed.Kill();
    EXPECT_EQ(AsUser(kAnotherStranger, openAlone), static_cast<int>(ERROR_ACCESS_DENIED));
    const auto finds = [this] {
        const HANDLE mapping = NewMapping(4096);
        return error_ == ERROR_SUCCESS && View(mapping)[0] == 0 ? 1 : 0;
    };
    EXPECT_EQ(AsUser(kAnotherStranger, finds), 1);
    struct stat left = {};
    EXPECT_EQ(stat(PathOf("mapping").c_str(), &left), 0);
    EXPECT_EQ(left.st_size, 0);  // he could take the memory away, but not the name
    EXPECT_EQ(AsUser(kStranger, open), static_cast<int>(ERROR_SUCCESS));
}

}  // namespace
