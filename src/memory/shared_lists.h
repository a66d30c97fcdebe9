// The lists of the shared heap. An overrun may have spoiled any word of them, and a process may have died at any
// moment while it changed one.
//
// So no operation follows a word out of the heap or round a list for ever. And the chain of `next` is what counts: it
// is changed by single words, in an order that keeps it closed at every moment, so that a list which a killed process
// leaves behind is whole along `next`. `prev` only saves a walk: it is right where the block that it names leads back
// by its `next`, and where it isn't, the chain is walked. A block that is on its way into a list or out of it is never
// named by the `prev` of the block that it leads to.
#pragma once

#include <atomic>

#include "shared_layout.h"

// How a walk along a list ended.
enum class MemSharedWalkEnd {
    kRound,    // it came back to the first block, or the list is empty
    kOpen,     // it met a next of 0
    kSpoiled,  // it met something that is no block of the heap, or too many blocks
    kStopped   // the visitor had seen enough
};

// Whether a block with a number of user bytes can lie at an address.
inline bool MemSharedIsInside(uint32_t address, uint32_t size) {
    const uint32_t offset = address - MemSharedAddress(gMemSharedHeap);
    if (offset < sizeof(MemSharedHeader) || offset > gMemSharedSize) return false;
    const uint32_t room = gMemSharedSize - offset;
    return room >= kMemBlockOverhead && size <= room - kMemBlockOverhead;
}

// The block at an address, or null unless a whole block with intact guard words in front can lie there.
inline MemSharedBlock* MemSharedBlockAt(uint32_t address) {
    if (!MemSharedIsInside(address, 0)) return nullptr;
    auto* block = reinterpret_cast<MemSharedBlock*>(MemSharedPointer(address));
    const bool whole = block->sig1 == MemSig1 && block->sig2 == MemSig2 && MemSharedIsInside(address, block->size);
    return whole ? block : nullptr;
}

// Visits the blocks of a list in their order, until `visit(block)` answers false.
template <class Visit>
MemSharedWalkEnd MemSharedWalk(const MemSharedList& list, Visit visit) {
    const uint32_t first = list.first;
    if (first == 0) return MemSharedWalkEnd::kRound;
    uint32_t address = first;
    for (uint32_t left = gMemSharedSize / kMemBlockOverhead; left > 0; --left) {
        MemSharedBlock* block = MemSharedBlockAt(address);
        if (block == nullptr) return MemSharedWalkEnd::kSpoiled;
        if (!visit(block)) return MemSharedWalkEnd::kStopped;
        address = block->next;
        if (address == first) return MemSharedWalkEnd::kRound;
        if (address == 0) return MemSharedWalkEnd::kOpen;
    }
    return MemSharedWalkEnd::kSpoiled;
}

// Stands between two changes of the heap whose order matters to those who find it after this process was killed.
inline void MemSharedStep() {
    std::atomic_signal_fence(std::memory_order_seq_cst);
}

// Whether a block can be linked to a list: it is empty, or its last block can be found.
bool MemSharedIsLinkable(const MemSharedList& list);

// Puts a block that is in no list in front of a list, and writes its four guard words. False, and nothing changed, when
// the list isn't linkable or the block's size can't be.
bool MemSharedLink(MemSharedBlock* block, MemSharedList* list);

// Takes a block out of a list. When it isn't in the list, or has no neighbour that could be linked, the result is
// false, and nothing is changed.
bool MemSharedUnlink(MemSharedBlock* block, MemSharedList* list);

// Whether MemSharedUnlink would work. A block of another list of the heap may pass for one of this.
bool MemSharedIsUnlinkable(const MemSharedBlock* block, const MemSharedList& list);
