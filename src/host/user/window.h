// The inside of the window tree: what a window is, and how its parts find each other.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <morvl15/host.h>

struct HostThreadQueue;

// A window's own data of a standard control.
struct HostControl {
    virtual ~HostControl() = default;
};

struct HostWindowClass {
    std::string name;
    WNDPROC procedure;
    INT extraBytes;
    HINSTANCE instance;
};

struct HostWindowData {
    HWND handle = nullptr;
    std::shared_ptr<const HostWindowClass> windowClass;
    std::shared_ptr<HostThreadQueue> queue;  // the thread that made the window
    HostWindowData* parent = nullptr;
    std::vector<HostWindowData*> children;  // in z-order, the topmost last
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::string text;
    std::map<std::string, HANDLE> properties;
    std::vector<uint8_t> extra;
    std::unique_ptr<HostControl> control;
    bool dying = false;
};

// The window behind a handle, or null for none and for one that is gone. Only the window's own thread may hold on to
// it.
HostWindowData* HostFindWindow(HWND handle);

// The class of a name, standard classes included; null if there is none.
std::shared_ptr<const HostWindowClass> HostFindClass(const char* name);

// The calling thread's message queue.
const std::shared_ptr<HostThreadQueue>& HostQueueOfThread();

// The data of a control of type T, made at its first use.
template <typename T>
T& HostControlOf(HWND handle) {
    HostWindowData* window = HostFindWindow(handle);
    if (window->control == nullptr) window->control = std::make_unique<T>();
    return static_cast<T&>(*window->control);
}

// The procedure of the standard edit control.
LRESULT CALLBACK HostEditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
