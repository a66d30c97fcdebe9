// Printing: printers and their settings, a document laid out over sheets of paper and drawn by the caller, the job that
// the user can cancel, the dialog that chooses a printer.
//
// A printer is known by three texts, always in this order where they are listed: device, driver, port. A device mode is
// the platform's DEVMODEA with the driver's private bytes behind it.
//
// Printing keeps state for the whole library (the jobs that run, the saved settings, the list of the setup dialog) and
// takes no lock: jobs and dialogs belong to one thread, the one that shows windows. Several jobs can run on it side by
// side, since a job dispatches the thread's messages. The operations under "printers" and "papers" keep no state and
// can be called on any thread, but for PrintGetDevMode, which reads the saved settings.
//
// docs/printing.md is the guide.
#ifndef MORVL15_PRINT_H
#define MORVL15_PRINT_H

#include <morvl15/base.h>
#include <morvl15/host.h>

#if defined(__cplusplus)
#include <cstddef>
#endif

MORVL_BEGIN_C

// A printer's texts have room for this many bytes, terminators included.
#define PRINT_NAME_SIZE 260

// ---- printers ---------------------------------------------------------------------------------------------------
//
// The default printer is the one that the system's page setup names. Where that can't be asked, it is told by the key
// "Device" of the section "Windows" of the user profile: device, driver and port, separated by commas. White space
// before a field doesn't count; a line with fewer than three fields names no printer; it is read up to 80 bytes.

// PrintCreateDefaultPrinterDC: a device context on the default printer. The caller deletes it (DeleteDC).
// Result: the context; null when there is no default printer or it can't be opened.
MORVL_API HDC MORVL_CALL PrintCreateDefaultPrinterDC(void);

// PrintCreateDefaultPrinterDCExt: the same with settings of the caller's.
//   mode    in:  a device mode of that printer; null for the printer's own settings
MORVL_API HDC MORVL_CALL PrintCreateDefaultPrinterDCExt(const DEVMODEA* mode);

// PrintCreateDefaultPrinterIC: an information context on the default printer: it tells about the device and its fonts,
// and nothing can be drawn on it. The caller deletes it (DeleteDC). Result: as PrintCreateDefaultPrinterDC.
MORVL_API HDC MORVL_CALL PrintCreateDefaultPrinterIC(void);

// PrintGetDefaultPrinter: the three texts of the default printer.
//   device, driver, port   out: each with room for PRINT_NAME_SIZE bytes; null for one that isn't wanted
// Result: 1; 0, with the outputs untouched, when there is no default printer.
MORVL_API int32_t MORVL_CALL PrintGetDefaultPrinter(char* device, char* driver, char* port);

// PrintGetDevice: driver and port of a printer.
//   device  in:  the printer's name
//   driver, port   out: each with room for the whole text (PRINT_NAME_SIZE bytes do); null for one that isn't wanted
// Result: 1; 0, with the outputs untouched, when there is no such printer or no memory.
MORVL_API int32_t MORVL_CALL PrintGetDevice(const char* device, char* driver, char* port);

// ---- device modes and papers ------------------------------------------------------------------------------------

// PrintGetDevMode: a printer's device mode, turned and with a paper as wanted. What the setup dialog has saved for
// exactly this device, driver and port comes first: it is given as it was saved, orientation included, if no paper is
// asked for or its paper is the one. Otherwise the printer's own device mode is taken:
//   - without a paper, or with paper 256 (a size of the user's), `landscape` alone is applied;
//   - where it has the paper already, and where the printer doesn't offer the paper, it is left as it is;
//   - else the driver merges paper, its size and `landscape` into it.
//   landscape  in:  0 portrait, else landscape
//   device, driver, port   in:  the printer
//   paper      in:  paper id of the platform (DMPAPER_...), 0 for none
// Result: a movable global block, unlocked, which the caller frees; null when the printer can't be opened or there is
// no memory.
MORVL_API HGLOBAL MORVL_CALL PrintGetDevMode(uint16_t landscape, const char* device, const char* driver,
                                             const char* port, uint16_t paper);

