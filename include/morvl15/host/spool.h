// Printers of the native host: the printer store, device modes, capabilities, the page-setup service. Each call does
// what the platform documents under the same name. Any thread may call.
//
// The printers are, in this order: "PDF", which is always there and writes files; those that the application has added
// (HostAddPrinter); the queues of the CUPS server that the environment names, as far as it answers at once. Each call
// looks its printer up anew: a printer can go between two calls, and then the second one fails.
#ifndef MORVL15_HOST_SPOOL_H
#define MORVL15_HOST_SPOOL_H

#include <morvl15/host/gdi.h>
#include <morvl15/host/kernel.h>
#include <morvl15/host/objects.h>
#include <morvl15/host/types.h>
#include <morvl15/host/version.h>

MORVL_BEGIN_C

#define ERROR_NOT_SUPPORTED 50u
#define ERROR_INVALID_LEVEL 124u
#define ERROR_INVALID_PRINTER_NAME 1801u
#define ERROR_INVALID_DATATYPE 1804u

// ---- device modes -----------------------------------------------------------------------------------------------
//
// The settings of a print job: this record, then dmDriverExtra bytes that are the driver's own.

#define CCHDEVICENAME 32
#define CCHFORMNAME 32

typedef struct DEVMODEA {
    BYTE dmDeviceName[CCHDEVICENAME];  // as much of the printer's name as there is room for
    WORD dmSpecVersion;                // DM_SPECVERSION
    WORD dmDriverVersion;
    WORD dmSize;         // the record's, 156
    WORD dmDriverExtra;  // bytes behind it
    DWORD dmFields;      // which of the fields below hold: the DM_ bits
    int16_t dmOrientation;
    int16_t dmPaperSize;    // the paper's id, DMPAPER_USER for the two lengths below
    int16_t dmPaperLength;  // in tenths of a millimetre
    int16_t dmPaperWidth;
    int16_t dmScale;  // in percent
    int16_t dmCopies;
    int16_t dmDefaultSource;
    int16_t dmPrintQuality;  // dots an inch
    int16_t dmColor;
    int16_t dmDuplex;
    int16_t dmYResolution;
    int16_t dmTTOption;
    int16_t dmCollate;
    BYTE dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmDisplayFlags;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
} DEVMODEA;
typedef DEVMODEA* LPDEVMODEA;

#define DM_SPECVERSION 0x0401

#define DM_ORIENTATION 0x00000001u
#define DM_PAPERSIZE 0x00000002u
#define DM_PAPERLENGTH 0x00000004u
#define DM_PAPERWIDTH 0x00000008u
#define DM_SCALE 0x00000010u
#define DM_COPIES 0x00000100u
#define DM_DEFAULTSOURCE 0x00000200u
#define DM_PRINTQUALITY 0x00000400u
#define DM_COLOR 0x00000800u
#define DM_DUPLEX 0x00001000u
#define DM_YRESOLUTION 0x00002000u
#define DM_COLLATE 0x00008000u
#define DM_FORMNAME 0x00010000u

#define DMORIENT_PORTRAIT 1
#define DMORIENT_LANDSCAPE 2

#define DMPAPER_LETTER 1
#define DMPAPER_LEGAL 5
#define DMPAPER_A3 8
#define DMPAPER_A4 9
#define DMPAPER_A5 11
#define DMPAPER_USER 256

#define DMCOLOR_MONOCHROME 1
#define DMCOLOR_COLOR 2
#define DMDUP_SIMPLEX 1
#define DMDUP_VERTICAL 2
#define DMDUP_HORIZONTAL 3
#define DMBIN_AUTO 7

// What DocumentPropertiesA is asked for; 0 asks for the size.
#define DM_OUT_BUFFER 2u
#define DM_IN_PROMPT 4u
#define DM_IN_BUFFER 8u
#define DM_COPY DM_OUT_BUFFER
#define DM_PROMPT DM_IN_PROMPT
#define DM_MODIFY DM_IN_BUFFER

