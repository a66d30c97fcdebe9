// Blocks with their size kept in front, on the C allocator: what the process heap and the movable blocks stand on.
#pragma once

#include <cstddef>

// A new block, its bytes zero if asked. Null for no memory.
void* HostBlockAlloc(size_t size, bool zeroed);

// The block in a new size, moved if need be; the bytes by which it grew are zero if asked. On failure null, and the
// block stands as before.
void* HostBlockResize(void* block, size_t size, bool zeroed);

// Makes a block smaller where it is. False for a size that is greater than the block's, and nothing happens.
bool HostBlockShrink(void* block, size_t size);

void HostBlockFree(void* block);  // null is ignored

size_t HostBlockSize(const void* block);
