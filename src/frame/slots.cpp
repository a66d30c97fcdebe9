// Thread slots: process-wide slot numbers over one platform index, a block of values per thread.
#include <array>
#include <atomic>

#include <morvl15/frame.h>

#include "lock.h"

namespace {

constexpr int32_t kSlots = 100;

#pragma pack(push, 1)
struct ThreadSlot {
    uintptr_t value;     // 0 when empty
    TLSCleanup cleanup;  // called with the value, or null
};
struct ThreadSlotBlock {
    ThreadSlot slots[kSlots];
};
#pragma pack(pop)
static_assert(sizeof(ThreadSlotBlock) == 200 * sizeof(void*));

int32_t gTlsSlotCount = 0;
std::atomic<DWORD> gTlsIndex{TLS_OUT_OF_INDEXES};

// The index is taken once: a thread that comes second gives its own back and uses the first one's.
DWORD TlsEnsureIndex() {
    DWORD index = gTlsIndex.load(std::memory_order_acquire);
    if (index != TLS_OUT_OF_INDEXES) return index;
    const DWORD taken = TlsAlloc();
    if (taken == TLS_OUT_OF_INDEXES) return taken;
    if (gTlsIndex.compare_exchange_strong(index, taken, std::memory_order_acq_rel)) return taken;
    TlsFree(taken);
    return index;
}

// The calling thread's block, or null while it has none.
ThreadSlotBlock* TlsFindBlock() {
    const DWORD index = gTlsIndex.load(std::memory_order_acquire);
    return index != TLS_OUT_OF_INDEXES ? static_cast<ThreadSlotBlock*>(TlsGetValue(index)) : nullptr;
}

// The calling thread's block, made at its first use. Null when there is no memory or no index.
ThreadSlotBlock* TlsGetBlock() {
    if (ThreadSlotBlock* found = TlsFindBlock()) return found;
    const DWORD index = TlsEnsureIndex();
    if (index == TLS_OUT_OF_INDEXES) return nullptr;
    void* block = GlobalAlloc(GPTR, sizeof(ThreadSlotBlock));
    if (block == nullptr) return nullptr;
    if (!TlsSetValue(index, block)) {
        GlobalFree(block);
        return nullptr;
    }
    return static_cast<ThreadSlotBlock*>(block);
}

bool TlsIsSlot(int32_t slot) {
    return slot >= 0 && slot < kSlots;
}

void TlsCleanUp(const ThreadSlot& slot) {
    if (slot.value != 0 && slot.cleanup != nullptr) slot.cleanup(slot.value);
}

}  // namespace

int32_t MORVL_CALL TLS_AllocIndex() {
    const CRMainLock lock;
    return gTlsSlotCount < kSlots ? gTlsSlotCount++ : -1;
}

// A thread that has set no slot needs no block to read 0.
uintptr_t MORVL_CALL TLS_GetItem(int32_t slot) {
    const ThreadSlotBlock* block = TlsFindBlock();
    return block != nullptr && TlsIsSlot(slot) ? block->slots[slot].value : 0;
}

uintptr_t MORVL_CALL TLS_SetItem(int32_t slot, uintptr_t value, TLSCleanup cleanup) {
    ThreadSlotBlock* block = TlsIsSlot(slot) ? TlsGetBlock() : nullptr;
    if (block == nullptr) return 0;
    TlsCleanUp(block->slots[slot]);
    block->slots[slot] = ThreadSlot{value, cleanup};
    return value;
}

void MORVL_CALL TLS_FreeAll() {
    ThreadSlotBlock* block = TlsFindBlock();
    if (block == nullptr) return;
    for (const ThreadSlot& slot : block->slots) TlsCleanUp(slot);
    GlobalFree(block);
    TlsSetValue(gTlsIndex.load(std::memory_order_acquire), nullptr);
}
