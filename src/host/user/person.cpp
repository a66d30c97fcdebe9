// The person at the dialogs: who answers, and what a person can do.
#include <mutex>

#include <morvl15/host_native.h>

#include "list_box.h"
#include "window.h"

namespace {

std::mutex personLock;
HostPerson installed = nullptr;
LPVOID installedValue = nullptr;

// A control of a dialog, if a person can get at it.
HWND ReachableControl(HWND dialog, INT id) {
    const HWND control = GetDlgItem(dialog, id);
    return control != nullptr && HostTakesInput(control) ? control : nullptr;
}

void PostClick(HWND control, LPARAM place) {
    PostMessageA(control, WM_LBUTTONDOWN, 1, place);
    PostMessageA(control, WM_LBUTTONUP, 0, place);
}

// Where an entry of a list box can be clicked, the list being scrolled to it.
LPARAM PlaceOfEntry(HWND list, INT index) {
    SendMessageA(list, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
    const auto top = static_cast<INT>(SendMessageA(list, LB_GETTOPINDEX, 0, 0));
    return MAKELPARAM(1, (index - top) * kHostListEntryHeight + 1);
}

bool IsComboBox(HWND control) {
    char name[16] = {};
    GetClassNameA(control, name, sizeof name);
    return _stricmp(name, "ComboBox") == 0;
}

// A combo box's list isn't a window of its own: the choice is made and reported as its list would.
void ChooseInComboBox(HWND combo, INT index) {
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    PostMessageA(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
}

}  // namespace

void HostSetPerson(HostPerson person, LPVOID value) {
    const std::lock_guard guard(personLock);
    installed = person;
    installedValue = value;
}

INT HostAskPerson(const HostRequest* request) {
    HostPerson person = nullptr;
    LPVOID value = nullptr;
    {
        const std::lock_guard guard(personLock);
        person = installed;
        value = installedValue;
    }
    return person != nullptr ? person(request, value) : 0;
}

BOOL HostPressButton(HWND dialog, INT id) {
    const HWND button = ReachableControl(dialog, id);
    if (button == nullptr) return FALSE;
    PostClick(button, 0);
    return TRUE;
}

BOOL HostChooseEntry(HWND dialog, INT id, INT index, BOOL doubleClick) {
    const HWND control = ReachableControl(dialog, id);
    if (control == nullptr) return FALSE;
    const bool combo = IsComboBox(control);
    if (index < 0 || index >= SendMessageA(control, combo ? CB_GETCOUNT : LB_GETCOUNT, 0, 0)) return FALSE;
    if (combo) {
        ChooseInComboBox(control, index);
        return TRUE;
    }
    const LPARAM place = PlaceOfEntry(control, index);
    PostClick(control, place);
    if (doubleClick != FALSE) {
        PostMessageA(control, WM_LBUTTONDBLCLK, 1, place);
        PostMessageA(control, WM_LBUTTONUP, 0, place);
    }
    return TRUE;
}

BOOL HostTypeText(HWND dialog, INT id, const char* text) {
    const HWND control = ReachableControl(dialog, id);
    if (control == nullptr) return FALSE;
    SetFocus(control);
    for (; *text != 0; ++text) PostMessageA(control, WM_CHAR, static_cast<unsigned char>(*text), 0);
    return TRUE;
}

BOOL HostPressKey(INT key) {
    const HWND focus = GetFocus();
    if (focus == nullptr || !HostTakesInput(focus)) return FALSE;
    PostMessageA(focus, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    PostMessageA(focus, WM_KEYUP, static_cast<WPARAM>(key), 0);
    return TRUE;
}

BOOL HostChooseSystemItem(HWND window, UINT item) {
    const HMENU menu = GetSystemMenu(window, FALSE);
    if (menu == nullptr || !HostTakesInput(window)) return FALSE;
    SendMessageA(window, WM_INITMENU, reinterpret_cast<WPARAM>(menu), 0);
    if (GetMenuState(menu, item, MF_BYCOMMAND) != MF_ENABLED) return FALSE;
    return PostMessageA(window, WM_SYSCOMMAND, item, 0);
}
