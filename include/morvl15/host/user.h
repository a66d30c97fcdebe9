// Resources, windows and controls of the native host. Windows live in the process and need no display: a tree of
// windows with classes and procedures, a message queue a thread, and the standard controls as far as the library and
// its callers use them.
#ifndef MORVL15_HOST_USER_H
#define MORVL15_HOST_USER_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

// Copies a string of a module's string table, cut to size - 1 bytes. The result is its length, 0 if there is none.
MORVL_HOST_API INT LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, INT size);

// ---- window classes ---------------------------------------------------------------------------------------------

typedef LRESULT(CALLBACK* WNDPROC)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

typedef struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    INT cbClsExtra;
    INT cbWndExtra;  // bytes for SetWindowLongPtrA at indexes from 0
    HINSTANCE hInstance;
    HANDLE hIcon;
    HANDLE hCursor;
    HANDLE hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;  // compared without regard to case
} WNDCLASSA;

MORVL_HOST_API WORD RegisterClassA(const WNDCLASSA* windowClass);
MORVL_HOST_API BOOL UnregisterClassA(LPCSTR name, HINSTANCE instance);
MORVL_HOST_API INT GetClassNameA(HWND window, LPSTR buffer, INT size);

// ---- windows ----------------------------------------------------------------------------------------------------

#define WS_CHILD 0x40000000u
#define WS_VISIBLE 0x10000000u
#define WS_DISABLED 0x08000000u
#define WS_OVERLAPPED 0x00000000u
#define WS_POPUP 0x80000000u

#define CW_USEDEFAULT ((INT)0x80000000)

#define GWLP_WNDPROC (-4)
#define GWLP_HINSTANCE (-6)
#define GWLP_ID (-12)
#define GWL_STYLE (-16)
#define GWLP_USERDATA (-21)

typedef intptr_t LONG_PTR;

typedef struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    INT cy;
    INT cx;
    INT y;
    INT x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
} CREATESTRUCTA;

// For a child window the menu argument is its id. The parent of any other window is its owner, with which it goes.
MORVL_HOST_API HWND CreateWindowExA(DWORD extendedStyle, LPCSTR className, LPCSTR text, DWORD style, INT x, INT y,
                                    INT width, INT height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID param);
MORVL_HOST_API BOOL DestroyWindow(HWND window);  // only by the thread that made it
MORVL_HOST_API BOOL IsWindow(HWND window);
MORVL_HOST_API HWND GetParent(HWND window);
MORVL_HOST_API HWND GetDlgItem(HWND parent, INT id);
MORVL_HOST_API INT GetDlgCtrlID(HWND window);
MORVL_HOST_API LONG_PTR GetWindowLongPtrA(HWND window, INT index);
MORVL_HOST_API LONG_PTR SetWindowLongPtrA(HWND window, INT index, LONG_PTR value);  // the old value
MORVL_HOST_API INT GetWindowTextLengthA(HWND window);
MORVL_HOST_API INT GetWindowTextA(HWND window, LPSTR buffer, INT size);
MORVL_HOST_API BOOL SetWindowTextA(HWND window, LPCSTR text);
MORVL_HOST_API BOOL SetPropA(HWND window, LPCSTR name, HANDLE value);
MORVL_HOST_API HANDLE GetPropA(HWND window, LPCSTR name);
MORVL_HOST_API HANDLE RemovePropA(HWND window, LPCSTR name);

// ---- messages ---------------------------------------------------------------------------------------------------

#define WM_NULL 0x0000u
#define WM_CREATE 0x0001u
#define WM_DESTROY 0x0002u
#define WM_SETFOCUS 0x0007u
#define WM_KILLFOCUS 0x0008u
#define WM_SETTEXT 0x000Cu
#define WM_GETTEXT 0x000Du
#define WM_GETTEXTLENGTH 0x000Eu
#define WM_QUIT 0x0012u
#define WM_NCCREATE 0x0081u
#define WM_NCDESTROY 0x0082u
#define WM_KEYDOWN 0x0100u
#define WM_KEYUP 0x0101u
#define WM_CHAR 0x0102u
#define WM_COMMAND 0x0111u
#define WM_CUT 0x0300u
#define WM_COPY 0x0301u
#define WM_PASTE 0x0302u
#define WM_CLEAR 0x0303u
#define WM_USER 0x0400u

typedef struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
} MSG;

#define PM_NOREMOVE 0x0000u
#define PM_REMOVE 0x0001u

#define LOWORD(value) ((WORD)((uintptr_t)(value)&0xFFFF))
#define HIWORD(value) ((WORD)(((uintptr_t)(value) >> 16) & 0xFFFF))
#define MAKEWPARAM(low, high) ((WPARAM)(DWORD)((WORD)(low) | ((DWORD)(WORD)(high) << 16)))
#define MAKELPARAM(low, high) ((LPARAM)(DWORD)((WORD)(low) | ((DWORD)(WORD)(high) << 16)))

// To a window of another thread, a message waits until that thread looks for messages; while it waits, the sender's
// thread answers messages that are sent to its own windows.
MORVL_HOST_API LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
MORVL_HOST_API BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
MORVL_HOST_API void PostQuitMessage(INT exitCode);
MORVL_HOST_API BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
MORVL_HOST_API BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);  // FALSE for WM_QUIT
MORVL_HOST_API BOOL TranslateMessage(const MSG* message);
MORVL_HOST_API LRESULT DispatchMessageA(const MSG* message);
MORVL_HOST_API LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
MORVL_HOST_API LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// ---- keyboard, sound, clipboard ---------------------------------------------------------------------------------

#define VK_BACK 8
#define VK_TAB 9
#define VK_SHIFT 16
#define VK_CONTROL 17
#define VK_END 35
#define VK_HOME 36
#define VK_LEFT 37
#define VK_RIGHT 39
#define VK_DELETE 46

MORVL_HOST_API int16_t GetKeyState(INT key);         // negative while the key is down
MORVL_HOST_API BOOL SetKeyboardState(BYTE* states);  // 256 bytes, 0x80 for down; for the calling thread
MORVL_HOST_API BOOL GetKeyboardState(BYTE* states);
MORVL_HOST_API HWND SetFocus(HWND window);
MORVL_HOST_API HWND GetFocus(void);
MORVL_HOST_API BOOL MessageBeep(UINT type);

#define CF_TEXT 1u

MORVL_HOST_API BOOL OpenClipboard(HWND owner);
MORVL_HOST_API BOOL CloseClipboard(void);
MORVL_HOST_API BOOL EmptyClipboard(void);
MORVL_HOST_API HANDLE SetClipboardData(UINT format, HANDLE block);  // takes the movable block over
MORVL_HOST_API HANDLE GetClipboardData(UINT format);                // the clipboard's own block

// ---- edit controls: class "EDIT", one line -----------------------------------------------------------------------

#define EM_GETSEL 0x00B0u
#define EM_SETSEL 0x00B1u
#define EM_GETMODIFY 0x00B8u
#define EM_SETMODIFY 0x00B9u
#define EM_REPLACESEL 0x00C2u
#define EM_LIMITTEXT 0x00C5u
#define EM_SETREADONLY 0x00CFu
#define EM_GETLIMITTEXT 0x00D5u

#define ES_AUTOHSCROLL 0x0080u  // without it the platform takes no more text than it has width for; here it always does
#define ES_READONLY 0x0800u

#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE 0x0300
#define EN_UPDATE 0x0400
#define EN_MAXTEXT 0x0501

MORVL_END_C

#endif
