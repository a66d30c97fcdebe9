// The dialog that chooses a printer.
#pragma once

#include <morvl15/print.h>

constexpr size_t kPrintSetupTextSize = 520;

// What the dialog works on, in a zeroed local block; attached to the dialog as a window property.
struct PrintSetupContext {
    HWND dialog;
    HWND owner;
    HGLOBAL* callerMode;
    HGLOBAL entryMode;  // the caller's, or a copy of the saved one
    char* callerDevice;
    char* callerDriver;
    char* callerPort;
    HGLOBAL newMode;  // null when the chosen printer has none yet
    int32_t hideNone;
    char device[PRINT_NAME_SIZE];  // the current choice
    char driver[PRINT_NAME_SIZE];
    char port[PRINT_NAME_SIZE];
    char text[kPrintSetupTextSize];  // the caller's; nothing reads it
    HWND list;
    HWND setupButton;
    HINSTANCE messageInstance;
    UINT messageId;
};
