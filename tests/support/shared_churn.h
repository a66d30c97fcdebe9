// A process's part in a busy shared heap: it allocates blocks, fills them, checks them and frees them, and swaps them
// with those of other processes through a row of slots, which lies in the heap itself. Every block tells by itself what
// it must contain.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <random>

#include <morvl15/memory.h>

class SharedChurn {
  public:
    static constexpr uint32_t kSlots = 16;
    using Slots = std::array<uint32_t, kSlots>;  // addresses of blocks, 0 for none; changed under the mutex

    SharedChurn(Slots* slots, uint32_t seed) : slots_(slots), random_(seed) {}

    // One step: a block more, a block less, or a swap. False when something isn't as it must be.
    bool Step() {
        uint32_t& own = own_[random_() % own_.size()];
        switch (random_() % 3) {
            case 0: return own != 0 || Make(&own);
            case 1: return Drop(&own);
            default: Swap(&own); return true;
        }
    }

    // Frees this process's blocks.
    bool End() {
        bool good = true;
        for (uint32_t& own : own_) good = Drop(&own) && good;
        return good;
    }

    // Checks and frees a block, if there is one.
    static bool Drop(uint32_t* address) {
        if (*address == 0) return true;
        auto* bytes = reinterpret_cast<unsigned char*>(static_cast<uintptr_t>(*address));
        *address = 0;
        const bool good = IsFilled(bytes) && MemSharedCheck(bytes) == 1;
        return MemSharedFree(bytes) == 1 && good;
    }

  private:
    struct Label {
        uint32_t size;
        uint32_t pattern;
    };

    bool Make(uint32_t* address) {
        const Label label = {static_cast<uint32_t>(sizeof(Label) + random_() % 250), static_cast<uint32_t>(random_())};
        auto* bytes = static_cast<unsigned char*>(MemSharedAlloc(label.size));
        if (bytes == nullptr) return true;  // full, for the time being
        for (uint32_t i = 0; i < label.size; ++i) {
            if (bytes[i] != 0) return false;
        }
        std::memcpy(bytes, &label, sizeof label);
        std::memset(bytes + sizeof label, static_cast<int>(label.pattern & 0xFF), label.size - sizeof label);
        *address = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(bytes));
        return true;
    }

    static bool IsFilled(const unsigned char* bytes) {
        Label label = {};
        std::memcpy(&label, bytes, sizeof label);
        for (uint32_t i = sizeof label; i < label.size; ++i) {
            if (bytes[i] != (label.pattern & 0xFF)) return false;
        }
        return true;
    }

    // Puts a block into a slot in the place of what is there. In between it is in neither place, so that a block never
    // has two owners, whenever the process is killed.
    void Swap(uint32_t* own) {
        if (MemAcquireMutex() == 0) return;
        volatile uint32_t& slot = (*slots_)[random_() % kSlots];
        const uint32_t theirs = slot;
        slot = *own;
        *own = theirs;
        MemReleaseMutex();
    }

    Slots* slots_;
    std::mt19937 random_;
    std::array<uint32_t, 12> own_ = {};
};
