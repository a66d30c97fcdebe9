// What the native host offers beyond the platform's own calls: modules and their resources, and controls over the
// surroundings, for applications that know better than the environment and for tests. There is no such header on
// Windows.
#ifndef MORVL15_HOST_NATIVE_H
#define MORVL15_HOST_NATIVE_H

#include <morvl15/host.h>

MORVL_BEGIN_C

// ---- modules ----------------------------------------------------------------------------------------------------

typedef struct HostString {
    UINT id;
    const char* text;
} HostString;

// A control of a dialog template, in the order of the tab key. Places and sizes are in dialog units.
typedef struct HostDialogControl {
    const char* windowClass;
    INT id;
    DWORD style;
    INT x;
    INT y;
    INT width;
    INT height;
    const char* text;
} HostDialogControl;

typedef struct HostDialog {
    const char* name;
    DWORD style;
    INT x;
    INT y;
    INT width;
    INT height;
    const char* title;
    INT points;  // the font's size
    const char* face;
    const HostDialogControl* controls;
    size_t controlCount;
} HostDialog;

// A module as the loader of the platform would know it: a library or a program. The record and everything it points
// to belong to the module and live as long as it is attached.
typedef struct HostModule {
    const char* name;                                                  // file name, for messages
    BOOL (*entry)(HINSTANCE instance, DWORD reason, LPVOID reserved);  // the notification routine, or null
    const HostString* strings;                                         // the string table
    size_t stringCount;
    const HostDialog* dialogs;  // the dialog templates
    size_t dialogCount;
    struct HostModule* next;  // the host's own
} HostModule;

// Notifies the module of process attach (reason 1) at once, of thread detach (3) at the end of each thread that has
// used a thread-local index, and of process detach (0) from HostDetachModule. Attaching a module that is attached, or
// detaching one that isn't, does nothing.
MORVL_HOST_API void HostAttachModule(HostModule* module);
MORVL_HOST_API void HostDetachModule(HostModule* module);

// Gives the program itself (instance null) a string table of its own. Null takes it away.
MORVL_HOST_API void HostSetProgramStrings(const HostString* strings, size_t count);

// The same for dialog templates.
MORVL_HOST_API void HostSetProgramDialogs(const HostDialog* dialogs, size_t count);

// ---- the person at the dialogs ----------------------------------------------------------------------------------

// What a person is asked for.
typedef enum HostRequestKind {
    HOST_REQUEST_DIALOG = 1,       // a modal dialog waits and no message does: the person acts on it
    HOST_REQUEST_MESSAGE_BOX = 2,  // a message box: the person answers with the id of one of its buttons
    HOST_REQUEST_DRIVER_SETUP =
        3  // a printer's driver asks for settings: the person changes them, answers IDOK or IDCANCEL
} HostRequestKind;

typedef struct HostRequest {
    HostRequestKind kind;
    HWND window;          // the dialog; for the other kinds the owner, or null
    const char* text;     // the message; the printer's name; null for a dialog
    const char* caption;  // the title of the dialog or the message box
    UINT style;           // of a message box, MB_...
    LPVOID subject;       // the driver's device mode (DEVMODEA*), else null
} HostRequest;

// What a person answers to HOST_REQUEST_DIALOG.
#define HOST_PERSON_LEFT 0   // nobody is there: the dialog is cancelled
#define HOST_PERSON_ACTED 1  // the dialog goes on; the person is asked again when no message waits
#define HOST_PERSON_WAITS 2  // the dialog sleeps until a message arrives, from another thread for instance

// Runs on the thread of the dialog. Messages may be sent and further dialogs may be run in it.
typedef INT (*HostPerson)(const HostRequest* request, LPVOID value);

// Installs the person of the process, null for nobody. Any thread may call; requests under way end with the person that
// they began with. A person who acts a thousand times and moves no message counts as one who left.
MORVL_HOST_API void HostSetPerson(HostPerson person, LPVOID value);

// Asks the person. 0 where there is nobody, and then nothing is written or sent.
MORVL_HOST_API INT HostAskPerson(const HostRequest* request);

// What a person does with the mouse and the keyboard. FALSE, and nothing happens, where there is no such control, or
// where it or one of its parents is hidden or disabled.
MORVL_HOST_API BOOL HostPressButton(HWND dialog, INT id);
MORVL_HOST_API BOOL HostChooseEntry(HWND dialog, INT id, INT index, BOOL doubleClick);  // of a list box or combo box
MORVL_HOST_API BOOL HostTypeText(HWND dialog, INT id, const char* text);  // into a control, which gets the focus
MORVL_HOST_API BOOL HostPressKey(INT key);                                // posts VK_... to the window with the focus
// Opens a window's system menu (WM_INITMENU) and chooses an item. FALSE where the item is greyed.
MORVL_HOST_API BOOL HostChooseSystemItem(HWND window, UINT item);

