// The shared heap between processes: attaching, handing blocks over, several at work at once, some of them killed.
#include <array>
#include <cstdio>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/shared_churn.h"
#include "support/shared_heap.h"
#include "support/worker.h"

namespace {

std::string Words(const char* verb, uint32_t a = 0, uint32_t b = 0, uint32_t c = 0) {
    char text[80];
    std::snprintf(text, sizeof text, "%s %x %x %x", verb, a, b, c);
    return text;
}

class SharedHeapProcesses : public SharedHeap {
  protected:
    // Attaches a worker to this process's heap.
    static void Attach(Worker& worker) {
        ASSERT_EQ(worker.Ask(Words("init", kSize)), "found 40000000");
        ASSERT_EQ(worker.Ask(Words("heap", kBase, kSize, 0)), "1");
    }

    static uint32_t AddressIn(const std::string& answer) {
        unsigned address = 0;
        EXPECT_EQ(std::sscanf(answer.c_str(), "at %x", &address), 1) << answer;
        return address;
    }

    // A row of slots, by which processes swap blocks.
    static SharedChurn::Slots* MakeSlots() {
        return static_cast<SharedChurn::Slots*>(MemSharedAlloc(sizeof(SharedChurn::Slots)));
    }

    static void DropSlots(SharedChurn::Slots* slots) {
        for (uint32_t& slot : *slots) EXPECT_TRUE(SharedChurn::Drop(&slot));
        EXPECT_EQ(MemSharedFree(slots), 1);
        EXPECT_EQ(MemSharedCheckAll(), 1);
    }
};

TEST_F(SharedHeapProcesses, TheFirstCreatesTheOthersAttach) {
    Worker worker;
    EXPECT_EQ(worker.Ask(Words("init", 1)), "found 40000000");  // the memory keeps its size
    EXPECT_EQ(worker.Ask(Words("heap", kBase, kSize - 1, 0)), "0");
    EXPECT_EQ(worker.Ask(Words("heap", kBase, kSize, 0)), "1");
    EXPECT_EQ(worker.Ask("check"), "1");
}

TEST_F(SharedHeapProcesses, BlocksAreHandedOverByTheirAddresses) {
    Worker worker;
    Attach(worker);
    const uint32_t theirs = AddressIn(worker.Ask(Words("alloc", 100)));
    EXPECT_EQ(worker.Ask(Words("fill", theirs, 100, 0x5A)), "filled 64");
    const auto* bytes = static_cast<const unsigned char*>(At(theirs));
    for (int i = 0; i < 100; ++i) EXPECT_EQ(bytes[i], 0x5A);
    EXPECT_EQ(MemSharedCheck(bytes), 1);

    const uint32_t ours = Alloc(50);
    EXPECT_EQ(worker.Ask(Words("holds", ours, 50, 0)), "1");
    EXPECT_EQ(worker.Ask(Words("free", ours)), "1");
    EXPECT_EQ(worker.Ask(Words("free", ours)), "0");
    EXPECT_EQ(FreeBlocks(), (std::vector<Entry>{{ours, 50}}));
    EXPECT_EQ(Free(theirs), 1);
    EXPECT_EQ(Header()->top, kBase + 32);
}

TEST_F(SharedHeapProcesses, TheHeapOutlivesTheProcessThatMadeIt) {
    Worker worker;
    Attach(worker);
    const uint32_t block = Alloc(10);
    MemSharedTerminate();
    EXPECT_EQ(worker.Ask("check"), "1");
    uint32_t created = 7;
    EXPECT_EQ(MemSharedInit(&created, kSize), At(kBase));
    EXPECT_EQ(created, 0u);
    EXPECT_EQ(MemSharedInitHeap(At(kBase), kSize, 0), 1);
    EXPECT_EQ(MemSharedCheck(At(block)), 1);
}

TEST_F(SharedHeapProcesses, TwoAndFourAtOnce) {
    for (const uint32_t count : {2u, 4u}) {
        LayOut(kSize);
        SharedChurn::Slots* slots = MakeSlots();
        std::vector<std::unique_ptr<Worker>> workers;
        for (uint32_t i = 0; i < count; ++i) Attach(*workers.emplace_back(std::make_unique<Worker>()));
        for (uint32_t i = 0; i < count; ++i) workers[i]->Tell(Words("churn", AddressOf(slots), i, 1500));
        for (auto& worker : workers) EXPECT_EQ(worker->Answer(), "good 0");
        DropSlots(slots);
        EXPECT_EQ(Header()->top, kBase + 32);  // nothing was left in use
    }
}

TEST_F(SharedHeapProcesses, OneOfSeveralCreates) {
    MemSharedTerminate();
    std::array<Worker, 4> workers;
    for (int round = 0; round < 25; ++round) {
        for (Worker& worker : workers) worker.Tell(Words("init", kSize));
        std::multiset<std::string> answers;
        for (Worker& worker : workers) answers.insert(worker.Answer());
        EXPECT_EQ(answers.count("created 40000000"), 1) << "round " << round;
        EXPECT_EQ(answers.count("found 40000000"), workers.size() - 1) << "round " << round;
        for (Worker& worker : workers) worker.Tell("terminate");
        for (Worker& worker : workers) EXPECT_EQ(worker.Answer(), "terminated 0");
    }
}

TEST_F(SharedHeapProcesses, TheMutexOfAKilledOwnerIsHandedOver) {
    for (int round = 0; round < 3; ++round) {
        Worker owner;
        Worker waiting;
        Attach(owner);
        Attach(waiting);
        EXPECT_EQ(owner.Ask("acquire"), "1");
        EXPECT_EQ(owner.Ask("acquire"), "1");
        waiting.Tell(Words("alloc", 10));
        owner.Kill();
        EXPECT_NE(AddressIn(waiting.Answer()), 0u);
        EXPECT_EQ(MemSharedCheckAll(), 1);
    }
}

TEST_F(SharedHeapProcesses, TheMemoryGoesWithAKilledLastUser) {
    MemSharedTerminate();
    Worker last;
    EXPECT_EQ(last.Ask(Words("init", kSize)), "created 40000000");
    last.Ask(Words("fill", kBase, kSize, 0xA5));
    last.Kill();
    Worker next;
    EXPECT_EQ(next.Ask(Words("init", 2 * kSize)), "created 40000000");
    EXPECT_EQ(next.Ask(Words("holds", kBase, 2 * kSize, 0)), "1");
}

// One process after the other is killed in the middle of its work, this one goes on.
TEST_F(SharedHeapProcesses, TheOthersGoOnWhenOneIsKilled) {
    SharedChurn::Slots* slots = MakeSlots();
    SharedChurn own(slots, 1);
    std::mt19937 random(2);
    Worker witness;
    Attach(witness);
    for (uint32_t round = 0; round < 40; ++round) {
        Worker victim;
        Attach(victim);
        ASSERT_EQ(victim.Ask(Words("churn", AddressOf(slots), round, 0)), "started 0");
        witness.Tell(Words("churn", AddressOf(slots), 1000 + round, 12));
        for (auto steps = random() % 30; steps > 0; --steps) ASSERT_TRUE(own.Step());
        victim.Kill();
        ASSERT_EQ(witness.Answer(), "good 0");
        for (int steps = 0; steps < 4; ++steps) ASSERT_TRUE(own.Step());
        ASSERT_EQ(MemSharedCheckAll(), 1) << "round " << round;
    }
    EXPECT_TRUE(own.End());
    DropSlots(slots);
}

}  // namespace
