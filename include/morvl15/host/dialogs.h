// Where windows stand and how they are ordered, dialogs from templates, message boxes, system menus, cursors. Each call
// does what the platform documents under the same name.
//
// The screen has 1024 by 768 pixels. Windows have no borders and no title bars: the client area is the whole window.
// Nobody sees them; HostSetPerson (host_native.h) gives dialogs and message boxes somebody who answers. Without one a
// dialog is cancelled and a message box is written to standard error, so that nothing ever waits for ever.
#ifndef MORVL15_HOST_DIALOGS_H
#define MORVL15_HOST_DIALOGS_H

#include <morvl15/host/types.h>
#include <morvl15/host/user.h>

MORVL_BEGIN_C

#define ERROR_TIMEOUT 1460u
#define ERROR_RESOURCE_NAME_NOT_FOUND 1814u

// ---- places and order -------------------------------------------------------------------------------------------

#define WS_CLIPSIBLINGS 0x04000000u
#define WS_BORDER 0x00800000u
#define WS_DLGFRAME 0x00400000u
#define WS_CAPTION 0x00C00000u
#define WS_VSCROLL 0x00200000u
#define WS_HSCROLL 0x00100000u
#define WS_SYSMENU 0x00080000u
#define WS_ICONIC 0x20000000u
#define WS_MINIMIZE WS_ICONIC
#define WS_GROUP 0x00020000u
#define WS_TABSTOP 0x00010000u

#define GWL_WNDPROC GWLP_WNDPROC
#define GWL_HINSTANCE GWLP_HINSTANCE
#define GWL_ID GWLP_ID
#define GWL_USERDATA GWLP_USERDATA

MORVL_HOST_API LONG GetWindowLongA(HWND window, INT index);  // the low 32 bits; pointers: GetWindowLongPtrA
MORVL_HOST_API LONG SetWindowLongA(HWND window, INT index, LONG value);

#define SW_HIDE 0
#define SW_SHOW 5
#define SW_MINIMIZE 6
#define SW_RESTORE 9

MORVL_HOST_API BOOL ShowWindow(HWND window, INT how);  // whether it was visible
MORVL_HOST_API BOOL IsWindowVisible(HWND window);      // with all its parents
MORVL_HOST_API BOOL IsIconic(HWND window);
MORVL_HOST_API BOOL UpdateWindow(HWND window);

// A disabled window and the children in it take no input. EnableWindow answers whether the window was disabled before.
MORVL_HOST_API BOOL EnableWindow(HWND window, BOOL enable);
MORVL_HOST_API BOOL IsWindowEnabled(HWND window);

MORVL_HOST_API BOOL MoveWindow(HWND window, INT x, INT y, INT width, INT height, BOOL repaint);
MORVL_HOST_API BOOL GetWindowRect(HWND window, RECT* rect);  // on the screen
MORVL_HOST_API BOOL GetClientRect(HWND window, RECT* rect);  // from (0, 0)
MORVL_HOST_API BOOL ScreenToClient(HWND window, POINT* point);
MORVL_HOST_API BOOL ClientToScreen(HWND window, POINT* point);

#define GW_HWNDFIRST 0u
#define GW_HWNDLAST 1u
#define GW_HWNDNEXT 2u
#define GW_HWNDPREV 3u
#define GW_OWNER 4u
#define GW_CHILD 5u

// Top-level windows stand with the one that was made, or had the focus, last in front; children in the order of their
// making. GetParent (user.h) of a pop-up window is its owner.
MORVL_HOST_API HWND GetDesktopWindow(void);
MORVL_HOST_API HWND GetWindow(HWND window, UINT relation);
MORVL_HOST_API HWND FindWindowA(LPCSTR className, LPCSTR text);  // the frontmost top-level window; null for any
MORVL_HOST_API BOOL IsChild(HWND parent, HWND window);
MORVL_HOST_API DWORD GetWindowThreadProcessId(HWND window, DWORD* process);  // the thread's id, 0 for no window
MORVL_HOST_API DWORD GetCurrentThreadId(void);
MORVL_HOST_API DWORD GetCurrentProcessId(void);

// ---- more messages ----------------------------------------------------------------------------------------------

#define WM_MOVE 0x0003u
#define WM_SIZE 0x0005u
#define WM_ENABLE 0x000Au
#define WM_SETREDRAW 0x000Bu
#define WM_CLOSE 0x0010u
#define WM_SHOWWINDOW 0x0018u
#define WM_WININICHANGE 0x001Au
#define WM_SETTINGCHANGE WM_WININICHANGE
#define WM_SETFONT 0x0030u  // a window keeps the font that it is given
#define WM_GETFONT 0x0031u
#define WM_GETDLGCODE 0x0087u
#define WM_INITDIALOG 0x0110u
#define WM_SYSCOMMAND 0x0112u
#define WM_INITMENU 0x0116u
#define WM_LBUTTONDOWN 0x0201u
#define WM_LBUTTONUP 0x0202u
#define WM_LBUTTONDBLCLK 0x0203u

#define VK_RETURN 13
#define VK_ESCAPE 27
#define VK_SPACE 32
#define VK_PRIOR 33
#define VK_NEXT 34
#define VK_UP 38
#define VK_DOWN 40

#define HWND_BROADCAST ((HWND)(uintptr_t)0xFFFF)

#define SMTO_NORMAL 0x0000u
#define SMTO_BLOCK 0x0001u
#define SMTO_ABORTIFHUNG 0x0002u

typedef uintptr_t DWORD_PTR;

