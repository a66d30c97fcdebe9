// Edit-time validation: what each message to a masked edit control does, and the caret walks.
#include <algorithm>
#include <cstring>

#include <morvl15/mask.h>
#include <morvl15/memory.h>

#include "edit_changes.h"
#include "mask_picture.h"

namespace {

// While a call runs, the messages that it sends to the control come through the application's hook once more; those
// nested calls answer 0 at once.
thread_local bool gFMTValidating = false;

class ValidatingScope {
  public:
    ValidatingScope() { gFMTValidating = true; }
    ~ValidatingScope() { gFMTValidating = false; }
    ValidatingScope(const ValidatingScope&) = delete;
    ValidatingScope& operator=(const ValidatingScope&) = delete;
};

bool IsShiftDown() {
    return GetKeyState(VK_SHIFT) < 0;
}

// Over the literals from a position on, at most to just behind the text.
int32_t WalkRight(const FMTEditContext& edit, int32_t position) {
    const int32_t last = FMTEditTextLength(edit) + 1;
    while (position < last && FMTMaskIsLiteralAt(edit, position)) ++position;
    return position;
}

void FMTMaskKeyDelete(const FMTEditContext& edit) {
    const auto [start, end] = FMTEditGetSelection(edit);
    if (start != end) {
        FMTMaskDeleteSelection(edit, start, end);
    } else if (!FMTMaskIsLiteralAt(edit, start) || !FMTMaskHasInput(edit)) {
        FMTMaskDeleteRange(edit, start, start);
    }
}

void FMTMaskKeyLeft(const FMTEditContext& edit, LPARAM keyData) {
    FMTEditPassOn(edit, WM_KEYDOWN, VK_LEFT, keyData);
    int32_t position = FMTEditGetSelection(edit).start;
    while (position > 0 && FMTMaskIsLiteralAt(edit, position)) --position;
    if (position == 0) position = WalkRight(edit, 0);
    FMTEditSetCaret(edit, position);
}

void FMTMaskKeyRight(const FMTEditContext& edit, LPARAM keyData) {
    FMTEditPassOn(edit, WM_KEYDOWN, VK_RIGHT, keyData);
    FMTEditSetCaret(edit, WalkRight(edit, FMTEditGetSelection(edit).start));
}

void FMTMaskKeyHome(const FMTEditContext& edit) {
    FMTEditSetCaret(edit, 0);
    if (FMTMaskIsLiteralAt(edit, 0)) FMTEditSetCaret(edit, WalkRight(edit, 0));
}

void FMTMaskKeyEnd(const FMTEditContext& edit) {
    FMTEditSetCaret(edit, FMTEditTextLength(edit) + 1);
}

void FMTMaskSelectToEdge(const FMTEditContext& edit, bool toEnd) {
    const int32_t start = FMTEditGetSelection(edit).start;
    if (toEnd) {
        FMTEditSetSelection(edit, start, FMTEditTextLength(edit));
    } else {
        FMTEditSetSelection(edit, 0, start);
    }
}

void FMTMaskKeyBack(const FMTEditContext& edit) {
    const auto [start, end] = FMTEditGetSelection(edit);
    if (end == 0) return;
    if (start != end) {
        FMTMaskDeleteSelection(edit, start, end);
        return;
    }
    FMTMaskKeyLeft(edit, 1);
    const int32_t position = FMTEditGetSelection(edit).start;
    if (position != start) FMTMaskDeleteRange(edit, position, position);
}

// Each of these answers whether the message is handled; an answer other than 0 goes to `result`.

bool OnCharacter(const FMTEditContext& edit, uint16_t character, LPARAM keyData) {
    if (character == VK_TAB) return true;  // never reaches the control
    if (character != VK_BACK) {
        if (!FMTMaskInsertChar(edit, static_cast<char>(character))) MessageBeep(0);
    } else if (keyData != 0) {
        FMTMaskKeyBack(edit);
    } else {
        FMTMaskKeyDelete(edit);
    }
    return true;
}

bool OnKey(const FMTEditContext& edit, uint16_t key, LPARAM keyData) {
    switch (key) {
        case VK_END: IsShiftDown() ? FMTMaskSelectToEdge(edit, true) : FMTMaskKeyEnd(edit); return true;
        case VK_HOME: IsShiftDown() ? FMTMaskSelectToEdge(edit, false) : FMTMaskKeyHome(edit); return true;
        case VK_LEFT: FMTMaskKeyLeft(edit, keyData); return true;
        case VK_RIGHT: FMTMaskKeyRight(edit, keyData); return true;
        case VK_DELETE: FMTMaskKeyDelete(edit); return true;
        default: return false;
    }
}

// The control takes a whole new text, which is then put in shape.
bool OnNewText(const FMTEditContext& edit, const FMTCntlBlock& block, LRESULT* result) {
    if ((block.Flags & FMT_MASK_REAPPLY) == 0) return false;
    *result =
        FMTEditPassOn(edit, static_cast<uint16_t>(block.Message), static_cast<uint16_t>(block.WParam), block.LParam);
    FMTMaskRefresh(edit);
    if ((block.Flags & FMT_MASK_NOTIFY) != 0) {
        FMTEditMarkModified(edit);
        FMTEditReportChange(edit);
    }
    return true;
}

// The application's own message that brings a text to show: the control gets it in shape.
bool OnShowText(const FMTEditContext& edit, const FMTCntlBlock& block, LRESULT* result) {
    constexpr uint32_t kBoth = FMT_MASK_REAPPLY | FMT_MASK_NOTIFY;
    if ((block.Flags & kBoth) != kBoth || block.LParam <= 0) return false;
    const auto* text = reinterpret_cast<const char*>(block.LParam);
    auto* padded = static_cast<char*>(MemAlloc(FMTMaskRoomFor(edit.picture, static_cast<int32_t>(std::strlen(text)))));
    if (padded == nullptr) return false;
    FMTMaskPadText(text, padded, edit.picture);
    const auto id = static_cast<WPARAM>(GetWindowLongPtrA(edit.window, GWLP_ID));
    *result = FMTEditPassOn(edit, FMT_MASK_SHOW_TEXT, id, reinterpret_cast<LPARAM>(padded));
    MemFree(padded);
    return true;
}

bool Dispatch(const FMTEditContext& edit, const FMTCntlBlock& block, LRESULT* result) {
    switch (static_cast<uint16_t>(block.Message)) {
        case WM_CHAR: return OnCharacter(edit, static_cast<uint16_t>(block.WParam), block.LParam);
        case WM_KEYDOWN: return OnKey(edit, static_cast<uint16_t>(block.WParam), block.LParam);
        case WM_CLEAR: FMTMaskKeyDelete(edit); return true;
        case WM_SETTEXT:
        case EM_REPLACESEL:
        case WM_PASTE: return OnNewText(edit, block, result);
        case FMT_MASK_SHOW_TEXT: return OnShowText(edit, block, result);
        default: return false;
    }
}

}  // namespace

int32_t MORVL_CALL FMTValidateInput(FMTCntlBlock* block) {
    if (gFMTValidating || block == nullptr || block->Picture == nullptr) return 0;
    const ValidatingScope scope;
    LRESULT result = 0;
    if (!Dispatch(FMTEditContextOf(block->Window, FMTMaskBody(block->Picture)), *block, &result)) return 0;
    block->Result = result;
    return 1;
}
