// Memory: the process heap, which is the allocator of the library and of the application above it, and the shared heap,
// in one block of memory that several processes have at the same address.
#ifndef MORVL15_MEMORY_H
#define MORVL15_MEMORY_H

#include <morvl15/base.h>

MORVL_BEGIN_C

// ---- the process heap -------------------------------------------------------------------------------------------
//
// Blocks come zeroed; any thread may call, the global lock covers each operation.

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

// ---- the shared heap --------------------------------------------------------------------------------------------
//
// A heap for several processes. All of them have it at the same address, so that they can hand each other addresses of
// blocks, and any of them frees what another has allocated. The order of use: MemSharedInit; MemSharedInitHeap, with
// `initialise` set by the process that got `created` 1 and clear by all others; blocks; MemSharedTerminate.
//
// There is one such heap on a machine, open to all its users. It goes with the last process that has it mapped. One
// mutex serialises all work on it: every operation takes it once, and a process that dies in the middle of one hands it
// over. The heap is then used as it was left: at most the block that was being allocated or freed is lost.
//
// Any thread may call. What the heap says of itself is not trusted: an operation on a heap that an overrun has spoiled
// may fail, but it never leaves the heap's memory and never runs for ever. docs/shared-heap.md tells what to expect.

// MemAcquireMutex: waits, without a time limit, until the calling thread owns the mutex of the shared heap. A thread
// that owns it may take it again; other operations of the shared heap may be called in between.
// Result: 1; 0 when there is no mutex to be had.
MORVL_API int32_t MORVL_CALL MemAcquireMutex(void);

// MemReleaseMutex: gives one MemAcquireMutex back.
// Result: 1; 0 when the calling thread doesn't own the mutex.
MORVL_API int32_t MORVL_CALL MemReleaseMutex(void);

// MemSharedInit: attaches the memory of the shared heap to the process, and makes it if no process has it.
//   created out: 1 if the memory is new, and all zero; 0 if it was there. Untouched on failure. May be null.
//   size    in:  bytes of new memory, not 0; memory that is there keeps its own size
// Result: the memory's address, 0x40000000 on every usual system; null when the memory can't be had at that address,
// as when something else lies there. A process that has the memory attached already loses it by a second call, which
// gives null.
MORVL_API void* MORVL_CALL MemSharedInit(uint32_t* created, uint32_t size);

// MemSharedInitHeap: lays out a new heap, or checks that there is one; the process works on it from then on.
//   base    in:  where the heap begins: the result of MemSharedInit. Any memory below 4 GiB can hold a heap.
//   size    in:  bytes of the heap: what all its processes pass to MemSharedInit
//   initialise in: non-zero lays out a new heap, whatever was there; 0 attaches to a heap
// Result: 1; 0 when there is no heap of that size, and for memory that can hold none (null, less than 32 bytes, an end
// at 4 GiB or above).
MORVL_API int32_t MORVL_CALL MemSharedInitHeap(void* base, uint32_t size, int32_t initialise);

// MemSharedAlloc: a new block of the shared heap, all its bytes zero. Any process frees it by MemSharedFree.
//   size    in:  bytes; 0 gives an address of no bytes. A block takes 28 bytes more than its size.
// Result: the block, at any alignment; null when there is no room, and without a heap.
MORVL_API void* MORVL_CALL MemSharedAlloc(uint32_t size);

// MemSharedFree: frees a block of the shared heap. Free neighbours become one block; when the last block of the heap
// is freed, the heap is as new.
//   block   in:  a block of MemSharedAlloc, of any process; null does nothing
// Result: 1, also for null; 0, and nothing is changed, for an address that is no block in use.
MORVL_API int32_t MORVL_CALL MemSharedFree(void* block);

// MemSharedCheck: looks whether a block's guard words are whole, in front of it and behind it. It takes no mutex: the
// block is to be the caller's own.
//   block   in:  a block of MemSharedAlloc
// Result: 1, also for null; 0 when a guard word is overwritten, and for what is no block of the heap.
MORVL_API int32_t MORVL_CALL MemSharedCheck(const void* block);

// MemSharedCheckAll: looks whether the guard words of the whole heap, of its free and its used blocks, are whole, and
// whether its lists come to an end, each after at most 1,000,000 blocks.
// Result: 1; 0 when something is spoiled, and without a heap.
MORVL_API int32_t MORVL_CALL MemSharedCheckAll(void);

// MemSharedTerminate: takes the memory of the shared heap out of the process, which must not touch it afterwards. The
// heap itself stays as it is for as long as another process has it attached. Does nothing in a process without it.
MORVL_API void MORVL_CALL MemSharedTerminate(void);

MORVL_END_C

#endif
