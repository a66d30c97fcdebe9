// Dialogs: made from templates, modal or not, and what a dialog does with a message that its procedure leaves alone.
#include "dialog_state.h"

#include "../kernel/modules.h"

namespace {

// Pixels of a dialog unit's multiples for a font of 8 points.
constexpr INT kBasePoints = 8;
constexpr INT kBaseWidth = 6;    // of an average character, which is 4 units wide
constexpr INT kBaseHeight = 13;  // of a line, which is 8 units high

// How often a person may act on a dialog without a message coming of it.
constexpr int kPatience = 1000;

// Halves go up.
INT Scale(INT value, INT numerator, INT denominator) {
    return (value * numerator + denominator / 2) / denominator;
}

struct DialogUnits {
    INT width;
    INT height;

    explicit DialogUnits(INT points)
        : width(Scale(kBaseWidth, points, kBasePoints)), height(Scale(kBaseHeight, points, kBasePoints)) {}
    INT X(INT units) const { return Scale(units, width, 4); }
    INT Y(INT units) const { return Scale(units, height, 8); }
};

bool MakeControls(HWND dialog, const HostDialog& made, const DialogUnits& units, HINSTANCE instance) {
    for (size_t i = 0; i < made.controlCount; ++i) {
        const HostDialogControl& c = made.controls[i];
        const HWND control = CreateWindowExA(0, c.windowClass, c.text, c.style | WS_CHILD, units.X(c.x), units.Y(c.y),
                                             units.X(c.width), units.Y(c.height), dialog,
                                             reinterpret_cast<HMENU>(static_cast<intptr_t>(c.id)), instance, nullptr);
        if (control == nullptr) return false;
        const bool isDefault = (SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
        if (isDefault) HostControlOf<HostDialogState>(dialog).defaultId = c.id;
    }
    return true;
}

// The dialog with its controls, its procedure told; null where one of its steps fails or the procedure destroys it.
HWND MakeDialog(HINSTANCE instance, const HostDialog& made, HWND owner, DLGPROC procedure, LPARAM param) {
    const DialogUnits units(made.points);
    POINT corner = {units.X(made.x), units.Y(made.y)};
    if (owner != nullptr) ClientToScreen(owner, &corner);
    const HWND dialog = CreateWindowExA(0, kHostDialogClass, made.title, made.style & ~WS_VISIBLE, corner.x, corner.y,
                                        units.X(made.width), units.Y(made.height), owner, nullptr, instance, nullptr);
    if (dialog == nullptr) return nullptr;
    if (!MakeControls(dialog, made, units, instance)) {
        DestroyWindow(dialog);
        return nullptr;
    }
    SetWindowLongPtrA(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    const LRESULT takesFocus = SendMessageA(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), param);
    if (!IsWindow(dialog)) return nullptr;
    if (takesFocus != 0 && first != nullptr) HostFocusControl(first);
    if ((made.style & WS_VISIBLE) != 0) ShowWindow(dialog, SW_SHOW);
    return dialog;
}

bool IsDialog(HWND handle) {
    const HostWindowData* window = HostFindWindow(handle);
    return window != nullptr && window->windowClass->name == kHostDialogClass;
}

bool HasEnded(HWND dialog) {
    return !IsWindow(dialog) || HostControlOf<HostDialogState>(dialog).ended;
}

void Dispatch(HWND dialog, MSG& message) {
    if (IsDialogMessageA(dialog, &message)) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

INT AskAboutDialog(HWND dialog) {
    char title[128] = {};
    GetWindowTextA(dialog, title, sizeof title);
    const HostRequest request = {HOST_REQUEST_DIALOG, dialog, nullptr, title, 0, nullptr};
    return HostAskPerson(&request);
}

// Once nobody is there: the dialog is cancelled by its procedure, or else without it.
void Cancel(HWND dialog) {
    const HWND button = GetDlgItem(dialog, IDCANCEL);
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(button));
    if (!HasEnded(dialog)) EndDialog(dialog, IDCANCEL);
}

// The loop of a modal dialog. A request to quit ends it and is left to the loop outside.
void RunUntilEnded(HWND dialog) {
    int patience = kPatience;
    while (!HasEnded(dialog)) {
        MSG message;
        if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            patience = kPatience;
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<INT>(message.wParam));
                return;
            }
            Dispatch(dialog, message);
            continue;
        }
        const INT answer = --patience > 0 ? AskAboutDialog(dialog) : HOST_PERSON_LEFT;
        if (HasEnded(dialog)) return;
        if (answer == HOST_PERSON_LEFT) {
            Cancel(dialog);
        } else if (answer == HOST_PERSON_WAITS) {
            HostWaitForMessage();
        }
    }
}

