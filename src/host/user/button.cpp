// Static texts and buttons: push buttons, check boxes, radio buttons.
#include "window.h"

namespace {

struct ButtonControl : HostControl {
    LRESULT checked = BST_UNCHECKED;
    bool down = false;  // the mouse or the space bar holds it
};

UINT TypeOf(HWND button) {
    return static_cast<UINT>(GetWindowLongPtrA(button, GWL_STYLE)) & BS_TYPEMASK;
}

LRESULT DialogCodeOf(HWND button) {
    switch (TypeOf(button)) {
        case BS_DEFPUSHBUTTON: return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
        case BS_PUSHBUTTON: return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON: return DLGC_BUTTON | DLGC_RADIOBUTTON;
        case BS_GROUPBOX: return DLGC_STATIC;
        default: return DLGC_BUTTON;
    }
}

// Checks a radio button and takes the check from the others of its group.
void CheckInGroup(HWND button) {
    const HWND parent = GetParent(button);
    for (HWND other = GetNextDlgGroupItem(parent, button, FALSE); other != nullptr && other != button;
         other = GetNextDlgGroupItem(parent, other, FALSE)) {
        if (TypeOf(other) == BS_AUTORADIOBUTTON) SendMessageA(other, BM_SETCHECK, BST_UNCHECKED, 0);
    }
    HostControlOf<ButtonControl>(button).checked = BST_CHECKED;
}

void Click(HWND button) {
    auto& control = HostControlOf<ButtonControl>(button);
    control.down = false;
    if (TypeOf(button) == BS_AUTOCHECKBOX)
        control.checked = control.checked == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED;
    if (TypeOf(button) == BS_AUTORADIOBUTTON) CheckInGroup(button);
    HostNotifyParent(button, BN_CLICKED);
}

void SetType(HWND button, UINT type) {
    const auto style = static_cast<UINT>(GetWindowLongPtrA(button, GWL_STYLE));
    SetWindowLongPtrA(button, GWL_STYLE, static_cast<LONG_PTR>((style & ~BS_TYPEMASK) | (type & BS_TYPEMASK)));
}

}  // namespace

void HostNotifyParent(HWND control, INT notification) {
    SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), notification),
                 reinterpret_cast<LPARAM>(control));
}

LRESULT CALLBACK HostStaticProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return message == WM_GETDLGCODE ? DLGC_STATIC : DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK HostButtonProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto& button = HostControlOf<ButtonControl>(window);
    switch (message) {
        case WM_GETDLGCODE: return DialogCodeOf(window);
        case BM_GETCHECK: return button.checked;
        case BM_SETCHECK: button.checked = static_cast<LRESULT>(wParam); return 0;
        case BM_SETSTYLE: SetType(window, static_cast<UINT>(wParam)); return 0;
        case BM_CLICK: Click(window); return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            button.down = true;
            SetFocus(window);
            return 0;
        case WM_KEYDOWN:
            if (wParam == VK_SPACE) button.down = true;
            return 0;
        case WM_LBUTTONUP:
            if (button.down) Click(window);
            return 0;
        case WM_KEYUP:
            if (wParam == VK_SPACE && button.down) Click(window);
            return 0;
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}