// DocumentPropertiesA: a printer's device mode.
//   owner    in:  the window that a dialog would belong to; may be null
//   printer  in:  an open printer; null to go by the name
//   device   in:  its name; may be null with an open printer
//   output   out: with DM_OUT_BUFFER: the device mode
//   input    in:  with DM_IN_BUFFER: wishes. Those that its dmFields name and that the printer can meet take the place
//                 of the defaults; a paper that isn't offered gives the default paper, too many copies the most that
//                 there can be. Private bytes count when they are of the size that the driver gives them
//   mode     in:  0, or DM_ bits; with DM_IN_PROMPT the person (HOST_REQUEST_DRIVER_SETUP) can change the settings
// Result: with mode 0 the size of a device mode in bytes; else IDOK, or IDCANCEL when the person, or the lack
// of one, cancelled the dialog; then the output holds what went into it. Below 0 where there is no such printer, where
// a buffer that the mode names is null, and where the driver refuses.
MORVL_HOST_API LONG DocumentPropertiesA(HWND owner, HANDLE printer, LPSTR device, DEVMODEA* output,
                                        const DEVMODEA* input, DWORD mode);

// ---- capabilities -----------------------------------------------------------------------------------------------

#define DC_FIELDS 1
#define DC_PAPERS 2
#define DC_PAPERSIZE 3
#define DC_MINEXTENT 4
#define DC_MAXEXTENT 5
#define DC_BINS 6
#define DC_DUPLEX 7
#define DC_SIZE 8
#define DC_EXTRA 9
#define DC_VERSION 10
#define DC_DRIVER 11
#define DC_BINNAMES 12
#define DC_ENUMRESOLUTIONS 13
#define DC_PAPERNAMES 16
#define DC_ORIENTATION 17
#define DC_COPIES 18
#define DC_COLLATE 22
#define DC_COLORDEVICE 32

// DeviceCapabilitiesA: one of a printer's capabilities.
//   port    in:  not used; may be null
//   index   in:  DC_FIELDS, DC_SIZE, DC_EXTRA, DC_VERSION, DC_DRIVER, DC_COPIES, DC_DUPLEX, DC_COLLATE,
//                DC_COLORDEVICE, DC_ORIENTATION (90, the turn of a landscape page), DC_MINEXTENT and DC_MAXEXTENT
//                (length in the high half, width in the low one): the result is the answer.
//                DC_PAPERS (16-bit ids), DC_PAPERSIZE (32-bit width and height in tenths of a millimetre),
//                DC_PAPERNAMES (64 bytes each), DC_BINS (16-bit ids), DC_BINNAMES (24 bytes each), DC_ENUMRESOLUTIONS
//                (pairs of 32-bit dots an inch): the result is the number of entries
//   output  out: the entries; null to ask for their number
//   mode    in:  not used; may be null
// Result: below 0 for a printer that isn't there, an index that it doesn't know, and where the driver refuses.
MORVL_HOST_API INT DeviceCapabilitiesA(LPCSTR device, LPCSTR port, WORD index, LPSTR output, const DEVMODEA* mode);

// ---- the printer store ------------------------------------------------------------------------------------------

// What is told of a printer at level 2. Texts and device mode stand behind the records, in the same block.
typedef struct PRINTER_INFO_2A {
    LPSTR pServerName;  // null
    LPSTR pPrinterName;
    LPSTR pShareName;  // empty
    LPSTR pPortName;
    LPSTR pDriverName;
    LPSTR pComment;
    LPSTR pLocation;
    LPDEVMODEA pDevMode;                       // null where the driver tells none
    LPSTR pSepFile;                            // empty
    LPSTR pPrintProcessor;                     // empty
    LPSTR pDatatype;                           // "RAW"
    LPSTR pParameters;                         // empty
    PSECURITY_DESCRIPTOR pSecurityDescriptor;  // null
    DWORD Attributes;                          // PRINTER_ATTRIBUTE_ bits
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
} PRINTER_INFO_2A;

#define PRINTER_ATTRIBUTE_DEFAULT 0x00000004u
#define PRINTER_ATTRIBUTE_NETWORK 0x00000010u
#define PRINTER_ATTRIBUTE_LOCAL 0x00000040u

#define PRINTER_ENUM_LOCAL 0x00000002u        // "PDF" and the printers that were added
#define PRINTER_ENUM_CONNECTIONS 0x00000004u  // the queues of the print server

typedef struct PRINTER_DEFAULTSA {
    LPSTR pDatatype;
    LPDEVMODEA pDevMode;
    DWORD DesiredAccess;
} PRINTER_DEFAULTSA;
typedef PRINTER_DEFAULTSA* LPPRINTER_DEFAULTSA;

