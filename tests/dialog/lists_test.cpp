// Lists without doubles, and their horizontal extent.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <morvl15/dialog.h>

#include "dialog/windows.h"

namespace {

// The two kinds of lists, which are to behave alike.
struct ListKind {
    const char* windowClass;
    DWORD style;
    UINT count, text, insert;
    int32_t(MORVL_CALL* add)(HWND, const char*);
};

constexpr ListKind kKinds[] = {
    {"LISTBOX", LBS_SORT | LBS_HASSTRINGS, LB_GETCOUNT, LB_GETTEXT, LB_INSERTSTRING, DlgAddDistinctStringIntoListbox},
    {"COMBOBOX", CBS_DROPDOWNLIST | CBS_SORT | CBS_HASSTRINGS, CB_GETCOUNT, CB_GETLBTEXT, CB_INSERTSTRING,
     DlgAddDistinctStringIntoCombo},
};

using Texts = std::vector<std::string>;

Texts EntriesOf(HWND list, const ListKind& kind) {
    Texts texts;
    const auto count = SendMessageA(list, kind.count, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char text[300] = {};
        SendMessageA(list, kind.text, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        texts.emplace_back(text);
    }
    return texts;
}

TEST(DistinctStrings, AreAddedOnce) {
    const std::string longText(290, 'z');
    for (const ListKind& kind : kKinds) {
        SCOPED_TRACE(kind.windowClass);
        const TestWindow frame = MakeFrame();
        const TestWindow list = MakeControl(frame, kind.windowClass, kind.style);
        for (const char* text :
             {"ABC", "abc", "b", "b", "ab", "abcd", "", "B", "ab", longText.c_str(), "a", longText.c_str()}) {
            EXPECT_EQ(kind.add(list, text), 1) << text;
        }
        EXPECT_EQ(kind.add(list, nullptr), 0);
        Texts texts = EntriesOf(list, kind);
        std::sort(texts.begin(), texts.end());  // how a control sorts "ABC" and "abc" is its own affair
        EXPECT_EQ(texts, (Texts{"ABC", "B", "a", "ab", "abc", "abcd", "b", longText}));
    }
}

// Entries that aren't in order: the walk from the first similar one ends at another first byte and at an empty text.
TEST(DistinctStrings, WalkEndsWhereASortedListWould) {
    const std::pair<Texts, bool> cases[] = {
        // the entries, whether "abc" is added
        {{"abcd", "x", "abc"}, true}, {{"abcd", "aX", "abc"}, false},
        {{"abcd", "", "abc"}, true},  {{"ABC", "abc"}, true},  // the first similar entry begins with a capital
        {{"x", "", "abc"}, false},
    };
    for (const ListKind& kind : kKinds) {
        for (const auto& [entries, added] : cases) {
            const TestWindow frame = MakeFrame();
            const TestWindow list = MakeControl(frame, kind.windowClass, kind.style);
            for (const std::string& entry : entries) {
                list.Send(kind.insert, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(entry.c_str()));
            }
            EXPECT_EQ(kind.add(list, "abc"), 1);
            EXPECT_EQ(EntriesOf(list, kind).size(), entries.size() + (added ? 1 : 0)) << kind.windowClass << entries[1];
        }
    }
}

WNDPROC controlProcedure;
LRESULT refusal;

LRESULT CALLBACK RefuseToAdd(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == LB_ADDSTRING) return refusal;
    return CallWindowProcA(controlProcedure, window, message, wParam, lParam);
}

TEST(DistinctStrings, AListThatIsFull) {
    const TestWindow frame = MakeFrame();
    const TestWindow list = MakeControl(frame, "LISTBOX", LBS_SORT);
    controlProcedure =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrA(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&RefuseToAdd)));
    constexpr LRESULT kAnswers[][2] = {{LB_ERR, 0}, {LB_ERRSPACE, 0}, {0, 1}};
    for (const auto& [answer, result] : kAnswers) {
        refusal = answer;
        EXPECT_EQ(DlgAddDistinctStringIntoListbox(list, "text"), result) << answer;
    }
}

