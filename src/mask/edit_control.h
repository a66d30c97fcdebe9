// The operations on an edit control that keeping it in the shape of a mask needs.
#pragma once

#include <morvl15/host.h>

// The control that a call works on, and the picture it is kept in, without its "^" prefix.
struct FMTEditContext {
    HWND window;
    const char* picture;
    int32_t pictureLength;
    WNDPROC handler;  // the control's message handler as it stands: the application's hook
};

// A selection by byte positions; equal when it is a caret.
struct FMTEditSelection {
    int32_t start;
    int32_t end;
};

FMTEditContext FMTEditContextOf(HWND window, const char* picture);

FMTEditSelection FMTEditGetSelection(const FMTEditContext& edit);
void FMTEditSetSelection(const FMTEditContext& edit, int32_t start, int32_t end);
void FMTEditSetCaret(const FMTEditContext& edit, int32_t position);
int32_t FMTEditTextLength(const FMTEditContext& edit);
void FMTEditReadText(const FMTEditContext& edit, char* buffer, int32_t size);

// Lets the control perform a message; the result is its answer.
LRESULT FMTEditPassOn(const FMTEditContext& edit, UINT message, WPARAM wParam, LPARAM lParam);

void FMTEditMarkModified(const FMTEditContext& edit);
void FMTEditReportChange(const FMTEditContext& edit);

// Set text, set caret, mark modified, report change, in this order.
void FMTMaskSetAndReport(const FMTEditContext& edit, const char* text, int32_t caret);

// Overwrites the character at a position through the control itself; at the end of the text this appends.
void FMTMaskPutChar(const FMTEditContext& edit, char ch, int32_t position);
