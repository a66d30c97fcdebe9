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

// A module as the loader of the platform would know it: a library or a program. The record and everything it points
// to belong to the module and live as long as it is attached.
typedef struct HostModule {
    const char* name;                                                  // file name, for messages
    BOOL (*entry)(HINSTANCE instance, DWORD reason, LPVOID reserved);  // the notification routine, or null
    const HostString* strings;                                         // the string table
    size_t stringCount;
    struct HostModule* next;  // the host's own
} HostModule;

// Notifies the module of process attach (reason 1) at once, of thread detach (3) at the end of each thread that has
// used a thread-local index, and of process detach (0) from HostDetachModule. Attaching a module that is attached, or
// detaching one that isn't, does nothing.
MORVL_HOST_API void HostAttachModule(HostModule* module);
MORVL_HOST_API void HostDetachModule(HostModule* module);

// Gives the program itself (instance null) a string table of its own. Null takes it away.
MORVL_HOST_API void HostSetProgramStrings(const HostString* strings, size_t count);

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

MORVL_END_C

#endif
