// The shared heap in bad hands: addresses that are no blocks, lists that an overrun has spoiled. Nothing outside the
// heap is read or written (the memory ends with it), and every operation comes to an end.
#include <cstring>
#include <random>
#include <string>

#include "support/shared_heap.h"

namespace {

class SharedHeapSpoiled : public SharedHeap {
  protected:
    std::string Contents() { return std::string(static_cast<const char*>(At(kBase)), Header()->size); }
};

TEST_F(SharedHeapSpoiled, FreeingWhatIsNoBlockInUseChangesNothing) {
    LayOut(2000);
    uint32_t blocks[6];
    for (uint32_t& block : blocks) block = Alloc(100);
    Free(blocks[1]);
    Free(blocks[3]);
    Free(blocks[4]);  // merged into the one before
    const std::string contents = Contents();
    int local = 0;
    // The first is free already, the second part of a free block, though its guard words still stand.
    const uint32_t kAddresses[] = {
        blocks[1],       blocks[4],          blocks[0] + 1, blocks[0] - 20,     1,         kBase, kBase + 20,
        kBase + 52 - 28, Header()->top + 20, kBase + 2000,  kBase + kSize + 20, 0xFFFFFFFF};
    for (const uint32_t address : kAddresses) EXPECT_EQ(Free(address), 0) << address;
    EXPECT_EQ(MemSharedFree(&local), 0);
    EXPECT_EQ(MemSharedCheck(&local), 0);
    EXPECT_EQ(Contents(), contents);

    // A block that is the only free one, linked to itself, is told from the only used one.
    LayOut(2000);
    const uint32_t freed = Alloc(10);
    Alloc(20);
    Free(freed);
    EXPECT_EQ(Free(freed), 0);
    EXPECT_EQ(UsedBlocks().size(), 1u);
}

TEST_F(SharedHeapSpoiled, WhatAResetHeapHeldIsNotFreedAgain) {
    const uint32_t blocks[] = {Alloc(112), Alloc(0), Alloc(259)};
    for (const int i : {2, 0, 1}) EXPECT_EQ(Free(blocks[i]), 1);
    for (const uint32_t block : blocks) EXPECT_EQ(Free(block), 0);
    EXPECT_TRUE(FreeBlocks().empty());
    EXPECT_EQ(Alloc(10), blocks[0]);
    EXPECT_EQ(MemSharedCheckAll(), 1);
}

TEST_F(SharedHeapSpoiled, ABlockWithAnOverrunHeadIsNotFreed) {
    LayOut(2000);
    uint32_t blocks[3];
    for (uint32_t& block : blocks) block = Alloc(100);
    std::memset(At(blocks[0]), 0xEE, 112);  // over its own tail, and the head of the next
    const std::string contents = Contents();
    EXPECT_EQ(Free(blocks[1]), 0);
    EXPECT_EQ(Contents(), contents);
    EXPECT_EQ(MemSharedCheck(At(blocks[2])), 1);
    EXPECT_EQ(MemSharedCheckAll(), 0);
}

TEST_F(SharedHeapSpoiled, AnOutOfDatePrevIsFoundAlongTheChainAndMended) {
    uint32_t blocks[5];
    for (uint32_t& block : blocks) block = Alloc(10);
    for (uint32_t& block : blocks) Block(block)->prev = Block(blocks[2])->prev;
    EXPECT_EQ(Free(blocks[1]), 1);
    EXPECT_EQ(Free(blocks[3]), 1);
    const uint32_t more = Alloc(100);
    EXPECT_EQ(Free(blocks[4]), 1);
    EXPECT_EQ(UsedBlocks(), (std::vector<Entry>{{more, 100}, {blocks[2], 10}, {blocks[0], 10}}));
}

TEST_F(SharedHeapSpoiled, ASpoiledFreeListIsPassedOver) {
    uint32_t blocks[5];
    for (uint32_t& block : blocks) block = Alloc(100);
    Free(blocks[1]);
    Free(blocks[3]);
    for (const uint32_t next : {1u, kBase - 4, kBase + kSize - 8, 0xFFFFFFF0u, blocks[1] + 3}) {
        Header()->freeList.first = next;
        const uint32_t top = Header()->top;
        EXPECT_EQ(Alloc(100), top + 20);
        const std::string contents = Contents();
        EXPECT_EQ(Free(blocks[0]), 0);
        EXPECT_EQ(Contents(), contents);
    }
}

// Words of the lists are overwritten at random, with random words and with addresses that nearly fit, and operations of
// all kinds follow. The size of the heap is that of the memory, so that a step outside would end the test program.
TEST_F(SharedHeapSpoiled, NoOperationLeavesTheHeapOrRunsForEver) {
    constexpr uint32_t kHeap = 4096;
    MemSharedTerminate();
    uint32_t created = 0;
    ASSERT_EQ(MemSharedInit(&created, kHeap), At(kBase));
    LayOut(kHeap);
    std::mt19937 random(11);
    std::vector<uint32_t> blocks;
    for (int i = 0; i < 24; ++i) blocks.push_back(Alloc(static_cast<uint32_t>(random() % 120)));
    for (size_t i = 0; i < blocks.size(); i += 3) Free(blocks[i]);
    const std::string whole = Contents();

    const auto pick = [&](const std::vector<uint32_t>& from) { return from[random() % from.size()]; };
    const auto anAddress = [&] {
        const auto any = static_cast<uint32_t>(random());
        return pick({any, kBase + any % kHeap, kBase + kHeap - any % 40, pick(blocks) - 20});
    };
    for (int round = 0; round < 4000; ++round) {
        std::memcpy(At(kBase), whole.data(), whole.size());
        for (int i = 0; i < 3; ++i) {
            auto* block = Block(pick(blocks));
            switch (random() % 6) {
                case 0: block->next = anAddress(); break;
                case 1: block->prev = anAddress(); break;
                case 2: block->size = static_cast<uint32_t>(random() % 2 == 0 ? random() : random() % kHeap); break;
                case 3: Header()->freeList.first = anAddress(); break;
                case 4: Header()->usedList.first = anAddress(); break;
                default: Header()->top = anAddress(); break;
            }
        }
        for (int i = 0; i < 8; ++i) {
            switch (random() % 4) {
                case 0: MemSharedAlloc(static_cast<uint32_t>(random() % 200)); break;
                case 1: MemSharedFree(At(anAddress() + 20)); break;
                case 2: MemSharedCheck(At(anAddress() + 20)); break;
                default: MemSharedCheckAll(); break;
            }
        }
    }
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kHeap, 1), 1);
    EXPECT_EQ(MemSharedCheckAll(), 1);
}

}  // namespace
