// The standard edit control, one line: text, selection, typing, caret keys, clipboard, modified flag, reports to the
// parent. A caret step passes a double-byte character whole.
#include <algorithm>
#include <string>

#include "window.h"

namespace {

constexpr size_t kDefaultLimit = 30000;

struct EditControl : HostControl {
    std::string text;
    size_t anchor = 0;  // where the selection began
    size_t caret = 0;   // where it ends; equal to the anchor when nothing is selected
    bool modified = false;
    size_t limit = kDefaultLimit;

    size_t Start() const { return std::min(anchor, caret); }
    size_t End() const { return std::max(anchor, caret); }
    void PutCaret(size_t at) { anchor = caret = at; }
};

void ReportChange(HWND window) {
    HostNotifyParent(window, EN_UPDATE);
    HostNotifyParent(window, EN_CHANGE);
}

bool IsReadOnly(HWND window) {
    return (static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE)) & ES_READONLY) != 0;
}

// The position one character on, or one character back.
size_t NextCharacter(const std::string& text, size_t at) {
    if (at >= text.size()) return text.size();
    return static_cast<size_t>(CharNextA(text.c_str() + at) - text.c_str());
}

size_t PreviousCharacter(const std::string& text, size_t at) {
    size_t position = 0;
    while (NextCharacter(text, position) < at) position = NextCharacter(text, position);
    return position;
}

// Replaces the selection, as far as the limit lets the text grow; the caret stands behind what came in.
void ReplaceSelection(HWND window, EditControl& edit, std::string insertion) {
    const size_t kept = edit.text.size() - (edit.End() - edit.Start());
    const size_t room = edit.limit > kept ? edit.limit - kept : 0;
    const bool tooLong = insertion.size() > room;
    if (tooLong) insertion.resize(room);
    const size_t start = edit.Start();
    edit.text.replace(start, edit.End() - start, insertion);
    edit.PutCaret(start + insertion.size());
    edit.modified = true;
    if (tooLong) HostNotifyParent(window, EN_MAXTEXT);
    ReportChange(window);
}

void DeleteRange(HWND window, EditControl& edit, size_t from, size_t to) {
    edit.anchor = from;
    edit.caret = to;
    ReplaceSelection(window, edit, {});
}

void SetText(HWND window, EditControl& edit, const char* text) {
    edit.text = text == nullptr ? "" : text;
    edit.PutCaret(0);
    edit.modified = false;
    ReportChange(window);
}

LRESULT GetText(const EditControl& edit, size_t size, char* buffer) {
    if (size == 0) return 0;
    const size_t length = std::min(size - 1, edit.text.size());
    std::copy_n(edit.text.data(), length, buffer);
    buffer[length] = 0;
    return static_cast<LRESULT>(length);
}

// A start of -1 takes the selection away, an end of -1 stands for the end of the text.
void SetSelection(EditControl& edit, INT start, INT end) {
    if (start == -1) {
        edit.anchor = edit.caret;
        return;
    }
    const size_t length = edit.text.size();
    const auto place = [length](INT at) { return at < 0 ? length : std::min(static_cast<size_t>(at), length); };
    edit.anchor = std::min(place(start), place(end));
    edit.caret = std::max(place(start), place(end));
}

LRESULT GetSelection(const EditControl& edit, WPARAM startOut, LPARAM endOut) {
    const auto start = static_cast<DWORD>(edit.Start());
    const auto end = static_cast<DWORD>(edit.End());
    if (startOut != 0) *reinterpret_cast<DWORD*>(startOut) = start;
    if (endOut != 0) *reinterpret_cast<DWORD*>(endOut) = end;
    return start > 0xFFFF || end > 0xFFFF ? -1 : static_cast<LRESULT>(start | end << 16);
}

void MoveCaret(EditControl& edit, size_t at, bool extend) {
    edit.caret = at;
    if (!extend) edit.anchor = at;
}

void KeyDown(HWND window, EditControl& edit, WPARAM key) {
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool hasSelection = edit.anchor != edit.caret;
    switch (key) {
        case VK_LEFT: MoveCaret(edit, PreviousCharacter(edit.text, edit.caret), shift); break;
        case VK_RIGHT: MoveCaret(edit, NextCharacter(edit.text, edit.caret), shift); break;
        case VK_HOME: MoveCaret(edit, 0, shift); break;
        case VK_END: MoveCaret(edit, edit.text.size(), shift); break;
        case VK_DELETE:
            if (IsReadOnly(window)) break;
            if (hasSelection) {
                ReplaceSelection(window, edit, {});
            } else if (edit.caret < edit.text.size()) {
                DeleteRange(window, edit, edit.caret, NextCharacter(edit.text, edit.caret));
            }
            break;
        default: break;
    }
}

