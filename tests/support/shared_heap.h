// A shared heap for tests: attached and laid out for a test, let go at its end.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include <morvl15/memory.h>

#include "memory/shared_lists.h"

class SharedHeap : public testing::Test {
  protected:
    static constexpr uint32_t kBase = 0x40000000;
    static constexpr uint32_t kSize = 1 << 20;

    void SetUp() override {
        uint32_t created = 0;
        ASSERT_EQ(MemSharedInit(&created, kSize), At(kBase));
        ASSERT_EQ(created, 1u);
        LayOut(kSize);
    }
    void TearDown() override { MemSharedTerminate(); }

    // A new heap in the first bytes of the memory.
    void LayOut(uint32_t size) { ASSERT_EQ(MemSharedInitHeap(At(kBase), size, 1), 1); }

    static void* At(uint32_t address) { return reinterpret_cast<void*>(static_cast<uintptr_t>(address)); }
    static uint32_t AddressOf(const void* pointer) {
        return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pointer));
    }
    static uint32_t Alloc(uint32_t size) { return AddressOf(MemSharedAlloc(size)); }
    static int32_t Free(uint32_t address) { return MemSharedFree(At(address)); }

    static MemSharedHeader* Header() { return static_cast<MemSharedHeader*>(At(kBase)); }
    static MemSharedBlock* Block(uint32_t userAddress) { return static_cast<MemSharedBlock*>(At(userAddress - 20)); }

    struct Entry {
        uint32_t address;  // of the user's bytes
        uint32_t size;
        bool operator==(const Entry& other) const { return address == other.address && size == other.size; }
    };

    // The blocks of a list in their order, told by next; prev must say the same.
    static std::vector<Entry> Entries(const MemSharedList& list) {
        std::vector<Entry> entries;
        uint32_t previous = 0;
        MemSharedWalk(list, [&](const MemSharedBlock* block) {
            EXPECT_TRUE(previous == 0 || block->prev == previous);
            previous = AddressOf(block);
            entries.push_back({previous + 20, block->size});
            return true;
        });
        EXPECT_TRUE(entries.empty() || Block(entries.front().address)->prev == previous);
        return entries;
    }
    static std::vector<Entry> FreeBlocks() { return Entries(Header()->freeList); }
    static std::vector<Entry> UsedBlocks() { return Entries(Header()->usedList); }
};
