// The process heap without memory, and from several threads.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <morvl15/host_native.h>
#include <morvl15/memory.h>

namespace {

TEST(ProcessHeapFailure, ABlockThatCannotGrowStands) {
    auto* block = static_cast<char*>(MemAlloc(8));
    block[0] = 'x';
    HostFailAllocation(1);
    EXPECT_EQ(MemRealloc(block, 100), nullptr);
    EXPECT_EQ(MemSize(block), 8u);
    EXPECT_EQ(block[0], 'x');
    HostFailAllocation(1);
    EXPECT_EQ(MemAlloc(8), nullptr);
    HostFailAllocation(0);
    MemFree(block);
}

TEST(ProcessHeapThreads, AnyThreadMayCall) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < 2000; ++i) {
                auto* block = static_cast<unsigned char*>(MemAlloc(32));
                block[31] = static_cast<unsigned char>(t);
                block = static_cast<unsigned char*>(MemRealloc(block, 64));
                EXPECT_EQ(block[31], t);
                EXPECT_EQ(block[63], 0);
                MemFree(block);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
