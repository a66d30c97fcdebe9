// The keyboard in dialogs: the order of the controls, keys that move the focus or press a button.
#include <algorithm>

#include "dialog_state.h"

namespace {

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
}

LRESULT CodeOf(HWND control) {
    return SendMessageA(control, WM_GETDLGCODE, 0, 0);
}

bool IsPushButton(HWND control) {
    return control != nullptr && (CodeOf(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

bool TakesFocus(HWND control) {
    return (StyleOf(control) & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (HWND c = GetWindow(dialog, GW_CHILD); c != nullptr; c = GetWindow(c, GW_HWNDNEXT)) controls.push_back(c);
    return controls;
}

// The nearest control behind, or before, another that will do, round the list; from no control the first of all.
// `control` itself, which may be null, where there is no other.
template <class WillDo>
HWND Seek(const std::vector<HWND>& controls, HWND control, BOOL previous, WillDo willDo) {
    const size_t count = controls.size();
    const auto found = std::find(controls.begin(), controls.end(), control);
    const bool fromNone = found == controls.end();
    size_t at = fromNone ? (previous ? 0 : count - 1) : static_cast<size_t>(found - controls.begin());
    for (size_t step = 0; step < count; ++step) {
        at = (at + (previous ? count - 1 : 1)) % count;
        if (willDo(controls[at])) return controls[at];
    }
    return control;
}

// The controls from the group's first, which has WS_GROUP, up to the next one that has it.
std::vector<HWND> GroupOf(const std::vector<HWND>& controls, HWND control) {
    auto at = std::find(controls.begin(), controls.end(), control);
    if (at == controls.end()) return controls;
    auto end = at + 1;
    while (at != controls.begin() && (StyleOf(*at) & WS_GROUP) == 0) --at;
    while (end != controls.end() && (StyleOf(*end) & WS_GROUP) == 0) ++end;
    return {at, end};
}

// A disabled button refuses.
void Command(HWND dialog, INT id) {
    const HWND button = GetDlgItem(dialog, id);
    if (button != nullptr && !IsWindowEnabled(button)) {
        MessageBeep(0);
        return;
    }
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

void PressDefault(HWND dialog) {
    const HWND focus = GetFocus();
    if (IsChild(dialog, focus) && IsPushButton(focus)) return Command(dialog, GetDlgCtrlID(focus));
    const LRESULT id = SendMessageA(dialog, DM_GETDEFID, 0, 0);
    Command(dialog, HIWORD(id) == DC_HASDEFID ? LOWORD(id) : IDOK);
}

void FocusNext(HWND dialog, HWND next) {
    if (next != nullptr && IsChild(dialog, next)) HostFocusControl(next);
}

// Whether the key was the dialog's.
bool HandleKey(HWND dialog, HWND control, WPARAM key) {
    const LRESULT code = IsChild(dialog, control) ? CodeOf(control) : 0;
    if ((code & DLGC_WANTALLKEYS) != 0) return false;
    switch (key) {
        case VK_TAB:
            if ((code & DLGC_WANTTAB) != 0) return false;
            FocusNext(dialog, GetNextDlgTabItem(dialog, GetFocus(), GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE));
            return true;
        case VK_RETURN: PressDefault(dialog); return true;
        case VK_ESCAPE: Command(dialog, IDCANCEL); return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN: {
            if ((code & DLGC_WANTARROWS) != 0) return false;
            const BOOL previous = key == VK_LEFT || key == VK_UP ? TRUE : FALSE;
            FocusNext(dialog, GetNextDlgGroupItem(dialog, GetFocus(), previous));
            return true;
        }
        default: return false;
    }
}

}  // namespace

void HostFocusControl(HWND control) {
    SetFocus(control);
    if ((CodeOf(control) & DLGC_HASSETSEL) != 0) SendMessageA(control, EM_SETSEL, 0, -1);
}

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    return Seek(ControlsOf(dialog), control, previous,
                [](HWND next) { return TakesFocus(next) && (StyleOf(next) & WS_TABSTOP) != 0; });
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    return Seek(GroupOf(ControlsOf(dialog), control), control, previous, TakesFocus);
}

BOOL IsDialogMessageA(HWND dialog, MSG* message) {
    const HWND target = message->hwnd;
    if (target == nullptr || (target != dialog && !IsChild(dialog, target))) return FALSE;
    if (message->message == WM_KEYDOWN && HandleKey(dialog, target, message->wParam)) return TRUE;
    TranslateMessage(message);
    DispatchMessageA(message);
    return TRUE;
}

UINT GetDlgItemTextA(HWND dialog, INT id, LPSTR buffer, INT size) {
    if (buffer != nullptr && size > 0) buffer[0] = 0;
    const HWND control = GetDlgItem(dialog, id);
    return control != nullptr ? static_cast<UINT>(GetWindowTextA(control, buffer, size)) : 0;
}

BOOL SetDlgItemTextA(HWND dialog, INT id, LPCSTR text) {
    return SetWindowTextA(GetDlgItem(dialog, id), text);
}

LRESULT SendDlgItemMessageA(HWND dialog, INT id, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND control = GetDlgItem(dialog, id);
    return control != nullptr ? SendMessageA(control, message, wParam, lParam) : 0;
}
