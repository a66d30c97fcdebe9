// The shared heap as a process leaves it that is killed in the middle of its work: work is done a machine instruction
// at a time, and every state that the heap passes through is kept. Whatever the state, the others find lists that are
// whole, blocks that don't overlap, and a heap that works.
#if defined(__x86_64__) && !defined(__SANITIZE_THREAD__)

#include <signal.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "support/shared_heap.h"

namespace {

constexpr uint32_t kHeap = 4096;
using HeapState = std::array<char, kHeap>;

// Room for the states of one course of work; the signal handler fills it.
std::array<HeapState, 1000> states;
size_t stateCount = 0;

void KeepState(int /*signal*/) {
    const void* heap = reinterpret_cast<const void*>(uintptr_t{0x40000000});
    if (std::memcmp(states[stateCount].data(), heap, kHeap) == 0) return;
    if (stateCount + 1 < states.size()) ++stateCount;
    std::memcpy(states[stateCount].data(), heap, kHeap);
}

// The processor's trap flag raises SIGTRAP after every instruction.
class StepByStep {
  public:
    StepByStep() {
        std::memcpy(states[0].data(), reinterpret_cast<const void*>(uintptr_t{0x40000000}), kHeap);
        stateCount = 0;
        before_ = signal(SIGTRAP, KeepState);
        asm volatile("pushf\n\torq $0x100, (%%rsp)\n\tpopf" ::: "memory", "cc");
    }
    ~StepByStep() {
        asm volatile("pushf\n\tandq $~0x100, (%%rsp)\n\tpopf" ::: "memory", "cc");
        signal(SIGTRAP, before_);
    }
    StepByStep(const StepByStep&) = delete;
    StepByStep& operator=(const StepByStep&) = delete;

  private:
    void (*before_)(int);
};

class SharedHeapSteps : public SharedHeap {
  protected:
    void SetUp() override {
        SharedHeap::SetUp();
        LayOut(kHeap);
        for (uint32_t& block : blocks_) block = Alloc(100);
    }

    // Goes on in the heap from every state that it passed through.
    void GoOnFromEachState(std::initializer_list<uint32_t> standing) {
        ASSERT_LT(stateCount + 1, states.size());
        for (size_t state = 0; state <= stateCount && !HasFatalFailure(); ++state) {
            testing::ScopedTrace trace(__FILE__, __LINE__, "state " + std::to_string(state));
            std::memcpy(At(kBase), states[state].data(), kHeap);
            GoOn(standing);
        }
    }

    void GoOn(std::initializer_list<uint32_t> standing) {
        ASSERT_EQ(MemSharedCheckAll(), 1);
        ASSERT_NO_FATAL_FAILURE(ExpectNoOverlap());
        for (const uint32_t block : standing) ASSERT_EQ(Free(block), 1);
        for (const uint32_t size : {100u, 20u, 300u}) ASSERT_NE(Alloc(size), 0u);
        ASSERT_EQ(MemSharedCheckAll(), 1);
        ASSERT_NO_FATAL_FAILURE(ExpectNoOverlap());
    }

    static void ExpectNoOverlap() {
        std::vector<Entry> blocks;
        for (const MemSharedList list : {Header()->freeList, Header()->usedList}) {
            MemSharedWalk(list, [&](const MemSharedBlock* block) {
                blocks.push_back({AddressOf(block), block->size + 28});
                return true;
            });
        }
        std::sort(blocks.begin(), blocks.end(), [](const Entry& a, const Entry& b) { return a.address < b.address; });
        blocks.push_back({Header()->top, 0});
        for (size_t i = 1; i < blocks.size(); ++i) {
            ASSERT_LE(blocks[i - 1].address + blocks[i - 1].size, blocks[i].address);
        }
    }

    uint32_t blocks_[8] = {};
};

TEST_F(SharedHeapSteps, WhileItAllocatesAndMerges) {
    for (const int i : {1, 3, 6}) Free(blocks_[i]);
    {
        const StepByStep steps;
        const uint32_t whole = Alloc(100);
        const uint32_t part = Alloc(30);
        const uint32_t atTop = Alloc(200);
        Free(blocks_[2]);  // between two free blocks
        Free(part);
        Free(atTop);
        Free(whole);
    }
    EXPECT_GT(stateCount, 50u);
    GoOnFromEachState({blocks_[0], blocks_[4], blocks_[7]});
}

TEST_F(SharedHeapSteps, WhileItFreesTheLastBlock) {
    for (const int i : {0, 2, 4, 6, 1, 3, 5}) Free(blocks_[i]);
    {
        const StepByStep steps;
        Free(blocks_[7]);
    }
    EXPECT_GT(stateCount, 3u);
    GoOnFromEachState({});
}

TEST_F(SharedHeapSteps, WhileItLaysOutAHeap) {
    {
        const StepByStep steps;
        LayOut(kHeap / 2);
    }
    for (size_t state = 0; state <= stateCount; ++state) {
        std::memcpy(At(kBase), states[state].data(), kHeap);
        const bool finished = state == stateCount;
        EXPECT_EQ(MemSharedInitHeap(At(kBase), kHeap / 2, 0), finished ? 1 : 0) << state;
    }
}

}  // namespace

#endif
