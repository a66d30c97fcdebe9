// Message boxes, and what they share with modal dialogs.
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "dialog_state.h"

namespace {

// The buttons of each style, the cautious one first.
struct BoxButtons {
    UINT style;
    INT ids[3];
};

constexpr BoxButtons kBoxButtons[] = {
    {MB_OK, {IDOK}},
    {MB_OKCANCEL, {IDCANCEL, IDOK}},
    {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}},
    {MB_YESNOCANCEL, {IDCANCEL, IDYES, IDNO}},
    {MB_YESNO, {IDNO, IDYES}},
    {MB_RETRYCANCEL, {IDCANCEL, IDRETRY}},
};

const BoxButtons& ButtonsOf(UINT style) {
    const auto* found = std::find_if(std::begin(kBoxButtons), std::end(kBoxButtons),
                                     [&](const BoxButtons& b) { return b.style == (style & MB_TYPEMASK); });
    return found != std::end(kBoxButtons) ? *found : kBoxButtons[0];
}

bool HasButton(const BoxButtons& buttons, INT id) {
    return id != 0 && std::find(std::begin(buttons.ids), std::end(buttons.ids), id) != std::end(buttons.ids);
}

HWND TopLevelHandleOf(HWND handle) {
    const std::lock_guard guard(HostTreeLock());
    HostWindowData* window = HostFindWindow(handle);
    return window != nullptr && window != HostDesktop() ? HostTopLevelOf(window)->handle : nullptr;
}

void DispatchWaiting() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return PostQuitMessage(static_cast<INT>(message.wParam));
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void Write(LPCSTR caption, LPCSTR text) {
    if (caption != nullptr && caption[0] != 0) std::fprintf(stderr, "%s: ", caption);
    std::fprintf(stderr, "%s\n", text);
}

}  // namespace

HostDisabledOwner::HostDisabledOwner(HWND owner) {
    const HWND top = TopLevelHandleOf(owner);
    if (top != nullptr && !EnableWindow(top, FALSE)) window_ = top;
}

void HostDisabledOwner::Enable() const {
    if (window_ != nullptr) EnableWindow(std::exchange(window_, nullptr), TRUE);
}

INT MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style) {
    if (owner != nullptr && !IsWindow(owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    if (text == nullptr) text = "";
    const HostDisabledOwner disabled(owner);
    DispatchWaiting();
    const HostRequest request = {
        HOST_REQUEST_MESSAGE_BOX, owner, text, caption != nullptr ? caption : "Error", style, nullptr};
    const INT answer = HostAskPerson(&request);
    const BoxButtons& buttons = ButtonsOf(style);
    if (HasButton(buttons, answer)) return answer;
    if (answer == 0) Write(request.caption, text);
    return buttons.ids[0];
}
