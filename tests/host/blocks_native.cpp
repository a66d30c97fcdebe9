// The process heap, movable blocks, and the controls that fail and count allocations.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include <morvl15/host_native.h>

namespace {

bool AllBytesAre(const void* block, size_t from, size_t to, unsigned char value) {
    const auto* bytes = static_cast<const unsigned char*>(block);
    return std::all_of(bytes + from, bytes + to, [=](unsigned char byte) { return byte == value; });
}

TEST(Heap, BlocksKeepTheirSizeAndBytes) {
    HANDLE heap = GetProcessHeap();
    void* block = HeapAlloc(heap, HEAP_ZERO_MEMORY, 100);
    EXPECT_TRUE(AllBytesAre(block, 0, 100, 0));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % alignof(std::max_align_t), 0u);
    std::memset(block, 7, 100);
    // What was cut off is zero when it comes back, also where the block still has the room.
    block = HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, 60);
    EXPECT_EQ(HeapSize(heap, 0, block), 60u);
    block = HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, 5000);
    EXPECT_EQ(HeapSize(heap, 0, block), 5000u);
    EXPECT_TRUE(AllBytesAre(block, 0, 60, 7));
    EXPECT_TRUE(AllBytesAre(block, 60, 5000, 0));
    EXPECT_TRUE(HeapFree(heap, 0, block));
}

TEST(Heap, RefusesWhatItCannotDo) {
    HANDLE heap = GetProcessHeap();
    int other = 0;
    EXPECT_EQ(HeapAlloc(&other, 0, 8), nullptr);
    EXPECT_EQ(HeapAlloc(heap, 0, SIZE_MAX), nullptr);
    EXPECT_EQ(HeapReAlloc(heap, 0, nullptr, 8), nullptr);
    EXPECT_EQ(HeapSize(heap, 0, nullptr), SIZE_MAX);
    EXPECT_FALSE(HeapFree(&other, 0, nullptr));
    EXPECT_TRUE(HeapFree(heap, 0, nullptr));
    void* empty = HeapAlloc(heap, 0, 0);
    EXPECT_EQ(HeapSize(heap, 0, empty), 0u);
    EXPECT_EQ(HeapReAlloc(heap, 0, empty, SIZE_MAX), nullptr);
    HeapFree(heap, 0, empty);
}

TEST(MovableBlock, IsReachedThroughALock) {
    HGLOBAL handle = GlobalAlloc(GHND, 50);
    void* bytes = GlobalLock(handle);
    EXPECT_NE(bytes, handle);
    EXPECT_TRUE(AllBytesAre(bytes, 0, 50, 0));
    EXPECT_EQ(GlobalLock(handle), bytes);
    EXPECT_EQ(GlobalSize(handle), 50u);
    EXPECT_TRUE(GlobalUnlock(handle));
    EXPECT_FALSE(GlobalUnlock(handle));
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    EXPECT_FALSE(GlobalUnlock(handle));
    EXPECT_EQ(GetLastError(), ERROR_NOT_LOCKED);
    EXPECT_EQ(GlobalFree(handle), nullptr);
}

TEST(MovableBlock, StaysWhereItIsWhileItIsLocked) {
    HLOCAL handle = LocalAlloc(LHND, 100);
    void* bytes = LocalLock(handle);
    std::memset(bytes, 5, 100);
    EXPECT_EQ(LocalReAlloc(handle, 100000, 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_EQ(LocalSize(handle), 100u);
    EXPECT_EQ(LocalReAlloc(handle, 40, 0), handle);
    EXPECT_EQ(LocalLock(handle), bytes);
    EXPECT_EQ(LocalReAlloc(handle, 50000, LMEM_MOVEABLE | LMEM_ZEROINIT), handle);  // told that it may move
    EXPECT_TRUE(LocalUnlock(handle));
    EXPECT_FALSE(LocalUnlock(handle));
    EXPECT_EQ(LocalReAlloc(handle, 100000, LMEM_ZEROINIT), handle);  // no longer locked
    EXPECT_EQ(LocalSize(handle), 100000u);
    EXPECT_TRUE(AllBytesAre(LocalLock(handle), 0, 40, 5));
    EXPECT_TRUE(AllBytesAre(LocalLock(handle), 40, 100000, 0));
    EXPECT_EQ(LocalFree(handle), nullptr);
}

TEST(FixedBlock, IsItsOwnHandleAndNullIsNone) {
    HGLOBAL block = GlobalAlloc(GPTR, 20);
    EXPECT_TRUE(AllBytesAre(block, 0, 20, 0));
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_EQ(GlobalReAlloc(block, 4000, GMEM_ZEROINIT), nullptr);  // it may not move
    block = GlobalReAlloc(block, 4000, GMEM_MOVEABLE | GMEM_ZEROINIT);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(GlobalSize(block), 4000u);
    EXPECT_TRUE(AllBytesAre(block, 0, 4000, 0));
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalReAlloc(nullptr, 10, 0), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
    EXPECT_EQ(GlobalSize(nullptr), 0u);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
}

TEST(AllocationControls, TheNthAllocationFailsAndNoOther) {
    HANDLE heap = GetProcessHeap();
    HostFailAllocation(3);
    void* first = HeapAlloc(heap, 0, 8);
    HGLOBAL second = GlobalAlloc(GMEM_MOVEABLE, 8);  // its bytes are the second, its record is the third
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
    EXPECT_TRUE(HostAllocationFailed());
    HostFailAllocation(1);
    EXPECT_FALSE(HostAllocationFailed());
    EXPECT_EQ(HeapReAlloc(heap, 0, first, 100), nullptr);
    EXPECT_EQ(HeapSize(heap, 0, first), 8u);
    first = HeapReAlloc(heap, 0, first, 100);
    EXPECT_NE(first, nullptr);
    HostFailAllocation(2);
    HostFailAllocation(0);
    void* third = HeapAlloc(heap, 0, 8);
    void* fourth = HeapAlloc(heap, 0, 8);
    EXPECT_NE(fourth, nullptr);
    EXPECT_FALSE(HostAllocationFailed());
    for (void* block : {first, third, fourth}) HeapFree(heap, 0, block);
}

TEST(AllocationControls, CountOnlyWhatWasCountedIn) {
    HANDLE heap = GetProcessHeap();
    const int64_t before = HostLiveBlocks();
    void* counted = HeapAlloc(heap, 0, 8);
    HGLOBAL movable = GlobalAlloc(GMEM_MOVEABLE, 8);
    EXPECT_EQ(HostLiveBlocks(), before + 3);
    HostCountBlocks(FALSE);
    void* uncounted = HeapAlloc(heap, 0, 8);
    EXPECT_EQ(HostLiveBlocks(), before + 3);
    counted = HeapReAlloc(heap, 0, counted, 100);
    HeapFree(heap, 0, counted);
    EXPECT_EQ(HostLiveBlocks(), before + 2);
    HostCountBlocks(TRUE);
    EXPECT_EQ(HostLiveBlocks(), 0);
    HeapFree(heap, 0, uncounted);
    GlobalFree(movable);
    EXPECT_EQ(HostLiveBlocks(), 0);
}

}  // namespace
