// The choice of a printer: what went into the dialog compared with what came out, and what follows from a change.
#include <cstring>

#include <morvl15/memory.h>
#include <morvl15/print.h>

#include "../frame/instance.h"
#include "device_mode.h"
#include "printers.h"
#include "saved_settings.h"
#include "setup_dialog.h"

namespace {

// A device mode as it was before the dialog. Sizes are compared whole, bytes as far as 16 bits count.
struct Snapshot {
    void* bytes;  // null when there was no device mode, or no memory
    size_t size;
};

Snapshot TakeSnapshot(HGLOBAL block) {
    if (block == nullptr) return {};
    const size_t size = GlobalSize(block);
    const auto kept = static_cast<uint16_t>(size);
    void* bytes = LocalAlloc(LMEM_FIXED, kept);
    const PrintLocked<void> locked(block);
    if (bytes != nullptr && locked.get() != nullptr) std::memcpy(bytes, locked.get(), kept);
    return {bytes, size};
}

bool IsAsBefore(HGLOBAL block, const Snapshot& snapshot) {
    if (GlobalSize(block) != snapshot.size) return false;
    const PrintLocked<void> locked(block);
    return std::memcmp(locked.get(), snapshot.bytes, static_cast<uint16_t>(snapshot.size)) == 0;
}

bool ChoiceChanged(const PrintSetupContext& context) {
    return std::strcmp(context.driver, context.callerDriver) != 0 ||
           std::strcmp(context.device, context.callerDevice) != 0 || std::strcmp(context.port, context.callerPort) != 0;
}

// Whether the device mode that the dialog leaves, and the three texts, are those that went in. Without a device mode on
// either side there is nothing to compare, and then it counts as a change.
bool NothingChanged(const PrintSetupContext& context, const Snapshot& snapshot, bool accepted) {
    HGLOBAL left = accepted ? context.newMode : context.entryMode;
    if (snapshot.bytes == nullptr || left == nullptr) return false;
    return IsAsBefore(left, snapshot) && !ChoiceChanged(context);
}

void Broadcast(const char* section, UINT flags, UINT milliseconds) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_WININICHANGE, 0, reinterpret_cast<LPARAM>(section), flags, milliseconds,
                        &answer);
}

// The choice becomes the user's default printer.
void WriteDeviceLine(const PrintSetupContext& context) {
    const size_t size = std::strlen(context.device) + std::strlen(context.driver) + std::strlen(context.port) + 3;
    auto* line = static_cast<char*>(MemAlloc(static_cast<uint32_t>(size)));
    if (line == nullptr) return;
    wsprintfA(line, "%s,%s,%s", context.device, context.driver, context.port);
    WriteProfileStringA("windows", "device", line);
    WriteProfileStringA(nullptr, nullptr, nullptr);
    MemFree(line);
    Broadcast(nullptr, SMTO_NORMAL, 1000);
}

void CopyChoice(const PrintSetupContext& context) {
    std::memcpy(context.callerDriver, context.driver, std::strlen(context.driver) + 1);
    std::memcpy(context.callerDevice, context.device, std::strlen(context.device) + 1);
    std::memcpy(context.callerPort, context.port, std::strlen(context.port) + 1);
}

void TakeChoice(PrintSetupContext* context) {
    if (ChoiceChanged(*context)) WriteDeviceLine(*context);
    PrtSaveSettings(context->device, context->driver, context->port, context->newMode);
    if (context->callerMode != nullptr) *context->callerMode = context->newMode;
    if (context->callerMode == nullptr && context->newMode != nullptr) GlobalFree(context->newMode);
    CopyChoice(*context);
    if (context->entryMode != nullptr) GlobalFree(context->entryMode);
}

// The caller's own device mode stays; a copy of the saved one goes.
void DropChoice(const PrintSetupContext& context) {
    if (context.newMode != nullptr) GlobalFree(context.newMode);
    const bool callers = context.callerMode != nullptr && *context.callerMode == context.entryMode;
    if (!callers && context.entryMode != nullptr) GlobalFree(context.entryMode);
}

// Runs the dialog and takes its outcome. Result: whether the choice was taken.
bool RunSetup(PrintSetupContext* context) {
    if (context->callerMode != nullptr) context->entryMode = *context->callerMode;
    if (context->entryMode == nullptr) {
        context->entryMode = PrtLoadSaved(context->callerDevice, context->callerDriver, context->callerPort);
    }
    const Snapshot snapshot = TakeSnapshot(context->entryMode);
    bool accepted = DialogBoxParamA(gLibInstance, "PRTSETUP", context->owner, PrintPrinterSetupDlgProc,
                                    reinterpret_cast<LPARAM>(context)) == IDOK;
    const bool unchanged = NothingChanged(*context, snapshot, accepted);
    if (unchanged) accepted = false;
    if (snapshot.bytes != nullptr) LocalFree(snapshot.bytes);
    if (accepted) {
        TakeChoice(context);
    } else {
        DropChoice(*context);
    }
    LocalFree(context);
    if (!unchanged) Broadcast("windows", SMTO_BLOCK | SMTO_ABORTIFHUNG, 2000);
    return accepted;
}

}  // namespace

int32_t MORVL_CALL PrintPrinterSetup(HWND owner, HGLOBAL* mode, char* device, char* driver, char* port,
                                     const char* text) {
    return PrintPrinterSetupExt(owner, mode, device, driver, port, text, 0, nullptr, 0);
}

int32_t MORVL_CALL PrintPrinterSetupExt(HWND owner, HGLOBAL* mode, char* device, char* driver, char* port,
                                        const char* text, int32_t hideNone, HINSTANCE messageInstance,
                                        uint32_t messageId) {
    auto* context = static_cast<PrintSetupContext*>(LocalAlloc(LMEM_FIXED | LMEM_ZEROINIT, sizeof(PrintSetupContext)));
    if (context == nullptr) return 0;
    context->owner = owner;
    context->callerMode = mode;
    context->callerDevice = device;
    context->callerDriver = driver;
    context->callerPort = port;
    context->hideNone = hideNone;
    context->messageInstance = messageInstance;
    context->messageId = messageId;
    PrintCopyText(context->text, text, sizeof context->text);
    return RunSetup(context) ? 1 : 0;
}

int32_t MORVL_CALL PrintCanDoPrinterSetup(const char* /*driver*/, const char* device) {
    HANDLE printer = PrintOpen(device);
    if (printer == nullptr) return 0;
    HGLOBAL mode = PrintDefaultDevMode(printer, device);
    if (mode != nullptr) GlobalFree(mode);
    ClosePrinter(printer);
    return 1;
}
