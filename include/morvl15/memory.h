// The process heap: the allocator of the library and of the application above it. Blocks come zeroed; any thread may
// call, the global lock covers each operation.
#ifndef MORVL15_MEMORY_H
#define MORVL15_MEMORY_H

#include <morvl15/base.h>

MORVL_BEGIN_C

// MemAlloc: a new block, all its bytes zero. The caller frees it by MemFree.
//   size    in:  bytes
// Result: the block; null for size 0 and when there is no memory.
MORVL_API void* MORVL_CALL MemAlloc(uint32_t size);

// MemRealloc: gives a block a new size. The block may move; its contents come along, and the part by which it grows is
// zero.
//   block   in:  a block of MemAlloc; null acts as MemAlloc of the size
//   size    in:  bytes; 0 frees the block
// Result: the block's address; null for size 0, and when there is no memory: then the old block stands as before.
MORVL_API void* MORVL_CALL MemRealloc(void* block, uint32_t size);

// MemFree: frees a block. Null is ignored.
MORVL_API void MORVL_CALL MemFree(void* block);

// MemSize: the size of a block in bytes, as it was asked for. 0 for null.
MORVL_API uint32_t MORVL_CALL MemSize(const void* block);

// MemCheck, MemCheckAll: always 0. The process heap has no integrity checks of its own, and the result says nothing
// about a block.
MORVL_API int32_t MORVL_CALL MemCheck(const void* block);
MORVL_API int32_t MORVL_CALL MemCheckAll(void);

MORVL_END_C

#endif
