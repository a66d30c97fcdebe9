// The library frame: the global lock that the library shares with the application above it, thread slots, version
// texts.
#ifndef MORVL15_FRAME_H
#define MORVL15_FRAME_H

#include <morvl15/base.h>
#include <morvl15/host.h>

MORVL_BEGIN_C

// ---- the global lock --------------------------------------------------------------------------------------------

// The class of the global lock: a recursive lock with a count of the levels that its owner has taken. The counted
// protocol, which the library keeps and the application may: to take the lock, enter `section`, then add 1 to
// `lockCount`; to give it up, subtract 1 from `lockCount`, then leave `section`.
typedef struct CRSect {
    CRITICAL_SECTION section;  // the lock itself
    int32_t lockCount;  // levels taken by the counted protocol; 0 when nobody holds it; only the owner touches it
} CRSect;

MORVL_DATA CRSect gCRMainSect;    // the library's one lock
MORVL_DATA CRSect* gpCRSECTMain;  // its address; null would mean that there is no lock to take

// CR_LockCount: how many levels of a lock the calling thread holds. A thread that holds none waits until the lock is
// free, and gets 0.
//   lock    in:  a valid lock
// Result: the count, 0 or more.
MORVL_API int32_t MORVL_CALL CR_LockCount(CRSect* lock);

// CR_Unwind: gives up every level that the calling thread holds, so that it may wait for something else without
// holding the lock. Others may run under the lock in between.
//   lock    in:  a lock; null and all ones (no lock) are touched in no way
// Result: the number of levels given up, for CR_Rewind; 0 for null and all ones.
MORVL_API int32_t MORVL_CALL CR_Unwind(CRSect* lock);

// CR_Rewind: takes back what CR_Unwind gave up; waits until the lock is free.
//   lock    in:  a valid lock
//   count   in:  levels to take, as CR_Unwind returned it; 0 or less does nothing
MORVL_API void MORVL_CALL CR_Rewind(CRSect* lock, int32_t count);

// ---- thread slots -----------------------------------------------------------------------------------------------
//
// Up to 100 process-wide slot numbers, and in every thread a value with an optional clean-up routine for each. The
// library frees a thread's slots when the thread ends; those of the thread that ends the process are not served. Each
// thread sees its own values only.

// A clean-up routine: gets the slot's value. It must not use the slots of its own thread.
typedef void(MORVL_CALL* TLSCleanup)(uintptr_t value);

// TLS_AllocIndex: hands out a new slot number. Numbers are never given back.
// Result: 0 to 99, or -1 when 100 have been given out.
MORVL_API int32_t MORVL_CALL TLS_AllocIndex(void);

// TLS_GetItem: the calling thread's value of a slot.
//   slot    in:  a number from TLS_AllocIndex
// Result: the value; 0 where the thread has set none and for a number outside 0 to 99.
MORVL_API uintptr_t MORVL_CALL TLS_GetItem(int32_t slot);

// TLS_SetItem: stores the calling thread's value of a slot. A clean-up routine stored before is first called with the
// old value, unless that is 0; also when the same value is stored again.
//   slot    in:  a number from TLS_AllocIndex
//   value   in:  0 for empty
//   cleanup in:  called when the value is replaced or the thread's slots are freed, unless the value is 0; may be null
// Result: the value stored; 0, and nothing is stored or called, for a number outside 0 to 99 and when there is no
// memory.
MORVL_API uintptr_t MORVL_CALL TLS_SetItem(int32_t slot, uintptr_t value, TLSCleanup cleanup);

// TLS_FreeAll: calls the clean-up routines of the calling thread's slots, from slot 0 upward, each with its value, and
// frees the slots. It runs by itself at the end of a thread. The thread may use slots again and finds them empty.
MORVL_API void MORVL_CALL TLS_FreeAll(void);

// ---- version texts ----------------------------------------------------------------------------------------------
//
// Two texts out of the version data of a module: on Windows its version resource, elsewhere the section that
// morvl15_version_texts (cmake/VersionTexts.cmake) puts into a module on either host. Both look under US English with
// the Unicode code page (040904b0) first, then with the Latin code page of Windows (040904E4). Thread-safe.
//   module  in:  a module that is loaded; null is the program itself
//   text    out: room for the longest text and its terminator; untouched on failure
// Result: 1; 0 when the module has no such text, when there is no memory, and for a null `text`.

// VERGetVersionString: the version of the product that the module belongs to ("ProductVersion").
MORVL_API int32_t MORVL_CALL VERGetVersionString(HMODULE module, char* text);

// VERGetBuildString: the version of the module's file ("FileVersion").
MORVL_API int32_t MORVL_CALL VERGetBuildString(HMODULE module, char* text);

MORVL_END_C

#endif