// PrintGetPageSizes: the papers that a printer offers.
//   device, driver, port   in:  the printer; the driver isn't read
//   mode     in:  a device mode of that printer; null for its default
//   papers   out: a movable global block of 16-bit paper ids
//   sizes    out: a movable global block of as many POINTs: width and height in tenths of a millimetre
// Both blocks come unlocked, and the caller frees them.
// Result: the number of papers; -1 when the driver names none or there is no memory; 0 when the printer can't be
// opened. Outputs are untouched unless the result is above 0.
MORVL_API int32_t MORVL_CALL PrintGetPageSizes(const char* device, const char* driver, const char* port,
                                               const DEVMODEA* mode, HGLOBAL* papers, HGLOBAL* sizes);

// PrtClearSaved: forgets the settings that the setup dialog has saved. Does nothing when there are none.
MORVL_API void MORVL_CALL PrtClearSaved(void);

// PageGetPageInfo: paper and printable area of a printer, in tenths of a millimetre, y growing downward.
//   driver, device, port   in:  the printer (driver first)
//   mode     in:  a device mode of that printer; null for its default
//   paper    out: the paper id; left as it was when the device mode names none. May be null
//   size     out: x the width, y the height of the paper, as it lies: a landscape paper is wider than high. May be null
//   area     out: the printable area, from the paper's upper left corner. May be null
// Result: 1; 0, with size and area untouched, when the printer can't be opened or nothing tells its paper size.
MORVL_API int32_t MORVL_CALL PageGetPageInfo(const char* driver, const char* device, const char* port,
                                             const DEVMODEA* mode, uint16_t* paper, POINT* size, RECT* area);

// ---- the job ----------------------------------------------------------------------------------------------------
//
// A job opens its device, shows a small dialog with a "Cancel" button, disables the owner window and the windows above
// it, and prints sheet by sheet. Messages are dispatched while the device works, so that the application lives on. One
// job uses a device context at a time: a second one on the same context ends with PRINT_NOT_STARTED.

// How a job has ended: PrintJobRec.status.
enum {
    PRINT_FINISHED = 0,
    PRINT_CANCELLED = 1,         // by the user, or by PrintAbort
    PRINT_NO_OWNER = 2,          // there was no owner window
    PRINT_NOT_STARTED = 3,       // the device couldn't be opened or the document couldn't be started
    PRINT_NO_MEMORY = 4,         //
    PRINT_NO_DISK = 5,           // no room for the spooler's file
    PRINT_APPLICATION_STOP = 6,  // stopped by the spooler in the application's name
    PRINT_FAILED = 7             // anything else, a device without paper included
};

// PrintJobRec.flags
#define PRINT_NO_DIALOG 0x1u    // no dialog, and no window is disabled
#define PRINT_WINDOW_HOOK 0x2u  // windowHook disables the windows

// The hooks of a job. They run on the thread of the job, and may do what an application may do at that moment: show
// windows, dispatch messages, print another document.

// Tells the page number to show in the dialog; `value` is PrintJobRec.pageNumberValue.
typedef int32_t(MORVL_CALL* PrintPageNumberHook)(uintptr_t value);

// Disables the application's windows (enable 0, list null) and answers a handle of its own making, which it gets back
// when it shall enable them again (enable 1; the answer isn't read). `instance` is the owner window's, `zero` is 0.
typedef HANDLE(MORVL_CALL* PrintWindowHook)(HINSTANCE instance, int32_t zero, int32_t enable, HANDLE list);

// Called with the job's dialog, when it has been set up and when it is destroyed.
typedef void(MORVL_CALL* PrintDialogHook)(HWND dialog);

// Called whenever the device lets the application have a turn; `zero` is 0.
typedef void(MORVL_CALL* PrintIdleHook)(int32_t zero);

#pragma pack(push, 1)

