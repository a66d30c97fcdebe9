// The shared heap as it lies in memory, and where it lies in this process. The layout is a format between processes:
// 32-bit little-endian words and absolute addresses on every target, nothing aligned.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

static_assert(std::endian::native == std::endian::little, "the words of the heap are little-endian");

// The guard words.
constexpr uint32_t MemSig1 = 0x78563412;
constexpr uint32_t MemSig2 = 0xF1DEBC9A;

#pragma pack(push, 1)

// A list of blocks, circular and doubly linked.
struct MemSharedList {
    uint32_t first;  // address of the first block, 0 for an empty list
};

struct MemSharedHeader {
    uint32_t headSig;        // MemSig1
    uint32_t size;           // bytes of the heap, the header included
    uint32_t base;           // address of the heap
    uint32_t top;            // first byte not yet handed out by the bump pointer
    uint32_t end;            // base + size
    MemSharedList freeList;  // latest freed first
    MemSharedList usedList;  // latest allocated first
    uint32_t tailSig;        // MemSig2
};

// What stands in front of a block's user bytes.
struct MemSharedBlock {
    uint32_t sig1;  // MemSig1
    uint32_t next;  // address of the next block of the list; 0 in no list
    uint32_t prev;  // address of the previous block of the list; 0 in no list
    uint32_t size;  // number of user bytes, exactly as requested
    uint32_t sig2;  // MemSig2
};

// What stands behind them.
struct MemSharedTail {
    uint32_t tailSig1;  // MemSig1
    uint32_t tailSig2;  // MemSig2
};

#pragma pack(pop)

constexpr uint32_t kMemBlockOverhead = sizeof(MemSharedBlock) + sizeof(MemSharedTail);

static_assert(sizeof(MemSharedHeader) == 32 && offsetof(MemSharedHeader, freeList) == 20);
static_assert(sizeof(MemSharedBlock) == 20 && offsetof(MemSharedBlock, size) == 12);
static_assert(kMemBlockOverhead == 28);

// The heap that this process works on, and its size as the process knows it for itself: what the heap says of its own
// extent is never trusted. Null and 0 without a heap.
extern MemSharedHeader* gMemSharedHeap;
extern uint32_t gMemSharedSize;

inline uint32_t MemSharedAddress(const void* pointer) {
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pointer));
}

inline unsigned char* MemSharedPointer(uint32_t address) {
    return reinterpret_cast<unsigned char*>(static_cast<uintptr_t>(address));
}

inline unsigned char* MemSharedUserBytes(MemSharedBlock* block) {
    return reinterpret_cast<unsigned char*>(block + 1);
}

inline MemSharedTail* MemSharedTailOf(MemSharedBlock* block) {
    return reinterpret_cast<MemSharedTail*>(MemSharedUserBytes(block) + block->size);
}

// The address of the byte behind a block.
inline uint32_t MemSharedBehind(const MemSharedBlock* block) {
    return MemSharedAddress(block) + kMemBlockOverhead + block->size;
}
