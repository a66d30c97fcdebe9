// The version of the system: the kernel's numbers, under the platform's id.
#include <sys/utsname.h>

#include <atomic>
#include <cstdio>

#include <morvl15/host_native.h>

namespace {

std::atomic<DWORD> platformId{VER_PLATFORM_WIN32_NT};

}  // namespace

BOOL GetVersionExA(OSVERSIONINFOA* version) {
    if (version->dwOSVersionInfoSize != sizeof *version) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    utsname system = {};
    unsigned numbers[3] = {};
    if (uname(&system) == 0) std::sscanf(system.release, "%u.%u.%u", &numbers[0], &numbers[1], &numbers[2]);
    *version = OSVERSIONINFOA{sizeof *version, numbers[0], numbers[1], numbers[2], platformId.load(), {}};
    return TRUE;
}

void HostSetPlatformId(DWORD id) {
    platformId.store(id != 0 ? id : VER_PLATFORM_WIN32_NT);
}
