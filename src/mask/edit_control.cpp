// An edit control, worked on from outside by messages.
#include "edit_control.h"

#include <cstring>

FMTEditContext FMTEditContextOf(HWND window, const char* picture) {
    return {window, picture, static_cast<int32_t>(std::strlen(picture)),
            reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_WNDPROC))};
}

FMTEditSelection FMTEditGetSelection(const FMTEditContext& edit) {
    const LRESULT selection = SendMessageA(edit.window, EM_GETSEL, 0, 0);
    return {LOWORD(selection), HIWORD(selection)};
}

void FMTEditSetSelection(const FMTEditContext& edit, int32_t start, int32_t end) {
    SendMessageA(edit.window, EM_SETSEL, static_cast<WPARAM>(start), end);
}

void FMTEditSetCaret(const FMTEditContext& edit, int32_t position) {
    FMTEditSetSelection(edit, position, position);
}

int32_t FMTEditTextLength(const FMTEditContext& edit) {
    return GetWindowTextLengthA(edit.window);
}

void FMTEditReadText(const FMTEditContext& edit, char* buffer, int32_t size) {
    buffer[0] = 0;
    GetWindowTextA(edit.window, buffer, size);
}

LRESULT FMTEditPassOn(const FMTEditContext& edit, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcA(edit.handler, edit.window, message, wParam, lParam);
}

void FMTEditMarkModified(const FMTEditContext& edit) {
    SendMessageA(edit.window, EM_SETMODIFY, 1, 0);
}

void FMTEditReportChange(const FMTEditContext& edit) {
    const auto id = static_cast<WORD>(GetWindowLongPtrA(edit.window, GWLP_ID));
    SendMessageA(GetParent(edit.window), WM_COMMAND, MAKEWPARAM(id, EN_CHANGE), reinterpret_cast<LPARAM>(edit.window));
}

void FMTMaskSetAndReport(const FMTEditContext& edit, const char* text, int32_t caret) {
    SendMessageA(edit.window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    FMTEditSetCaret(edit, caret);
    FMTEditMarkModified(edit);
    FMTEditReportChange(edit);
}

void FMTMaskPutChar(const FMTEditContext& edit, char ch, int32_t position) {
    const char text[2] = {ch, 0};
    FMTEditSetSelection(edit, position, position + 1);
    SendMessageA(edit.window, EM_REPLACESEL, 0, reinterpret_cast<LPARAM>(text));
}
