// Critical sections.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include <morvl15/host.h>

namespace {

BOOL OtherThreadCanEnter(CRITICAL_SECTION* section) {
    BOOL entered = FALSE;
    std::thread([&] {
        entered = TryEnterCriticalSection(section);
        if (entered != FALSE) LeaveCriticalSection(section);
    }).join();
    return entered;
}

TEST(CriticalSection, TheOwnerMayEnterAgain) {
    CRITICAL_SECTION section = {};
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    EnterCriticalSection(&section);
    for (int depth = 3; depth > 0; --depth) {
        EXPECT_FALSE(OtherThreadCanEnter(&section)) << depth;
        LeaveCriticalSection(&section);
    }
    EXPECT_TRUE(OtherThreadCanEnter(&section));
    DeleteCriticalSection(&section);
}

TEST(CriticalSection, OnlyTheOwnerLeaves) {
    CRITICAL_SECTION section = {};
    EnterCriticalSection(&section);
    std::thread([&] { LeaveCriticalSection(&section); }).join();
    EXPECT_FALSE(OtherThreadCanEnter(&section));
    LeaveCriticalSection(&section);
    LeaveCriticalSection(&section);  // one too many
    EXPECT_TRUE(OtherThreadCanEnter(&section));
}

TEST(CriticalSection, OneThreadAtATime) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 5000;
    CRITICAL_SECTION section = {};
    std::atomic<int> inside{0};
    std::atomic<bool> overlapped{false};
    int total = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < kRounds; ++i) {
                EnterCriticalSection(&section);
                if (inside.fetch_add(1) != 0) overlapped = true;
                if (i % 3 == 0) {
                    EnterCriticalSection(&section);
                    LeaveCriticalSection(&section);
                }
                ++total;
                inside.fetch_sub(1);
                LeaveCriticalSection(&section);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_FALSE(overlapped);
    EXPECT_EQ(total, kThreads * kRounds);
}

}  // namespace
