// Kernel services of the native host: critical sections, thread-local indexes, heaps, movable blocks, the clock, the
// user profile. Each does what the platform documents under the same name. Any thread may call.
#ifndef MORVL15_HOST_KERNEL_H
#define MORVL15_HOST_KERNEL_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

// ---- last error: one value per thread --------------------------------------------------------------------------

#define ERROR_SUCCESS 0u
#define ERROR_PATH_NOT_FOUND 3u
#define ERROR_ACCESS_DENIED 5u
#define ERROR_INVALID_HANDLE 6u
#define ERROR_NOT_ENOUGH_MEMORY 8u
#define ERROR_INVALID_PARAMETER 87u
#define ERROR_DISK_FULL 112u
#define ERROR_NOT_LOCKED 158u
#define ERROR_INVALID_WINDOW_HANDLE 1400u
#define ERROR_CANNOT_FIND_WND_CLASS 1407u
#define ERROR_CLASS_ALREADY_EXISTS 1410u

MORVL_HOST_API DWORD GetLastError(void);
MORVL_HOST_API void SetLastError(DWORD error);

// ---- critical sections: recursive locks of one process ----------------------------------------------------------

// The fields are the host's own. All zero is a section that nobody holds.
typedef struct CRITICAL_SECTION {
    int32_t state;    // 0 free, 1 held, 2 held and waited for
    int32_t depth;    // how often the owner has entered again
    uintptr_t owner;  // the owning thread, 0 for none
} CRITICAL_SECTION;

// InitializeCriticalSection, DeleteCriticalSection: make a section free. Nobody may hold it or wait for it.
MORVL_HOST_API void InitializeCriticalSection(CRITICAL_SECTION* section);
MORVL_HOST_API void DeleteCriticalSection(CRITICAL_SECTION* section);

// EnterCriticalSection: takes the section, waiting while another thread holds it. The owner may enter again.
// TryEnterCriticalSection: the same without waiting; FALSE where another thread holds it.
MORVL_HOST_API void EnterCriticalSection(CRITICAL_SECTION* section);
MORVL_HOST_API BOOL TryEnterCriticalSection(CRITICAL_SECTION* section);

// LeaveCriticalSection: takes one entry back; with the last one the section is free. Ignored from a thread that isn't
// the owner.
MORVL_HOST_API void LeaveCriticalSection(CRITICAL_SECTION* section);

// ---- thread-local indexes ---------------------------------------------------------------------------------------

#define TLS_OUT_OF_INDEXES 0xFFFFFFFFu

// TlsAlloc: takes one of the process's 64 indexes. Every thread finds it null. TLS_OUT_OF_INDEXES when all are taken.
// TlsFree: gives an index back, with all threads' values; FALSE for one that isn't taken.
MORVL_HOST_API DWORD TlsAlloc(void);
MORVL_HOST_API BOOL TlsFree(DWORD index);

// TlsGetValue, TlsSetValue: the calling thread's value of an index. Null, FALSE for an index that isn't taken.
MORVL_HOST_API LPVOID TlsGetValue(DWORD index);
MORVL_HOST_API BOOL TlsSetValue(DWORD index, LPVOID value);

// ---- the process heap -------------------------------------------------------------------------------------------

#define HEAP_ZERO_MEMORY 0x00000008u

// GetProcessHeap: the one heap there is. The calls below fail for any other handle.
MORVL_HOST_API HANDLE GetProcessHeap(void);

// HeapAlloc: a block of `size` bytes, 0 included; zeroed with HEAP_ZERO_MEMORY. Null when there is no memory.
// HeapReAlloc: the block in a new size, moved if need be; with HEAP_ZERO_MEMORY the part by which it grows is zero. On
// failure null, and the block stands as before.
MORVL_HOST_API LPVOID HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);
MORVL_HOST_API LPVOID HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size);

// HeapFree: frees a block; null is ignored. HeapSize: the size it was asked for in; all ones for null.
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

// GlobalAlloc: a block, zeroed with GMEM_ZEROINIT. The handle of a fixed block is its address; that of a movable one
// (GMEM_MOVEABLE) has to be locked to get at the bytes. Null when there is no memory.
MORVL_HOST_API HGLOBAL GlobalAlloc(UINT flags, SIZE_T size);

// GlobalReAlloc: gives a block a new size; with GMEM_ZEROINIT the part by which it grows is zero. An unlocked movable
// block may move behind its handle. A fixed or locked one moves with GMEM_MOVEABLE only; without, it can shrink and not
// grow.
// Result: the handle, for a fixed block its new address; null on failure, and the block stands as before.
MORVL_HOST_API HGLOBAL GlobalReAlloc(HGLOBAL block, SIZE_T size, UINT flags);

// GlobalFree: frees a block, locked or not. Null when it worked, which it does.
MORVL_HOST_API HGLOBAL GlobalFree(HGLOBAL block);

// GlobalLock: the address of a block's bytes, which it keeps until as many calls of GlobalUnlock.
// GlobalUnlock: whether the block is still locked; a fixed one always is. FALSE with ERROR_NOT_LOCKED for one too many.
MORVL_HOST_API LPVOID GlobalLock(HGLOBAL block);
MORVL_HOST_API BOOL GlobalUnlock(HGLOBAL block);

// GlobalSize: the size a block was asked for in, 0 for null.
MORVL_HOST_API SIZE_T GlobalSize(HGLOBAL block);

// The same blocks under their other names.
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
//
// A text file, by default morvl15/profile.ini below XDG_CONFIG_HOME (~/.config where that isn't set): "[section]"
// lines, beneath each its "key=value" lines; lines that begin with ";" are comments. Names are compared without regard
// to case. Blanks round names and values don't count, nor does one pair of quotes, of either kind, round a value. Text
// is in the ANSI code page. A file that isn't there, is a folder, can't be read or makes no sense has no keys.
//
// Each write replaces the file by a new one in one step, with its mode kept: a reader sees all of a change or nothing,
// and several writers, of one process or of many, wait for each other.

// GetProfileStringA: the value of a key as text.
//   section      in:  null for a list of all sections
//   key          in:  null for a list of all keys of the section
//   defaultText  in:  what stands for a key that isn't there, and for an empty list; its trailing blanks don't count;
//                     null is the empty text
//   buffer       out: the text, cut to size - 1 bytes; or a list of texts, each with its terminator, and one more
//                     behind the last, cut so that it ends in two terminators
// Result: bytes given, the last terminator excluded (of a list cut short: both); 0 for a null buffer or size 0.
MORVL_HOST_API DWORD GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size);

// GetProfileIntA: the value of a key as a whole number: blanks, a sign, "0x", "0o" or "0b" for another base than ten,
// and digits up to the first character that is none. No digits are 0, and only the low 32 bits are kept.
// Result: the number, a negative one as its 32 bits; the default for a key that isn't there or has an empty value.
MORVL_HOST_API UINT GetProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue);

// WriteProfileStringA: gives a key a value. The section and the key come into being where they aren't there; so do the
// file and the folders above it. Everything else in the file stays, byte for byte.
//   key     in:  null takes the whole section away
//   text    in:  null takes the key away
// Result: TRUE, also where there was nothing to take away; FALSE, and the file stands as before, where it can't be
// written or where a name or the text can't stand in one line of it. All three null bring the file onto the disk and
// give, as on the platform, FALSE.
MORVL_HOST_API BOOL WriteProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text);

MORVL_END_C

#endif