// Sends a message and waits no longer than `milliseconds` for the answer of another thread. HWND_BROADCAST stands for
// all top-level windows, each with its own wait. FALSE with ERROR_TIMEOUT when one window doesn't answer in time.
MORVL_HOST_API LRESULT SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags,
                                           UINT milliseconds, DWORD_PTR* result);

// ---- dialogs ----------------------------------------------------------------------------------------------------

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7

#define DS_SETFONT 0x0040u
#define DS_MODALFRAME 0x0080u

#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC ((INT)sizeof(LRESULT))
#define DWLP_USER ((INT)(sizeof(LRESULT) + sizeof(DLGPROC)))
#define DLGWINDOWEXTRA ((INT)(sizeof(LRESULT) + sizeof(DLGPROC) + sizeof(LONG_PTR)))

#define DM_GETDEFID 0x0400u
#define DM_SETDEFID 0x0401u
#define DC_HASDEFID 0x534B
#define WM_NEXTDLGCTL 0x0028u

#define DLGC_WANTARROWS 0x0001
#define DLGC_WANTTAB 0x0002
#define DLGC_WANTALLKEYS 0x0004
#define DLGC_HASSETSEL 0x0008
#define DLGC_DEFPUSHBUTTON 0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON 0x0040
#define DLGC_WANTCHARS 0x0080
#define DLGC_STATIC 0x0100
#define DLGC_BUTTON 0x2000

typedef intptr_t INT_PTR;
typedef INT_PTR(CALLBACK* DLGPROC)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Templates are those of a module (HostDialog, host_native.h), found by name without regard to case; a null instance is
// the program's own. A dialog unit is a quarter of 6 pixels across and an eighth of 13 down for a font of 8 points, and
// larger or smaller with the font. A template's place counts from the owner's, or from the screen's corner.
//
// DialogBoxParamA disables the owner's window, takes and dispatches all messages of the thread until the procedure
// calls EndDialog, and answers what it was ended with; -1 where there is no such template, 0 for an owner that is no
// window.
MORVL_HOST_API INT_PTR DialogBoxParamA(HINSTANCE instance, LPCSTR templateName, HWND owner, DLGPROC procedure,
                                       LPARAM param);
MORVL_HOST_API HWND CreateDialogParamA(HINSTANCE instance, LPCSTR templateName, HWND owner, DLGPROC procedure,
                                       LPARAM param);
MORVL_HOST_API BOOL EndDialog(HWND dialog, INT_PTR result);
MORVL_HOST_API LRESULT DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// Handles a message as a dialog does: Tab moves the focus, Return presses the default button or the one that has the
// focus, Escape is IDCANCEL, arrows move within a group. TRUE for every message of the dialog and its controls.
MORVL_HOST_API BOOL IsDialogMessageA(HWND dialog, MSG* message);

MORVL_HOST_API HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
MORVL_HOST_API HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
MORVL_HOST_API UINT GetDlgItemTextA(HWND dialog, INT id, LPSTR buffer, INT size);
MORVL_HOST_API BOOL SetDlgItemTextA(HWND dialog, INT id, LPCSTR text);
MORVL_HOST_API LRESULT SendDlgItemMessageA(HWND dialog, INT id, UINT message, WPARAM wParam, LPARAM lParam);

// ---- message boxes ----------------------------------------------------------------------------------------------

#define MB_OK 0x0000u
#define MB_OKCANCEL 0x0001u
#define MB_ABORTRETRYIGNORE 0x0002u
#define MB_YESNOCANCEL 0x0003u
#define MB_YESNO 0x0004u
#define MB_RETRYCANCEL 0x0005u
#define MB_ICONHAND 0x0010u
#define MB_ICONQUESTION 0x0020u
#define MB_ICONEXCLAMATION 0x0030u
#define MB_ICONASTERISK 0x0040u
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_TYPEMASK 0x000Fu
#define MB_ICONMASK 0x00F0u

// With nobody to answer, the result is the id of the box's cautious button: Cancel where there is one, No, Abort, or
// the only one, OK. 0 for an owner that is no window.
MORVL_HOST_API INT MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style);

// ---- system menus: those of windows with WS_SYSMENU -------------------------------------------------------------

#define SC_SIZE 0xF000u
#define SC_MOVE 0xF010u
#define SC_MINIMIZE 0xF020u
#define SC_MAXIMIZE 0xF030u
#define SC_CLOSE 0xF060u
#define SC_RESTORE 0xF120u

#define MF_BYCOMMAND 0x0000u
#define MF_ENABLED 0x0000u
#define MF_GRAYED 0x0001u
#define MF_DISABLED 0x0002u

MORVL_HOST_API HMENU GetSystemMenu(HWND window, BOOL revert);
MORVL_HOST_API BOOL EnableMenuItem(HMENU menu, UINT item, UINT state);  // the state before, -1 for no such item
MORVL_HOST_API UINT GetMenuState(HMENU menu, UINT item, UINT flags);    // all ones for no such item

// ---- cursors: a thread's shape of the pointer -------------------------------------------------------------------

typedef struct HostCursor* HCURSOR;

#define MAKEINTRESOURCEA(id) ((LPSTR)(uintptr_t)(WORD)(id))
#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDC_IBEAM MAKEINTRESOURCEA(32513)
#define IDC_WAIT MAKEINTRESOURCEA(32514)

MORVL_HOST_API HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);  // the system's own: a null instance, IDC_...
MORVL_HOST_API HCURSOR SetCursor(HCURSOR cursor);                     // the cursor before
MORVL_HOST_API HCURSOR GetCursor(void);

MORVL_END_C

#endif
