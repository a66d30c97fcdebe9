#include "shared_check.h"

#include <morvl15/memory.h>

#include "../frame/lock.h"

namespace {

constexpr uint32_t kMemMostBlocks = 1000000;

bool MemTailIsWhole(MemSharedBlock* block) {
    const MemSharedTail* tail = MemSharedTailOf(block);
    return tail->tailSig1 == MemSig1 && tail->tailSig2 == MemSig2;
}

bool MemHeapIsWhole() {
    const MemSharedHeader* heap = gMemSharedHeap;
    return heap != nullptr && heap->headSig == MemSig1 && heap->tailSig == MemSig2 &&
           MemSharedCheckList(heap->freeList.first) != 0 && MemSharedCheckList(heap->usedList.first) != 0;
}

}  // namespace

int32_t MemSharedCheckBlock(uint32_t address) {
    if (gMemSharedHeap == nullptr) return 0;
    MemSharedBlock* block = MemSharedBlockAt(address);
    return block != nullptr && MemTailIsWhole(block) ? 1 : 0;
}

int32_t MemSharedCheckList(uint32_t first) {
    const CRMainLock lock;
    uint32_t passed = 0;
    const MemSharedWalkEnd end = MemSharedWalk(MemSharedList{first}, [&passed](MemSharedBlock* block) {
        ++passed;
        return passed <= kMemMostBlocks && MemTailIsWhole(block);
    });
    return end == MemSharedWalkEnd::kRound || end == MemSharedWalkEnd::kOpen ? 1 : 0;
}

int32_t MORVL_CALL MemSharedCheck(const void* address) {
    if (address == nullptr) return 1;
    const uint64_t block = reinterpret_cast<uintptr_t>(address) - sizeof(MemSharedBlock);
    return block <= UINT32_MAX ? MemSharedCheckBlock(static_cast<uint32_t>(block)) : 0;
}

int32_t MORVL_CALL MemSharedCheckAll() {
    if (MemAcquireMutex() == 0) return 0;
    const bool whole = MemHeapIsWhole();
    return MemReleaseMutex() != 0 && whole ? 1 : 0;
}
