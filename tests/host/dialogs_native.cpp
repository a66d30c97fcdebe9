// Dialogs and message boxes, and the person at them.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <morvl15/host_native.h>

namespace {

constexpr INT kName = 10;
constexpr INT kList = 11;
constexpr INT kFirstColour = 20;
constexpr DWORD kTab = WS_VISIBLE | WS_TABSTOP;

constexpr HostDialogControl kControls[] = {
    {"STATIC", 0, WS_VISIBLE, 4, 2, 60, 8, "Name:"},
    {"EDIT", kName, kTab | ES_AUTOHSCROLL, 4, 12, 100, 12, ""},
    {"LISTBOX", kList, kTab | LBS_NOTIFY, 4, 30, 100, 26, ""},
    {"BUTTON", kFirstColour, kTab | WS_GROUP | BS_AUTORADIOBUTTON, 4, 60, 40, 10, "Red"},
    {"BUTTON", kFirstColour + 1, WS_VISIBLE | BS_AUTORADIOBUTTON, 4, 72, 40, 10, "Green"},
    {"BUTTON", IDOK, kTab | WS_GROUP | BS_DEFPUSHBUTTON, 110, 12, 40, 14, "OK"},
    {"BUTTON", IDCANCEL, kTab | BS_PUSHBUTTON, 110, 30, 40, 14, "Cancel"},
    {"BUTTON", 30, kTab | WS_DISABLED | BS_PUSHBUTTON, 110, 50, 40, 14, "Later"},
};
constexpr HostDialog kDialogs[] = {
    {"Choice", WS_POPUP | WS_CAPTION | WS_SYSMENU, 20, 16, 160, 88, "A choice", 8, "Helv", kControls,
     std::size(kControls)},
    {"Broken", WS_POPUP, 0, 0, 10, 10, "", 8, "Helv", kControls, 0},
};
HostModule module = {"dialogs", nullptr, nullptr, 0, kDialogs, std::size(kDialogs), nullptr};

struct Notice {
    INT id;
    INT code;
    bool operator==(const Notice&) const = default;
};

// What the dialog's procedure hears, and a person made of one function a step.
class Dialogs : public testing::Test {
  protected:
    using Step = std::function<INT(const HostRequest&)>;

    ~Dialogs() override { HostSetPerson(nullptr, nullptr); }

    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrA(dialog, DWLP_USER, lParam);
            auto* test = reinterpret_cast<Dialogs*>(lParam);
            for (const char* entry : {"one", "two", "three"}) {
                SendDlgItemMessageA(dialog, kList, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
            }
            if (test->onInit) test->onInit(dialog);
            return TRUE;
        }
        auto* test = reinterpret_cast<Dialogs*>(GetWindowLongPtrA(dialog, DWLP_USER));
        if (test == nullptr || message != WM_COMMAND) return FALSE;
        test->heard.push_back({LOWORD(wParam), static_cast<INT>(HIWORD(wParam))});
        char name[64] = {};
        GetDlgItemTextA(dialog, kName, name, sizeof name);
        test->name = name;
        if (LOWORD(wParam) == IDOK || (LOWORD(wParam) == IDCANCEL && !test->ignoresCancel)) {
            EndDialog(dialog, LOWORD(wParam) * 100);
        }
        return TRUE;
    }

    INT_PTR Run(HWND owner = nullptr) {
        heard.clear();
        return DialogBoxParamA(&module, "CHOICE", owner, Procedure, reinterpret_cast<LPARAM>(this));
    }

    // One step each time the dialog waits; behind the last the person has left.
    void Script(std::vector<Step> newSteps) {
        steps = std::move(newSteps);
        next = 0;
        HostSetPerson(
            [](const HostRequest* request, LPVOID value) -> INT {
                auto* test = static_cast<Dialogs*>(value);
                return test->next < test->steps.size() ? test->steps[test->next++](*request) : HOST_PERSON_LEFT;
            },
            this);
    }
    static Step Press(INT id) {
        return [id](const HostRequest& r) { return HostPressButton(r.window, id) ? HOST_PERSON_ACTED : 0; };
    }

    std::function<void(HWND)> onInit;
    bool ignoresCancel = false;
    std::vector<Notice> heard;
    std::string name;
    std::vector<Step> steps;
    size_t next = 0;
};

