// The shared heap where the system doesn't help: the address is taken, there is another platform, no memory, no mutex.
#include <sys/mman.h>

#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include <morvl15/frame.h>
#include <morvl15/host_native.h>

#include "support/shared_churn.h"
#include "support/shared_heap.h"

namespace {

class SharedHeapHost : public SharedHeap {
  protected:
    void SetUp() override {}
    uint32_t created_ = 7;
};

TEST_F(SharedHeapHost, AnAddressInUseStaysAsItIs) {
    auto* taken = static_cast<char*>(
        mmap(At(kBase + 4096), 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0));
    ASSERT_EQ(taken, At(kBase + 4096));
    taken[0] = 'x';
    EXPECT_EQ(MemSharedInit(&created_, kSize), nullptr);
    EXPECT_EQ(created_, 7u);
    EXPECT_EQ(taken[0], 'x');
    EXPECT_EQ(OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, "MORVEL_SHARED_MEM"), nullptr);  // it is dropped
    munmap(taken, 4096);
    EXPECT_EQ(MemSharedInit(&created_, kSize), At(kBase));
    EXPECT_EQ(created_, 1u);
}

TEST_F(SharedHeapHost, AnotherPlatformHasAnotherAddress) {
    constexpr uint32_t kOtherBase = 0xA0000000;
    void* probe = mmap(At(kOtherBase), kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
    if (probe == MAP_FAILED) GTEST_SKIP() << "the address is taken in this build";
    munmap(probe, kSize);
    HostSetPlatformId(VER_PLATFORM_WIN32_WINDOWS);
    EXPECT_EQ(MemSharedInit(&created_, kSize), At(kOtherBase));
    HostSetPlatformId(0);
    EXPECT_EQ(MemSharedInitHeap(At(kOtherBase), kSize, 1), 1);
    EXPECT_EQ(Alloc(10), kOtherBase + 52);
}

TEST_F(SharedHeapHost, WithoutMemoryForTheRightsItGoesOnWithoutMemoryForTheHeapNot) {
    EXPECT_EQ(MemSharedInit(&created_, 0), nullptr);
    EXPECT_EQ(created_, 7u);
    HostFailAllocation(1);
    EXPECT_EQ(MemSharedInit(&created_, kSize), At(kBase));
    EXPECT_TRUE(HostAllocationFailed());
    HostFailAllocation(0);
    EXPECT_EQ(created_, 1u);
}

TEST_F(SharedHeapHost, WithoutAMutexEveryOperationGives0) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";  // a new process: the mutex is made once and kept
    EXPECT_EXIT(
        {
            setenv("MORVL15_SESSION", std::string(300, 's').c_str(), 1);  // no name is short enough
            const bool nothing = MemAcquireMutex() == 0 && MemReleaseMutex() == 0 &&
                                 MemSharedInit(&created_, kSize) == nullptr && created_ == 7 &&
                                 MemSharedInitHeap(At(kBase), kSize, 1) == 0 && MemSharedAlloc(1) == nullptr &&
                                 MemSharedFree(At(kBase + 52)) == 0 && MemSharedCheckAll() == 0;
            std::exit(nothing && CR_LockCount(&gCRMainSect) == 0 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(SharedHeap, AnyThreadMayCall) {
    auto* slots = static_cast<SharedChurn::Slots*>(MemSharedAlloc(sizeof(SharedChurn::Slots)));
    std::vector<std::thread> threads;
    for (uint32_t seed = 0; seed < 3; ++seed) {
        threads.emplace_back([slots, seed] {
            SharedChurn churn(slots, seed);
            for (int step = 0; step < 2000; ++step) ASSERT_TRUE(churn.Step());
            EXPECT_TRUE(churn.End());
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (uint32_t& slot : *slots) EXPECT_TRUE(SharedChurn::Drop(&slot));
    EXPECT_EQ(MemSharedCheckAll(), 1);
    EXPECT_EQ(MemSharedFree(slots), 1);
    EXPECT_EQ(Header()->top, kBase + 32);
}

}  // namespace
