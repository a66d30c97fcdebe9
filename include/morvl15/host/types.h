// The platform's type names, as the native host defines them. Sizes are those of the platform, but for pointers,
// handles and message parameters, which are as wide as a pointer.
#ifndef MORVL15_HOST_TYPES_H
#define MORVL15_HOST_TYPES_H

#include <morvl15/base.h>

#define MORVL_HOST_API __attribute__((visibility("default")))

#define WINAPI
#define CALLBACK

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

typedef int32_t BOOL;
typedef uint8_t BYTE;
typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef int32_t LONG;
typedef uint32_t UINT;
typedef int32_t INT;
typedef size_t SIZE_T;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef void* LPVOID;
typedef const void* LPCVOID;

typedef uintptr_t WPARAM;
typedef intptr_t LPARAM;
typedef intptr_t LRESULT;

typedef WORD LANGID;
typedef DWORD LCID;

typedef void* HANDLE;
typedef void* HGLOBAL;
typedef void* HLOCAL;
typedef struct HostModule* HINSTANCE;  // the module record of host_native.h; null is the program itself
typedef HINSTANCE HMODULE;
typedef struct HostWindow* HWND;
typedef struct HostMenu* HMENU;

typedef struct HostContext* HDC;
typedef void* HGDIOBJ;
typedef struct HostPen* HPEN;
typedef struct HostBrush* HBRUSH;
typedef struct HostFont* HFONT;
typedef struct HostBitmap* HBITMAP;

typedef struct POINT {
    LONG x;
    LONG y;
} POINT;

typedef struct SIZE {
    LONG cx;
    LONG cy;
} SIZE;

typedef struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT;

#endif