TEST_F(Dialogs, AreMadeFromTheirTemplates) {
    RECT rect = {};
    HWND focus = nullptr;
    onInit = [&](HWND dialog) { GetWindowRect(GetDlgItem(dialog, kName), &rect); };
    Script({[&](const HostRequest& request) {
        focus = GetFocus();
        EXPECT_EQ(request.kind, HOST_REQUEST_DIALOG);
        EXPECT_STREQ(request.caption, "A choice");
        EXPECT_TRUE(IsWindowVisible(request.window));
        EXPECT_EQ(GetDlgCtrlID(focus), kName);
        return HOST_PERSON_LEFT;
    }});
    EXPECT_EQ(Run(), IDCANCEL * 100);
    // A unit is a quarter of 6 pixels across, an eighth of 13 down.
    EXPECT_EQ((std::vector<LONG>{rect.left, rect.top, rect.right, rect.bottom}),
              (std::vector<LONG>{30 + 6, 26 + 20, 36 + 150, 46 + 20}));
    EXPECT_FALSE(IsWindow(focus));
    EXPECT_EQ(DialogBoxParamA(&module, "Missing", nullptr, Procedure, 0), -1);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(DialogBoxParamA(&module, "Choice", reinterpret_cast<HWND>(uintptr_t{12345}), Procedure, 0), 0);
}

TEST_F(Dialogs, NeverHang) {
    EXPECT_EQ(Run(), IDCANCEL * 100);  // nobody is there
    ignoresCancel = true;
    EXPECT_EQ(Run(), IDCANCEL);  // ... and the procedure won't have it
    int asked = 0;
    HostSetPerson(
        [](const HostRequest*, LPVOID count) -> INT { return ++*static_cast<int*>(count), HOST_PERSON_ACTED; }, &asked);
    EXPECT_EQ(Run(), IDCANCEL);  // somebody is, and does nothing
    EXPECT_GE(asked, 900);
    onInit = [](HWND) { PostQuitMessage(9); };
    EXPECT_EQ(Run(), IDCANCEL);  // so that nobody shows the next dialog
    MSG message = {};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, WM_QUIT);
    EXPECT_EQ(message.wParam, 9u);
    onInit = [](HWND dialog) { EndDialog(dialog, 55); };
    EXPECT_EQ(Run(), 55);
    onInit = [](HWND dialog) { DestroyWindow(dialog); };
    EXPECT_EQ(Run(), -1);
}

TEST_F(Dialogs, TakeInputFromAPerson) {
    Script({[](const HostRequest& r) { return HostTypeText(r.window, kName, "Ada") ? HOST_PERSON_ACTED : 0; },
            [](const HostRequest& r) { return HostChooseEntry(r.window, kList, 2, TRUE) ? HOST_PERSON_ACTED : 0; },
            [](const HostRequest& r) {
                EXPECT_EQ(SendDlgItemMessageA(r.window, kList, LB_GETCURSEL, 0, 0), 2);
                EXPECT_FALSE(HostChooseEntry(r.window, kList, 3, FALSE));
                EXPECT_FALSE(HostPressButton(r.window, 30));  // disabled
                EXPECT_FALSE(HostPressButton(r.window, 99));  // not there
                return HOST_PERSON_ACTED;
            },
            Press(kFirstColour), Press(kFirstColour + 1),
            [](const HostRequest& r) {
                EXPECT_EQ(SendDlgItemMessageA(r.window, kFirstColour, BM_GETCHECK, 0, 0), BST_UNCHECKED);
                EXPECT_EQ(SendDlgItemMessageA(r.window, kFirstColour + 1, BM_GETCHECK, 0, 0), BST_CHECKED);
                return HOST_PERSON_ACTED;
            },
            Press(IDOK)});
    EXPECT_EQ(Run(), IDOK * 100);
    EXPECT_EQ(name, "Ada");
    std::erase_if(heard, [](const Notice& n) { return n.id == kName || (n.id == kList && n.code > LBN_DBLCLK); });
    EXPECT_EQ(heard, (std::vector<Notice>{{kList, LBN_SELCHANGE},
                                          {kList, LBN_DBLCLK},
                                          {kFirstColour, BN_CLICKED},
                                          {kFirstColour + 1, BN_CLICKED},
                                          {IDOK, BN_CLICKED}}));
}

TEST_F(Dialogs, ObeyTheKeyboard) {
    struct {
        std::vector<INT> keys;
        INT focus;  // the control that has it in the end; 0 where the dialog ends
        INT_PTR result;
    } const kRows[] = {
        {{VK_TAB}, kList, 200},
        {{VK_TAB, VK_TAB, VK_TAB}, IDOK, 200},  // past the rest of the group
        {{VK_TAB, VK_TAB, VK_DOWN}, kFirstColour + 1, 200},
        {{VK_TAB, VK_TAB, VK_DOWN, VK_RIGHT}, kFirstColour, 200},  // round the group
        {{VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_TAB}, kName, 200},    // past the disabled button
        {{VK_TAB, VK_DOWN}, kList, 200},                           // a list keeps its arrows
        {{VK_RETURN}, 0, 100},
        {{VK_ESCAPE}, 0, 200},
        {{VK_TAB, VK_TAB, VK_TAB, VK_TAB, VK_RETURN}, 0, 200},  // the button with the focus
        {{VK_TAB, VK_TAB, VK_TAB, VK_SPACE}, 0, 100},
    };
    for (const auto& c : kRows) {
        SCOPED_TRACE(testing::PrintToString(c.keys));
        std::vector<Step> script;
        for (const INT key : c.keys) {
            script.push_back([key](const HostRequest&) { return HostPressKey(key) ? HOST_PERSON_ACTED : 0; });
        }
        INT focus = 0;
        script.push_back([&](const HostRequest&) { return focus = GetDlgCtrlID(GetFocus()), HOST_PERSON_LEFT; });
        Script(script);
        EXPECT_EQ(Run(), c.result);
        EXPECT_EQ(focus, c.focus);
    }
}

