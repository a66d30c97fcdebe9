// The setup dialog: its procedure, the choice in its list, the driver's own dialog.
#include "setup_dialog.h"

#include <cstring>

#include <morvl15/dialog.h>

#include "device_mode.h"
#include "printer_list.h"
#include "printers.h"

namespace {

constexpr char kProperty[] = "DlgPrinterSetupData";

enum : INT { kListControl = 900, kSetupButton = 4 };
constexpr INT kMessageSize = 512;
constexpr INT kTitleSize = 40;
constexpr int32_t kCallBackNumber = 170;

// ---- filling ----------------------------------------------------------------------------------------------------

void EnableSetup(const PrintSetupContext& context, bool enable) {
    EnableWindow(context.setupButton, enable ? TRUE : FALSE);
}

void AddEntry(HWND list, const char* entry) {
    SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
}

void SelectPrinter(const PrintSetupContext& context) {
    char entry[kPrintEntrySize];
    PrintEntryStart(entry, context.callerDevice);
    SendMessageA(context.list, LB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(entry));
}

void Fill(PrintSetupContext* context) {
    PrintLoadPrinterList();
    PrintWalkEntries(context->hideNone != 0, AddEntry, context->list);
    if (*context->callerDevice != '\0') {
        SelectPrinter(*context);
        PrintCopyText(context->device, context->callerDevice, sizeof context->device);
        PrintCopyText(context->driver, context->callerDriver, sizeof context->driver);
        PrintCopyText(context->port, context->callerPort, sizeof context->port);
    }
    EnableSetup(*context, *context->driver != '\0' && PrintCanDoPrinterSetup(context->driver, context->device) != 0);
    context->newMode = PrintCopyBlock(context->entryMode);
}

void SetUp(HWND dialog, PrintSetupContext* context) {
    SetPropA(dialog, kProperty, context);
    context->dialog = dialog;
    context->list = GetDlgItem(dialog, kListControl);
    context->setupButton = GetDlgItem(dialog, kSetupButton);
    Fill(context);
    SetFocus(context->list);
    DlgCenterDialog(dialog);
}

// ---- the choice -------------------------------------------------------------------------------------------------

// The printer of the selected line becomes the current choice, with its whole port field. False when there is none.
bool TakeSelection(PrintSetupContext* context) {
    char entry[kPrintEntrySize];
    const LRESULT index = SendMessageA(context->list, LB_GETCURSEL, 0, 0);
    if (index < 0) return false;
    if (SendMessageA(context->list, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(entry)) < 0) {
        return false;
    }
    if (!PrintCutEntry(entry)) return false;
    PrintCopyText(context->device, entry, sizeof context->device);
    const PRINTER_INFO_2A* printer = PrintFindPrinter(context->device);
    if (printer == nullptr) return false;
    PrintCopyText(context->driver, printer->pDriverName, sizeof context->driver);
    PrintCopyText(context->port, printer->pPortName, sizeof context->port);
    return true;
}

void FreeNewMode(PrintSetupContext* context) {
    if (context->newMode != nullptr) GlobalFree(context->newMode);
    context->newMode = nullptr;
}

void ChangeSelection(PrintSetupContext* context) {
    const bool taken = TakeSelection(context);
    if (taken) FreeNewMode(context);  // it belonged to the printer before
    EnableSetup(*context, taken && PrintCanDoPrinterSetup(context->driver, context->device) != 0);
}

// ---- the driver's dialog ----------------------------------------------------------------------------------------

bool SameBytes(HGLOBAL first, HGLOBAL second, size_t size) {
    if (GlobalSize(first) < size || GlobalSize(second) < size) return false;
    const PrintLocked<void> a(first);
    const PrintLocked<void> b(second);
    return std::memcmp(a.get(), b.get(), size) == 0;
}

void TellChange(const PrintSetupContext& context) {
    if (context.messageInstance == nullptr || context.messageId == 0) return;
    char message[kMessageSize] = {};
    char title[kTitleSize] = {};
    LoadStringA(context.messageInstance, context.messageId, message, sizeof message);
    GetWindowTextA(context.dialog, title, sizeof title);
    MessageBoxA(context.dialog, message, title, MB_ICONINFORMATION);
}

bool AskDriver(HANDLE printer, PrintSetupContext* context, HGLOBAL out) {
    const PrintLocked<DEVMODEA> mode(out);
    const PrintLocked<DEVMODEA> in(context->newMode);
    const DWORD what = DM_IN_PROMPT | DM_OUT_BUFFER | (in.get() != nullptr ? DM_IN_BUFFER : 0);
    return DocumentPropertiesA(context->dialog, printer, context->device, mode.get(), in.get(), what) == IDOK;
}

void TakeNewMode(PrintSetupContext* context, HGLOBAL block) {
    if (context->newMode != nullptr && !SameBytes(context->newMode, block, GlobalSize(block))) TellChange(*context);
    FreeNewMode(context);
    context->newMode = block;
}

void RunDriverSetup(PrintSetupContext* context) {
    HANDLE printer = PrintOpen(context->device);
    if (printer == nullptr) return;
    HGLOBAL block = GlobalAlloc(GHND, PrintDevModeSize(printer, context->device));
    if (block != nullptr) {
        if (AskDriver(printer, context, block)) {
            TakeNewMode(context, block);
        } else {
            GlobalFree(block);
        }
    }
    ClosePrinter(printer);
}

// ---- messages ---------------------------------------------------------------------------------------------------

void Accept(HWND dialog) {
    HCURSOR before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    EndDialog(dialog, IDOK);
    SetCursor(before);
}

void TakeListCommand(PrintSetupContext* context, HWND dialog, WORD notification) {
    if (notification != LBN_SELCHANGE && notification != LBN_DBLCLK) return;
    ChangeSelection(context);
    if (notification == LBN_DBLCLK) SendMessageA(dialog, WM_COMMAND, IDOK, 0);
}

// A window that hasn't been set up has no context: only what needs none is done then, here and below.
intptr_t TakeCommand(PrintSetupContext* context, HWND dialog, WPARAM wParam) {
    switch (LOWORD(wParam)) {
        case kListControl:
            if (context != nullptr) TakeListCommand(context, dialog, HIWORD(wParam));
            return 1;
        case IDOK: Accept(dialog); return 1;
        case IDCANCEL: EndDialog(dialog, 0); return 1;
        case kSetupButton:
            if (context != nullptr) RunDriverSetup(context);
            return 1;
        default: return 0;
    }
}

void CallBack(PrintCallBack function) {
    if (function != nullptr) function(1, kCallBackNumber);
}

}  // namespace

intptr_t MORVL_CALL PrintPrinterSetupDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        if (lParam != 0) SetUp(dialog, reinterpret_cast<PrintSetupContext*>(lParam));
        return 0;
    }
    switch (message) {
        case WM_COMMAND:
            return TakeCommand(static_cast<PrintSetupContext*>(GetPropA(dialog, kProperty)), dialog, wParam);
        case WM_DESTROY:
            PrintFreePrinterList();
            RemovePropA(dialog, kProperty);
            return 1;
        case PRINT_CALL_BACK: CallBack(reinterpret_cast<PrintCallBack>(lParam)); return 1;
        default: return 0;
    }
}
