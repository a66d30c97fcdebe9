// The standard list box and combo box.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include <morvl15/host_native.h>

namespace {

constexpr INT kId = 5;
constexpr WPARAM kNone = static_cast<WPARAM>(-1);

std::vector<INT> notices;

LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == kId) notices.push_back(HIWORD(wParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

class Lists : public testing::Test {
  protected:
    Lists() {
        frame_ =
            CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, nullptr, nullptr, nullptr, nullptr);
        SetWindowLongPtrA(frame_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Hear));
    }
    ~Lists() override { DestroyWindow(frame_); }

    // Five entries high.
    HWND Make(const char* windowClass, DWORD style) {
        list_ = CreateWindowExA(0, windowClass, "", WS_CHILD | WS_VISIBLE | style, 0, 0, 100, 65, frame_,
                                reinterpret_cast<HMENU>(static_cast<intptr_t>(kId)), nullptr, nullptr);
        notices.clear();
        return list_;
    }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(list_, message, wParam, lParam);
    }
    LRESULT Send(UINT message, WPARAM wParam, const std::string& text) const {
        return Send(message, wParam, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void Add(const std::vector<std::string>& texts) const {
        for (const std::string& text : texts) Send(LB_ADDSTRING, 0, text);
    }
    std::string Text() const {
        char text[20] = {};
        GetWindowTextA(list_, text, sizeof text);
        return text;
    }
    std::vector<std::string> Entries() const {
        std::vector<std::string> entries;
        for (LRESULT i = 0; i < Send(LB_GETCOUNT); ++i) {
            char text[100] = {};
            const LRESULT length = Send(LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            EXPECT_EQ(length, lstrlenA(text));
            entries.emplace_back(text);
        }
        return entries;
    }

    HWND frame_ = nullptr;
    HWND list_ = nullptr;
};

TEST_F(Lists, KeepEntriesInOrder) {
    Make("LISTBOX", LBS_SORT);
    Add({"pear", "Apple", "apple", "co-op", "coop", "coops", "10", "2"});
    EXPECT_EQ(Entries(), (std::vector<std::string>{"10", "2", "Apple", "apple", "coop", "co-op", "coops", "pear"}));
    EXPECT_EQ(Send(LB_SETCURSEL, 3), 3);
    EXPECT_EQ(Send(LB_ADDSTRING, 0, std::string("a")), 2);
    EXPECT_EQ(Send(LB_GETCURSEL), 4);  // the selection stays with its entry
    EXPECT_EQ(Send(LB_DELETESTRING, 0), 8);
    EXPECT_EQ(Send(LB_GETCURSEL), 3);
    EXPECT_EQ(Send(LB_INSERTSTRING, 1, std::string("zz")), 1);
    EXPECT_EQ(Send(LB_INSERTSTRING, 99, std::string("zz")), LB_ERR);
    EXPECT_EQ(Send(LB_FINDSTRING, kNone, std::string("CO")), 5);
    EXPECT_EQ(Send(LB_FINDSTRING, 5, std::string("CO")), 6);
    EXPECT_EQ(Send(LB_FINDSTRING, 7, std::string("co")), 5);  // round the list
    EXPECT_EQ(Send(LB_FINDSTRINGEXACT, kNone, std::string("COOPS")), 7);
    EXPECT_EQ(Send(LB_SELECTSTRING, kNone, std::string("p")), 8);
    EXPECT_EQ(Send(LB_SELECTSTRING, kNone, std::string("q")), LB_ERR);
    EXPECT_EQ(Send(LB_GETCURSEL), 8);
    EXPECT_EQ(Send(LB_GETTEXTLEN, 9), LB_ERR);
    EXPECT_EQ(Send(LB_SETITEMDATA, 2, 1234), LB_OKAY);
    EXPECT_EQ(Send(LB_GETITEMDATA, 2), 1234);
    EXPECT_EQ(Send(LB_SETCURSEL, kNone), LB_ERR);
    EXPECT_EQ(Send(LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(Send(LB_ADDSTRING, 0, std::string("zzz")), 9);
    EXPECT_EQ(Send(LB_FINDSTRING, kNone, std::string("z")), 1);  // which stands out of order
    Send(LB_RESETCONTENT);
    EXPECT_EQ(Send(LB_GETCOUNT), 0);
}

// The quick search against a walk through the list.
TEST_F(Lists, FindWhatAWalkFinds) {
    std::mt19937 random(8);
    const auto word = [&random](size_t most) {
        std::string text(random() % most + 1, ' ');
        for (char& c : text) c = "aAbB-' \xE4"[random() % 8];
        return text;
    };
    const auto begins = [](std::string entry, std::string text) {
        CharUpperA(entry.data());
        return entry.starts_with(CharUpperA(text.data()));
    };
    for (const DWORD style : {DWORD{0}, DWORD{LBS_SORT}}) {
        Make("LISTBOX", style);
        for (int i = 0; i < 400; ++i) {
            Add({word(6)});
            if (random() % 4 == 0) Send(LB_DELETESTRING, random() % static_cast<WPARAM>(Send(LB_GETCOUNT)));
        }
        const auto entries = Entries();
        for (int i = 0; i < 400; ++i) {
            const std::string text = word(4);
            size_t at = 0;
            while (at < entries.size() && !begins(entries[at], text)) ++at;
            EXPECT_EQ(Send(LB_FINDSTRING, kNone, text), at < entries.size() ? static_cast<LRESULT>(at) : LB_ERR)
                << text;
        }
        DestroyWindow(list_);
    }
}

TEST_F(Lists, TakeClicksAndKeys) {
    Make("LISTBOX", LBS_NOTIFY);
    Add({"one", "two", "three", "four", "five", "six", "seven"});
    Send(WM_LBUTTONDOWN, 1, MAKELPARAM(5, 13 * 2 + 4));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(5, 13 * 2 + 4));
    EXPECT_EQ(Send(LB_GETCURSEL), 2);
    EXPECT_EQ(notices, (std::vector<INT>{LBN_SETFOCUS, LBN_SELCHANGE}));
    struct {
        UINT message;
        WPARAM key;
        INT selected, top;
        bool reports;
    } const kKeys[] = {
        {WM_KEYDOWN, VK_DOWN, 3, 0, true}, {WM_KEYDOWN, VK_END, 6, 2, true},   {WM_KEYDOWN, VK_DOWN, 6, 2, false},
        {WM_KEYDOWN, VK_UP, 5, 2, true},   {WM_KEYDOWN, VK_PRIOR, 1, 1, true}, {WM_KEYDOWN, VK_HOME, 0, 0, true},
        {WM_CHAR, 'f', 3, 0, true},        {WM_CHAR, 'F', 4, 0, true},         {WM_CHAR, 'f', 3, 0, true},
        {WM_CHAR, 'x', 3, 0, false},       {WM_KEYDOWN, VK_NEXT, 6, 2, true},
    };
    for (const auto& k : kKeys) {
        notices.clear();
        Send(k.message, k.key);
        EXPECT_EQ(Send(LB_GETCURSEL), k.selected) << k.key;
        EXPECT_EQ(Send(LB_GETTOPINDEX), k.top) << k.key;
        EXPECT_EQ(notices.size(), k.reports ? 1u : 0u) << k.key;
    }
    notices.clear();
    Send(LB_SETCURSEL, 0);  // not by the person: nobody hears of it
    EXPECT_TRUE(notices.empty());
}

TEST_F(Lists, ComboBoxesShowTheirText) {
    Make("COMBOBOX", CBS_DROPDOWNLIST | CBS_SORT);
    for (const char* text : {"b", "c", "a"}) Send(CB_ADDSTRING, 0, std::string(text));
    EXPECT_EQ(Send(CB_SELECTSTRING, kNone, std::string("B")), 1);
    EXPECT_EQ(Text(), "b");
    Send(WM_KEYDOWN, VK_DOWN);
    EXPECT_EQ(Send(CB_GETCURSEL), 2);
    EXPECT_EQ(notices, (std::vector<INT>{CBN_SELCHANGE}));
    Send(CB_DELETESTRING, 0);
    EXPECT_EQ(Send(CB_GETCURSEL), 1);
    EXPECT_EQ(Send(CB_SETCURSEL, 7), CB_ERR);
    EXPECT_EQ(GetWindowTextLengthA(list_), 0);
    EXPECT_TRUE(HostChooseEntry(frame_, kId, 0, FALSE));
    EXPECT_EQ(Send(CB_GETCURSEL), 0);
    DestroyWindow(list_);

    Make("COMBOBOX", CBS_DROPDOWN);
    Send(CB_ADDSTRING, 0, std::string("entry"));
    SetWindowTextA(list_, "typ");
    EXPECT_TRUE(HostTypeText(frame_, kId, "x"));
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    EXPECT_EQ(Text(), "xtyp");
    EXPECT_EQ(notices.back(), CBN_EDITCHANGE);
    Send(CB_SETCURSEL, 0);
    EXPECT_EQ(Text(), "entry");
}

}  // namespace
