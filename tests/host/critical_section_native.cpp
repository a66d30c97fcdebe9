// Critical sections.
#include <gtest/gtest.h>

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

TEST(CriticalSection, TheOwnerMayEnterAgainAndOnlyTheOwnerLeaves) {
    CRITICAL_SECTION section = {};
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    EnterCriticalSection(&section);
    for (int depth = 3; depth > 0; --depth) {
        std::thread([&] { LeaveCriticalSection(&section); }).join();
        EXPECT_FALSE(OtherThreadCanEnter(&section)) << depth;
        LeaveCriticalSection(&section);
    }
    LeaveCriticalSection(&section);  // one too many
    EXPECT_TRUE(OtherThreadCanEnter(&section));
    DeleteCriticalSection(&section);
}

TEST(CriticalSection, OneThreadAtATime) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 5000;
    CRITICAL_SECTION section = {};
    int total = 0;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < kRounds; ++i) {
                EnterCriticalSection(&section);
                const int before = total;
                if (i % 3 == 0) {
                    EnterCriticalSection(&section);
                    LeaveCriticalSection(&section);
                }
                total = before + 1;
                LeaveCriticalSection(&section);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(total, kThreads * kRounds);
}

}  // namespace
