// Versions and modules of the native host. Each call does what the platform documents under the same name.
//
// A module's version texts stand in a section ".morvl15.version" of its file, as pairs of zero-terminated texts: the
// table and the key, as "040904b0\ProductVersion", then the value. The CMake function morvl15_version_texts puts them
// there.
#ifndef MORVL15_HOST_VERSION_H
#define MORVL15_HOST_VERSION_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

#define ERROR_INSUFFICIENT_BUFFER 122u
#define ERROR_RESOURCE_DATA_NOT_FOUND 1812u
#define ERROR_RESOURCE_TYPE_NOT_FOUND 1813u

#define VER_PLATFORM_WIN32_WINDOWS 1u
#define VER_PLATFORM_WIN32_NT 2u

typedef struct OSVERSIONINFOA {
    DWORD dwOSVersionInfoSize;  // in: the size of the record
    DWORD dwMajorVersion;       // the version numbers are those of the system's kernel
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;  // VER_PLATFORM_WIN32_NT
    char szCSDVersion[128];
} OSVERSIONINFOA;

MORVL_HOST_API BOOL GetVersionExA(OSVERSIONINFOA* version);

// The file of a module, with its full path; null is the program. A path that is too long is cut.
MORVL_HOST_API DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size);

MORVL_HOST_API DWORD GetFileVersionInfoSizeA(LPCSTR path, DWORD* handle);
MORVL_HOST_API BOOL GetFileVersionInfoA(LPCSTR path, DWORD handle, DWORD size, LPVOID record);
// Finds the texts, "\StringFileInfo\<table>\<key>", and nothing else. The length counts the terminator.
MORVL_HOST_API BOOL VerQueryValueA(LPCVOID record, LPCSTR path, LPVOID* value, UINT* length);

MORVL_END_C

#endif
