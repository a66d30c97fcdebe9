// The process heap: the C allocator with a size word in front of each block.
#include "heap.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <morvl15/host_native.h>

namespace {

// Keeps the alignment that the C allocator promises.
struct alignas(alignof(std::max_align_t)) BlockHeader {
    size_t size;
    uint32_t count;  // the count that the block is part of, 0 for none
};

// Counting and failing cost a test of a word until somebody asks for one of them.
std::atomic<uint32_t> countInForce{0};  // the number of the count that goes on, 0 for none
std::atomic<uint32_t> countsStarted{0};
std::atomic<int64_t> liveBlocks{0};
std::atomic<uint32_t> failCountdown{0};
std::atomic<bool> hasFailed{false};

bool MayAllocate() {
    uint32_t left = failCountdown.load(std::memory_order_relaxed);
    while (left != 0 && !failCountdown.compare_exchange_weak(left, left - 1)) {
    }
    if (left != 1) return true;
    hasFailed.store(true);
    return false;
}

void CountNew(BlockHeader* header) {
    header->count = countInForce.load(std::memory_order_relaxed);
    if (header->count != 0) liveBlocks.fetch_add(1, std::memory_order_relaxed);
}

// A block counts only where it was counted in, whatever was switched since.
void CountFreed(const BlockHeader* header) {
    const bool counted = header->count != 0 && header->count == countsStarted.load(std::memory_order_relaxed);
    if (counted) liveBlocks.fetch_sub(1, std::memory_order_relaxed);
}

BlockHeader* HeaderOf(void* block) {
    return static_cast<BlockHeader*>(block) - 1;
}

bool IsTooLarge(size_t size) {
    return size > SIZE_MAX - sizeof(BlockHeader);
}

// Small blocks are cleared here, which is faster than calloc; large ones come as fresh pages of the system, which are
// zero and take no memory until they are used.
BlockHeader* AllocateBytes(size_t size, bool zeroed) {
    constexpr size_t kLarge = 1 << 20;
    if (zeroed && size >= kLarge) return static_cast<BlockHeader*>(std::calloc(1, sizeof(BlockHeader) + size));
    auto* header = static_cast<BlockHeader*>(std::malloc(sizeof(BlockHeader) + size));
    if (zeroed && header != nullptr) std::memset(header + 1, 0, size);
    return header;
}

}  // namespace

void* HostBlockAlloc(size_t size, bool zeroed) {
    if (IsTooLarge(size) || !MayAllocate()) return nullptr;
    BlockHeader* header = AllocateBytes(size, zeroed);
    if (header == nullptr) return nullptr;
    header->size = size;
    CountNew(header);
    return header + 1;
}

void* HostBlockResize(void* block, size_t size, bool zeroed) {
    if (IsTooLarge(size) || !MayAllocate()) return nullptr;
    const size_t oldSize = HostBlockSize(block);
    auto* header = static_cast<BlockHeader*>(std::realloc(HeaderOf(block), sizeof(BlockHeader) + size));
    if (header == nullptr) return nullptr;
    header->size = size;
    if (zeroed && size > oldSize) std::memset(reinterpret_cast<char*>(header + 1) + oldSize, 0, size - oldSize);
    return header + 1;
}

void HostBlockFree(void* block) {
    if (block == nullptr) return;
    BlockHeader* header = HeaderOf(block);
    CountFreed(header);
    std::free(header);
}

bool HostBlockShrink(void* block, size_t size) {
    if (size > HostBlockSize(block)) return false;
    HeaderOf(block)->size = size;
    return true;
}

size_t HostBlockSize(const void* block) {
    return (static_cast<const BlockHeader*>(block) - 1)->size;
}

HANDLE GetProcessHeap() {
    static int processHeap = 0;
    return &processHeap;
}

LPVOID HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size) {
    if (heap != GetProcessHeap()) return nullptr;
    return HostBlockAlloc(size, (flags & HEAP_ZERO_MEMORY) != 0);
}

LPVOID HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size) {
    if (heap != GetProcessHeap() || block == nullptr) return nullptr;
    return HostBlockResize(block, size, (flags & HEAP_ZERO_MEMORY) != 0);
}

BOOL HeapFree(HANDLE heap, DWORD /*flags*/, LPVOID block) {
    if (heap != GetProcessHeap()) return FALSE;
    HostBlockFree(block);
    return TRUE;
}

SIZE_T HeapSize(HANDLE heap, DWORD /*flags*/, LPCVOID block) {
    if (heap != GetProcessHeap() || block == nullptr) return SIZE_MAX;
    return HostBlockSize(block);
}

void HostFailAllocation(uint32_t n) {
    hasFailed.store(false);
    failCountdown.store(n);
}

BOOL HostAllocationFailed() {
    return hasFailed.load() ? TRUE : FALSE;
}

void HostCountBlocks(BOOL on) {
    if (on == FALSE) {
        countInForce.store(0);
        return;
    }
    liveBlocks.store(0);
    countInForce.store(countsStarted.fetch_add(1) + 1);
}

int64_t HostLiveBlocks() {
    return liveBlocks.load();
}
