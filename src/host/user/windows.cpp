// The window tree: making and destroying windows, their relations, texts, long values and properties.
#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <mutex>

#include "window.h"

namespace {

// A handle is a slot number with the slot's generation above it, so that the handle of a window that is gone finds
// nothing, whatever has taken its slot since.
constexpr size_t kSlots = 0x4000;
constexpr uintptr_t kFirstSlot = 1;

constexpr INT kDefaultWidth = 640;
constexpr INT kDefaultHeight = 480;
constexpr RECT kScreen = {0, 0, 1024, 768};

struct Slot {
    std::atomic<HostWindowData*> window{nullptr};
    std::atomic<uintptr_t> generation{1};
};

std::array<Slot, kSlots> slots;

HWND HandleOf(size_t slot) {
    return reinterpret_cast<HWND>(slots[slot].generation.load() << 16 | slot);
}

HWND TakeSlot(HostWindowData* window) {
    for (size_t slot = kFirstSlot; slot < kSlots; ++slot) {
        HostWindowData* none = nullptr;
        if (slots[slot].window.compare_exchange_strong(none, window)) return HandleOf(slot);
    }
    return nullptr;
}

void FreeSlot(HWND handle) {
    Slot& slot = slots[reinterpret_cast<uintptr_t>(handle) & 0xFFFF];
    slot.generation.fetch_add(1);
    slot.window.store(nullptr);
}

// A child goes behind its elder siblings, a top-level window in front of all others.
void Link(HostWindowData* window, HWND parent) {
    const std::lock_guard guard(HostTreeLock());
    HostWindowData* above = HostFindWindow(parent);
    if ((window->style & WS_CHILD) != 0) {
        window->parent = above;
        above->children.push_back(window);
        return;
    }
    if (above != nullptr && above != HostDesktop()) window->owner = HostTopLevelOf(above)->handle;
    window->parent = HostDesktop();
    window->parent->children.insert(window->parent->children.begin(), window);
}

// The window leaves the tree and its handle goes, in one step for other threads.
void Unlink(HostWindowData* window) {
    const std::lock_guard guard(HostTreeLock());
    std::erase(window->parent->children, window);
    FreeSlot(window->handle);
}

// A window owned by another, of the calling thread; null for none.
HostWindowData* FindOwned(HWND owner) {
    const std::lock_guard guard(HostTreeLock());
    for (HostWindowData* window : HostDesktop()->children) {
        if (window->owner == owner && window->queue == HostQueueOfThread() && !window->dying) return window;
    }
    return nullptr;
}

void DestroyTree(HostWindowData* window) {
    if (window->dying) return;
    window->dying = true;
    const HWND handle = window->handle;
    while (HostWindowData* owned = FindOwned(handle)) DestroyTree(owned);
    SendMessageA(handle, WM_DESTROY, 0, 0);
    while (!window->children.empty()) DestroyTree(window->children.back());
    SendMessageA(handle, WM_NCDESTROY, 0, 0);
    if (GetFocus() == handle) SetFocus(nullptr);
    Unlink(window);
    delete window;
}

RECT PlaceOf(const CREATESTRUCTA& create) {
    const INT x = create.x == CW_USEDEFAULT ? 0 : create.x;
    const INT y = create.x == CW_USEDEFAULT || create.y == CW_USEDEFAULT ? 0 : create.y;
    const INT width = create.cx == CW_USEDEFAULT ? kDefaultWidth : std::max(create.cx, 0);
    const INT height =
        create.cx == CW_USEDEFAULT || create.cy == CW_USEDEFAULT ? kDefaultHeight : std::max(create.cy, 0);
    return {x, y, x + width, y + height};
}

// The place of an extra byte range, or null where it lies outside.
uint8_t* ExtraAt(HostWindowData* window, INT index) {
    if (index < 0 || static_cast<size_t>(index) + sizeof(LONG_PTR) > window->extra.size()) return nullptr;
    return window->extra.data() + index;
}

HostWindowData* MakeDesktop() {
    auto* desktop = new HostWindowData;
    desktop->windowClass = std::make_shared<HostWindowClass>(HostWindowClass{"#32769", DefWindowProcA, 0, nullptr});
    desktop->queue = HostQueueOfNobody();
    desktop->procedure = DefWindowProcA;
    desktop->style = WS_VISIBLE;
    desktop->place = kScreen;
    desktop->handle = TakeSlot(desktop);
    return desktop;
}

}  // namespace

std::recursive_mutex& HostTreeLock() {
    static std::recursive_mutex lock;
    return lock;
}

HostWindowData* HostDesktop() {
    static HostWindowData* const desktop = MakeDesktop();
    return desktop;
}

HostWindowData* HostFindWindow(HWND handle) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    const size_t slot = value & 0xFFFF;
    if (slot < kFirstSlot || slot >= kSlots || slots[slot].generation.load() != value >> 16) return nullptr;
    return slots[slot].window.load();
}

HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR text, DWORD style, INT x, INT y, INT width,
                     INT height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param) {
    auto windowClass = HostFindClass(className);
    if (windowClass == nullptr || ((style & WS_CHILD) != 0 && HostFindWindow(parent) == nullptr)) {
        SetLastError(windowClass == nullptr ? ERROR_CANNOT_FIND_WND_CLASS : ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    auto* window = new HostWindowData;
    window->windowClass = windowClass;
    window->queue = HostQueueOfThread();
    window->thread = GetCurrentThreadId();
    window->procedure = windowClass->procedure;
    window->extra.resize(static_cast<size_t>(windowClass->extraBytes));
    window->instance = instance;
    window->style = style;
    window->id = reinterpret_cast<LONG_PTR>(menu);
    CREATESTRUCTA create = {param, instance,  menu,         parent, height, width, y, x, static_cast<LONG>(style),
                            text,  className, extendedStyle};
    window->place = PlaceOf(create);
    const HWND handle = TakeSlot(window);
    if (handle == nullptr) {
        delete window;
        return nullptr;
    }
    window->handle = handle;
    Link(window, parent);

    const auto createParam = reinterpret_cast<LPARAM>(&create);
    if (SendMessageA(handle, WM_NCCREATE, 0, createParam) == 0 ||
        SendMessageA(handle, WM_CREATE, 0, createParam) == -1) {
        if (IsWindow(handle)) DestroyTree(window);
        return nullptr;
    }
    return handle;
}

BOOL DestroyWindow(HWND handle) {
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr || window->queue != HostQueueOfThread()) {
        SetLastError(window == nullptr ? ERROR_INVALID_WINDOW_HANDLE : ERROR_ACCESS_DENIED);
        return FALSE;
    }
    DestroyTree(window);
    return TRUE;
}

BOOL IsWindow(HWND handle) {
    return HostFindWindow(handle) != nullptr ? TRUE : FALSE;
}

HWND GetDlgItem(HWND parent, INT id) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(parent);
    if (window == nullptr) return nullptr;
    for (const HostWindowData* child : window->children) {
        if (child->id == id) return child->handle;
    }
    return nullptr;
}

INT GetDlgCtrlID(HWND handle) {
    return static_cast<INT>(GetWindowLongPtrA(handle, GWLP_ID));
}

LONG_PTR GetWindowLongPtrA(HWND handle, INT index) {
    const std::lock_guard guard(HostTreeLock());
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    switch (index) {
        case GWLP_WNDPROC: return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_HINSTANCE: return reinterpret_cast<LONG_PTR>(window->instance);
        case GWLP_ID: return window->id;
        case GWL_STYLE: return static_cast<LONG_PTR>(window->style);
        case GWLP_USERDATA: return window->userData;
        default: break;
    }
    LONG_PTR value = 0;
    if (const uint8_t* place = ExtraAt(window, index)) std::memcpy(&value, place, sizeof value);
    return value;
}

LONG_PTR SetWindowLongPtrA(HWND handle, INT index, LONG_PTR value) {
    const std::lock_guard guard(HostTreeLock());
    const LONG_PTR old = GetWindowLongPtrA(handle, index);
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return 0;
    switch (index) {
        case GWLP_WNDPROC: window->procedure = reinterpret_cast<WNDPROC>(value); return old;
        case GWLP_HINSTANCE: window->instance = reinterpret_cast<HINSTANCE>(value); return old;
        case GWLP_ID: window->id = value; return old;
        case GWL_STYLE: window->style = static_cast<DWORD>(value); return old;
        case GWLP_USERDATA: window->userData = value; return old;
        default: break;
    }
    if (uint8_t* place = ExtraAt(window, index)) std::memcpy(place, &value, sizeof value);
    return old;
}

LONG GetWindowLongA(HWND handle, INT index) {
    return static_cast<LONG>(GetWindowLongPtrA(handle, index));
}

LONG SetWindowLongA(HWND handle, INT index, LONG value) {
    return static_cast<LONG>(SetWindowLongPtrA(handle, index, value));
}

INT GetWindowTextLengthA(HWND handle) {
    return static_cast<INT>(SendMessageA(handle, WM_GETTEXTLENGTH, 0, 0));
}

INT GetWindowTextA(HWND handle, LPSTR buffer, INT size) {
    if (buffer == nullptr || size <= 0) return 0;
    buffer[0] = 0;
    return static_cast<INT>(
        SendMessageA(handle, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(buffer)));
}

BOOL SetWindowTextA(HWND handle, LPCSTR text) {
    return SendMessageA(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0 ? TRUE : FALSE;
}

BOOL SetPropA(HWND handle, LPCSTR name, HANDLE value) {
    const std::lock_guard guard(HostTreeLock());
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return FALSE;
    window->properties[name] = value;
    return TRUE;
}

HANDLE GetPropA(HWND handle, LPCSTR name) {
    const std::lock_guard guard(HostTreeLock());
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr) return nullptr;
    const auto found = window->properties.find(name);
    return found == window->properties.end() ? nullptr : found->second;
}

HANDLE RemovePropA(HWND handle, LPCSTR name) {
    const std::lock_guard guard(HostTreeLock());
    HANDLE old = GetPropA(handle, name);
    if (old != nullptr) HostFindWindow(handle)->properties.erase(name);
    return old;
}