// ---- surroundings -----------------------------------------------------------------------------------------------

// Puts a system default language and a user default locale in force in the place of the environment's, and with the
// system language its code page. A zero goes back to the environment, which is read again. The library looks at
// languages only in IntlInit. Not to be called while other threads use text.
MORVL_HOST_API void HostSetLanguages(LANGID systemLanguage, LCID userLocale);

// Sets the clock to a moment that stands still; null lets it run again.
MORVL_HOST_API void HostSetClock(const SYSTEMTIME* time);

// Reports another platform id in GetVersionExA, such as VER_PLATFORM_WIN32_WINDOWS; 0 goes back to the usual one.
MORVL_HOST_API void HostSetPlatformId(DWORD id);

// Names the profile file (copied), null or empty for the default place. Nothing is read until a profile call is made.
MORVL_HOST_API void HostSetProfilePath(const char* path);

// The number of refusal sounds (MessageBeep) of the calling thread since the last call.
MORVL_HOST_API uint32_t HostTakeBeeps(void);

// ---- allocations ------------------------------------------------------------------------------------------------

// The n-th allocation from now on fails (1 is the next one), of heap, global and local blocks alike, and those after
// it succeed again; 0 lets all succeed. HostAllocationFailed tells whether the failure has happened.
MORVL_HOST_API void HostFailAllocation(uint32_t n);
MORVL_HOST_API BOOL HostAllocationFailed(void);

// HostCountBlocks(TRUE) starts a count at 0, HostCountBlocks(FALSE) counts no further blocks in. HostLiveBlocks gives
// the heap, global and local blocks that were counted in and aren't freed yet; a movable block counts as two, its
// record and its bytes.
MORVL_HOST_API void HostCountBlocks(BOOL on);
MORVL_HOST_API int64_t HostLiveBlocks(void);

// ---- device contexts ----------------------------------------------------------------------------------------------

typedef struct _cairo cairo_t;  // as <cairo.h> has it

// HostGetCairo: what a context draws with, for drawing beyond the platform's calls. A user unit is a pixel of the
// device, (0, 0) the corner of the printable area; transformations are to be put back. On a printer it is good until
// the page ends.
// Result: the context's own; null for no context, an information context, a printer outside of a page, no memory.
MORVL_HOST_API cairo_t* HostGetCairo(HDC dc);

// ---- printers ---------------------------------------------------------------------------------------------------
//
// A printer is traits, which are facts, and a driver, which is a table of functions. From the traits alone the host
// answers for the printer's papers, margins, copies and device modes; each function of the driver that isn't null
// answers in the host's place. An all-null driver is a printer that takes every job and puts nothing on paper.

typedef struct _cairo_surface cairo_surface_t;  // as <cairo.h> has it

// A paper that a printer offers, as it lies upright.
typedef struct HostPaper {
    int16_t id;  // DMPAPER_...; from DMPAPER_USER + 1 on for papers that have no number of the platform's
    const char* name;
    int32_t width;  // in tenths of a millimetre
    int32_t length;
    RECT margins;  // what can't be printed on, from each edge, in hundredths of a millimetre
} HostPaper;

typedef struct HostPrinterTraits {
    const HostPaper* papers;  // the first is the default
    size_t paperCount;        // 0: DeviceCapabilitiesA tells of no papers, and modes name none; pages are A4 then
    int32_t dpi;              // dots an inch, both ways; 0 for 600
    int32_t maxCopies;        // that the printer makes by itself; 0 or 1 for none
    BOOL color;
    BOOL duplex;
    BOOL userSizes;           // takes DMPAPER_USER, of 10 to 3000 millimetres a side, with the first paper's margins
    BOOL noDescriptionMode;   // its description (GetPrinterA) carries no device mode
    const void* privateMode;  // what stands behind a device mode by default
    WORD privateSize;         // bytes of it
} HostPrinterTraits;

// What a device context on a printer tells of it.
typedef struct HostPrinterMetrics {
    INT dpiX;
    INT dpiY;
    INT paperWidth;  // in pixels, as the page is turned
    INT paperHeight;
    INT offsetX;  // from the paper's corner to the first pixel that can be printed
    INT offsetY;
    INT printableWidth;
    INT printableHeight;
    BOOL color;
    DWORD escapes;  // bit n: the device has escape n. By default SETABORTPROC, GETPHYSPAGESIZE, GETPRINTINGOFFSET
} HostPrinterMetrics;

