// System menus: the items of a window's menu and their states. The menu goes with its window.
#include <set>

#include "window.h"

struct HostMenu {
    std::map<UINT, UINT> states;
};

namespace {

constexpr UINT kItems[] = {SC_RESTORE, SC_MOVE, SC_SIZE, SC_MINIMIZE, SC_MAXIMIZE, SC_CLOSE};
constexpr UINT kNoItem = 0xFFFFFFFF;

// All menus there are, so that a handle that is none, or whose window is gone, is told from a good one.
std::set<HMENU>& Menus() {
    static std::set<HMENU> menus;
    return menus;
}

void DeleteMenu(HostMenu* menu) {
    const std::lock_guard guard(HostTreeLock());
    Menus().erase(menu);
    delete menu;
}

UINT* StateOf(HMENU menu, UINT item) {
    if (!Menus().contains(menu)) return nullptr;
    const auto found = menu->states.find(item);
    return found != menu->states.end() ? &found->second : nullptr;
}

}  // namespace

HMENU GetSystemMenu(HWND handle, BOOL revert) {
    const std::lock_guard guard(HostTreeLock());
    HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr || (window->style & WS_SYSMENU) == 0) return nullptr;
    if (revert) {
        window->systemMenu.reset();
        return nullptr;
    }
    if (window->systemMenu == nullptr) {
        window->systemMenu = {new HostMenu, DeleteMenu};
        for (const UINT item : kItems) window->systemMenu->states[item] = MF_ENABLED;
        Menus().insert(window->systemMenu.get());
    }
    return window->systemMenu.get();
}

BOOL EnableMenuItem(HMENU menu, UINT item, UINT state) {
    const std::lock_guard guard(HostTreeLock());
    UINT* const place = StateOf(menu, item);
    if (place == nullptr) return -1;
    const UINT before = *place;
    *place = state & (MF_GRAYED | MF_DISABLED);
    return static_cast<BOOL>(before);
}

UINT GetMenuState(HMENU menu, UINT item, UINT /*flags*/) {
    const std::lock_guard guard(HostTreeLock());
    const UINT* const place = StateOf(menu, item);
    return place != nullptr ? *place : kNoItem;
}
