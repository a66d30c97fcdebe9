// A horizontal scroll bar that fits the longest line of a list.
#include <morvl15/dialog.h>

#include "list_messages.h"

namespace {

constexpr char kListOwnerClass[] = "CBCtrlComboBox";
constexpr int32_t kClassNameSize = 80;
constexpr UINT kAskForList = 4064;
constexpr char kTabSizeProperty[] = "LBTABSIZE";
constexpr DWORD kOwnerDrawn = 0x10;  // a style of list boxes
constexpr int32_t kOwnerDrawnMargin = 15;

// The list box itself, or that of a control which tells it.
HWND ListOf(HWND control) {
    char name[kClassNameSize] = {};
    GetClassNameA(control, name, kClassNameSize);
    if (_stricmp(name, kListOwnerClass) != 0) return control;
    const HWND list = reinterpret_cast<HWND>(SendMessageA(control, kAskForList, 0, 0));
    return IsWindow(list) ? list : control;
}

int32_t WidthOfEntry(HDC dc, const char* text, int32_t length, int32_t tabSize) {
    const DWORD extent =
        GetTabbedTextExtentA(dc, text, length, tabSize != 0 ? 1 : 0, tabSize != 0 ? &tabSize : nullptr);
    return LOWORD(extent);
}

int32_t WidestEntry(HWND list, HDC dc) {
    const auto count = static_cast<int32_t>(SendMessageA(list, LB_GETCOUNT, 0, 0));
    const auto tabSize = static_cast<int32_t>(reinterpret_cast<intptr_t>(GetPropA(list, kTabSizeProperty)));
    int32_t widest = 0;
    for (int32_t index = 0; index < count; ++index) {
        const DlgEntryText entry(list, kDlgListBox, index);
        if (entry.Text() == nullptr) continue;
        const int32_t width = WidthOfEntry(dc, entry.Text(), entry.Length(), tabSize);
        if (width > widest) widest = width;
    }
    return widest;
}

// The width of the longest line in the list's font.
int32_t MeasureEntries(HWND list) {
    if (SendMessageA(list, LB_GETCOUNT, 0, 0) == LB_ERR) return 0;
    const HDC dc = GetDC(list);
    const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(list, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font != nullptr ? SelectObject(dc, font) : nullptr;
    const int32_t widest = WidestEntry(list, dc);
    if (before != nullptr) SelectObject(dc, before);
    ReleaseDC(list, dc);
    return widest;
}

void SetExtent(HWND list, int32_t extent) {
    SendMessageA(list, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent), 0);
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

}  // namespace

void MORVL_CALL DlgSetListHScroll(HWND control) {
    const HWND list = ListOf(control);
    RECT client = {};
    GetClientRect(list, &client);
    const int32_t width = client.right;
    const auto extent = static_cast<int32_t>(SendMessageA(list, LB_GETHORIZONTALEXTENT, 0, 0));
    int32_t widest = MeasureEntries(list);
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(list, GWL_STYLE));
    if ((style & kOwnerDrawn) != 0) widest += kOwnerDrawnMargin;
    if (widest > width && widest > extent) {
        SetExtent(list, widest);
    } else if (width > widest && extent > width) {
        SetExtent(list, width);
    }
}
