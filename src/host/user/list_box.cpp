// The standard list box: entries, one selection or none, and who hears of it.
#include "list_box.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "list_items.h"
#include "window.h"

namespace {

struct ListBox : HostControl {
    std::optional<HostListItems> items;
    INT selected = LB_ERR;
    INT top = 0;
    INT extent = 0;
    bool pressed = false;
};

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
}

ListBox& BoxOf(HWND window) {
    auto& box = HostControlOf<ListBox>(window);
    if (!box.items) box.items.emplace((StyleOf(window) & LBS_SORT) != 0);
    return box;
}

void Notify(HWND window, INT notification) {
    if ((StyleOf(window) & LBS_NOTIFY) != 0) HostNotifyParent(window, notification);
}

INT EntriesShown(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return std::max<INT>(client.bottom / kHostListEntryHeight, 1);
}

void ScrollTo(HWND window, ListBox& box, INT index) {
    const INT last = std::max(box.items->Count() - EntriesShown(window), 0);
    box.top = std::clamp(index, 0, last);
}

// Selects an entry, -1 for none, and brings it into sight. -1 for an index there isn't, and for none.
LRESULT Select(HWND window, ListBox& box, INT index) {
    if (index < 0 || index >= box.items->Count()) {
        box.selected = index == LB_ERR ? LB_ERR : box.selected;
        return LB_ERR;
    }
    box.selected = index;
    const INT shown = EntriesShown(window);
    if (index < box.top) ScrollTo(window, box, index);
    if (index >= box.top + shown) ScrollTo(window, box, index - shown + 1);
    return index;
}

LRESULT DeleteEntry(HWND window, ListBox& box, WPARAM index) {
    if (!box.items->Has(index)) return LB_ERR;
    box.items->Delete(index);
    const auto deleted = static_cast<INT>(index);
    if (box.selected == deleted) box.selected = LB_ERR;
    if (box.selected > deleted) --box.selected;
    ScrollTo(window, box, box.top);
    return box.items->Count();
}

LRESULT InsertEntry(ListBox& box, INT index, const char* text) {
    const INT at = box.items->Insert(index, text);
    if (at != LB_ERR && at <= box.selected) ++box.selected;
    return at;
}

LRESULT AddEntry(ListBox& box, const char* text) {
    const INT at = box.items->Add(text);
    if (at <= box.selected) ++box.selected;
    return at;
}

LRESULT CopyText(const HostListItems& items, WPARAM index, char* buffer) {
    if (!items.Has(index)) return LB_ERR;
    const std::string& text = items.Text(index);
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<LRESULT>(text.size());
}

// Button down: the entry under the pointer is selected, if there is one.
void Press(HWND window, ListBox& box, LPARAM place) {
    const INT index = box.top + HIWORD(place) / kHostListEntryHeight;
    box.pressed = Select(window, box, index) != LB_ERR;
    SetFocus(window);
}

void Release(HWND window, ListBox& box) {
    if (!box.pressed) return;
    box.pressed = false;
    Notify(window, LBN_SELCHANGE);
}

void MoveSelection(HWND window, ListBox& box, INT index) {
    if (box.items->Count() == 0) return;
    const INT to = std::clamp(index, 0, box.items->Count() - 1);
    if (to == box.selected) return;
    Select(window, box, to);
    Notify(window, LBN_SELCHANGE);
}

void KeyDown(HWND window, ListBox& box, WPARAM key) {
    const INT page = EntriesShown(window) - 1;
    switch (key) {
        case VK_UP:
        case VK_LEFT: return MoveSelection(window, box, box.selected - 1);
        case VK_DOWN:
        case VK_RIGHT: return MoveSelection(window, box, box.selected + 1);
        case VK_PRIOR: return MoveSelection(window, box, box.selected - page);
        case VK_NEXT: return MoveSelection(window, box, box.selected + page);
        case VK_HOME: return MoveSelection(window, box, 0);
        case VK_END: return MoveSelection(window, box, box.items->Count() - 1);
        default: return;
    }
}

// A character goes to the next entry that begins with it.
void Type(HWND window, ListBox& box, WPARAM character) {
    const char text[2] = {static_cast<char>(character), 0};
    if (static_cast<unsigned char>(character) < ' ') return;
    const INT found = box.items->Find(box.selected, text, HostListItems::Match::kBeginning);
    if (found != LB_ERR) MoveSelection(window, box, found);
}

}  // namespace

LRESULT CALLBACK HostListBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    using Match = HostListItems::Match;
    ListBox& box = BoxOf(window);
    HostListItems& items = *box.items;
    const auto index = static_cast<INT>(wParam);
    const auto* text = reinterpret_cast<const char*>(lParam);
    switch (message) {
        case LB_ADDSTRING: return AddEntry(box, text);
        case LB_INSERTSTRING: return InsertEntry(box, index, text);
        case LB_DELETESTRING: return DeleteEntry(window, box, wParam);
        case LB_RESETCONTENT:
            items.Clear();
            box.selected = LB_ERR;
            box.top = 0;
            return LB_OKAY;
        case LB_SETCURSEL: return Select(window, box, index);
        case LB_GETSEL: return items.Has(wParam) ? (index == box.selected ? 1 : 0) : LB_ERR;
        case LB_GETCURSEL: return box.selected;
        case LB_GETTEXT: return CopyText(items, wParam, reinterpret_cast<char*>(lParam));
        case LB_GETTEXTLEN: return items.Has(wParam) ? static_cast<LRESULT>(items.Text(wParam).size()) : LB_ERR;
        case LB_GETCOUNT: return items.Count();
        case LB_SELECTSTRING: {
            const INT found = items.Find(index, text, Match::kBeginning);
            return found != LB_ERR ? Select(window, box, found) : LB_ERR;
        }
        case LB_FINDSTRING: return items.Find(index, text, Match::kBeginning);
        case LB_FINDSTRINGEXACT: return items.Find(index, text, Match::kWhole);
        case LB_GETTOPINDEX: return box.top;
        case LB_SETTOPINDEX: ScrollTo(window, box, index); return LB_OKAY;
        case LB_SETTABSTOPS: return TRUE;  // they tell how to draw, and nothing is drawn
        case LB_GETHORIZONTALEXTENT: return box.extent;
        case LB_SETHORIZONTALEXTENT: box.extent = index; return 0;
        case LB_GETITEMDATA: return items.Has(wParam) ? items.Data(wParam) : LB_ERR;
        case LB_SETITEMDATA:
            if (!items.Has(wParam)) return LB_ERR;
            items.Data(wParam) = lParam;
            return LB_OKAY;
        case LB_GETITEMHEIGHT: return kHostListEntryHeight;
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_LBUTTONDOWN: Press(window, box, lParam); return 0;
        case WM_LBUTTONUP: Release(window, box); return 0;
        case WM_LBUTTONDBLCLK:
            if (box.selected != LB_ERR) Notify(window, LBN_DBLCLK);
            return 0;
        case WM_KEYDOWN: KeyDown(window, box, wParam); return 0;
        case WM_CHAR: Type(window, box, wParam); return 0;
        case WM_SETFOCUS: Notify(window, LBN_SETFOCUS); return 0;
        case WM_KILLFOCUS: Notify(window, LBN_KILLFOCUS); return 0;
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}
