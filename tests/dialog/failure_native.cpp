// What happens when there is no memory; message boxes, which a person answers.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/dialog.h>
#include <morvl15/host_native.h>

#include "dialog/windows.h"

namespace {

TEST(NoMemory, ForTheEntriesOfLists) {
    const TestWindow frame = MakeFrame();
    const TestWindow list = MakeControl(frame, "LISTBOX", LBS_SORT);
    const TestWindow combo = MakeControl(frame, "COMBOBOX", CBS_DROPDOWNLIST | CBS_SORT, 8);
    for (const char* text : {"aa", "aab", "aac"}) {
        list.Send(LB_ADDSTRING, text);
        combo.Send(CB_ADDSTRING, text);
    }
    for (uint32_t n = 1; n <= 3; ++n) {
        HostFailAllocation(n);
        EXPECT_EQ(DlgAddDistinctStringIntoListbox(list, "a"), 0);
        HostFailAllocation(n);
        EXPECT_EQ(DlgAddDistinctStringIntoCombo(combo, "a"), 0);
        HostFailAllocation(n);
        EXPECT_EQ(DlgLocateStringInListbox(list, "b"), 0);
        EXPECT_TRUE(HostAllocationFailed());
    }
    HostFailAllocation(0);
    EXPECT_EQ(list.Send(LB_GETCOUNT), 3);
    EXPECT_EQ(combo.Send(CB_GETCOUNT), 3);
}

TEST(NoMemory, SkipsLinesThatAreMeasured) {
    const TestWindow frame = MakeFrame();
    const TestWindow list = MakeControl(frame, "LISTBOX", 0);
    for (const char* line : {"short", "a line that is wider than the list by far, whatever the font"}) {
        list.Send(LB_ADDSTRING, line);
    }
    HostFailAllocation(2);
    DlgSetListHScroll(list);
    EXPECT_TRUE(HostAllocationFailed());
    HostFailAllocation(0);
    EXPECT_EQ(list.Send(LB_GETHORIZONTALEXTENT), 0);
}

TEST(NoMemory, DisablesNoWindows) {
    const TestWindow window = MakeFrame();
    for (uint32_t n = 1; n <= 2; ++n) {
        HostFailAllocation(n);
        EXPECT_EQ(DlgEnableAllWindows(gLibInstance, nullptr, 0, nullptr), nullptr);
        EXPECT_TRUE(IsWindowEnabled(window));
    }
    HostFailAllocation(0);
}

std::string shown;

INT Read(const HostRequest* request, LPVOID /*value*/) {
    shown = std::string(request->caption) + ": " + request->text;
    return request->style == MB_YESNO ? IDYES : 0;
}

TEST(MessageBoxString, FormatsItsText) {
    const std::string longText(300, 'x');
    const std::string longArgument(2000, 'y');
    const HostString strings[] = {{1, "%d files in %%"}, {2, "No %s!"}, {3, longText.c_str()}};
    HostModule module = {"strings", nullptr, strings, std::size(strings), nullptr, 0, nullptr};
    const auto show = [&](uint32_t text, uint32_t title, intptr_t argument) {
        EXPECT_EQ(DlgMessageBoxString(&module, nullptr, text, title, argument, MB_YESNO), IDYES);
        return shown;
    };
    HostSetPerson(Read, nullptr);
    EXPECT_EQ(show(1, 3, 12), longText.substr(0, 39) + ": 12 files in %");
    EXPECT_EQ(show(2, 9, reinterpret_cast<intptr_t>("way")), ": No way!");
    EXPECT_EQ(show(2, 9, reinterpret_cast<intptr_t>(longArgument.c_str())),
              ": " + ("No " + longArgument).substr(0, 1023));
    EXPECT_EQ(show(3, 9, 0), ": " + longText.substr(0, 199));
    HostSetPerson(nullptr, nullptr);
}

}  // namespace