void Type(HWND window, EditControl& edit, WPARAM character) {
    if (IsReadOnly(window)) return;
    const auto byte = static_cast<unsigned char>(character);
    if (byte == VK_BACK) {
        if (edit.anchor != edit.caret) {
            ReplaceSelection(window, edit, {});
        } else if (edit.caret > 0) {
            DeleteRange(window, edit, PreviousCharacter(edit.text, edit.caret), edit.caret);
        }
    } else if (byte >= ' ' && byte != 127) {
        ReplaceSelection(window, edit, std::string(1, static_cast<char>(byte)));
    }
}

void Copy(HWND window, const EditControl& edit) {
    if (edit.anchor == edit.caret || !OpenClipboard(window)) return;
    EmptyClipboard();
    const size_t length = edit.End() - edit.Start();
    HGLOBAL block = GlobalAlloc(GHND, length + 1);
    if (block != nullptr) {
        std::copy_n(edit.text.data() + edit.Start(), length, static_cast<char*>(GlobalLock(block)));
        GlobalUnlock(block);
        SetClipboardData(CF_TEXT, block);
    }
    CloseClipboard();
}

void Paste(HWND window, EditControl& edit) {
    if (IsReadOnly(window) || !OpenClipboard(window)) return;
    HANDLE block = GetClipboardData(CF_TEXT);
    if (block != nullptr) {
        std::string text = static_cast<const char*>(GlobalLock(block));
        GlobalUnlock(block);
        text.resize(std::min(text.size(), text.find_first_of("\r\n")));
        ReplaceSelection(window, edit, std::move(text));
    }
    CloseClipboard();
}

void Clear(HWND window, EditControl& edit) {
    if (!IsReadOnly(window) && edit.anchor != edit.caret) ReplaceSelection(window, edit, {});
}

}  // namespace

LRESULT CALLBACK HostEditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!IsWindow(window)) return 0;
    auto& edit = HostControlOf<EditControl>(window);
    switch (message) {
        case WM_NCCREATE: {
            const char* text = reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpszName;
            edit.text = text == nullptr ? "" : text;
            return 1;
        }
        case WM_SETTEXT: SetText(window, edit, reinterpret_cast<const char*>(lParam)); return 1;
        case WM_GETTEXTLENGTH: return static_cast<LRESULT>(edit.text.size());
        case WM_GETTEXT: return GetText(edit, wParam, reinterpret_cast<char*>(lParam));
        case EM_GETSEL: return GetSelection(edit, wParam, lParam);
        case EM_SETSEL: SetSelection(edit, static_cast<INT>(wParam), static_cast<INT>(lParam)); return 1;
        case EM_REPLACESEL: {
            const auto* text = reinterpret_cast<const char*>(lParam);
            ReplaceSelection(window, edit, text == nullptr ? "" : text);
            return 1;
        }
        case EM_GETMODIFY: return edit.modified ? 1 : 0;
        case EM_SETMODIFY: edit.modified = wParam != 0; return 0;
        case EM_LIMITTEXT: edit.limit = wParam == 0 ? kDefaultLimit : wParam; return 0;
        case EM_GETLIMITTEXT: return static_cast<LRESULT>(edit.limit);
        case EM_SETREADONLY: {
            const auto style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
            SetWindowLongPtrA(window, GWL_STYLE, wParam != 0 ? style | ES_READONLY : style & ~ES_READONLY);
            return 1;
        }
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_HASSETSEL;
        case WM_KEYDOWN: KeyDown(window, edit, wParam); return 0;
        case WM_CHAR: Type(window, edit, wParam); return 1;
        case WM_COPY: Copy(window, edit); return 1;
        case WM_CUT:
            Copy(window, edit);
            Clear(window, edit);
            return 1;
        case WM_PASTE: Paste(window, edit); return 1;
        case WM_CLEAR: Clear(window, edit); return 1;
        case WM_SETFOCUS: HostNotifyParent(window, EN_SETFOCUS); return 0;
        case WM_KILLFOCUS: HostNotifyParent(window, EN_KILLFOCUS); return 0;
        default: return DefWindowProcA(window, message, wParam, lParam);
    }
}
