// Windows among each other: places, owners, order; messages to windows of other threads.
#include <gtest/gtest.h>

#include <future>
#include <thread>
#include <tuple>

#include <morvl15/host_native.h>

namespace {

HWND Make(DWORD style, INT x, INT y, HWND parent = nullptr, const char* text = "") {
    return CreateWindowExA(0, "STATIC", text, style, x, y, 100, 60, parent, nullptr, nullptr, nullptr);
}

TEST(WindowPlaces, CountFromTheParentAndTheScreen) {
    const HWND top = Make(WS_POPUP | WS_VISIBLE, 200, 100);
    const HWND child = Make(WS_CHILD | WS_VISIBLE, 10, 20, top);
    const HWND inner = Make(WS_CHILD | WS_VISIBLE, 1, 2, child);
    RECT rect = {};
    EXPECT_TRUE(GetWindowRect(inner, &rect));
    EXPECT_EQ(rect.left, 211);
    EXPECT_EQ(rect.bottom, 182);
    EXPECT_TRUE(MoveWindow(child, 30, 40, 50, 60, TRUE));
    POINT point = {300, 200};
    EXPECT_TRUE(ScreenToClient(inner, &point));
    EXPECT_EQ(point.x, 69);
    EXPECT_EQ(point.y, 58);
    EXPECT_TRUE(GetClientRect(child, &rect));
    EXPECT_EQ(rect.right, 50);
    EXPECT_TRUE(GetWindowRect(GetDesktopWindow(), &rect));
    EXPECT_EQ(rect.right, 1024);
    EXPECT_EQ(rect.bottom, 768);
    EXPECT_TRUE(IsWindowVisible(inner));
    ShowWindow(top, SW_HIDE);
    EXPECT_FALSE(IsWindowVisible(inner));
    ShowWindow(top, SW_MINIMIZE);
    EXPECT_TRUE(IsIconic(top));
    ShowWindow(top, SW_RESTORE);
    EXPECT_FALSE(IsIconic(top));
    DestroyWindow(top);
    EXPECT_FALSE(GetWindowRect(top, &rect));
    EXPECT_FALSE(MoveWindow(top, 0, 0, 1, 1, TRUE));
}

TEST(WindowOrder, HasTheLastTouchedInFront) {
    const HWND a = Make(WS_POPUP, 0, 0, nullptr, "a");
    const HWND b = Make(WS_POPUP, 0, 0, a, "b");  // owned
    const HWND c = Make(WS_OVERLAPPED, 0, 0, nullptr, "c");
    const HWND x = Make(WS_CHILD, 0, 0, c);
    const HWND y = Make(WS_CHILD, 0, 0, c);
    EXPECT_EQ(FindWindowA(nullptr, nullptr), c);
    EXPECT_EQ(FindWindowA("static", "a"), a);
    EXPECT_EQ(FindWindowA("static", "A"), nullptr);
    // of children the eldest comes first
    const std::tuple<HWND, UINT, HWND> kLinks[] = {
        {c, GW_HWNDNEXT, b}, {b, GW_HWNDNEXT, a}, {a, GW_HWNDNEXT, nullptr}, {a, GW_HWNDFIRST, c}, {c, GW_HWNDLAST, a},
        {a, GW_HWNDPREV, b}, {c, GW_CHILD, x},    {x, GW_HWNDNEXT, y},       {b, GW_OWNER, a},
    };
    for (const auto& [from, relation, to] : kLinks) EXPECT_EQ(GetWindow(from, relation), to) << relation;
    EXPECT_EQ(GetParent(b), a);
    EXPECT_EQ(GetParent(a), nullptr);
    EXPECT_EQ(GetParent(x), c);
    EXPECT_TRUE(IsChild(c, y));
    EXPECT_FALSE(IsChild(a, b));
    SetFocus(a);
    EXPECT_EQ(FindWindowA(nullptr, nullptr), a);
    EXPECT_EQ(GetWindow(a, GW_HWNDNEXT), c);
    EnableWindow(a, FALSE);
    EXPECT_EQ(GetFocus(), nullptr);
    SetFocus(a);
    EXPECT_EQ(GetFocus(), nullptr);  // a disabled window takes none
    DWORD process = 0;
    EXPECT_EQ(GetWindowThreadProcessId(a, &process), GetCurrentThreadId());
    EXPECT_EQ(process, GetCurrentProcessId());
    EXPECT_EQ(GetWindowThreadProcessId(nullptr, nullptr), 0u);
    DestroyWindow(a);
    EXPECT_FALSE(IsWindow(b));  // goes with its owner
    DestroyWindow(c);
    EXPECT_EQ(FindWindowA(nullptr, nullptr), nullptr);
}

TEST(SendMessageTimeout, WaitsNoLongerThanTold) {
    std::promise<HWND> made;
    std::promise<void> listens;
    std::thread other([&] {
        const HWND window = Make(WS_POPUP, 0, 0);
        made.set_value(window);
        listens.get_future().wait();
        MSG message = {};
        while (IsWindow(window) && GetMessageA(&message, nullptr, 0, 0)) DispatchMessageA(&message);
    });
    const HWND window = made.get_future().get();
    DWORD_PTR result = 77;
    EXPECT_EQ(SendMessageTimeoutA(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, 10, &result), 0);
    EXPECT_EQ(GetLastError(), ERROR_TIMEOUT);
    EXPECT_NE(SendMessageTimeoutA(HWND_BROADCAST, WM_SETTINGCHANGE, 0, 0, SMTO_NORMAL, 10, &result), 0);
    listens.set_value();
    EXPECT_NE(SendMessageTimeoutA(window, WM_GETTEXTLENGTH, 0, 0, SMTO_NORMAL, 10000, &result), 0);
    EXPECT_EQ(result, 0u);
    EXPECT_EQ(SendMessageTimeoutA(nullptr, WM_NULL, 0, 0, SMTO_NORMAL, 10, &result), 0);
    PostMessageA(window, WM_CLOSE, 0, 0);
    other.join();
}

int settingChanges = 0;

LRESULT CALLBACK CountChanges(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETTINGCHANGE) ++settingChanges;
    return DefWindowProcA(window, message, wParam, lParam);
}

TEST(SendMessageTimeout, ReachesAllTopLevelWindows) {
    const HWND first = Make(WS_POPUP, 0, 0);
    const HWND second = Make(WS_OVERLAPPED, 0, 0);
    for (const HWND window : {first, second, Make(WS_CHILD, 0, 0, first)}) {
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountChanges));
    }
    settingChanges = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_SETTINGCHANGE, 0, 0, SMTO_NORMAL, 1000, nullptr);
    EXPECT_EQ(settingChanges, 2);
    DestroyWindow(first);
    DestroyWindow(second);
}

}  // namespace
