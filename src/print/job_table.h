// The jobs that run: an entry a device context, in one block that grows and may move.
//
// The abort procedure of a device gets nothing but the context, so entries are found by it. A pointer to an entry is
// stale after anything that can dispatch messages or call the application, since another job may have come or gone:
// look it up again.
#pragma once

#include <morvl15/print.h>

struct PrintJobContext {
    HDC dc;  // the key; null marks a free entry
    HINSTANCE instance;
    int32_t abortFlag;  // the job must stop; never cleared while it runs
    int16_t abortCode;
    HWND owner;
    HWND dialogWindow;  // null when there is none
    HMENU systemMenu;
    HANDLE windowList;
    PrintJobRec job;  // the caller's record as it was when the job began
    int32_t hasAbortCallback;
    int32_t sheetCount;
    HWND dialogHandle;        // as created; not cleared when the dialog goes
    int32_t windowsDisabled;  // and to be enabled again
};

// The entry of a context, made if there is none; null for a null context and when there is no memory.
PrintJobContext* PrintFindJobContext(HDC dc);

// The entry of a context, of a dialog; null if there is none.
PrintJobContext* PrintLookUpJob(HDC dc);
PrintJobContext* PrintLookUpDialog(HWND dialog);

// Frees the entry of a context, and with the last one the block.
void PrintReleaseJob(HDC dc);

// Stops a job: sets its abort flag, and the code that decides its status.
void PrintStopJob(PrintJobContext* entry, int16_t code);
