// Thread slots.
#include <gtest/gtest.h>

#include <numeric>
#include <thread>
#include <vector>

#include <morvl15/frame.h>

namespace {

// Slot numbers are never given back, so the test program takes all of them once. The first use is the first test's.
const std::vector<int32_t>& AllSlots() {
    static const std::vector<int32_t> slots = [] {
        std::vector<int32_t> taken;
        for (int32_t slot = TLS_AllocIndex(); slot >= 0; slot = TLS_AllocIndex()) taken.push_back(slot);
        return taken;
    }();
    return slots;
}

std::vector<uintptr_t> cleaned;
void MORVL_CALL RecordFirst(uintptr_t value) {
    cleaned.push_back(value);
}
void MORVL_CALL RecordSecond(uintptr_t value) {
    cleaned.push_back(1000 + value);
}

class Slots : public testing::Test {
  protected:
    void SetUp() override {
        AllSlots();
        cleaned.clear();
    }
    void TearDown() override { TLS_FreeAll(); }
};

TEST_F(Slots, NumbersRunFrom0To99) {
    std::vector<int32_t> numbers(100);
    std::iota(numbers.begin(), numbers.end(), 0);
    EXPECT_EQ(AllSlots(), numbers);
    EXPECT_EQ(TLS_AllocIndex(), -1);
}

TEST_F(Slots, ReplacingAValueCleansTheOldOneUp) {
    EXPECT_EQ(TLS_SetItem(3, 5, RecordFirst), 5u);
    EXPECT_EQ(TLS_SetItem(3, 6, RecordSecond), 6u);
    EXPECT_EQ(TLS_SetItem(3, 6, RecordSecond), 6u);  // the same value again counts as replaced
    EXPECT_EQ(TLS_GetItem(3), 6u);
    EXPECT_EQ(cleaned, (std::vector<uintptr_t>{5, 1006}));
}

TEST_F(Slots, FreeAllGoesUpwardAndLeavesEmptySlots) {
    TLS_SetItem(99, 3, RecordFirst);
    TLS_SetItem(0, 1, RecordFirst);
    TLS_SetItem(50, 2, RecordFirst);
    TLS_SetItem(1, 0, RecordFirst);  // neither a value of 0 is cleaned up
    TLS_SetItem(1, 7, nullptr);      // ... nor one without a function
    TLS_FreeAll();
    EXPECT_EQ(cleaned, (std::vector<uintptr_t>{1, 2, 3}));
    EXPECT_EQ(TLS_GetItem(50), 0u);
    EXPECT_EQ(TLS_SetItem(50, 4, RecordFirst), 4u);
    EXPECT_EQ(TLS_GetItem(50), 4u);
}

TEST_F(Slots, ThreadsSeeTheirOwnValuesAndAreCleanedUpAtTheirEnd) {
    TLS_SetItem(2, 11, RecordFirst);
    std::thread other([] {
        EXPECT_EQ(TLS_GetItem(2), 0u);
        TLS_SetItem(2, 22, RecordSecond);
        TLS_SetItem(0, 21, RecordFirst);
    });
    other.join();
    EXPECT_EQ(cleaned, (std::vector<uintptr_t>{21, 1022}));
    EXPECT_EQ(TLS_GetItem(2), 11u);
}

TEST_F(Slots, NumbersOutsideTheRangeAreRefused) {
    for (const int32_t slot : {-1, 100}) {
        EXPECT_EQ(TLS_SetItem(slot, 5, nullptr), 0u);
        EXPECT_EQ(TLS_GetItem(slot), 0u);
    }
}

}  // namespace
