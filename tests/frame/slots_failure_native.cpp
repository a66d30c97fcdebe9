// Thread slots when no block can be had.
#include <gtest/gtest.h>

#include <thread>

#include <morvl15/frame.h>
#include <morvl15/host_native.h>

namespace {

TEST(SlotsWithoutMemory, NothingIsStoredOrTouched) {
    std::thread([] {
        HostFailAllocation(1);
        EXPECT_EQ(TLS_GetItem(0), 0u);  // which needs no memory
        EXPECT_FALSE(HostAllocationFailed());
        EXPECT_EQ(TLS_SetItem(0, 5, nullptr), 0u);
        EXPECT_TRUE(HostAllocationFailed());
        EXPECT_EQ(TLS_GetItem(0), 0u);
        EXPECT_EQ(TLS_SetItem(0, 6, nullptr), 6u);
    }).join();
    HostFailAllocation(0);
}

}  // namespace
