// The saved settings: one locked block, from the first save to PrtClearSaved.
#include "saved_settings.h"

#include "device_mode.h"
#include "printers.h"

namespace {

HGLOBAL gPrtSavedHandle = nullptr;
PrtSavedSettings* gpPrtSaved = nullptr;  // null when nothing is saved

bool MakeBlock() {
    if (gpPrtSaved != nullptr) return true;
    gPrtSavedHandle = GlobalAlloc(GHND, sizeof(PrtSavedSettings));
    if (gPrtSavedHandle == nullptr) return false;
    gpPrtSaved = static_cast<PrtSavedSettings*>(GlobalLock(gPrtSavedHandle));
    return true;
}

void FreeMode() {
    if (gpPrtSaved->mode != nullptr) GlobalFree(gpPrtSaved->mode);
    gpPrtSaved->mode = nullptr;
}

}  // namespace

void PrtSaveSettings(const char* device, const char* driver, const char* port, HGLOBAL mode) {
    if (!MakeBlock()) return;
    FreeMode();
    PrintCopyText(gpPrtSaved->device, device, sizeof gpPrtSaved->device);
    PrintCopyText(gpPrtSaved->driver, driver, sizeof gpPrtSaved->driver);
    PrintCopyText(gpPrtSaved->port, port, sizeof gpPrtSaved->port);
    gpPrtSaved->mode = PrintCopyBlock(mode);
}

HGLOBAL PrtLoadSaved(const char* device, const char* driver, const char* port) {
    if (gpPrtSaved == nullptr) return nullptr;
    const bool matches = lstrcmpA(gpPrtSaved->device, device) == 0 && lstrcmpA(gpPrtSaved->driver, driver) == 0 &&
                         lstrcmpA(gpPrtSaved->port, port) == 0;
    return matches ? PrintCopyBlock(gpPrtSaved->mode) : nullptr;
}

void MORVL_CALL PrtClearSaved() {
    if (gpPrtSaved == nullptr) return;
    FreeMode();
    GlobalUnlock(gPrtSavedHandle);
    GlobalFree(gPrtSavedHandle);
    gPrtSavedHandle = nullptr;
    gpPrtSaved = nullptr;
}
