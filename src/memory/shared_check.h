// Checks of the shared heap's guard words.
#pragma once

#include "shared_lists.h"

// 1 if the address is that of a block whose four guard words are whole.
int32_t MemSharedCheckBlock(uint32_t address);

// 1 if every block of the list that begins at an address is whole, and the list comes to an end after at most 1,000,000
// blocks. 0 is the address of an empty list.
int32_t MemSharedCheckList(uint32_t first);