TEST(LocateString, FindsTheFirstExactEntry) {
    const TestWindow frame = MakeFrame();
    const TestWindow list = MakeControl(frame, "LISTBOX", 0);
    EXPECT_EQ(DlgLocateStringInListbox(list, "a"), -1);
    for (const char* entry : {"z", "abc", "ABC", "ABC", "", "behind"}) list.Send(LB_ADDSTRING, entry);
    EXPECT_EQ(DlgLocateStringInListbox(list, "z"), 0);
    EXPECT_EQ(DlgLocateStringInListbox(list, "ABC"), 2);
    for (const char* text : {"ab", "behind", "", static_cast<const char*>(nullptr)}) {  // an empty entry ends the walk
        EXPECT_EQ(DlgLocateStringInListbox(list, text), -1);
    }
}

// ---- the horizontal extent --------------------------------------------------------------------------------------

constexpr char kLongLine[] = "a line that is wider than the list by far, whatever the font";

int32_t WidthOf(HWND list, const char* text, INT tabSize) {
    const HDC dc = GetDC(list);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(list, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font != nullptr ? SelectObject(dc, font) : nullptr;
    const DWORD extent = GetTabbedTextExtentA(dc, text, lstrlenA(text), tabSize != 0 ? 1 : 0, &tabSize);
    if (before != nullptr) SelectObject(dc, before);
    ReleaseDC(list, dc);
    return LOWORD(extent);
}

class ListScroll : public testing::Test {
  protected:
    LRESULT ExtentAfterCall() {
        DlgSetListHScroll(list_);
        return Extent();
    }
    LRESULT Extent() const { return list_.Send(LB_GETHORIZONTALEXTENT); }

    TestWindow frame_ = MakeFrame();
    TestWindow list_ = MakeControl(frame_, "LISTBOX", WS_HSCROLL);
};

TEST_F(ListScroll, FollowsTheLongestLine) {
    RECT client = {};
    GetClientRect(list_, &client);
    list_.Send(LB_ADDSTRING, "a");
    EXPECT_EQ(ExtentAfterCall(), 0);  // narrower than the list: nothing changes
    list_.Send(LB_ADDSTRING, kLongLine);
    const int32_t wide = WidthOf(list_, kLongLine, 0);
    EXPECT_GT(wide, client.right);
    EXPECT_EQ(ExtentAfterCall(), wide);
    list_.Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(wide + 50));
    EXPECT_EQ(ExtentAfterCall(), wide + 50);  // a wider extent stays while a line needs more than the list
    list_.Send(LB_DELETESTRING, 1);
    EXPECT_EQ(ExtentAfterCall(), client.right);
    list_.Send(LB_RESETCONTENT);
    EXPECT_EQ(ExtentAfterCall(), client.right);
}

TEST_F(ListScroll, CountsTabStops) {
    list_.Send(LB_ADDSTRING, "left\tright");
    SetPropA(list_, "LBTABSIZE", reinterpret_cast<HANDLE>(intptr_t{300}));
    EXPECT_EQ(ExtentAfterCall(), WidthOf(list_, "left\tright", 300));
    RemovePropA(list_, "LBTABSIZE");
    EXPECT_GT(Extent(), 300);
}

TEST_F(ListScroll, GivesOwnersRoom) {
    const TestWindow drawn = MakeControl(frame_, "LISTBOX", WS_HSCROLL | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS, 8);
    drawn.Send(LB_ADDSTRING, kLongLine);
    DlgSetListHScroll(drawn);
    EXPECT_EQ(drawn.Send(LB_GETHORIZONTALEXTENT), WidthOf(drawn, kLongLine, 0) + 15);
}

HWND listInside;

LRESULT CALLBACK ListOwner(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == 4064) return reinterpret_cast<LRESULT>(listInside);
    return DefWindowProcA(window, message, wParam, lParam);
}

TEST_F(ListScroll, AsksTheOwnerOfAList) {
    WNDCLASSA ownerClass = {};
    ownerClass.lpfnWndProc = ListOwner;
    ownerClass.hInstance = gLibInstance;
    ownerClass.lpszClassName = "cbctrlCOMBOBOX";
    RegisterClassA(&ownerClass);
    {
        const TestWindow owner = MakeControl(frame_, "CBCtrlComboBox", 0, 9);
        list_.Send(LB_ADDSTRING, kLongLine);
        for (HWND inside : {HWND{nullptr}, HWND{list_}}) {  // without a list nothing happens
            listInside = inside;
            DlgSetListHScroll(owner);
            EXPECT_EQ(Extent(), inside != nullptr ? WidthOf(list_, kLongLine, 0) : 0);
        }
    }
    UnregisterClassA("CBCtrlComboBox", gLibInstance);
}

}  // namespace
