// The shared heap against a model of its rules that works on plain vectors: after every step of a long random course
// both have the same blocks at the same addresses, in the same order.
#include <algorithm>
#include <random>

#include "support/shared_heap.h"

namespace {

class SharedHeapModel : public SharedHeap {
  protected:
    uint32_t ModelAlloc(uint32_t size) {
        const auto fit = std::find_if(free_.begin(), free_.end(), [size](const Entry& block) {
            return block.size == size || (block.size > size && block.size - size > 40);
        });
        if (fit == free_.end()) return ModelAllocAtTop(size);
        const Entry whole = *fit;
        free_.erase(fit);
        if (whole.size > size) free_.insert(free_.begin(), {whole.address + size + 28, whole.size - size - 28});
        used_.insert(used_.begin(), {whole.address, size});
        return whole.address;
    }

    uint32_t ModelAllocAtTop(uint32_t size) {
        if (size_ - top_ < size + 28) return 0;
        const uint32_t address = kBase + top_ + 20;
        top_ += size + 28;
        used_.insert(used_.begin(), {address, size});
        return address;
    }

    void ModelFree(size_t index) {
        Entry block = used_[index];
        used_.erase(used_.begin() + static_cast<std::ptrdiff_t>(index));
        if (used_.empty()) {
            free_.clear();
            top_ = 32;
            return;
        }
        const auto after = std::find_if(free_.begin(), free_.end(), [&](const Entry& other) {
            return other.address == block.address + block.size + 28;
        });
        if (after != free_.end()) {
            block.size += after->size + 28;
            free_.erase(after);
        }
        const auto before = std::find_if(free_.begin(), free_.end(), [&](const Entry& other) {
            return other.address + other.size + 28 == block.address;
        });
        if (before != free_.end()) {
            before->size += block.size + 28;
        } else {
            free_.insert(free_.begin(), block);
        }
    }

    uint32_t size_ = 8000;
    uint32_t top_ = 32;
    std::vector<Entry> free_;
    std::vector<Entry> used_;
};

TEST_F(SharedHeapModel, TakesTheSameBlocks) {
    LayOut(size_);
    std::mt19937 random(7);
    uint32_t refusals = 0;
    for (int step = 0; step < 12000; ++step) {
        const bool growing = step / 300 % 3 != 2;  // the heap fills up and empties by turns
        if (used_.empty() || random() % 8 < (growing ? 5u : 2u)) {
            const auto size = static_cast<uint32_t>(random() % 4 == 0 ? random() % 400 : random() % 5 * 20);
            const uint32_t want = ModelAlloc(size);
            ASSERT_EQ(Alloc(size), want) << "step " << step;
            refusals += want == 0 ? 1 : 0;
        } else {
            const size_t index = random() % used_.size();
            ASSERT_EQ(Free(used_[index].address), 1) << "step " << step;
            ModelFree(index);
        }
        ASSERT_EQ(FreeBlocks(), free_) << "step " << step;
        ASSERT_EQ(UsedBlocks(), used_) << "step " << step;
        ASSERT_EQ(Header()->top, kBase + top_);
    }
    EXPECT_EQ(MemSharedCheckAll(), 1);
    EXPECT_GT(refusals, 0u);
}

}  // namespace
