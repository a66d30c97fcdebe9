// The library's allocator: the platform's process heap behind the global lock.
#include <morvl15/host.h>
#include <morvl15/memory.h>

#include "../frame/lock.h"

namespace {

HANDLE gMemHeap = nullptr;  // filled at the first use, under the lock

HANDLE MemHeap() {
    if (gMemHeap == nullptr) gMemHeap = GetProcessHeap();
    return gMemHeap;
}

}  // namespace

void* MORVL_CALL MemAlloc(uint32_t size) {
    if (size == 0) return nullptr;
    const CRMainLock lock;
    return HeapAlloc(MemHeap(), HEAP_ZERO_MEMORY, size);
}

void* MORVL_CALL MemRealloc(void* block, uint32_t size) {
    if (block == nullptr) return MemAlloc(size);
    if (size == 0) {
        MemFree(block);
        return nullptr;
    }
    const CRMainLock lock;
    return HeapReAlloc(MemHeap(), HEAP_ZERO_MEMORY, block, size);
}

void MORVL_CALL MemFree(void* block) {
    if (block == nullptr) return;
    const CRMainLock lock;
    HeapFree(MemHeap(), 0, block);
}

uint32_t MORVL_CALL MemSize(const void* block) {
    if (block == nullptr) return 0;
    const CRMainLock lock;
    return static_cast<uint32_t>(HeapSize(MemHeap(), 0, block));
}

int32_t MORVL_CALL MemCheck(const void* /*block*/) {
    return 0;
}

int32_t MORVL_CALL MemCheckAll() {
    return 0;
}
