// The shared heap while its words are overwritten: nothing outside it is touched (guard pages lie on both sides), every
// operation comes to an end, a block's check says what its guard words are, and all checks hold until the first damage.
#include <sys/mman.h>

#include <vector>

#include <morvl15/memory.h>

#include "input.h"
#include "memory/shared_layout.h"

namespace {

constexpr uint32_t kPage = 4096;
constexpr uint32_t kSize = 2 * kPage;
constexpr uint32_t kPlace = 0x30000000;

// Two pages that can be touched, between two that can't.
unsigned char* Place() {
    static unsigned char* const place = [] {
        void* pages = mmap(reinterpret_cast<void*>(uintptr_t{kPlace}), kSize + 2 * kPage, PROT_NONE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
        Require(pages != MAP_FAILED);
        auto* inner = static_cast<unsigned char*>(pages) + kPage;
        Require(mprotect(inner, kSize, PROT_READ | PROT_WRITE) == 0);
        return inner;
    }();
    return place;
}

uint32_t WordAt(uint32_t offset) {
    uint32_t word = 0;
    std::memcpy(&word, Place() + offset, sizeof word);
    return word;
}

// What MemSharedCheck must find of user bytes at an offset.
bool IsWhole(uint32_t offset) {
    if (offset < sizeof(MemSharedHeader) + sizeof(MemSharedBlock) || offset > kSize - sizeof(MemSharedTail))
        return false;
    const uint32_t size = WordAt(offset - 8);
    return WordAt(offset - 20) == MemSig1 && WordAt(offset - 4) == MemSig2 && size <= kSize - 8 - offset &&
           WordAt(offset + size) == MemSig1 && WordAt(offset + size + 4) == MemSig2;
}

class Session {
  public:
    explicit Session(uint32_t size) : size_(size) {
        std::memset(Place(), 0, kSize);
        Require(MemSharedInitHeap(Place(), size_, 1) == 1);
    }

    void Step(Input& input) {
        switch (input.TakeByte() % 9) {
            case 0:
            case 1: return Alloc(input.TakeHalf() % 600);
            case 2: return Free(input.TakeByte());
            case 3: return Check(input.TakeHalf() % (kSize + 64));
            case 4: return FreeAnywhere(Place() + input.TakeHalf() % (kSize + 64));
            case 5: return Damage(input.TakeHalf(), input.TakeWord());
            case 6: return Damage(input.TakeHalf(), kPlace + kPage + input.TakeHalf() % (kSize + 64));
            case 7: return Damage(input.TakeHalf() % sizeof(MemSharedHeader), input.TakeWord());
            default: MemSharedInitHeap(Place(), size_, 0); return CheckAll();
        }
    }

    void CheckAll() {
        const bool whole = MemSharedCheckAll() == 1;
        Require(whole || damaged_);
    }

  private:
    void Alloc(uint32_t size) {
        auto* block = static_cast<unsigned char*>(MemSharedAlloc(size));
        if (block == nullptr) return;
        const auto offset = static_cast<uint32_t>(block - Place());
        Require(offset < size_ && size <= size_ - offset);
        if (!damaged_) RequireNew(block, size);
        blocks_.push_back(block);
    }

    static void RequireNew(unsigned char* block, uint32_t size) {
        const auto offset = static_cast<uint32_t>(block - Place());
        Require(IsWhole(offset) && WordAt(offset - 8) == size);
        for (uint32_t i = 0; i < size; ++i) Require(block[i] == 0);
        std::memset(block, 0x5A, size);
    }

    void Free(uint8_t choice) {
        if (blocks_.empty()) return;
        void*& block = blocks_[choice % blocks_.size()];
        const bool freed = MemSharedFree(block) == 1;
        Require(freed || damaged_);
        block = blocks_.back();
        blocks_.pop_back();
    }

    // Only a block in use can be freed.
    void FreeAnywhere(void* address) {
        const bool freed = MemSharedFree(address) == 1;
        const bool wasInUse = std::erase(blocks_, address) > 0;
        Require(freed == wasInUse || damaged_);
        CheckAll();
    }

    void Check(uint32_t offset) {
        const bool inside = offset + sizeof(MemSharedTail) <= size_;
        const bool whole = MemSharedCheck(Place() + offset) == 1;
        Require(!whole || (inside && IsWhole(offset)));
        if (!damaged_ && inside) Require(whole == IsWhole(offset));
    }

    void Damage(uint32_t place, uint32_t value) {
        damaged_ = true;
        std::memcpy(Place() + place % (kSize - sizeof value), &value, sizeof value);
    }

    const uint32_t size_;
    bool damaged_ = false;
    std::vector<void*> blocks_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > 2000) return 0;
    Input input(data, size);
    // The smaller heap ends in the middle of a page, the larger one at the guard page.
    Session session(input.TakeByte() % 2 == 0 ? kSize : kSize - 1000);
    while (!input.IsEmpty()) session.Step(input);
    session.CheckAll();
    return 0;
}
