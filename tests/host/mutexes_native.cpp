// Handles and mutexes of the native host.
#include <string>
#include <thread>

#include "objects.h"

namespace {

// ---- handles ----------------------------------------------------------------------------------------------------

TEST_F(Objects, HandlesThatAreNoneAreRefused) {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, "m");
    EXPECT_EQ(MapViewOfFileEx(mutex, FILE_MAP_ALL_ACCESS, 0, 0, 0, nullptr), nullptr);  // of another kind
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CloseHandle(static_cast<char*>(mutex) + 1));
    EXPECT_TRUE(CloseHandle(mutex));
    for (const HANDLE handle : {HANDLE{nullptr}, mutex, INVALID_HANDLE_VALUE, static_cast<HANDLE>(&session_)}) {
        EXPECT_FALSE(CloseHandle(handle));
        EXPECT_FALSE(ReleaseMutex(handle));
        EXPECT_EQ(WaitForSingleObject(handle, 0), WAIT_FAILED);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    }
}

TEST_F(Objects, AHandleThatWasInUseIsNoLongerKnownWhenItIsClosed) {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, "m");
    const HANDLE kept = OpenMutexA(SYNCHRONIZE, FALSE, "m");
    EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
    EXPECT_TRUE(CloseHandle(mutex));
    EXPECT_FALSE(ReleaseMutex(mutex));
    EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_FAILED);
    EXPECT_TRUE(ReleaseMutex(kept));  // it stayed owned
    const HANDLE mapping = NewMapping(4096);
    EXPECT_EQ(mapping, mutex);  // the number is given out again
    EXPECT_EQ(WaitForSingleObject(mapping, INFINITE), WAIT_FAILED);
    EXPECT_TRUE(CloseHandle(mapping));
    EXPECT_TRUE(CloseHandle(kept));
}

TEST_F(Objects, NamesOfEveryKind) {
    for (const std::string& name : {std::string("Global\\a/b"), std::string(".."), std::string(200, 'n')}) {
        const HANDLE first = NewMapping(4096, name.c_str());
        const HANDLE second = NewMapping(4096, name.c_str());
        EXPECT_EQ(error_, ERROR_ALREADY_EXISTS) << name;
        EXPECT_TRUE(CloseHandle(first) && CloseHandle(second)) << name;
    }
    EXPECT_EQ(NewMapping(4096, std::string(300, 'n').c_str()), nullptr);
    EXPECT_EQ(error_, ERROR_FILENAME_EXCED_RANGE);
    EXPECT_EQ(OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, nullptr), nullptr);
    EXPECT_EQ(OpenMutexA(SYNCHRONIZE, FALSE, "m"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(Objects, SessionsKeepTheirNamesApart) {
    const HANDLE here = NewMapping(4096);
    variable_.Put((session_ + "b").c_str());
    const HANDLE there = NewMapping(4096);
    EXPECT_EQ(error_, ERROR_SUCCESS);
    CloseHandle(there);
    CloseHandle(here);
    variable_.Put(session_.c_str());
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

}  // namespace