// OpenPrinterA: a handle of the printer with that name, upper and lower case alike; `defaults` are not used. FALSE
// with ERROR_INVALID_PRINTER_NAME for the name of none.
// ClosePrinter: gives the handle back.
MORVL_HOST_API BOOL OpenPrinterA(LPSTR name, HANDLE* printer, LPPRINTER_DEFAULTSA defaults);
MORVL_HOST_API BOOL ClosePrinter(HANDLE printer);

// GetPrinterA: the description of an open printer, at level 2 only.
//   info    out: a block of `size` bytes, whose start is a PRINTER_INFO_2A; may be null with size 0
//   needed  out: the bytes that the description takes
// Result: FALSE with ERROR_INSUFFICIENT_BUFFER for a block that is too small, which stays as it was.
MORVL_HOST_API BOOL GetPrinterA(HANDLE printer, DWORD level, BYTE* info, DWORD size, DWORD* needed);

// EnumPrintersA: the descriptions of all printers of the kinds that `flags` name, at level 2 only, in one block.
//   name      in:  not used; may be null
//   needed    out: the bytes that they take, 0 for none
//   returned  out: how many stand in the block; 0 on failure
// Result: as for GetPrinterA.
MORVL_HOST_API BOOL EnumPrintersA(DWORD flags, LPSTR name, DWORD level, BYTE* info, DWORD size, DWORD* needed,
                                  DWORD* returned);

// ---- the page-setup service -------------------------------------------------------------------------------------

// The names of a printer: the record, then the texts, each at its offset from the record's start.
typedef struct DEVNAMES {
    WORD wDriverOffset;
    WORD wDeviceOffset;
    WORD wOutputOffset;
    WORD wDefault;  // DN_DEFAULTPRN
} DEVNAMES;
typedef DEVNAMES* LPDEVNAMES;

#define DN_DEFAULTPRN 0x0001

typedef UINT(CALLBACK* LPPAGESETUPHOOK)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
typedef UINT(CALLBACK* LPPAGEPAINTHOOK)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

typedef struct PAGESETUPDLGA {
    DWORD lStructSize;  // in:  the size of the record
    HWND hwndOwner;
    HGLOBAL hDevMode;   // in:  null; out: a movable block with the printer's device mode, the caller's to free
    HGLOBAL hDevNames;  // in:  null; out: one with its DEVNAMES and names, at most 780 bytes
    DWORD Flags;        // in:  PSD_RETURNDEFAULT
    POINT ptPaperSize;  // out: the paper's size, turned if the page is, in hundredths of a millimetre
    RECT rtMinMargin;   // out: its unprintable margins, likewise
    RECT rtMargin;
    HINSTANCE hInstance;
    LPARAM lCustData;
    LPPAGESETUPHOOK lpfnPageSetupHook;
    LPPAGEPAINTHOOK lpfnPagePaintHook;
    LPCSTR lpPageSetupTemplateName;
    HGLOBAL hPageSetupTemplate;
} PAGESETUPDLGA;
typedef PAGESETUPDLGA* LPPAGESETUPDLGA;

#define PSD_RETURNDEFAULT 0x00000400u

#define CDERR_STRUCTSIZE 0x0001u
#define CDERR_INITIALIZATION 0x0002u
#define CDERR_MEMALLOCFAILURE 0x0009u
#define PDERR_RETDEFFAILURE 0x1003u
#define PDERR_NODEFAULTPRN 0x1008u

// PageSetupDlgA: the default printer and its settings. With PSD_RETURNDEFAULT no dialog appears; without, there is
// none to show, and the call fails with CDERR_INITIALIZATION. The default printer is the one that the profile names
// (section "windows", key "device", as name, driver and port with commas between), else the print server's default,
// else "PDF". The port of the profile's line, as in "PDF,PDF,FILE:/tmp/report.pdf", goes before the printer's own.
MORVL_HOST_API BOOL PageSetupDlgA(LPPAGESETUPDLGA setup);

// CommDlgExtendedError: why the calling thread's last PageSetupDlgA failed; 0 when it didn't.
MORVL_HOST_API DWORD CommDlgExtendedError(void);

MORVL_END_C

#endif
