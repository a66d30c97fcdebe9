// Weak stand-ins until the room is built; goes away before anything lands.
#include <morvl15/host_native.h>

#include <cstring>

#define INTERIM extern "C" __attribute__((weak))
INTERIM void HostSetProfilePath(const char*) {}
INTERIM DWORD GetProfileStringA(LPCSTR, LPCSTR, LPCSTR, LPSTR, DWORD) {
    return 0;
}
INTERIM BOOL WriteProfileStringA(LPCSTR, LPCSTR, LPCSTR) {
    return 0;
}