// What a driver gets with a document. It lives until the document has ended or is given up.
typedef struct HostPrintJob {
    const char* documentName;  // in the code page in force; never null
    const char* output;        // the file asked for by the document or, as FILE:path, by the port; null for none
    INT copies;                // that the printer is to make by itself
    const DEVMODEA* mode;
    // Calls the application's abort procedure: code 0 while the work goes on, an SP_ code for a trouble that it should
    // know of before the call that has met it answers. FALSE when the job is to stop.
    BOOL (*goOn)(void* spooler, INT code);
    void* spooler;
} HostPrintJob;

// The result of a driver's function that leaves the answer to the host.
#define HOST_STANDARD INT32_MIN

// Functions that take `printer` get the value given with HostAddPrinter; those that take `device` what `open` gave, or
// that same value where `open` is null.
typedef struct HostPrinterDriver {
    const char* name;  // the driver's name in the printer's description; never null, at most 255 bytes

    // As DocumentPropertiesA and DeviceCapabilitiesA, or HOST_STANDARD. The description asks `properties` too.
    LONG (*properties)(void* printer, HWND owner, DEVMODEA* output, const DEVMODEA* input, DWORD mode);
    INT (*capabilities)(void* printer, WORD index, char* output);

    // Opens the printer for a device context. The mode is complete and has been merged; the metrics come filled in by
    // mode and traits and can be changed. Null refuses. `close` ends it; a document that is open has been aborted.
    void* (*open)(void* printer, const DEVMODEA* mode, HostPrinterMetrics* metrics);
    void (*close)(void* device);

    // The escapes that `metrics` name, but for 9, 12 and 13, which the host answers.
    INT (*escape)(void* device, INT code, INT size, const void* input, void* output);

    // The document's calls: above 0 when they worked, else an SP_ code. startPage gives the surface to draw on: the
    // whole paper, turned as the page is, with its origin in the upper left corner and 72 units an inch. It is the
    // driver's, and good until endPage. startDocument's result is the job's number. abortDocument takes everything
    // back; nothing else is called for the document afterwards.
    INT (*startDocument)(void* device, const HostPrintJob* job);
    INT (*startPage)(void* device, cairo_surface_t** surface);
    INT (*endPage)(void* device);
    INT (*endDocument)(void* device);
    void (*abortDocument)(void* device);
} HostPrinterDriver;

// HostAddPrinter: adds a printer.
//   name    in:  at most 255 bytes, without commas; copied
//   port    in:  the same; "FILE:" asks for files
//   driver  in:  copied
//   traits  in:  copied, with the papers and the private bytes
//   value   in:  handed to the driver's functions
// Result: FALSE for names that don't do and for the name of a printer that is there already, queues of the print
// server excepted, which it hides.
MORVL_HOST_API BOOL HostAddPrinter(const char* name, const char* port, const HostPrinterDriver* driver,
                                   const HostPrinterTraits* traits, void* value);

// HostRemovePrinter: takes a printer away that was added. FALSE if there is none. Device contexts that are open on it
// go on to use its driver.
MORVL_HOST_API BOOL HostRemovePrinter(const char* name);

// HostPdfDriver, HostPdfTraits: the driver and the traits of "PDF", to add printers like it: with other margins, or
// with a function changed.
//
// The PDF driver writes one page a sheet, at 600 dots an inch, A4 by default. A document's file is the one that the
// document or the port names, as FILE:path, which it replaces. Without one, with the port FILE:, it is named after the
// document, in the current folder, and never replaces a file: "Report.pdf", then "Report (2).pdf". The file appears
// under its name, whole and on the disk, when the document ends well; of a job that is given up or fails nothing stays.
MORVL_HOST_API const HostPrinterDriver* HostPdfDriver(void);
MORVL_HOST_API const HostPrinterTraits* HostPdfTraits(void);

// The private bytes of the PDF driver's device modes.
typedef struct HostPdfSettings {
    char signature[4];   // "pdf1"
    int32_t margins[4];  // left, top, right, bottom of the upright page, in hundredths of a millimetre; 0 by default,
                         // and together less than the paper
} HostPdfSettings;

// The private bytes of the device modes of the print server's queues.
typedef struct HostQueueSettings {
    char signature[4];  // "cup1"
    char options[252];  // job options as "name=value name=value", beside what the public fields say; empty by default
} HostQueueSettings;

// HostSetPrintServer: the CUPS server whose queues are the machine's printers: a host name with or without ":port", or
// the path of a socket; null for the one that the environment names, empty for none. One that can't be reached is left
// alone for five seconds.
MORVL_HOST_API void HostSetPrintServer(const char* server);

// HostFailPageSetup: makes PageSetupDlgA fail with that extended error; 0 lets it succeed again.
MORVL_HOST_API void HostFailPageSetup(DWORD error);

MORVL_END_C

#endif
