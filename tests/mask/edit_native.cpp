// Masked entry without memory, on several threads, and under a code page with other letters.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <morvl15/host_native.h>

#include "keys.h"

namespace {

constexpr char kPhone[] = "(999) 999-9999";

// Fails the n-th allocation of `act` for every n, until all of them succeed; returns how many failed in turn.
template <typename Act>
uint32_t FailEachAllocation(Act act) {
    for (uint32_t n = 1;; ++n) {
        HostFailAllocation(n);
        act();
        const bool failed = HostAllocationFailed() != 0;
        HostFailAllocation(0);
        if (!failed) return n - 1;
    }
}

TEST(EditWithoutMemory, AKeyIsRefusedAndADeletionDoesNothing) {
    EditField field(kPhone);
    const uint32_t inserting = FailEachAllocation([&field] {
        Fill(field, "(55|5) 1");
        HostTakeBeeps();
        field.Type('9');
        const bool failed = HostAllocationFailed() != 0;
        EXPECT_EQ(field.Text(), failed ? "(555) 1" : "(559) 51");
        EXPECT_EQ(HostTakeBeeps(), failed ? 1u : 0u);
    });
    EXPECT_GE(inserting, 3u);  // two work texts, and the mask's own

    const uint32_t deleting = FailEachAllocation([&field] {
        Fill(field, "(5|55) 123-4567");
        Strike(field, "Delete");
        EXPECT_EQ(field.Text(), HostAllocationFailed() ? "(555) 123-4567" : "(551) 234-567");
    });
    EXPECT_GE(deleting, 3u);
}

TEST(EditWithoutMemory, ANewTextStaysAsTheControlTookIt) {
    EditField field("99-99", FMT_MASK_REAPPLY | FMT_MASK_NOTIFY);
    FailEachAllocation([&field] {
        field.Fill("", 0, 0);
        field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("1234"));
        EXPECT_EQ(field.Text(), HostAllocationFailed() ? "1234" : "12-34");
    });
    HostFailAllocation(1);
    field.Send(FMT_MASK_SHOW_TEXT, 0, reinterpret_cast<LPARAM>("1"));
    HostFailAllocation(0);
    EXPECT_EQ(field.Shown(), "1");  // not handled: the control gets it as it came
}

TEST(MaskTextWithoutMemory, LeavesTheOutputAlone) {
    char out[16] = "as it was";
    HostFailAllocation(1);
    EXPECT_EQ(FMTMaskText("5551234", out, "999-9999"), 0);
    HostFailAllocation(0);
    EXPECT_STREQ(out, "as it was");
}

TEST(EditWithoutControl, NothingHappens) {
    FMTCntlBlock block{};
    block.Picture = kPhone;
    block.Flags = FMT_MASK_REAPPLY | FMT_MASK_NOTIFY;
    static constexpr std::pair<UINT, WPARAM> kRows[] = {
        {WM_CHAR, '1'},       {WM_CHAR, VK_BACK}, {WM_KEYDOWN, VK_LEFT}, {WM_KEYDOWN, VK_RIGHT},  {WM_KEYDOWN, VK_HOME},
        {WM_KEYDOWN, VK_END}, {WM_CLEAR, 0},      {WM_SETTEXT, 0},       {FMT_MASK_SHOW_TEXT, 0},
    };
    for (const auto& [message, key] : kRows) {
        block.Message = message;
        block.WParam = key;
        block.LParam = reinterpret_cast<LPARAM>("1");
        EXPECT_EQ(FMTValidateInput(&block), 1) << message << ' ' << key;
    }
}

TEST(EditThreads, EachThreadServesItsOwnControl) {
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            const std::string digits = std::to_string(1000000000LL + 1111111 * t);
            for (int round = 0; round < 50; ++round) {
                EditField field(kPhone);
                for (const char digit : digits) field.Type(digit);
                const std::string want =
                    "(" + digits.substr(0, 3) + ") " + digits.substr(3, 3) + "-" + digits.substr(6);
                EXPECT_EQ(field.Text(), want);
                Strike(field, "Home");
                Strike(field, "Delete");
                EXPECT_EQ(field.Text().size(), want.size() - 1);
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
