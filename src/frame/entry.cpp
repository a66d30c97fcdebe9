// Start and end of the library: what runs when the host attaches it to a process and when a thread goes away. The
// global lock is there before: static construction makes it (lock.cpp).
#include "entry.h"

#include <morvl15/frame.h>
#include <morvl15/intl.h>

#include "../datetime/calendar.h"
#include "instance.h"

namespace {

constexpr DWORD kProcessAttach = 1;
constexpr DWORD kThreadDetach = 3;

void AttachProcess(HINSTANCE instance) {
    if (gLibInstance != nullptr) return;
    gLibInstance = instance;
    IntlInit();
    FMTLoadNames();  // when it fails, it is tried again where names are needed
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
    if (reason == kProcessAttach) AttachProcess(instance);
    if (reason == kThreadDetach) TLS_FreeAll();
    return TRUE;
}
