// The process heap.
#include <gtest/gtest.h>

#include <cstring>

#include <morvl15/memory.h>

namespace {

bool IsZero(const void* block, size_t from, size_t to) {
    const auto* bytes = static_cast<const unsigned char*>(block);
    for (size_t i = from; i < to; ++i) {
        if (bytes[i] != 0) return false;
    }
    return true;
}

TEST(ProcessHeap, BlocksComeZeroed) {
    for (const uint32_t size : {1u, 7u, 64u, 1000u, 1u << 20, 1u << 20}) {
        void* block = MemAlloc(size);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(MemSize(block), size);
        EXPECT_TRUE(IsZero(block, 0, size)) << size;
        std::memset(block, 0xA5, size);  // so that a block that is handed out again would show it
        MemFree(block);
    }
}

TEST(ProcessHeap, ResizingKeepsTheContentsAndClearsTheGrowth) {
    void* block = MemRealloc(nullptr, 10);
    ASSERT_NE(block, nullptr);
    EXPECT_TRUE(IsZero(block, 0, 10));
    std::memset(block, 0xA5, 10);
    block = MemRealloc(block, 5000);
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(MemSize(block), 5000u);
    EXPECT_EQ(static_cast<unsigned char*>(block)[9], 0xA5);
    EXPECT_TRUE(IsZero(block, 10, 5000));
    block = MemRealloc(block, 4);
    EXPECT_EQ(MemSize(block), 4u);
    block = MemRealloc(block, 4000);
    EXPECT_TRUE(IsZero(block, 4, 4000));
    EXPECT_EQ(MemRealloc(block, 0), nullptr);
}

TEST(ProcessHeap, NullAndNothing) {
    EXPECT_EQ(MemAlloc(0), nullptr);
    EXPECT_EQ(MemRealloc(nullptr, 0), nullptr);
    MemFree(nullptr);
    EXPECT_EQ(MemSize(nullptr), 0u);
    EXPECT_EQ(MemCheck(nullptr), 0);
    EXPECT_EQ(MemCheckAll(), 0);
}

}  // namespace
