// Kernel services of the native host: critical sections, thread-local indexes, heaps, movable blocks, the clock, the
// user profile. Each does what the platform documents under the same name.
#ifndef MORVL15_HOST_KERNEL_H
#define MORVL15_HOST_KERNEL_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

// ---- last error: one value per thread --------------------------------------------------------------------------

#define ERROR_SUCCESS 0u
#define ERROR_NOT_ENOUGH_MEMORY 8u
#define ERROR_INVALID_PARAMETER 87u

MORVL_HOST_API DWORD GetLastError(void);
MORVL_HOST_API void SetLastError(DWORD error);

// ---- critical sections: recursive locks of one process ----------------------------------------------------------

// The fields are the host's own. All zero is a section that nobody holds.
typedef struct CRITICAL_SECTION {
    int32_t state;    // 0 free, 1 held, 2 held and waited for
    int32_t depth;    // how often the owner has entered
    uintptr_t owner;  // the owning thread, 0 for none
} CRITICAL_SECTION;

MORVL_HOST_API void InitializeCriticalSection(CRITICAL_SECTION* section);
MORVL_HOST_API void DeleteCriticalSection(CRITICAL_SECTION* section);
MORVL_HOST_API void EnterCriticalSection(CRITICAL_SECTION* section);
MORVL_HOST_API BOOL TryEnterCriticalSection(CRITICAL_SECTION* section);
MORVL_HOST_API void LeaveCriticalSection(CRITICAL_SECTION* section);

// ---- thread-local indexes ---------------------------------------------------------------------------------------

#define TLS_OUT_OF_INDEXES 0xFFFFFFFFu

MORVL_HOST_API DWORD TlsAlloc(void);
MORVL_HOST_API BOOL TlsFree(DWORD index);
MORVL_HOST_API LPVOID TlsGetValue(DWORD index);
MORVL_HOST_API BOOL TlsSetValue(DWORD index, LPVOID value);

// ---- the process heap -------------------------------------------------------------------------------------------

#define HEAP_ZERO_MEMORY 0x00000008u

MORVL_HOST_API HANDLE GetProcessHeap(void);
MORVL_HOST_API LPVOID HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);
MORVL_HOST_API LPVOID HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size);
MORVL_HOST_API BOOL HeapFree(HANDLE heap, DWORD flags, LPVOID block);
MORVL_HOST_API SIZE_T HeapSize(HANDLE heap, DWORD flags, LPCVOID block);

// ---- movable blocks: a handle keeps its value while the block behind it moves ------------------------------------

#define GMEM_FIXED 0x0000u
#define GMEM_MOVEABLE 0x0002u
#define GMEM_ZEROINIT 0x0040u
#define GHND (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR (GMEM_FIXED | GMEM_ZEROINIT)
#define LMEM_FIXED GMEM_FIXED
#define LMEM_MOVEABLE GMEM_MOVEABLE
#define LMEM_ZEROINIT GMEM_ZEROINIT
#define LHND GHND
#define LPTR GPTR

MORVL_HOST_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);
MORVL_HOST_API HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags);
MORVL_HOST_API HGLOBAL GlobalFree(HGLOBAL block);  // null when it worked
MORVL_HOST_API LPVOID GlobalLock(HGLOBAL block);
MORVL_HOST_API BOOL GlobalUnlock(HGLOBAL block);
MORVL_HOST_API SIZE_T GlobalSize(HGLOBAL block);
MORVL_HOST_API HLOCAL LocalAlloc(UINT flags, SIZE_T size);
MORVL_HOST_API HLOCAL LocalReAlloc(HLOCAL block, SIZE_T size, UINT flags);
MORVL_HOST_API HLOCAL LocalFree(HLOCAL block);
MORVL_HOST_API LPVOID LocalLock(HLOCAL block);
MORVL_HOST_API BOOL LocalUnlock(HLOCAL block);
MORVL_HOST_API SIZE_T LocalSize(HLOCAL block);

// ---- the clock --------------------------------------------------------------------------------------------------

typedef struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;      // 1..12
    WORD wDayOfWeek;  // 0 Sunday .. 6 Saturday
    WORD wDay;        // 1..31
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
} SYSTEMTIME;

MORVL_HOST_API void GetSystemTime(SYSTEMTIME* time);  // universal time

// ---- the user profile -------------------------------------------------------------------------------------------

MORVL_HOST_API UINT GetProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue);
MORVL_HOST_API DWORD GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size);
MORVL_HOST_API BOOL WriteProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text);

MORVL_END_C

#endif