// What to print on, and how the job shows itself. The caller fills it in and keeps it, with the texts and the device
// mode that it points to, until the job has ended. All zero but for device, driver and port is a job without texts.
// 838 bytes where pointers have 32 bits.
typedef struct PrintJobRec {
    uintptr_t pageNumberValue;           // for pageNumberHook
    const char* title;                   // of the dialog, and caption of error messages; may be null
    const char* documentName;            // for the spooler; may be null
    const char* line1;                   // first and second line of the dialog; may be null
    const char* line2;                   //
    PrintPageNumberHook pageNumberHook;  // null: sheets are counted
    PrintWindowHook windowHook;          // used with PRINT_WINDOW_HOOK
    PrintDialogHook dialogOpenHook;      // may be null
    PrintDialogHook dialogCloseHook;     // may be null
    uint32_t reserved;                   // not read
    PrintIdleHook idleHook;              // may be null
    uint16_t status;                     // out: how the job has ended, PRINT_FINISHED to PRINT_FAILED
    HDC dc;                              // a context to print on, which is left as it came; null: the job opens one
    uint32_t flags;                      // PRINT_NO_DIALOG, PRINT_WINDOW_HOOK
    DEVMODEA* deviceMode;                // may be null. With dc it tells only who makes the copies
    char deviceName[PRINT_NAME_SIZE];
    char driverName[PRINT_NAME_SIZE];
    char portName[PRINT_NAME_SIZE];
} PrintJobRec;

#pragma pack(pop)

// PrintAbort: cancels a job as its "Cancel" button does; a job with PRINT_NO_DIALOG isn't cancelled. To be called while
// the job dispatches messages, from one of its hooks included.
//   dc      in:  the context that the job prints on
// Result: 1; 0 for a null context and when there is no memory. For a context without a job it is 1 too, and nothing is
// cancelled.
MORVL_API int32_t MORVL_CALL PrintAbort(HDC dc);

// AbortTest: the abort procedure of every job. It gives the application a turn: dispatches all waiting messages but a
// request to quit, which stays for the application's own loop, and calls the job's idleHook. An application that draws
// for long in its render hook may call it.
//   dc      in:  the context that the job prints on
//   code    in:  0, or the spooler's code (SP_ERROR, SP_OUTOFDISK, ...): a negative one stops the job and decides its
//                status
// Result: 1 to go on, 0 to stop; 1 for a context without a job.
MORVL_API BOOL MORVL_CALL AbortTest(HDC dc, int32_t code);

