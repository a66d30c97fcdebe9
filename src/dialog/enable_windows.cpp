// Disabling the windows of an application for a while.
#include <morvl15/dialog.h>

namespace {

constexpr int32_t kMostWindows = 50;
constexpr DWORD kNtPlatform = 2;

// The handles of the windows that were disabled, ended by a null one unless all places are taken.
struct SavedWindows {
    HWND windows[kMostWindows];
};

bool TellsInstances() {
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == kNtPlatform;
}

bool IsOfApplication(HWND window, HINSTANCE instance, bool tellsInstances) {
    if (!IsWindow(window) || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return false;
    return !tellsInstances || reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(window, GWLP_HINSTANCE)) == instance;
}

HWND FirstTopLevelWindow() {
    const HWND any = FindWindowA(nullptr, nullptr);
    return any != nullptr ? GetWindow(any, GW_HWNDFIRST) : nullptr;
}

bool IsSaved(const SavedWindows& saved, HWND window) {
    for (const HWND candidate : saved.windows) {
        if (candidate == nullptr) return false;
        if (candidate == window) return true;
    }
    return false;
}

// Calls `act` for the application's windows, but one, until it answers false.
template <class Act>
void ForEachWindow(HINSTANCE instance, HWND except, Act act) {
    const bool tellsInstances = TellsInstances();
    for (HWND window = FirstTopLevelWindow(); window != nullptr; window = GetWindow(window, GW_HWNDNEXT)) {
        if (window == except || !IsOfApplication(window, instance, tellsInstances)) continue;
        if (!act(window)) return;
    }
}

void DisableWindows(HINSTANCE instance, HWND except, SavedWindows& saved) {
    int32_t count = 0;
    ForEachWindow(instance, except, [&](HWND window) {
        const auto style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
        if ((style & WS_DISABLED) == 0) {
            saved.windows[count++] = window;
            EnableWindow(window, FALSE);
        }
        return count < kMostWindows;
    });
}

void EnableSavedWindows(HINSTANCE instance, HWND except, const SavedWindows& saved) {
    ForEachWindow(instance, except, [&](HWND window) {
        if (IsSaved(saved, window)) EnableWindow(window, TRUE);
        return true;
    });
}

}  // namespace

HGLOBAL MORVL_CALL DlgEnableAllWindows(HINSTANCE instance, HWND except, int32_t enable, HGLOBAL saved) {
    if (instance == nullptr || (enable != 0 && saved == nullptr)) return nullptr;
    const HGLOBAL block = enable != 0 ? saved : GlobalAlloc(GHND, sizeof(SavedWindows));
    auto* windows = block != nullptr ? static_cast<SavedWindows*>(GlobalLock(block)) : nullptr;
    if (windows == nullptr) return nullptr;
    if (enable != 0) {
        EnableSavedWindows(instance, except, *windows);
    } else {
        DisableWindows(instance, except, *windows);
    }
    GlobalUnlock(block);
    if (enable == 0) return block;
    GlobalFree(block);
    return nullptr;
}
