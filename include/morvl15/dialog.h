// Helpers for dialogs: real numbers in edit controls, lists without doubles, the windows of an application, messages
// from its string table, a wizard, a dialog in the middle of its window; and a call that checks, makes and opens a
// file.
//
// Threads: windows belong to the thread that made them, and all of these but CBOpenFile, DlgSearchSpec, the two
// DlgSetStr operations and DlgGetScreenPixels are called on it. Nothing keeps state between calls, and no operation
// keeps a block but where it says so.
#ifndef MORVL15_DIALOG_H
#define MORVL15_DIALOG_H

#include <morvl15/base.h>
#include <morvl15/host.h>

MORVL_BEGIN_C

// ---- real numbers in edit controls ------------------------------------------------------------------------------
//
// The program keeps a whole number of 32 bits without a sign, the control shows a decimal text. There are two scales.
//
//   Metric      the number is in thousandths of an inch, the text in centimetres, in steps of 0.025. An inch counts
//               2.5406 centimetres both ways.
//   Non-metric  the number is the text's value times 10 to the power of `places`: 0 to 3, and 3 for anything above.
//
// `reserved` isn't looked at. Texts take up to 32 bytes.

// DlgGetDlgItemReal: reads the number that an edit control shows.
//   dialog  in:  the dialog
//   id      in:  the control's id
//   good    out: 1 for a number, 0 for anything else; may be null
//   metric  in:  not 0 for the metric scale
//   places  in:  of the non-metric scale
// Result: the number, 0 where `good` is 0. Text is digits and points and nothing else, no sign, at least one of them
// and 31 bytes of it at most; what comes behind a second point doesn't count. Metric texts are rounded, 4,294,967,295
// stands for everything above it; further places of others are cut, and what goes beyond 32 bits is lost. A whole part
// above 2,147,483,647 counts as 0.
MORVL_API uint32_t MORVL_CALL DlgGetDlgItemReal(HWND dialog, int32_t id, int32_t* good, uint32_t reserved,
                                                int32_t metric, uint32_t places);

// DlgSetDlgItemReal: shows a number in an edit control: DlgSetStrRealMetricUnits or DlgSetStrRealUnits of the value.
// Arguments as above.
// Result: the control's answer to WM_SETTEXT, 1 where it took the text; 0 for no such control.
//
// What is set is read again as it was
//   - on the non-metric scale with 1 to 3 places always, with 0 places up to 2,147,483,647; above it the text has a
//     sign, and `good` is 0;
//   - on the metric scale to within 5: a step of the text is nearly 10 thousandths of an inch. So one value in ten
//     comes back as it was, of the multiples of 25 too: those that a text on a step is read as (10, 20, 30, 39, 49 ...),
//     and each of these texts comes back as it was.
MORVL_API intptr_t MORVL_CALL DlgSetDlgItemReal(HWND dialog, int32_t id, uint32_t value, uint32_t reserved,
                                                int32_t metric, uint32_t places);

// DlgSetStrRealMetricUnits: writes thousandths of an inch as centimetres, rounded to a step of 0.025: "0.0" for 0,
// "0.025" for 5, "2.55" for 1000, "25.4" for 10000. There is always a place behind the point.
//   text    out: room for 32 bytes
MORVL_API void MORVL_CALL DlgSetStrRealMetricUnits(uint32_t value, uint32_t reserved, char* text);

// DlgSetStrRealUnits: writes a scaled number without trailing zeros: of 3 places "1.25" for 1250, "1" for 1000.
//   text    out: room for 32 bytes
//   places  in:  as above. A whole part above 2,147,483,647, which only 0 places can have, is written as its 32 bits
//                with a sign
MORVL_API void MORVL_CALL DlgSetStrRealUnits(uint32_t value, uint32_t reserved, char* text, uint32_t places);

// ---- lists ------------------------------------------------------------------------------------------------------

// DlgAddDistinctStringIntoListbox, DlgAddDistinctStringIntoCombo: adds a text to a list that hasn't got it; capitals
// are other texts than small letters. The list is one that the control keeps sorted, and the search goes from the first
// entry that begins with the text, case aside, to the first one with another first byte. So a text may come in once
// more where it stands behind such entries: "ABC" behind "abc", or anything in a list that isn't sorted.
//   list, combo  in:  the list box, the combo box
//   text         in:  the text; an empty one isn't added; null gives 0
// Result: 1 when the text was added or is there already; 0 when the control can't add it and when there is no memory.
MORVL_API int32_t MORVL_CALL DlgAddDistinctStringIntoListbox(HWND list, const char* text);
MORVL_API int32_t MORVL_CALL DlgAddDistinctStringIntoCombo(HWND combo, const char* text);

// DlgLocateStringInListbox: finds a text in a list box, case counting, sorted or not.
//   text    in:  the text; null and an empty one aren't found
// Result: the index of the first entry that is the text; -1 when there is none before the list's end or its first empty
// entry. 0, as for a match there, when there is no memory.
MORVL_API int32_t MORVL_CALL DlgLocateStringInListbox(HWND list, const char* text);

// DlgSetListHScroll: fits the horizontal extent of a list box to its longest line, in its own font. It grows to a line
// that is wider than list and extent, and shrinks to the list's width when all lines have room there.
//   control in:  the list box; or a control of the class "CBCtrlComboBox", which answers message 4064, of parameters
//                0, with its list box
// The property "LBTABSIZE" of the list box, if it isn't 0, is the distance of its tab stops in pixels; an owner-drawn
// list (style 0x10) has 15 pixels more. A line for which there is no memory doesn't count.
MORVL_API void MORVL_CALL DlgSetListHScroll(HWND control);

