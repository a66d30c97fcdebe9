// The dialog that stands while a document is printed, and the abort procedure of its device.
#include <morvl15/dialog.h>
#include <morvl15/print.h>

#include "../frame/instance.h"
#include "job_messages.h"
#include "job_table.h"
#include "printers.h"

namespace {

constexpr INT kLine1 = 800;
constexpr INT kLine2 = 801;
constexpr INT kPrinterLine = 803;
constexpr UINT kTextOn = 1964;
constexpr INT kOnSize = 12;

// Device, " on ", port. The names need not be terminated.
void SetPrinterLine(HWND dialog, HINSTANCE instance, const PrintJobRec& job) {
    char on[kOnSize] = {};
    LoadStringA(instance, kTextOn, on, sizeof on);
    char device[PRINT_NAME_SIZE];
    char port[PRINT_NAME_SIZE];
    PrintCopyText(device, job.deviceName, sizeof device);
    PrintCopyText(port, job.portName, sizeof port);
    char line[2 * PRINT_NAME_SIZE + kOnSize];
    wsprintfA(line, "%s%s%s", device, on, port);
    SetDlgItemTextA(dialog, kPrinterLine, line);
}

void SetTexts(HWND dialog, HINSTANCE instance, const PrintJobRec& job) {
    SetWindowTextA(dialog, job.title);
    SetDlgItemTextA(dialog, kLine1, job.line1);
    SetDlgItemTextA(dialog, kLine2, job.line2);
    SetPrinterLine(dialog, instance, job);
}

// The entry may move as soon as anything is shown, so what is needed of it is taken out first.
void SetUp(HWND dialog, PrintJobContext* entry) {
    HDC dc = entry->dc;
    const PrintJobRec job = entry->job;
    HINSTANCE instance = entry->instance;
    entry->dialogWindow = dialog;
    entry->systemMenu = GetSystemMenu(dialog, FALSE);
    SetTexts(dialog, instance, job);
    PrintUpdatePageDisplay(dc);
    UpdateWindow(GetDlgItem(dialog, kLine1));
    DlgCenterDialog(dialog);
    SetFocus(dialog);
    if (job.dialogOpenHook != nullptr) job.dialogOpenHook(dialog);
}

void Cancel(HWND dialog) {
    PrintJobContext* entry = PrintLookUpDialog(dialog);
    if (entry == nullptr) return;
    HDC dc = entry->dc;
    PrintStopJob(entry, SP_USERABORT);
    PrintTakeDownDialog(dc);
}

void GreyClose(HWND dialog) {
    const PrintJobContext* entry = PrintLookUpDialog(dialog);
    if (entry != nullptr) EnableMenuItem(entry->systemMenu, SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
}

void TellClosing(HWND dialog) {
    const PrintJobContext* entry = PrintLookUpDialog(dialog);
    if (entry == nullptr) return;
    const PrintDialogHook hook = entry->job.dialogCloseHook;
    if (hook != nullptr) hook(dialog);
}

}  // namespace

intptr_t MORVL_CALL DlgFnAbort(HWND dialog, UINT message, WPARAM /*wParam*/, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            if (lParam != 0) SetUp(dialog, reinterpret_cast<PrintJobContext*>(lParam));
            return 1;
        case WM_COMMAND:
            if (!gPrintStartingDocument) Cancel(dialog);
            return 1;
        case WM_INITMENU: GreyClose(dialog); return 1;
        case WM_DESTROY: TellClosing(dialog); return 1;
        default: return 0;
    }
}

BOOL MORVL_CALL AbortTest(HDC dc, int32_t code) {
    if (PrintFindJobContext(dc) == nullptr || !PrintDispatchMessages(dc)) return 1;
    PrintJobContext* entry = PrintLookUpJob(dc);
    const PrintIdleHook idle = entry->job.idleHook;
    if (idle != nullptr) idle(0);
    entry = PrintLookUpJob(dc);
    if (entry == nullptr) return 1;
    if (code < 0) PrintStopJob(entry, static_cast<int16_t>(code));
    return entry->abortFlag == 0 ? 1 : 0;
}

int32_t MORVL_CALL PrintAbort(HDC dc) {
    const PrintJobContext* entry = PrintFindJobContext(dc);
    if (entry == nullptr) return 0;
    if (entry->dialogHandle != nullptr) SendMessageA(entry->dialogHandle, WM_COMMAND, 0, 0);
    return 1;
}
