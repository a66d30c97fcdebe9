// Font lists when memory runs out: every allocation fails in turn.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/font.h>
#include <morvl15/host_native.h>

namespace {

HGLOBAL Sizes(HDC dc) {
    return FonGetFontSizes(dc, nullptr);
}

TEST(FonListMemory, EachFailureGivesNoListAndLeavesNoBlock) {
    HDC dc = CreateICA("DISPLAY", nullptr, nullptr, nullptr);
    for (HGLOBAL (*list)(HDC) : {FonGetFontFaces, Sizes, FonGetFontFaceMetrics}) {
        uint32_t n = 1;
        for (;; ++n) {
            const int64_t before = HostLiveBlocks();
            HostFailAllocation(n);
            const HGLOBAL block = list(dc);
            const bool failed = HostAllocationFailed() != FALSE;
            HostFailAllocation(0);
            if (!failed) {
                EXPECT_NE(block, nullptr);
                GlobalFree(block);
                break;
            }
            EXPECT_EQ(block, nullptr) << n;
            EXPECT_EQ(HostLiveBlocks(), before) << n;
        }
        EXPECT_GT(n, 3u);  // the block and its growth
    }
    DeleteDC(dc);
}

// A list of many is moved a few times, not with each of its records: fewer allocations than this fail to happen.
TEST(FonListMemory, GrowsByDoubling) {
    LOGFONTA font = {};
    FonEnumState state = {};
    HostFailAllocation(20);
    for (int count = 0; count < 10000; ++count) {
        ASSERT_EQ(FontEnumFaces(&font, nullptr, 0, reinterpret_cast<LPARAM>(&state)), 1) << count;
    }
    EXPECT_FALSE(HostAllocationFailed());
    HostFailAllocation(0);
    GlobalFree(state.block);
}

}  // namespace
