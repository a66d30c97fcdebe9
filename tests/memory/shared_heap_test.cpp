// The shared heap in one process: its layout, allocating, freeing, checking.
#include <algorithm>
#include <cstring>

#include "memory/shared_check.h"
#include "support/shared_heap.h"

namespace {

class SharedHeapTest : public SharedHeap {
  protected:
    static bool IsInMemory(uint32_t address, std::initializer_list<uint32_t> words) {
        return std::memcmp(At(address), words.begin(), words.size() * sizeof(uint32_t)) == 0;
    }
};

TEST_F(SharedHeapTest, HeaderByteForByte) {
    LayOut(1000);
    EXPECT_TRUE(IsInMemory(kBase, {0x78563412, 1000, kBase, kBase + 32, kBase + 1000, 0, 0, 0xF1DEBC9A}));
    EXPECT_EQ(MemSharedCheckAll(), 1);
}

TEST_F(SharedHeapTest, BlockByteForByte) {
    const uint32_t odd = Alloc(3);
    const uint32_t first = odd - 20;
    EXPECT_EQ(odd, kBase + 52);
    EXPECT_TRUE(IsInMemory(first, {0x78563412, first, first, 3, 0xF1DEBC9A}));
    EXPECT_TRUE(IsInMemory(odd + 3, {0x78563412, 0xF1DEBC9A}));

    const uint32_t second = Alloc(5) - 20;  // at an odd address
    EXPECT_EQ(second, first + 31);
    EXPECT_TRUE(IsInMemory(second, {0x78563412, first, first, 5, 0xF1DEBC9A}));
    EXPECT_TRUE(IsInMemory(first, {0x78563412, second, second, 3, 0xF1DEBC9A}));
    EXPECT_EQ(Header()->usedList.first, second);
}

TEST_F(SharedHeapTest, TheBumpPointerGoesOnUntilTheHeapIsFull) {
    LayOut(1000);
    EXPECT_EQ(Alloc(868), kBase + 52);
    EXPECT_EQ(Header()->top, kBase + 928);
    const uint32_t rest = 1000 - 928;
    EXPECT_EQ(Alloc(rest - 28 + 1), 0u);
    EXPECT_EQ(Alloc(0xFFFFFFFF), 0u);
    EXPECT_EQ(Alloc(0xFFFFFFE4), 0u);  // with its 28 bytes it would be 0
    EXPECT_NE(Alloc(rest - 28), 0u);
    EXPECT_EQ(Header()->top, kBase + 1000);
    EXPECT_EQ(Alloc(0), 0u);
    EXPECT_EQ(MemSharedCheckAll(), 1);
}

TEST_F(SharedHeapTest, AFreeBlockOf100BytesIsTakenWholeOrSplitOrPassedOver) {
    struct {
        uint32_t size;
        bool fromFreeList;
        uint32_t rest;  // size of the free block that is left; 0 for none
    } const kFits[] = {
        {101, false, 0}, {100, true, 0},
        {99, false, 0},  {60, false, 0},  // the remainder is 40, which is not more than 40
        {59, true, 13},  {0, true, 72},
    };
    for (const auto& c : kFits) {
        SCOPED_TRACE(c.size);
        LayOut(1000);
        const uint32_t block = Alloc(100);
        const uint32_t standing = Alloc(10);
        std::memset(At(block), 0xA5, 100);
        ASSERT_EQ(Free(block), 1);
        ASSERT_EQ(FreeBlocks(), (std::vector<Entry>{{block, 100}}));

        const uint32_t got = Alloc(c.size);
        EXPECT_EQ(got == block, c.fromFreeList);
        const auto* bytes = static_cast<const unsigned char*>(At(got));
        EXPECT_TRUE(std::all_of(bytes, bytes + c.size, [](unsigned char byte) { return byte == 0; }));
        std::vector<Entry> left;
        if (!c.fromFreeList) left.push_back({block, 100});
        if (c.rest != 0) left.push_back({block + c.size + 28, c.rest});
        EXPECT_EQ(FreeBlocks(), left);
        EXPECT_EQ(UsedBlocks(), (std::vector<Entry>{{got, c.size}, {standing, 10}}));
        EXPECT_EQ(MemSharedCheck(At(got)), 1);
        EXPECT_EQ(MemSharedCheckAll(), 1);
    }
}

TEST_F(SharedHeapTest, FreedNeighboursMerge) {
    constexpr uint32_t kFirst = kBase + 52;
    constexpr uint32_t kLast = kFirst + 2 * 38;
    struct {
        std::vector<uint32_t> order;  // which of the three blocks are freed, in turn
        std::vector<Entry> left;      // the free list at the end
    } const kRows[] = {
        {{0, 1}, {{kFirst, 48}}},    {{1, 0}, {{kFirst, 48}}},    {{0, 2}, {{kLast, 10}, {kFirst, 10}}},
        {{0, 2, 1}, {{kFirst, 86}}}, {{2, 0, 1}, {{kFirst, 86}}},  // the one in the middle joins both
        {{0, 1, 2}, {{kFirst, 86}}}, {{2, 1, 0}, {{kFirst, 86}}},
    };
    for (const auto& c : kRows) {
        LayOut(1000);
        for (int i = 0; i < 4; ++i) Alloc(10);
        for (const uint32_t n : c.order) EXPECT_EQ(Free(kFirst + n * 38), 1);
        EXPECT_EQ(FreeBlocks(), c.left) << testing::PrintToString(c.order);
        EXPECT_EQ(MemSharedCheckAll(), 1);
        EXPECT_EQ(Header()->top, kBase + 32 + 4 * 38);  // it doesn't come down
    }
}

TEST_F(SharedHeapTest, ABlockWithoutAListHasNoNeighbours) {
    uint32_t blocks[3];
    for (uint32_t& block : blocks) block = Alloc(10);
    Free(blocks[0]);
    Free(blocks[1]);  // merged into the first
    EXPECT_EQ(uint32_t{Block(blocks[1])->next}, 0u);
    EXPECT_EQ(uint32_t{Block(blocks[1])->prev}, 0u);
}

TEST_F(SharedHeapTest, ChecksFindEveryOverrun) {
    const uint32_t before = Alloc(7);
    const uint32_t block = Alloc(9);
    EXPECT_EQ(MemSharedCheck(nullptr), 1);
    EXPECT_EQ(MemSharedCheck(At(block)), 1);
    const auto spoils = [](uint32_t address, const void* checked) {
        auto* byte = static_cast<unsigned char*>(At(address));
        *byte ^= 0x40;
        EXPECT_EQ(MemSharedCheckAll(), 0) << address;
        EXPECT_EQ(MemSharedCheck(checked), checked == nullptr ? 1 : 0) << address;
        *byte ^= 0x40;
    };
    for (const int32_t offset : {-20, -17, -4, -1, 9, 12, 13, 16}) {
        spoils(block + static_cast<uint32_t>(offset), At(block));
    }
    for (const uint32_t offset : {0u, 31u}) spoils(kBase + offset, nullptr);  // the header's own guards
    Free(before);
    *static_cast<unsigned char*>(At(before + 7)) = 0;  // behind a free block
    EXPECT_EQ(MemSharedCheckAll(), 0);
    EXPECT_EQ(MemSharedCheck(At(block)), 1);
}

TEST_F(SharedHeapTest, AListMayHaveAMillionBlocksInACheck) {
    constexpr uint32_t kBlocks = 1000001;
    constexpr uint32_t kLarge = 32 + kBlocks * 28;
    MemSharedTerminate();
    uint32_t created = 0;
    ASSERT_EQ(MemSharedInit(&created, kLarge), At(kBase));
    LayOut(kLarge);
    const auto addressOf = [](uint32_t n) { return kBase + 32 + n * 28; };
    for (uint32_t n = 0; n < kBlocks; ++n) {
        auto* block = static_cast<MemSharedBlock*>(At(addressOf(n)));
        *block = {MemSig1, addressOf((n + 1) % kBlocks), addressOf((n + kBlocks - 1) % kBlocks), 0, MemSig2};
        *MemSharedTailOf(block) = {MemSig1, MemSig2};
    }
    Header()->top = addressOf(kBlocks);
    Header()->usedList.first = addressOf(0);
    EXPECT_EQ(MemSharedCheckAll(), 0);
    EXPECT_EQ(Free(addressOf(0) + 20), 1);
    EXPECT_EQ(MemSharedCheckAll(), 1);
}

TEST_F(SharedHeapTest, AnOpenListIsWholeToo) {
    EXPECT_EQ(MemSharedCheckList(0), 1);
    const uint32_t block = Alloc(2);
    Block(block)->next = 0;
    EXPECT_EQ(MemSharedCheckList(block - 20), 1);
}

TEST_F(SharedHeapTest, AttachingLooksForAHeapOfTheSameSize) {
    const uint32_t block = Alloc(10);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kSize, 0), 1);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kSize - 1, 0), 0);
    EXPECT_EQ(MemSharedCheck(At(block)), 1);                             // the heap is the process's all the same
    EXPECT_EQ(MemSharedInitHeap(At(kBase + 4096), kSize - 4096, 0), 0);  // zeros
    EXPECT_EQ(MemSharedAlloc(1), nullptr);
    Header()->tailSig ^= 1;
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kSize, 0), 0);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kSize, 2), 1);  // any value but 0 lays out
    EXPECT_EQ(Header()->usedList.first, 0u);
}