// DlgFnAbort: the procedure of the job's dialog "PrintAbortDialog". The dialog is the library's; this is for
// applications that subclass it.
MORVL_API intptr_t MORVL_CALL DlgFnAbort(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// ---- pages ------------------------------------------------------------------------------------------------------
//
// A document is drawn by the caller. It has a size of its own; what is larger than a sheet of paper is laid out as a
// grid of tiles, one a sheet, row by row. For each sheet the library moves the origin and has the caller draw the whole
// document: the sheet shows its part. Units are thousandths of an inch, y growing upward (MM_HIENGLISH): the upper left
// corner of the document's first sheet is (0, 0), and everything on it has y of 0 and below.
//
// A tile of the first column and row shows the document from the paper's edge on; what lies in the printer's margins is
// lost there. The next tile goes on where the printable area of the one before ended, so that the printable areas, laid
// edge to edge, show the document without a gap (where the left and the right margin are equal).

// Draws the document. What isn't needed on this sheet is clipped; GetClipBox tells what is. The result isn't read.
//   dc      in:  the context, with map mode and origins set; to be left so
//   command in:  PAGE_RENDER
//   band    in:  the sheet in device pixels
//   value   in:  PageRecord.hookValue
//   the rest     0
typedef int32_t(MORVL_CALL* PageRenderHook)(HDC dc, int32_t command, const RECT* band, uintptr_t value, int32_t zero1,
                                            int32_t zero2, int32_t zero3);
#define PAGE_RENDER 3

// Moves to the next page of the document: nonzero when there is one, which is then laid out over sheets as the first
// was. Called after the last copy of the last tile of each page.
typedef int32_t(MORVL_CALL* PageNextHook)(uintptr_t value);

#pragma pack(push, 1)

// A document, and how to lay it out. The caller fills it in.
// 966 bytes where pointers have 32 bits.
typedef struct PageRecord {
    int32_t draftMode;  // nonzero: draft quality, where the device knows it
    int32_t copies;     // of each sheet; below 1 counts as 1. The device makes them if it can
    int32_t startX;     // where the document begins on the first sheet; below 0 counts as 0. The space counts for the
    int32_t startY;     // grid; to draw there is the render hook's affair
    int32_t docWidth;   // size of the document. On return the size as it was laid out: cut to the paper if it may not
    int32_t docHeight;  // span sheets, and rounded to the device's pixels without fitToPaper
    int32_t allPages;   // the range of pages is the caller's affair: what is drawn is decided by the hooks
    int32_t firstPage;
    int32_t lastPage;
    int32_t pageCount;     // raised to 1 if it is lower
    int32_t drawFrame;     // nonzero: a frame of the document's size on each sheet, before the document is drawn
    int32_t fitToPaper;    // nonzero: where only one side was cut, the other may be set to the paper's too; no rounding
    int32_t spanA;         // either nonzero: a document larger than the paper by more than 20 units covers several
    int32_t spanB;         // sheets; both 0: it is cut to one
    uint8_t reserved[60];  // the caller's own
    PrintJobRec job;       //
    PageRenderHook renderHook;  // may be null: blank sheets, or frames
    PageNextHook nextPageHook;  // may be null: one page
    uintptr_t hookValue;        // for both hooks
} PageRecord;

#pragma pack(pop)

// PagePrint: prints a document. Returns when the job has ended.
//   owner   in:  the window that the job's dialog belongs to, and that is disabled while it runs
//   record  in/out: the document; null does nothing
// Result: 1. What came of it is record->job.status.
MORVL_API int32_t MORVL_CALL PagePrint(HWND owner, PageRecord* record);

// ---- the setup dialog -------------------------------------------------------------------------------------------

// PrintPrinterSetup: lets the user choose a printer and change its settings in its driver's dialog. What was chosen
// becomes the user's default printer (the profile's line "device"; all top-level windows are told), and is saved: from
// then on PrintGetDevMode gives these settings for this printer. One such dialog at a time.
//   owner   in:  owner of the dialog; may be null
//   mode    in/out: the device mode before, a movable global block, or a handle of 0; the new one after a change, and
//                then the old one has been freed. Null where the caller keeps none
//   device, driver, port   in/out: each with room for PRINT_NAME_SIZE bytes: the printer before, an empty device for
//                none; the chosen one after a change
//   text    in:  up to 519 bytes, kept for the dialog and not shown; may be null
// Result: nonzero after a change; 0, with everything as it was, after a cancel, an OK that changes nothing, and a
// failure. An OK without a device mode to compare with counts as a change.
MORVL_API int32_t MORVL_CALL PrintPrinterSetup(HWND owner, HGLOBAL* mode, char* device, char* driver, char* port,
                                               const char* text);

// PrintPrinterSetupExt: the same, with
//   hideNone         in:  nonzero leaves ports named "None" out of the list
//   messageInstance  in:  a module and a string of its string table (at most 511 bytes), shown when the user has
//   messageId             changed settings in the driver's dialog; with either 0 nothing is shown
MORVL_API int32_t MORVL_CALL PrintPrinterSetupExt(HWND owner, HGLOBAL* mode, char* device, char* driver, char* port,
                                                  const char* text, int32_t hideNone, HINSTANCE messageInstance,
                                                  uint32_t messageId);

// PrintPrinterSetupDlgProc: the procedure of the setup dialog "PRTSETUP". The dialog is the library's; this is for
// applications that subclass it. Beyond the usual messages it answers PRINT_CALL_BACK, which calls the function at
// lParam, if there is one, with 1 and 170.
MORVL_API intptr_t MORVL_CALL PrintPrinterSetupDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
#define PRINT_CALL_BACK 0x83FFu
typedef void(MORVL_CALL* PrintCallBack)(int32_t one, int32_t number);

// PrintCanDoPrinterSetup: whether a printer can be set up.
//   driver  in:  not read
//   device  in:  the printer's name
// Result: 1 when the printer can be opened, else 0.
MORVL_API int32_t MORVL_CALL PrintCanDoPrinterSetup(const char* driver, const char* device);

MORVL_END_C

#if defined(__cplusplus)
static_assert(sizeof(void*) != 4 || (sizeof(PrintJobRec) == 838 && offsetof(PrintJobRec, status) == 44 &&
                                     offsetof(PrintJobRec, deviceName) == 58));
static_assert(sizeof(void*) != 8 || (sizeof(PrintJobRec) == 886 && offsetof(PrintJobRec, deviceName) == 106));
static_assert(offsetof(PageRecord, reserved) == 56 && offsetof(PageRecord, job) == 116);
static_assert(sizeof(PageRecord) == 116 + sizeof(PrintJobRec) + 3 * sizeof(void*));
#endif

#endif
