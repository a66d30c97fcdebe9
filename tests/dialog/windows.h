// Windows for tests, which go with their scope.
#pragma once

#include <string>
#include <utility>

#include <morvl15/host.h>

#include "frame/instance.h"

class TestWindow {
  public:
    explicit TestWindow(HWND window) : window_(window) {}
    TestWindow(const char* windowClass, DWORD style, RECT place, HWND parent = nullptr, int id = 0)
        : window_(CreateWindowExA(0, windowClass, "", style, place.left, place.top, place.right - place.left,
                                  place.bottom - place.top, parent, reinterpret_cast<HMENU>(static_cast<intptr_t>(id)),
                                  gLibInstance, nullptr)) {}
    TestWindow(TestWindow&& other) noexcept : window_(std::exchange(other.window_, nullptr)) {}
    ~TestWindow() {
        if (IsWindow(window_)) DestroyWindow(window_);
    }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    operator HWND() const { return window_; }

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(window_, message, wParam, lParam);
    }
    LRESULT Send(UINT message, const char* text) const { return Send(message, 0, reinterpret_cast<LPARAM>(text)); }
    std::string Text() const {
        char text[256] = {};
        GetWindowTextA(window_, text, sizeof text);
        return text;
    }

  private:
    HWND window_;
};

// A frame that stands by itself, and controls in it.
constexpr RECT kSomewhere = {50, 50, 350, 250};
inline TestWindow MakeFrame(RECT place = kSomewhere) {
    return {"STATIC", WS_POPUP, place};
}
inline TestWindow MakeControl(HWND frame, const char* windowClass, DWORD style, int id = 7) {
    return {windowClass, WS_CHILD | style, {0, 0, 100, 80}, frame, id};
}
