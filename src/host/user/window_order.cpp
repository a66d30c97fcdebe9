// How windows stand to each other: parents, owners, siblings in their order, and the threads that they belong to.
#include <algorithm>

#include <unistd.h>

#include "window.h"

namespace {

// The neighbour of a window among its siblings, `step` places on; null past the ends.
HWND Neighbour(const HostWindowData* window, ptrdiff_t step) {
    const auto& siblings = window->parent->children;
    const auto at = std::find(siblings.begin(), siblings.end(), window) - siblings.begin() + step;
    return at >= 0 && at < std::ssize(siblings) ? siblings[static_cast<size_t>(at)]->handle : nullptr;
}

HWND HandleOf(const HostWindowData* window) {
    return window != nullptr ? window->handle : nullptr;
}

bool IsNamed(const HostWindowData* window, LPCSTR className, LPCSTR text) {
    return (className == nullptr || _stricmp(window->windowClass->name.c_str(), className) == 0) &&
           (text == nullptr || window->text == text);
}

}  // namespace

HostWindowData* HostTopLevelOf(HostWindowData* window) {
    while (window->parent != nullptr && window->parent != HostDesktop()) window = window->parent;
    return window;
}

std::vector<HWND> HostTopLevelWindows() {
    const std::lock_guard guard(HostTreeLock());
    std::vector<HWND> handles;
    for (const HostWindowData* window : HostDesktop()->children) handles.push_back(window->handle);
    return handles;
}

void HostRaise(HWND handle) {
    const std::lock_guard guard(HostTreeLock());
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr || window == HostDesktop()) return;
    auto& order = HostDesktop()->children;
    const auto at = std::find(order.begin(), order.end(), HostTopLevelOf(window));
    if (at != order.end()) std::rotate(order.begin(), at, at + 1);
}

HWND GetDesktopWindow() {
    return HostDesktop()->handle;
}

HWND GetParent(HWND handle) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return nullptr;
    if ((window->style & WS_CHILD) != 0) return HandleOf(window->parent);
    return (window->style & WS_POPUP) != 0 && IsWindow(window->owner) ? window->owner : nullptr;
}

HWND GetWindow(HWND handle, UINT relation) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return nullptr;
    if (relation == GW_CHILD) return window->children.empty() ? nullptr : window->children.front()->handle;
    if (relation == GW_OWNER) return IsWindow(window->owner) ? window->owner : nullptr;
    if (window->parent == nullptr) return nullptr;  // the desktop has no siblings
    switch (relation) {
        case GW_HWNDFIRST: return window->parent->children.front()->handle;
        case GW_HWNDLAST: return window->parent->children.back()->handle;
        case GW_HWNDNEXT: return Neighbour(window, 1);
        case GW_HWNDPREV: return Neighbour(window, -1);
        default: return nullptr;
    }
}

HWND FindWindowA(LPCSTR className, LPCSTR text) {
    const std::lock_guard guard(HostTreeLock());
    const auto& order = HostDesktop()->children;
    const auto found = std::find_if(order.begin(), order.end(),
                                    [&](const HostWindowData* window) { return IsNamed(window, className, text); });
    return found != order.end() ? (*found)->handle : nullptr;
}

BOOL IsChild(HWND parent, HWND handle) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    while (window != nullptr && (window->style & WS_CHILD) != 0) {
        window = window->parent;
        if (HandleOf(window) == parent) return window != nullptr ? TRUE : FALSE;
    }
    return FALSE;
}

DWORD GetWindowThreadProcessId(HWND handle, DWORD* process) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return 0;
    if (process != nullptr) *process = GetCurrentProcessId();
    return window->thread;
}

DWORD GetCurrentThreadId() {
    static thread_local const auto id = static_cast<DWORD>(gettid());
    return id;
}

DWORD GetCurrentProcessId() {
    return static_cast<DWORD>(getpid());
}
