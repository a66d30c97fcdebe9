// Disabling the application's windows.
#include "window_chain.h"

namespace {

constexpr int32_t kMostWindows = 50;

bool IsDisabled(HWND window) {
    return (GetWindowLongA(window, GWL_STYLE) & static_cast<LONG>(WS_DISABLED)) != 0;
}

// A movable block, so that a list is a handle as one of the application's own making is.
HANDLE Disable(HWND window) {
    HANDLE handle = LocalAlloc(LMEM_MOVEABLE | LMEM_ZEROINIT, kMostWindows * sizeof(HWND));
    if (handle == nullptr) return nullptr;
    auto* windows = static_cast<HWND*>(LocalLock(handle));
    int32_t count = 0;
    for (; window != nullptr && count < kMostWindows; window = GetParent(window)) {
        if (IsDisabled(window)) continue;
        windows[count++] = window;
        EnableWindow(window, FALSE);
    }
    LocalUnlock(handle);
    return handle;
}

bool Contains(const HWND* windows, HWND window) {
    for (int32_t i = 0; i < kMostWindows && windows[i] != nullptr; ++i) {
        if (windows[i] == window) return true;
    }
    return false;
}

void Enable(HWND window, HANDLE handle) {
    const auto* windows = static_cast<const HWND*>(LocalLock(handle));
    for (; window != nullptr; window = GetParent(window)) {
        if (Contains(windows, window)) EnableWindow(window, TRUE);
    }
    LocalUnlock(handle);
    LocalFree(handle);
}

}  // namespace

HANDLE PrintDisableWindowChain(HWND window, int32_t enable, HANDLE list) {
    if (enable == 0) return Disable(window);
    if (list != nullptr) Enable(window, list);
    return nullptr;
}
