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
};

// Counting and failing cost nothing until a test asks for one of them.
std::atomic<bool> watched{false};
std::atomic<bool> counting{false};
std::atomic<int64_t> liveBlocks{0};
std::atomic<uint32_t> failCountdown{0};
std::atomic<bool> hasFailed{false};

void UpdateWatched() {
    watched.store(counting.load() || failCountdown.load() != 0);
}

bool MayAllocate() {
    if (!watched.load(std::memory_order_relaxed)) return true;
    uint32_t left = failCountdown.load();
    while (left != 0 && !failCountdown.compare_exchange_weak(left, left - 1)) {
    }
    if (left != 1) return true;
    hasFailed.store(true);
    UpdateWatched();
    return false;
}

void CountBlocks(int64_t change) {
    if (counting.load(std::memory_order_relaxed)) liveBlocks.fetch_add(change, std::memory_order_relaxed);
}

BlockHeader* HeaderOf(void* block) {
    return static_cast<BlockHeader*>(block) - 1;
}

bool IsTooLarge(size_t size) {
    return size > SIZE_MAX - sizeof(BlockHeader);
}

}  // namespace

void* HostBlockAlloc(size_t size, bool zeroed) {
    if (IsTooLarge(size) || !MayAllocate()) return nullptr;
    auto* header = static_cast<BlockHeader*>(std::malloc(sizeof(BlockHeader) + size));
    if (header == nullptr) return nullptr;
    header->size = size;
    if (zeroed) std::memset(header + 1, 0, size);
    CountBlocks(1);
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
    std::free(HeaderOf(block));
    CountBlocks(-1);
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
    UpdateWatched();
}

BOOL HostAllocationFailed() {
    return hasFailed.load() ? TRUE : FALSE;
}

void HostCountBlocks(BOOL on) {
    counting.store(on != FALSE);
    UpdateWatched();
}

int64_t HostLiveBlocks() {
    return liveBlocks.load();
}