LRESULT DefaultDialogMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case DM_GETDEFID: {
            const INT id = HostControlOf<HostDialogState>(dialog).defaultId;
            return id != 0 ? static_cast<LRESULT>(MAKELPARAM(id, DC_HASDEFID)) : 0;
        }
        case DM_SETDEFID: HostControlOf<HostDialogState>(dialog).defaultId = static_cast<INT>(wParam); return TRUE;
        case WM_NEXTDLGCTL: {
            const HWND next = LOWORD(lParam) != 0 ? reinterpret_cast<HWND>(wParam)
                                                  : GetNextDlgTabItem(dialog, GetFocus(), wParam != 0 ? TRUE : FALSE);
            if (next != nullptr) HostFocusControl(next);
            return 0;
        }
        case WM_SETFOCUS: {
            const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
            if (first != nullptr) HostFocusControl(first);
            return 0;
        }
        case WM_CLOSE: {
            const HWND button = GetDlgItem(dialog, IDCANCEL);
            if (button == nullptr || IsWindowEnabled(button)) PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
            return 0;
        }
        default: return DefWindowProcA(dialog, message, wParam, lParam);
    }
}

}  // namespace

LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrA(dialog, DWLP_DLGPROC));
    if (procedure != nullptr) {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 0);
        const INT_PTR handled = procedure(dialog, message, wParam, lParam);
        if (message == WM_INITDIALOG || !IsWindow(dialog)) return handled;
        if (handled != 0) return GetWindowLongPtrA(dialog, DWLP_MSGRESULT);
    }
    return DefaultDialogMessage(dialog, message, wParam, lParam);
}

HWND CreateDialogParamA(HINSTANCE instance, LPCSTR templateName, HWND owner, DLGPROC procedure, LPARAM param) {
    const HostDialog* made = HostFindDialog(instance, templateName);
    if (made != nullptr) return MakeDialog(instance, *made, owner, procedure, param);
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

INT_PTR DialogBoxParamA(HINSTANCE instance, LPCSTR templateName, HWND owner, DLGPROC procedure, LPARAM param) {
    if (owner != nullptr && !IsWindow(owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    const HWND focus = GetFocus();
    const HostDisabledOwner disabled(owner);
    const HWND dialog = CreateDialogParamA(instance, templateName, owner, procedure, param);
    if (dialog == nullptr) return -1;
    if (!HasEnded(dialog)) ShowWindow(dialog, SW_SHOW);
    RunUntilEnded(dialog);
    if (!IsWindow(dialog)) return 0;
    const INT_PTR result = HostControlOf<HostDialogState>(dialog).result;
    disabled.Enable();
    DestroyWindow(dialog);
    if (IsWindow(focus)) SetFocus(focus);
    return result;
}

BOOL EndDialog(HWND dialog, INT_PTR result) {
    if (!IsDialog(dialog)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    auto& state = HostControlOf<HostDialogState>(dialog);
    state.ended = true;
    state.result = result;
    ShowWindow(dialog, SW_HIDE);
    return TRUE;
}
