// The global lock and its counted protocol.
#include <gtest/gtest.h>

#include <cstdint>
#include <future>
#include <thread>
#include <utility>

#include "frame/lock.h"

namespace {

int32_t CountSeenByAnotherThread() {
    return std::async(std::launch::async, [] { return CR_LockCount(&gCRMainSect); }).get();
}

TEST(MainLock, CountFollowsTheCountedProtocol) {
    EXPECT_EQ(gpCRSECTMain, &gCRMainSect);
    for (int32_t level = 1; level <= 3; ++level) {
        CRTakeMainLock();
        EXPECT_EQ(CR_LockCount(&gCRMainSect), level);
    }
    for (int32_t level = 2; level >= 0; --level) {
        CRGiveMainLock();
        EXPECT_EQ(CR_LockCount(&gCRMainSect), level);
    }
}

TEST(MainLock, UnwindFreesEveryLevelAndRewindTakesThemBack) {
    for (int level = 0; level < 3; ++level) CRTakeMainLock();
    EXPECT_EQ(CR_Unwind(&gCRMainSect), 3);
    EXPECT_EQ(CountSeenByAnotherThread(), 0);  // would wait for ever if a level were still held
    CR_Rewind(&gCRMainSect, 3);
    EXPECT_EQ(CR_LockCount(&gCRMainSect), 3);

    // Another thread waits until the third level has been given up.
    auto other = std::async(std::launch::async, [] {
        const CRMainLock lock;
        return gCRMainSect.lockCount;
    });
    CRGiveMainLock();
    CRGiveMainLock();
    EXPECT_EQ(CR_LockCount(&gCRMainSect), 1);
    CRGiveMainLock();
    EXPECT_EQ(other.get(), 1);
}

TEST(MainLock, WithNoLevelsOrNoLockNothingHappens) {
    EXPECT_EQ(CR_Unwind(&gCRMainSect), 0);
    CR_Rewind(&gCRMainSect, 0);
    CR_Rewind(&gCRMainSect, -5);
    EXPECT_EQ(CR_LockCount(&gCRMainSect), 0);
    EXPECT_EQ(CR_Unwind(nullptr), 0);
    EXPECT_EQ(CR_Unwind(reinterpret_cast<CRSect*>(UINTPTR_MAX)), 0);

    CRSect* const kept = std::exchange(gpCRSECTMain, nullptr);
    CRTakeMainLock();
    CRGiveMainLock();
    gpCRSECTMain = kept;
    EXPECT_EQ(CountSeenByAnotherThread(), 0);
}

TEST(MainLock, OneThreadAtATime) {
    int32_t shared = 0;
    auto work = [&shared] {
        for (int i = 0; i < 20000; ++i) {
            const CRMainLock outer;
            const CRMainLock inner;
            ++shared;
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(shared, 40000);
}

}  // namespace
