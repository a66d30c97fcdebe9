#include "shared_lists.h"

namespace {

// The block of a list whose next is the given address, or null.
MemSharedBlock* FindByNext(const MemSharedList& list, uint32_t next) {
    MemSharedBlock* found = nullptr;
    MemSharedWalk(list, [&](MemSharedBlock* block) {
        if (block->next == next) found = block;
        return found == nullptr;
    });
    return found;
}

// The last block of a list that isn't empty, or null when there is none to be found.
MemSharedBlock* FindLast(const MemSharedList& list) {
    const MemSharedBlock* first = MemSharedBlockAt(list.first);
    if (first == nullptr) return nullptr;
    MemSharedBlock* last = MemSharedBlockAt(first->prev);
    if (last != nullptr && last->next == list.first) return last;
    return FindByNext(list, list.first);
}

// The block in front of a block in its list, which is the block itself when it is alone; null when the block isn't in
// the list.
MemSharedBlock* FindPrevious(const MemSharedBlock* block, const MemSharedList& list) {
    const uint32_t address = MemSharedAddress(block);
    MemSharedBlock* previous = MemSharedBlockAt(block->prev);
    const bool linked = previous != nullptr && previous->next == address;
    if (linked && (previous != block || list.first == address)) return previous;
    return FindByNext(list, address);
}

void WriteGuards(MemSharedBlock* block) {
    block->sig1 = MemSig1;
    block->sig2 = MemSig2;
    *MemSharedTailOf(block) = MemSharedTail{MemSig1, MemSig2};
}

}  // namespace

bool MemSharedIsLinkable(const MemSharedList& list) {
    return list.first == 0 || FindLast(list) != nullptr;
}

bool MemSharedLink(MemSharedBlock* block, MemSharedList* list) {
    const uint32_t address = MemSharedAddress(block);
    MemSharedBlock* first = MemSharedBlockAt(list->first);
    MemSharedBlock* last = first != nullptr ? FindLast(*list) : nullptr;
    const bool linkable = list->first == 0 || last != nullptr;
    if (!linkable || !MemSharedIsInside(address, block->size)) return false;
    WriteGuards(block);
    block->next = last != nullptr ? list->first : address;
    block->prev = last != nullptr ? MemSharedAddress(last) : address;
    if (last != nullptr) {
        MemSharedStep();
        last->next = address;
        MemSharedStep();
        first->prev = address;
    }
    MemSharedStep();
    list->first = address;
    return true;
}

bool MemSharedIsUnlinkable(const MemSharedBlock* block, const MemSharedList& list) {
    return FindPrevious(block, list) != nullptr && MemSharedBlockAt(block->next) != nullptr;
}

bool MemSharedUnlink(MemSharedBlock* block, MemSharedList* list) {
    MemSharedBlock* previous = FindPrevious(block, *list);
    MemSharedBlock* next = MemSharedBlockAt(block->next);
    if (previous == nullptr || next == nullptr) return false;
    if (list->first == MemSharedAddress(block)) list->first = next == block ? 0 : block->next;
    MemSharedStep();
    next->prev = MemSharedAddress(previous);
    MemSharedStep();
    previous->next = MemSharedAddress(next);
    MemSharedStep();
    block->next = 0;
    block->prev = 0;
    return true;
}
