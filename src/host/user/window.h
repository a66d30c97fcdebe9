// The inside of the window tree: what a window is, and how its parts find each other.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <morvl15/host.h>

struct HostThreadQueue;

constexpr char kHostDialogClass[] = "#32770";

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
    DWORD thread = 0;
    HostWindowData* parent = nullptr;       // of a top-level window: the desktop
    HWND owner = nullptr;                   // of a top-level window
    std::vector<HostWindowData*> children;  // in z-order, the topmost first
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    RECT place = {};  // in the parent's client area
    HANDLE font = nullptr;
    LONG_PTR id = 0;
    LONG_PTR userData = 0;
    std::string text;
    std::map<std::string, HANDLE> properties;
    std::vector<uint8_t> extra;
    std::unique_ptr<HostControl> control;
    std::unique_ptr<HostMenu, void (*)(HostMenu*)> systemMenu{nullptr, nullptr};
    bool dying = false;
};

// Guards the tree and what is told of windows to other threads: relations, style, place, procedure. Never held while a
// procedure runs.
std::recursive_mutex& HostTreeLock();

// The window behind a handle, or null for none and for one that is gone. Only the window's own thread may hold on to
// it; others look at it under the tree's lock.
HostWindowData* HostFindWindow(HWND handle);

// The window of the whole screen, parent of all top-level windows.
HostWindowData* HostDesktop();

// The top-level window that a window lies in, or is.
HostWindowData* HostTopLevelOf(HostWindowData* window);

// All top-level windows, the frontmost first.
std::vector<HWND> HostTopLevelWindows();

// Puts the top-level window of a window in front of the others.
void HostRaise(HWND handle);

// Whether a window and its parents are enabled; whether they are visible too, so that input reaches the window.
bool HostIsEnabledThroughout(HWND handle);
bool HostTakesInput(HWND handle);

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

// Whose messages nobody reads, and nobody ever will.
std::shared_ptr<HostThreadQueue> HostQueueOfNobody();

// Sleeps until a message waits for the calling thread, having answered those that other threads send meanwhile.
void HostWaitForMessage();

// Reports a notification of a control to its parent.
void HostNotifyParent(HWND control, INT notification);

// The procedures of the standard controls.
LRESULT CALLBACK HostButtonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK HostComboBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK HostEditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK HostListBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK HostStaticProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
