#include "support/edit_field.h"

#include <vector>

namespace {

constexpr char kParentClass[] = "EditFieldParent";
constexpr INT kEditId = 7;

}  // namespace

EditField::EditField(const char* picture, uint32_t flags, const char* controlClass) {
    WNDCLASSA parentClass{};
    parentClass.lpfnWndProc = ParentProcedure;
    parentClass.lpszClassName = kParentClass;
    RegisterClassA(&parentClass);  // fails harmlessly when it is there already

    parent_ = CreateWindowExA(0, kParentClass, "", WS_OVERLAPPED, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(parent_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    edit_ = CreateWindowExA(0, controlClass, "", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 190, 20, parent_,
                            reinterpret_cast<HMENU>(static_cast<intptr_t>(kEditId)), nullptr, nullptr);
    SetWindowLongPtrA(edit_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    control_ =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrA(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EditField::Hook)));

    FMTInitCntlBlock(&block);
    block.Picture = picture;
    block.Flags |= flags;
    block.Window = edit_;
}

EditField::~EditField() {
    masked_ = false;
    DestroyWindow(parent_);
}

LRESULT CALLBACK EditField::ParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* field = reinterpret_cast<EditField*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE && LOWORD(wParam) == kEditId && field != nullptr) {
        ++field->changes_;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK EditField::Hook(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* field = reinterpret_cast<EditField*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (field->masked_) {
        field->block.Message = message;
        field->block.WParam = wParam;
        field->block.LParam = lParam;
        if (FMTValidateInput(&field->block)) return field->block.Result;
    }
    if (message == FMT_MASK_SHOW_TEXT) field->shown_ = reinterpret_cast<const char*>(lParam);
    return CallWindowProcA(field->control_, window, message, wParam, lParam);
}

void EditField::Fill(const char* text, int32_t start, int32_t end) {
    masked_ = false;
    SetWindowTextA(edit_, text);
    Send(EM_SETSEL, static_cast<WPARAM>(start), end);
    Send(EM_SETMODIFY);
    masked_ = true;
    changes_ = 0;
}

void EditField::Press(int key, bool shift) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys);
    Send(WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
}

std::string EditField::Text() const {
    std::vector<char> text(static_cast<size_t>(GetWindowTextLengthA(edit_)) + 1);
    GetWindowTextA(edit_, text.data(), static_cast<INT>(text.size()));
    return text.data();
}