TEST_F(Dialogs, DisableTheirOwner) {
    const HWND owner = CreateWindowExA(0, "STATIC", "owner", WS_POPUP | WS_VISIBLE, 100, 100, 200, 200, nullptr,
                                       nullptr, nullptr, nullptr);
    const HWND inside =
        CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9, owner, nullptr, nullptr, nullptr);
    SetFocus(inside);
    onInit = [&](HWND dialog) {
        RECT rect = {};
        GetWindowRect(dialog, &rect);
        EXPECT_EQ(rect.left, 130);
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
        EXPECT_FALSE(IsWindowEnabled(owner));
    };
    Run(inside);  // a child's top-level window owns the dialog
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetFocus(), inside);
    EnableWindow(owner, FALSE);
    Run(owner);
    EXPECT_FALSE(IsWindowEnabled(owner));  // as it was
    DestroyWindow(owner);
}

TEST_F(Dialogs, WaitForOtherThreads) {
    std::thread other;
    Script({[&](const HostRequest& r) {
        other = std::thread([dialog = r.window] { PostMessageA(dialog, WM_COMMAND, IDOK, 0); });
        return HOST_PERSON_WAITS;
    }});
    EXPECT_EQ(Run(), IDOK * 100);
    other.join();
}

TEST_F(Dialogs, WithoutALoopOfTheirOwn) {
    const HWND dialog = CreateDialogParamA(&module, "Choice", nullptr, Procedure, reinterpret_cast<LPARAM>(this));
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(FindWindowA("#32770", "A choice"), dialog);
    ShowWindow(dialog, SW_SHOW);
    HostPressButton(dialog, kFirstColour);
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) EXPECT_TRUE(IsDialogMessageA(dialog, &message));
    EXPECT_EQ(heard.back(), (Notice{kFirstColour, BN_CLICKED}));

    const HMENU menu = GetSystemMenu(dialog, FALSE);
    EXPECT_EQ(EnableMenuItem(menu, SC_CLOSE, MF_GRAYED), static_cast<BOOL>(MF_ENABLED));
    EXPECT_FALSE(HostChooseSystemItem(dialog, SC_CLOSE));
    EXPECT_EQ(EnableMenuItem(menu, SC_CLOSE, MF_ENABLED), static_cast<BOOL>(MF_GRAYED));
    EXPECT_EQ(EnableMenuItem(menu, 1, MF_GRAYED), -1);
    EXPECT_TRUE(HostChooseSystemItem(dialog, SC_CLOSE));
    heard.clear();
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    EXPECT_EQ(heard, (std::vector<Notice>{{IDCANCEL, 0}}));  // closing is cancelling
    DestroyWindow(dialog);
    EXPECT_EQ(EnableMenuItem(menu, SC_CLOSE, MF_GRAYED), -1);
}

TEST_F(Dialogs, MessageBoxes) {
    struct {
        UINT style;
        INT answer;
        INT result;
    } const kRows[] = {
        {MB_OK, IDOK, IDOK},
        {MB_YESNO | MB_ICONQUESTION, IDYES, IDYES},
        {MB_YESNO, IDCANCEL, IDNO},  // no such button
        {MB_OKCANCEL, 0, IDCANCEL},  // nobody answers
        {MB_ABORTRETRYIGNORE, IDIGNORE, IDIGNORE},
        {MB_OK | MB_ICONEXCLAMATION, 0, IDOK},
    };
    for (const auto& c : kRows) {
        SCOPED_TRACE(c.style);
        Script({[&](const HostRequest& request) {
            EXPECT_EQ(request.kind, HOST_REQUEST_MESSAGE_BOX);
            EXPECT_STREQ(request.text, "Really?");
            EXPECT_STREQ(request.caption, "Question");
            EXPECT_EQ(request.style, c.style);
            return c.answer;
        }});
        testing::internal::CaptureStderr();
        EXPECT_EQ(MessageBoxA(nullptr, "Really?", "Question", c.style), c.result);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), c.answer == 0 ? "Question: Really?\n" : "");
    }
    EXPECT_EQ(MessageBoxA(reinterpret_cast<HWND>(uintptr_t{12345}), "", "", MB_OK), 0);
}

}  // namespace
