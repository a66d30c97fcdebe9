// The shared heap: laying it out, allocating, freeing. First fit in the free list, then the bump pointer; freed
// neighbours merge.
#include <cstring>

#include <morvl15/memory.h>

#include "shared_lists.h"

MemSharedHeader* gMemSharedHeap = nullptr;
uint32_t gMemSharedSize = 0;

namespace {

// A split must leave more than this, the overhead of the rest included.
constexpr uint32_t kMemSmallestRest = 40;

// ---- laying out and attaching -----------------------------------------------------------------------------------

// Whether a heap can lie there: its addresses have 32 bits, and its header has room.
bool MemCanHoldHeap(const void* base, uint32_t size) {
    const uint64_t address = reinterpret_cast<uintptr_t>(base);
    return base != nullptr && address + size <= UINT32_MAX && size >= sizeof(MemSharedHeader);
}

// The guard words come last, so that a reader who sees both sees a finished header.
void MemLayOut(MemSharedHeader* header, uint32_t size) {
    const uint32_t base = MemSharedAddress(header);
    header->headSig = 0;
    MemSharedStep();
    header->size = size;
    header->base = base;
    header->end = base + size;
    header->top = base + static_cast<uint32_t>(sizeof(MemSharedHeader));
    header->usedList.first = 0;
    header->freeList.first = 0;
    MemSharedStep();
    header->headSig = MemSig1;
    header->tailSig = MemSig2;
}

bool MemHasHeader(const MemSharedHeader* header) {
    return header->headSig == MemSig1 && header->tailSig == MemSig2;
}

// The extent to trust after the attachment to a heap of another size: the heap's own, if it is consistent.
uint32_t MemTrustedSize(const MemSharedHeader* header) {
    const bool consistent = MemHasHeader(header) && header->base == MemSharedAddress(header) &&
                            header->end == header->base + header->size && MemCanHoldHeap(header, header->size);
    return consistent ? header->size : static_cast<uint32_t>(sizeof(MemSharedHeader));
}

bool MemSetUpHeap(void* base, uint32_t size, bool initialise) {
    gMemSharedHeap = nullptr;
    gMemSharedSize = 0;
    if (!MemCanHoldHeap(base, size)) return false;
    gMemSharedHeap = static_cast<MemSharedHeader*>(base);
    if (initialise) MemLayOut(gMemSharedHeap, size);
    const bool attached = MemHasHeader(gMemSharedHeap) && gMemSharedHeap->size == size;
    gMemSharedSize = attached ? size : MemTrustedSize(gMemSharedHeap);
    return attached;
}

// ---- allocating -------------------------------------------------------------------------------------------------

// A block that would leave a small rest is passed over.
bool MemFits(const MemSharedBlock* block, uint32_t size) {
    return block->size == size || (block->size > size && block->size - size > kMemSmallestRest);
}

MemSharedBlock* MemFindFree(uint32_t size) {
    MemSharedBlock* found = nullptr;
    MemSharedWalk(gMemSharedHeap->freeList, [&](MemSharedBlock* block) {
        if (MemFits(block, size)) found = block;
        return found == nullptr;
    });
    return found;
}

// Moves a free block to the used list, cut to the size; the rest of it stays free.
bool MemTakeFree(MemSharedBlock* block, uint32_t size) {
    MemSharedHeader* heap = gMemSharedHeap;
    const uint32_t whole = block->size;
    const uint32_t behind = MemSharedAddress(block) + size + kMemBlockOverhead;
    if (!MemSharedIsLinkable(heap->freeList) || !MemSharedUnlink(block, &heap->freeList)) return false;
    block->size = size;
    if (!MemSharedLink(block, &heap->usedList)) return false;
    if (whole > size) {
        auto* rest = reinterpret_cast<MemSharedBlock*>(MemSharedPointer(behind));
        rest->size = whole - size - kMemBlockOverhead;
        MemSharedLink(rest, &heap->freeList);
    }
    std::memset(MemSharedUserBytes(block), 0, size);
    return true;
}

// Makes a block at the bump pointer. Null when there is no room.
MemSharedBlock* MemTakeTop(uint32_t size) {
    MemSharedHeader* heap = gMemSharedHeap;
    const uint32_t used = heap->top - MemSharedAddress(heap);
    if (used < sizeof(MemSharedHeader) || used >= gMemSharedSize) return nullptr;
    const uint32_t room = gMemSharedSize - used;
    if (room < kMemBlockOverhead || size > room - kMemBlockOverhead) return nullptr;
    auto* block = reinterpret_cast<MemSharedBlock*>(MemSharedPointer(heap->top));
    heap->top += size + kMemBlockOverhead;
    MemSharedStep();
    std::memset(block, 0, size + kMemBlockOverhead);
    block->size = size;
    return MemSharedLink(block, &heap->usedList) ? block : nullptr;
}

MemSharedBlock* MemTakeBlock(uint32_t size) {
    if (gMemSharedHeap == nullptr || !MemSharedIsLinkable(gMemSharedHeap->usedList)) return nullptr;
    MemSharedBlock* block = MemFindFree(size);
    if (block != nullptr && MemTakeFree(block, size)) return block;
    return MemTakeTop(size);
}

// ---- freeing ----------------------------------------------------------------------------------------------------

struct MemNeighbours {
    MemSharedBlock* before = nullptr;  // the free block that ends where the block begins
    MemSharedBlock* after = nullptr;   // the free block that begins where the block ends
};

// Looks the free list through for a block's neighbours. False when the block itself is found there, or the list is
// spoiled.
bool MemFindNeighbours(const MemSharedBlock* block, MemNeighbours* neighbours) {
    const uint32_t address = MemSharedAddress(block);
    const uint32_t behind = MemSharedBehind(block);
    bool isFree = false;
    const MemSharedWalkEnd end = MemSharedWalk(gMemSharedHeap->freeList, [&](MemSharedBlock* other) {
        isFree = other == block;
        if (MemSharedBehind(other) == address) neighbours->before = other;
        if (MemSharedAddress(other) == behind) neighbours->after = other;
        return !isFree && (neighbours->before == nullptr || neighbours->after == nullptr);
    });
    const bool whole = end == MemSharedWalkEnd::kRound || end == MemSharedWalkEnd::kStopped;
    return whole && !isFree;
}

// A block leaves the free list before another takes its bytes in: no byte is ever part of two free blocks.
void MemMerge(MemSharedBlock* block, const MemNeighbours& neighbours) {
    MemSharedList* list = &gMemSharedHeap->freeList;
    if (neighbours.after != nullptr && MemSharedUnlink(neighbours.after, list)) {
        MemSharedStep();
        block->size += neighbours.after->size + kMemBlockOverhead;
    }
    if (neighbours.before != nullptr && MemSharedUnlink(block, list)) {
        MemSharedStep();
        neighbours.before->size += block->size + kMemBlockOverhead;
    }
}

// Frees the last used block, and with it the whole heap.
bool MemFreeLast(MemSharedBlock* block) {
    MemSharedHeader* heap = gMemSharedHeap;
    if (!MemSharedUnlink(block, &heap->usedList)) return false;
    heap->freeList.first = 0;
    MemSharedStep();
    heap->top = MemSharedAddress(heap) + static_cast<uint32_t>(sizeof(MemSharedHeader));
    return true;
}

// Above the top lies what was left of blocks when the heap was reset, guard words and links included.
bool MemIsBelowTop(const MemSharedBlock* block) {
    return uint64_t{MemSharedAddress(block)} + block->size + kMemBlockOverhead <= gMemSharedHeap->top;
}

// Frees the block at an address. False, and nothing changed, for anything but a used block.
bool MemFreeAt(uint32_t address) {
    if (gMemSharedHeap == nullptr) return false;
    MemSharedHeader* heap = gMemSharedHeap;
    MemSharedBlock* block = MemSharedBlockAt(address);
    if (block == nullptr || !MemIsBelowTop(block) || !MemSharedIsUnlinkable(block, heap->usedList)) return false;
    if (heap->usedList.first == address && block->next == address) return MemFreeLast(block);

    MemNeighbours neighbours;
    if (!MemFindNeighbours(block, &neighbours) || !MemSharedIsLinkable(heap->freeList)) return false;
    if (!MemSharedUnlink(block, &heap->usedList)) return false;
    if (MemSharedLink(block, &heap->freeList)) MemMerge(block, neighbours);
    return true;
}

}  // namespace

int32_t MORVL_CALL MemSharedInitHeap(void* base, uint32_t size, int32_t initialise) {
    if (MemAcquireMutex() == 0) return 0;
    const bool done = MemSetUpHeap(base, size, initialise != 0);
    return MemReleaseMutex() != 0 && done ? 1 : 0;
}

void* MORVL_CALL MemSharedAlloc(uint32_t size) {
    if (MemAcquireMutex() == 0) return nullptr;
    MemSharedBlock* block = MemTakeBlock(size);
    return MemReleaseMutex() != 0 && block != nullptr ? MemSharedUserBytes(block) : nullptr;
}

int32_t MORVL_CALL MemSharedFree(void* address) {
    if (address == nullptr) return 1;
    if (MemAcquireMutex() == 0) return 0;
    const uint64_t block = reinterpret_cast<uintptr_t>(address) - sizeof(MemSharedBlock);
    const bool freed = block <= UINT32_MAX && MemFreeAt(static_cast<uint32_t>(block));
    return MemReleaseMutex() != 0 && freed ? 1 : 0;
}
