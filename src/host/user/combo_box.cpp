// The standard combo box: a list, and a text that is the selected entry's or an edit control's.
#include <cstring>
#include <optional>

#include "list_items.h"
#include "window.h"

namespace {

constexpr UINT kTypeMask = 3;
constexpr intptr_t kEditId = 1001;

struct ComboBox : HostControl {
    std::optional<HostListItems> items;
    INT selected = CB_ERR;
    HWND edit = nullptr;
};

UINT StyleOf(HWND window) {
    return static_cast<UINT>(GetWindowLongPtrA(window, GWL_STYLE));
}

ComboBox& BoxOf(HWND window) {
    auto& box = HostControlOf<ComboBox>(window);
    if (!box.items) box.items.emplace((StyleOf(window) & CBS_SORT) != 0);
    return box;
}

LRESULT MakeEdit(HWND window, ComboBox& box) {
    if ((StyleOf(window) & kTypeMask) == CBS_DROPDOWNLIST) return 0;
    RECT client = {};
    GetClientRect(window, &client);
    box.edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, client.right, client.bottom,
                               window, reinterpret_cast<HMENU>(kEditId), nullptr, nullptr);
    return box.edit != nullptr ? 0 : -1;
}

LRESULT Select(HWND window, ComboBox& box, INT index) {
    const bool found = index >= 0 && index < box.items->Count();
    box.selected = found ? index : CB_ERR;
    const char* text = found ? box.items->Text(static_cast<WPARAM>(index)).c_str() : "";
    if (box.edit != nullptr) {
        SetWindowTextA(box.edit, text);
    } else {
        DefWindowProcA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    }
    return box.selected;
}

LRESULT Find(const ComboBox& box, INT after, LPARAM text, HostListItems::Match match) {
    return box.items->Find(after, reinterpret_cast<const char*>(text), match);
}

LRESULT SelectFound(HWND window, ComboBox& box, INT found) {
    return found != CB_ERR ? Select(window, box, found) : CB_ERR;
}

// The selection stays with its entry when another comes in before it.
LRESULT Added(ComboBox& box, INT at) {
    if (at != CB_ERR && at <= box.selected) ++box.selected;
    return at;
}

LRESULT DeleteEntry(ComboBox& box, WPARAM index) {
    if (!box.items->Has(index)) return CB_ERR;
    box.items->Delete(index);
    const auto deleted = static_cast<INT>(index);
    if (box.selected == deleted) box.selected = CB_ERR;
    if (box.selected > deleted) --box.selected;
    return box.items->Count();
}

LRESULT CopyText(const HostListItems& items, WPARAM index, LPARAM buffer) {
    if (!items.Has(index)) return CB_ERR;
    const std::string& text = items.Text(index);
    std::memcpy(reinterpret_cast<char*>(buffer), text.c_str(), text.size() + 1);
    return static_cast<LRESULT>(text.size());
}

LRESULT SetEntryData(HostListItems& items, WPARAM index, LPARAM data) {
    if (!items.Has(index)) return CB_ERR;
    items.Data(index) = data;
    return CB_OKAY;
}

LRESULT Reset(HWND window, ComboBox& box) {
    box.items->Clear();
    Select(window, box, CB_ERR);
    return CB_OKAY;
}

// An arrow takes the neighbour of the selected entry.
void KeyDown(HWND window, ComboBox& box, WPARAM key) {
    if (key != VK_UP && key != VK_DOWN) return;
    const INT to = box.selected + (key == VK_UP ? -1 : 1);
    if (to < 0 || to >= box.items->Count()) return;
    Select(window, box, to);
    HostNotifyParent(window, CBN_SELCHANGE);
}

LRESULT PassToEdit(HWND window, const ComboBox& box, UINT message, WPARAM wParam, LPARAM lParam) {
    return box.edit != nullptr ? SendMessageA(box.edit, message, wParam, lParam)
                               : DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

LRESULT CALLBACK HostComboBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    using Match = HostListItems::Match;
    ComboBox& box = BoxOf(window);
    HostListItems& items = *box.items;
    const auto index = static_cast<INT>(wParam);
    const auto* text = reinterpret_cast<const char*>(lParam);
    switch (message) {
        case WM_CREATE: return MakeEdit(window, box);
        case CB_ADDSTRING: return Added(box, items.Add(text));
        case CB_INSERTSTRING: return Added(box, items.Insert(index, text));
        case CB_DELETESTRING: return DeleteEntry(box, wParam);
        case CB_RESETCONTENT: return Reset(window, box);
        case CB_GETCOUNT: return items.Count();
        case CB_GETCURSEL: return box.selected;
        case CB_SETCURSEL: return Select(window, box, index);
        case CB_GETLBTEXT: return CopyText(items, wParam, lParam);
        case CB_GETLBTEXTLEN: return items.Has(wParam) ? static_cast<LRESULT>(items.Text(wParam).size()) : CB_ERR;
        case CB_FINDSTRING: return Find(box, index, lParam, Match::kBeginning);
        case CB_FINDSTRINGEXACT: return Find(box, index, lParam, Match::kWhole);
        case CB_SELECTSTRING: return SelectFound(window, box, items.Find(index, text, Match::kBeginning));
        case CB_GETITEMDATA: return items.Has(wParam) ? items.Data(wParam) : CB_ERR;
        case CB_SETITEMDATA: return SetEntryData(items, wParam, lParam);
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_COMMAND:
            if (HIWORD(wParam) == EN_CHANGE) HostNotifyParent(window, CBN_EDITCHANGE);
            return 0;
        case WM_SETFOCUS:
            if (box.edit != nullptr) SetFocus(box.edit);
            return 0;
        case WM_KEYDOWN: KeyDown(window, box, wParam); return 0;
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
        case WM_CHAR: return PassToEdit(window, box, message, wParam, lParam);
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}
