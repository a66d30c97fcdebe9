// A job's dialog and windows, its turns for the application, its error box.
#include "job_messages.h"

#include "../frame/instance.h"
#include "job_table.h"
#include "window_chain.h"

bool gPrintStartingDocument = false;

namespace {

constexpr INT kMessageSize = 128;
constexpr INT kPageTextSize = 32;
constexpr INT kPageNumberSize = 12;
constexpr INT kPageControl = 802;

enum : UINT { kTextOutOfDisk = 1961, kTextOutOfMemory = 1962, kTextError = 1963, kTextPage = 1965 };

HINSTANCE InstanceOf(HWND window) {
    return reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(window, GWLP_HINSTANCE));
}

// The application's own way or the library's, for both directions.
HANDLE SwitchWindows(HDC dc, int32_t enable, HANDLE list) {
    const PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return nullptr;
    HWND owner = entry->owner;
    const PrintWindowHook hook = entry->job.windowHook;
    if ((entry->job.flags & PRINT_WINDOW_HOOK) == 0) return PrintDisableWindowChain(owner, enable, list);
    return hook != nullptr ? hook(InstanceOf(owner), 0, enable, list) : nullptr;
}

void DisableWindows(HDC dc) {
    HANDLE list = SwitchWindows(dc, 0, nullptr);
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    entry->windowList = list;
    entry->windowsDisabled = 1;
}

void EnableWindows(HDC dc) {
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr || entry->windowsDisabled == 0) return;
    HANDLE list = entry->windowList;
    entry->windowsDisabled = 0;
    entry->windowList = nullptr;
    SwitchWindows(dc, 1, list);
}

// The message for a code, 0 for none.
UINT TextFor(int32_t code) {
    switch (code) {
        case SP_OUTOFMEMORY: return kTextOutOfMemory;
        case SP_OUTOFDISK: return kTextOutOfDisk;
        case SP_USERABORT:
        case SP_APPABORT: return 0;
        default: return kTextError;
    }
}

// Taken out of the entry first: the box dispatches messages.
void ShowMessage(const PrintJobContext& entry, UINT text) {
    HWND owner = entry.owner;
    const char* title = entry.job.title;
    char message[kMessageSize] = {};
    LoadStringA(entry.instance, text, message, sizeof message);
    MessageBoxA(owner, message, title, MB_ICONEXCLAMATION | MB_OK);
}

void ReportUnshown(HDC dc, int32_t code) {
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    // What fails because the user has cancelled is no failure.
    if (entry->abortFlag != 0 && entry->abortCode == SP_USERABORT) code = SP_USERABORT;
    entry->abortFlag = 1;
    const UINT text = TextFor(code);
    if (text != 0) ShowMessage(*entry, text);
}

}  // namespace

void PrintPutUpDialog(HDC dc) {
    DisableWindows(dc);
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    HWND dialog =
        CreateDialogParamA(gLibInstance, "PrintAbortDialog", entry->owner, DlgFnAbort, reinterpret_cast<LPARAM>(entry));
    entry = PrintLookUpJob(dc);
    if (entry != nullptr) entry->dialogHandle = dialog;
}

void PrintTakeDownDialog(HDC dc) {
    EnableWindows(dc);
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr || entry->dialogWindow == nullptr) return;
    DestroyWindow(entry->dialogWindow);
    entry = PrintLookUpJob(dc);
    if (entry != nullptr) entry->dialogWindow = nullptr;
}

bool PrintDispatchMessages(HDC dc) {
    MSG message;
    const PrintJobContext* entry = PrintLookUpJob(dc);
    while (entry != nullptr && entry->abortFlag == 0 && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // nothing else is waiting; it is for the application's own loop
            PostQuitMessage(static_cast<INT>(message.wParam));
            break;
        }
        entry = PrintLookUpJob(dc);  // looking for messages answers those that other threads send
        if (entry == nullptr) return false;
        if (entry->dialogWindow == nullptr || !IsDialogMessageA(entry->dialogWindow, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        entry = PrintLookUpJob(dc);
    }
    return PrintLookUpJob(dc) != nullptr;
}

void PrintUpdatePageDisplay(HDC dc) {
    PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    int32_t page = ++entry->sheetCount;
    const PrintPageNumberHook hook = entry->job.pageNumberHook;
    if (hook != nullptr) page = hook(entry->job.pageNumberValue);
    entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    char label[kPageTextSize] = {};
    LoadStringA(entry->instance, kTextPage, label, sizeof label);
    char text[kPageTextSize + kPageNumberSize];
    wsprintfA(text, "%s%d", label, page);
    if (entry->dialogWindow != nullptr) SetDlgItemTextA(entry->dialogWindow, kPageControl, text);
}

void PrintReportError(HDC dc, int32_t code) {
    const PrintJobContext* entry = PrintLookUpJob(dc);
    if (entry == nullptr) return;
    if (entry->dialogWindow != nullptr) PrintTakeDownDialog(dc);
    if ((code & SP_NOTREPORTED) != 0) ReportUnshown(dc, code);
    PrintJobContext* last = PrintLookUpJob(dc);
    if (last != nullptr) last->abortFlag = 1;
}
