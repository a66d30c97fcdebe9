// Where windows stand, and whether they are shown and enabled.
#include "window.h"

namespace {

bool HasStyle(HWND handle, DWORD style) {
    return (static_cast<DWORD>(GetWindowLongPtrA(handle, GWL_STYLE)) & style) != 0;
}

void SetStyle(HWND handle, DWORD style, bool on) {
    const std::lock_guard guard(HostTreeLock());
    const auto old = static_cast<DWORD>(GetWindowLongPtrA(handle, GWL_STYLE));
    SetWindowLongPtrA(handle, GWL_STYLE, static_cast<LONG_PTR>(on ? old | style : old & ~style));
}

// Whether a window and its parents have, or lack, a style. The desktop counts as any other window.
bool Throughout(HWND handle, DWORD style, bool has) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return false;
    for (; window != nullptr; window = window->parent) {
        if (((window->style & style) != 0) != has) return false;
    }
    return true;
}

// A window's corner on the screen.
POINT OriginOf(const HostWindowData* window) {
    POINT origin = {};
    for (; window != nullptr; window = window->parent) {
        origin.x += window->place.left;
        origin.y += window->place.top;
    }
    return origin;
}

BOOL Translate(HWND handle, POINT* point, LONG sign) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return FALSE;
    const POINT origin = OriginOf(window);
    point->x += sign * origin.x;
    point->y += sign * origin.y;
    return TRUE;
}

}  // namespace

bool HostIsEnabledThroughout(HWND handle) {
    return Throughout(handle, WS_DISABLED, false);
}

bool HostTakesInput(HWND handle) {
    return HostIsEnabledThroughout(handle) && IsWindowVisible(handle) != FALSE;
}

BOOL ShowWindow(HWND handle, INT how) {
    const BOOL was = HasStyle(handle, WS_VISIBLE) ? TRUE : FALSE;
    if (!IsWindow(handle)) return FALSE;
    const bool show = how != SW_HIDE;
    SetStyle(handle, WS_VISIBLE, show);
    if (show) SetStyle(handle, WS_MINIMIZE, how == SW_MINIMIZE);
    if ((was != FALSE) != show) SendMessageA(handle, WM_SHOWWINDOW, show ? TRUE : FALSE, 0);
    return was;
}

BOOL IsWindowVisible(HWND handle) {
    return Throughout(handle, WS_VISIBLE, true) ? TRUE : FALSE;
}

BOOL IsIconic(HWND handle) {
    return HasStyle(handle, WS_MINIMIZE) ? TRUE : FALSE;
}

BOOL UpdateWindow(HWND handle) {
    return IsWindow(handle);  // nothing is ever waiting to be painted
}

BOOL EnableWindow(HWND handle, BOOL enable) {
    if (!IsWindow(handle)) return FALSE;
    const bool wasDisabled = HasStyle(handle, WS_DISABLED);
    if (wasDisabled == (enable != FALSE)) {
        SetStyle(handle, WS_DISABLED, enable == FALSE);
        if (enable == FALSE && GetFocus() == handle) SetFocus(nullptr);
        SendMessageA(handle, WM_ENABLE, enable != FALSE ? TRUE : FALSE, 0);
    }
    return wasDisabled ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND handle) {
    return IsWindow(handle) && !HasStyle(handle, WS_DISABLED) ? TRUE : FALSE;
}

BOOL MoveWindow(HWND handle, INT x, INT y, INT width, INT height, BOOL /*repaint*/) {
    RECT before = {};
    const RECT after = {x, y, x + (width > 0 ? width : 0), y + (height > 0 ? height : 0)};
    {
        const std::lock_guard guard(HostTreeLock());
        HostWindowData* window = HostFindWindow(handle);
        if (window == nullptr || window == HostDesktop()) {
            SetLastError(ERROR_INVALID_WINDOW_HANDLE);
            return FALSE;
        }
        before = window->place;
        window->place = after;
    }
    const INT cx = after.right - after.left;
    const INT cy = after.bottom - after.top;
    if (after.left != before.left || after.top != before.top) SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(x, y));
    if (cx != before.right - before.left || cy != before.bottom - before.top) {
        SendMessageA(handle, WM_SIZE, 0, MAKELPARAM(cx, cy));
    }
    return TRUE;
}

BOOL GetClientRect(HWND handle, RECT* rect) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return FALSE;
    *rect = {0, 0, window->place.right - window->place.left, window->place.bottom - window->place.top};
    return TRUE;
}

BOOL GetWindowRect(HWND handle, RECT* rect) {
    const std::lock_guard guard(HostTreeLock());
    if (!GetClientRect(handle, rect)) return FALSE;
    const POINT origin = OriginOf(HostFindWindow(handle));
    *rect = {origin.x, origin.y, origin.x + rect->right, origin.y + rect->bottom};
    return TRUE;
}

BOOL ScreenToClient(HWND handle, POINT* point) {
    return Translate(handle, point, -1);
}

BOOL ClientToScreen(HWND handle, POINT* point) {
    return Translate(handle, point, 1);
}
