// The shared heap beside Boost's managed shared memory: a block freed and another allocated, in sizes of 8 to 263
// bytes, with few and many blocks in the heap, alone and beside other processes that do the same.
#include <benchmark/benchmark.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/interprocess/managed_shared_memory.hpp>
#include <boost/interprocess/mem_algo/simple_seq_fit.hpp>

#include <atomic>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <morvl15/memory.h>

#include "memory/shared_lists.h"

namespace {

namespace ipc = boost::interprocess;

constexpr uint32_t kHeapSize = 128u << 20;

// ---- the heaps --------------------------------------------------------------------------------------------------

class OurHeap {
  public:
    OurHeap() {
        uint32_t created = 0;
        void* base = MemSharedInit(&created, kHeapSize);
        if (created != 1 || MemSharedInitHeap(base, kHeapSize, 1) == 0) std::abort();
    }
    ~OurHeap() { MemSharedTerminate(); }

    void* Alloc(uint32_t size) { return MemSharedAlloc(size); }
    void Free(void* block) { MemSharedFree(block); }

    // Frees a block whose neighbours are in use; unlike MemSharedFree it doesn't look for them, which would make the
    // laying out of many free blocks take minutes.
    void FreeApart(void* block) {
        auto* shared = reinterpret_cast<MemSharedBlock*>(block) - 1;
        MemSharedUnlink(shared, &gMemSharedHeap->usedList);
        MemSharedLink(shared, &gMemSharedHeap->freeList);
    }
};

// A managed segment of Boost's. Its name goes at once; the processes of a run are forked with the memory mapped.
template <class Segment>
class PeerHeap {
  public:
    PeerHeap() { ipc::shared_memory_object::remove(Name().c_str()); }
    ~PeerHeap() { ipc::shared_memory_object::remove(Name().c_str()); }

    void* Alloc(uint32_t size) { return segment_.allocate(size); }
    void Free(void* block) { segment_.deallocate(block); }
    void FreeApart(void* block) { segment_.deallocate(block); }

  private:
    static std::string Name() { return "morvl15-bench-" + std::to_string(getpid()); }

    Segment segment_{ipc::create_only, Name().c_str(), kHeapSize};
};

using Tree = PeerHeap<ipc::managed_shared_memory>;             // its default: best fit in a tree, relative addresses
using FixedTree = PeerHeap<ipc::fixed_managed_shared_memory>;  // the same with plain addresses
using FirstFit =
    PeerHeap<ipc::basic_managed_shared_memory<char, ipc::simple_seq_fit<ipc::mutex_family>, ipc::iset_index>>;

// ---- the work ---------------------------------------------------------------------------------------------------

class Random {
  public:
    explicit Random(uint64_t seed) : state_(seed * 2 + 1) {}
    uint32_t Below(uint32_t bound) {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return static_cast<uint32_t>(((state_ >> 32) * bound) >> 32);
    }

  private:
    uint64_t state_;
};

// A process's blocks in a heap: the live ones, with as many free blocks between them if asked. They go with the heap.
template <class Heap>
class Blocks {
  public:
    Blocks(Heap& heap, size_t live, bool freeBetween, uint64_t seed) : heap_(heap), random_(seed) {
        std::vector<void*> between;
        for (size_t i = 0; i < live; ++i) {
            if (freeBetween) between.push_back(heap_.Alloc(ASize()));
            live_.push_back(heap_.Alloc(ASize()));
        }
        // From the top down: a first fit that keeps its list in order of addresses finds each place at once.
        while (!between.empty()) {
            heap_.FreeApart(between.back());
            between.pop_back();
        }
    }
    void Replace() {
        void*& block = live_[random_.Below(static_cast<uint32_t>(live_.size()))];
        heap_.Free(block);
        block = heap_.Alloc(ASize());
        if (block == nullptr) std::abort();
    }

  private:
    uint32_t ASize() { return 8 + random_.Below(256); }

    Heap& heap_;
    Random random_;
    std::vector<void*> live_;
};

// Other processes that replace blocks of their own until they are stopped.
template <class Heap>
class Others {
  public:
    Others(Heap& heap, int64_t count, size_t live)
        : stop_(new (mmap(nullptr, sizeof(*stop_), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
                    std::atomic<int>(0)) {
        for (int64_t i = 0; i < count; ++i) {
            children_.push_back(fork());
            if (children_.back() != 0) continue;
            Blocks<Heap> own(heap, live, false, static_cast<uint64_t>(i) + 100);
            while (stop_->load(std::memory_order_relaxed) == 0) own.Replace();
            _exit(0);
        }
    }
    ~Others() {
        stop_->store(1);
        for (const pid_t child : children_) waitpid(child, nullptr, 0);
        munmap(stop_, sizeof(*stop_));
    }
    Others(const Others&) = delete;
    Others& operator=(const Others&) = delete;

  private:
    std::atomic<int>* stop_;
    std::vector<pid_t> children_;
};

// Arguments: processes, live blocks of each, whether as many free blocks lie between them.
template <class Heap>
void FreeAndAlloc(benchmark::State& state) {
    const auto heap = std::make_unique<Heap>();
    const auto live = static_cast<size_t>(state.range(1));
    Others<Heap> others(*heap, state.range(0) - 1, live);
    Blocks<Heap> blocks(*heap, live, state.range(2) != 0, 1);
    for (auto _ : state) blocks.Replace();
}

// ---- the table --------------------------------------------------------------------------------------------------

void Arguments(benchmark::internal::Benchmark* table) {
    table->ArgNames({"processes", "live", "free"});
    for (const int64_t processes : {1, 2, 4}) table->Args({processes, 10, 0});
    for (const int64_t live : {10, 1000, 100000}) table->Args({1, live, 1});
    table->UseRealTime();  // a process that waits for its turn takes no other time
}

BENCHMARK_TEMPLATE(FreeAndAlloc, OurHeap)->Apply(Arguments);
BENCHMARK_TEMPLATE(FreeAndAlloc, Tree)->Apply(Arguments);
BENCHMARK_TEMPLATE(FreeAndAlloc, FixedTree)->Apply(Arguments);
BENCHMARK_TEMPLATE(FreeAndAlloc, FirstFit)->Apply(Arguments);

}  // namespace

BENCHMARK_MAIN();
