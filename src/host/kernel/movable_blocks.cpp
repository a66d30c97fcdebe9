// Global and local blocks. A fixed block's handle is its address; a movable block's handle is the address of a small
// record, marked by its low address bits, that holds the block's address and its lock count. Handles are only as safe
// as on the platform: a freed one must not be used again.
#include <mutex>

#include <morvl15/host.h>

#include "heap.h"

namespace {

struct MovableBlock {
    void* data;
    uint32_t locks;
};

// Blocks are aligned to 16, so an address with this bit set can only be a handle.
constexpr uintptr_t kHandleMark = 4;

std::mutex blocksLock;  // of the records, not of what is in the blocks

bool IsMovable(const void* handle) {
    return (reinterpret_cast<uintptr_t>(handle) & kHandleMark) != 0;
}

MovableBlock* BlockOf(void* handle) {
    return reinterpret_cast<MovableBlock*>(reinterpret_cast<uintptr_t>(handle) - kHandleMark);
}

void* HandleOf(MovableBlock* block) {
    return reinterpret_cast<void*>(reinterpret_cast<uintptr_t>(block) + kHandleMark);
}

void* Resize(void* data, size_t size, bool zeroed, bool mayMove) {
    if (!mayMove && HostBlockShrink(data, size)) return data;
    void* resized = mayMove ? HostBlockResize(data, size, zeroed) : nullptr;
    if (resized == nullptr) SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return resized;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T size) {
    void* data = HostBlockAlloc(size, (flags & GMEM_ZEROINIT) != 0);
    if (data == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    if ((flags & GMEM_MOVEABLE) == 0) return data;
    auto* block = static_cast<MovableBlock*>(HostBlockAlloc(sizeof(MovableBlock), true));
    if (block == nullptr) {
        HostBlockFree(data);
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    block->data = data;
    return HandleOf(block);
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, SIZE_T size, UINT flags) {
    if (handle == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    const bool zeroed = (flags & GMEM_ZEROINIT) != 0;
    const bool mayMove = (flags & GMEM_MOVEABLE) != 0;
    if (!IsMovable(handle)) return Resize(handle, size, zeroed, mayMove);
    const std::lock_guard guard(blocksLock);
    MovableBlock* block = BlockOf(handle);
    void* data = Resize(block->data, size, zeroed, mayMove || block->locks == 0);
    if (data == nullptr) return nullptr;
    block->data = data;
    return handle;
}

HGLOBAL GlobalFree(HGLOBAL handle) {
    if (!IsMovable(handle)) {
        HostBlockFree(handle);
        return nullptr;
    }
    MovableBlock* block = BlockOf(handle);
    HostBlockFree(block->data);
    HostBlockFree(block);
    return nullptr;
}

LPVOID GlobalLock(HGLOBAL handle) {
    if (handle == nullptr || !IsMovable(handle)) return handle;
    const std::lock_guard guard(blocksLock);
    MovableBlock* block = BlockOf(handle);
    ++block->locks;
    return block->data;
}

BOOL GlobalUnlock(HGLOBAL handle) {
    if (handle == nullptr || !IsMovable(handle)) return TRUE;
    const std::lock_guard guard(blocksLock);
    MovableBlock* block = BlockOf(handle);
    if (block->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    SetLastError(ERROR_SUCCESS);
    return --block->locks > 0 ? TRUE : FALSE;
}

SIZE_T GlobalSize(HGLOBAL handle) {
    if (handle == nullptr) return 0;
    return HostBlockSize(IsMovable(handle) ? BlockOf(handle)->data : handle);
}

HLOCAL LocalAlloc(UINT flags, SIZE_T size) {
    return GlobalAlloc(flags, size);
}

HLOCAL LocalReAlloc(HLOCAL handle, SIZE_T size, UINT flags) {
    return GlobalReAlloc(handle, size, flags);
}

HLOCAL LocalFree(HLOCAL handle) {
    return GlobalFree(handle);
}

LPVOID LocalLock(HLOCAL handle) {
    return GlobalLock(handle);
}

BOOL LocalUnlock(HLOCAL handle) {
    return GlobalUnlock(handle);
}

SIZE_T LocalSize(HLOCAL handle) {
    return GlobalSize(handle);
}