// ---- windows and the screen -------------------------------------------------------------------------------------

// DlgSearchSpec: 1 for a text with "*" or "?" in it, a pattern rather than a file's name; else 0, also for null.
MORVL_API int32_t MORVL_CALL DlgSearchSpec(const char* text);

// DlgGetScreenPixels: a length on the screen in pixels, rounded, halves away from 0.
//   thousandths in:  the length in thousandths of an inch
//   vertical    in:  not 0 for one from top to bottom
MORVL_API int32_t MORVL_CALL DlgGetScreenPixels(int32_t thousandths, int32_t vertical);

// DlgEnableAllWindows: disables the top-level windows of an application for a while, and enables them again. They are
// those of the calling thread, and on the platform's NT line those of one module alone.
//   instance in:  the module; null does nothing and gives null
//   except   in:  a window that stays as it is; may be null
//   enable   in:  0 disables up to 50 windows, the frontmost; those that are disabled already aren't counted, and stay
//                 disabled at the end. Not 0 enables those again that the call with 0 has disabled
//   saved    in:  to enable: what the call with 0 gave; null does nothing. To disable: not looked at
// Result: to disable, a movable block that the call which enables takes back and frees; null where there is no memory.
// To enable, null.
MORVL_API HGLOBAL MORVL_CALL DlgEnableAllWindows(HINSTANCE instance, HWND except, int32_t enable, HGLOBAL saved);

// DlgMessageBoxString: shows a message box with texts of a module's string table.
//   instance in:  the module
//   owner    in:  the window that the box belongs to; may be null
//   textId   in:  the text, 199 bytes of it at most, a format of wsprintfA for the one argument
//   titleId  in:  the title, 39 bytes of it at most
//   argument in:  a number, or the address of a text, as the format says; whatever it is, the whole takes 1,023 bytes
//   style    in:  MB_... of the platform
// Result: that of MessageBoxA: the button's id, 0 for a failure. A text that isn't there is an empty one.
MORVL_API int32_t MORVL_CALL DlgMessageBoxString(HINSTANCE instance, HWND owner, uint32_t textId, uint32_t titleId,
                                                 intptr_t argument, uint32_t style);

// DlgCenterDialog: puts a dialog in the middle of its parent, without one of its owner, without either of the screen,
// and keeps it on the screen; over a minimised window it stands in the middle of the screen.
//   dialog  in:  the dialog's window
// Result: that of MoveWindow, which moves it: not 0 where that worked.
MORVL_API int32_t MORVL_CALL DlgCenterDialog(HWND dialog);

// ---- wizards ----------------------------------------------------------------------------------------------------

#pragma pack(push, 1)
// A chain of dialogs. The caller fills it; each dialog procedure gets its address by WM_INITDIALOG.
typedef struct DlgWizardInfo {
    HWND Owner;             // of each dialog; may be null
    uint32_t Reserved;      // not looked at
    HINSTANCE Instance;     // the module of the templates; not null
    const char* Templates;  // the names of the templates, one behind the other, and an empty text behind the last
    const DLGPROC* Procs;   // the dialogs' procedures, a null behind the last
    int32_t Count;          // of the pages
    uint32_t Current;       // the page that runs, from 0; written here
    int32_t Next;           // the page to run; a procedure sets it before it ends its dialog, below 0 for no other
} DlgWizardInfo;
#pragma pack(pop)

// DlgDoDlgWizard: runs one modal dialog after the other, forward or back as their procedures say by `Next`.
//   info    in/out: the record; null, and a null Templates, Procs or Instance, give 0
// Result: 1 when `Next` is below 0, at once too; 0 when a dialog ends with IDCANCEL or can't be made (-1, or an Owner
// that is no window), and for a `Next` that is no page by Count, Templates or Procs.
MORVL_API int32_t MORVL_CALL DlgDoDlgWizard(DlgWizardInfo* info);

// ---- files ------------------------------------------------------------------------------------------------------

#define CBOPEN_READ_WRITE 0x0003u     // either bit: reading and writing; neither: reading
#define CBOPEN_SHARE_NOTHING 0x0010u  // others may not open the file; goes before the next
#define CBOPEN_SHARE_READ 0x0020u     // others may read it; with neither of the two they may write it too
#define CBOPEN_SHARE_ALL 0x0040u      // changes nothing
#define CBOPEN_PARSE 0x0100u          // does nothing, and goes before all that follow
#define CBOPEN_DELETE 0x0200u
#define CBOPEN_CREATE 0x1000u
#define CBOPEN_EXIST 0x4000u

#define CBOPEN_PATH_SIZE 520

// CBOpenFile: looks for a file, and opens it; or checks only that it is there, makes it, or deletes it.
//   name    in:  the file's name. It is looked for in the platform's order (SearchPathA), but where it is to be deleted
//                or made
//   pathOut out: room for 520 bytes, or null. The path found, or that of the file to be made; untouched where nothing
//                is found, and by CBOPEN_PARSE and CBOPEN_DELETE
//   flags   in:  the bits above, of CBOPEN_DELETE, CBOPEN_CREATE and CBOPEN_EXIST one at most. Other bits give -1
// Result: the file's handle (CloseHandle); 0 when nothing was to be opened; -1 for a failure, whose reason is the last
// error: 2 for no such file, also for no name, 206 for a path of more than 519 bytes, and what CreateFileA and
// DeleteFileA tell. A made file replaces one that is there; without a pathOut its name may be of any length. Any thread
// may call.
MORVL_API int32_t MORVL_CALL CBOpenFile(const char* name, char* pathOut, uint32_t flags);

MORVL_END_C

#endif