TEST_F(SharedHeapTest, MemoryThatCanHoldNoHeapIsRefused) {
    EXPECT_EQ(MemSharedInitHeap(nullptr, kSize, 1), 0);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), 31, 1), 0);
    EXPECT_EQ(MemSharedInitHeap(At(0xFFFFF000), 0x1000, 1), 0);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), 0xC0000000, 0), 0);
    EXPECT_EQ(MemSharedAlloc(1), nullptr);
    EXPECT_EQ(MemSharedCheckAll(), 0);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), 32, 1), 1);
    EXPECT_EQ(MemSharedCheckAll(), 1);
    EXPECT_EQ(MemSharedAlloc(0), nullptr);
}

TEST_F(SharedHeapTest, WithoutAHeapNothingHappens) {
    const uint32_t block = Alloc(10);
    MemSharedTerminate();
    MemSharedTerminate();
    EXPECT_EQ(MemSharedAlloc(1), nullptr);
    EXPECT_EQ(Free(block), 0);
    EXPECT_EQ(MemSharedFree(nullptr), 1);
    EXPECT_EQ(MemSharedCheck(At(block)), 0);
    EXPECT_EQ(MemSharedCheckAll(), 0);
}

TEST_F(SharedHeapTest, TheLastProcessTakesTheMemoryAlong) {
    Alloc(10);
    MemSharedTerminate();
    uint32_t created = 0;
    ASSERT_EQ(MemSharedInit(&created, 4096), At(kBase));
    EXPECT_EQ(created, 1u);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kSize, 0), 0);
    EXPECT_EQ(Header()->headSig, 0u);
}

TEST_F(SharedHeapTest, ASecondInitEndsTheAttachment) {
    uint32_t created = 7;
    EXPECT_EQ(MemSharedInit(&created, kSize), nullptr);
    EXPECT_EQ(created, 7u);
    EXPECT_EQ(MemSharedAlloc(1), nullptr);
    EXPECT_EQ(MemSharedInit(nullptr, kSize), At(kBase));
}

TEST_F(SharedHeapTest, TheMutexMayBeHeldAroundOperations) {
    EXPECT_EQ(MemReleaseMutex(), 0);
    EXPECT_EQ(MemAcquireMutex(), 1);
    EXPECT_EQ(MemAcquireMutex(), 1);
    const uint32_t block = Alloc(10);
    EXPECT_EQ(Free(block), 1);
    EXPECT_EQ(MemSharedCheckAll(), 1);
    EXPECT_EQ(MemReleaseMutex(), 1);
    EXPECT_EQ(MemReleaseMutex(), 1);
    EXPECT_EQ(MemReleaseMutex(), 0);
}

}  // namespace
