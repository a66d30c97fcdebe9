// The keyboard as a thread sees it, the window that has the focus, and the refusal sound.
#include <algorithm>
#include <array>
#include <atomic>

#include <morvl15/host_native.h>

#include "window.h"

namespace {

constexpr BYTE kDown = 0x80;

thread_local std::array<BYTE, 256> keyStates;
thread_local HWND focusWindow = nullptr;
thread_local uint32_t beeps = 0;

}  // namespace

int16_t GetKeyState(INT key) {
    const BYTE state = keyStates[static_cast<size_t>(key) & 0xFF];
    return static_cast<int16_t>((state & kDown) != 0 ? 0xFF80 | (state & 1) : state & 1);
}

BOOL SetKeyboardState(BYTE* states) {
    std::copy_n(states, keyStates.size(), keyStates.begin());
    return TRUE;
}

BOOL GetKeyboardState(BYTE* states) {
    std::copy(keyStates.begin(), keyStates.end(), states);
    return TRUE;
}

HWND SetFocus(HWND window) {
    HWND old = focusWindow;
    if (old == window) return old;
    if (window != nullptr && (!IsWindow(window) || !HostIsEnabledThroughout(window))) return nullptr;
    focusWindow = window;
    if (old != nullptr) SendMessageA(old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    if (window != nullptr && focusWindow == window) {
        HostRaise(window);
        SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(old), 0);
    }
    return old;
}

HWND GetFocus() {
    return focusWindow;
}

BOOL MessageBeep(UINT /*type*/) {
    ++beeps;
    return TRUE;
}

uint32_t HostTakeBeeps() {
    const uint32_t count = beeps;
    beeps = 0;
    return count;
}
