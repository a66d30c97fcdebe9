// The one printer, with its device mode, that the setup dialog accepted last.
#pragma once

#include <morvl15/host.h>

#include <morvl15/print.h>

#pragma pack(push, 1)
struct PrtSavedSettings {
    HGLOBAL mode;  // null when none was given, or there was no memory for the copy
    char device[PRINT_NAME_SIZE];
    char driver[PRINT_NAME_SIZE];
    char port[PRINT_NAME_SIZE];
};
#pragma pack(pop)
static_assert(sizeof(PrtSavedSettings) == sizeof(HGLOBAL) + size_t{3} * PRINT_NAME_SIZE);

// Saves a copy of the device mode, which may be null, in the place of what was saved before.
void PrtSaveSettings(const char* device, const char* driver, const char* port, HGLOBAL mode);

// A new copy of the saved device mode; null when nothing is saved for exactly these three texts.
HGLOBAL PrtLoadSaved(const char* device, const char* driver, const char* port);
