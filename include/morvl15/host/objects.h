// Kernel objects of the native host: handles, mutexes and shared memory under names, security descriptors. Each call
// does what the platform documents under the same name.
//
// Names are the machine's: every process that uses a name means the same object, whoever runs it, and an object goes
// with its last user, a killed one included. Where the environment variable MORVL15_SESSION is set, the names are
// those of the session that it names instead, so that separate groups of processes can use the same names side by
// side. Objects are kept as files in /dev/shm.
#ifndef MORVL15_HOST_OBJECTS_H
#define MORVL15_HOST_OBJECTS_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

#define ERROR_FILE_NOT_FOUND 2u
#define ERROR_TOO_MANY_OPEN_FILES 4u
#define ERROR_ACCESS_DENIED 5u
#define ERROR_INVALID_HANDLE 6u
#define ERROR_ALREADY_EXISTS 183u
#define ERROR_FILENAME_EXCED_RANGE 206u
#define ERROR_NOT_OWNER 288u
#define ERROR_INVALID_ADDRESS 487u
#define ERROR_UNKNOWN_REVISION 1305u
#define ERROR_INVALID_SECURITY_DESCR 1338u

#define INVALID_HANDLE_VALUE ((HANDLE)(intptr_t)-1)

// Closes a handle. The object lives on while another handle or a view refers to it.
MORVL_HOST_API BOOL CloseHandle(HANDLE handle);

// ---- security: who may use an object ----------------------------------------------------------------------------
//
// The host knows two answers: everybody, said by a descriptor with a null access list, and the user who creates the
// object, said by anything else.

#define SECURITY_DESCRIPTOR_REVISION 1u

typedef struct ACL ACL;  // lists with entries can't be built here
typedef ACL* PACL;

typedef struct SECURITY_DESCRIPTOR {
    BYTE Revision;
    BYTE Sbz1;
    WORD Control;
    LPVOID Owner;
    LPVOID Group;
    PACL Sacl;
    PACL Dacl;
} SECURITY_DESCRIPTOR;
typedef void* PSECURITY_DESCRIPTOR;
#define SECURITY_DESCRIPTOR_MIN_LENGTH (sizeof(SECURITY_DESCRIPTOR))

typedef struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;  // handles stay in the process, and in what it forks, whatever is asked for
} SECURITY_ATTRIBUTES;
typedef SECURITY_ATTRIBUTES* LPSECURITY_ATTRIBUTES;

MORVL_HOST_API BOOL InitializeSecurityDescriptor(PSECURITY_DESCRIPTOR descriptor, DWORD revision);
MORVL_HOST_API BOOL SetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR descriptor, BOOL present, PACL list, BOOL defaulted);

// ---- mutexes: recursive for their owning thread; an owner that dies hands its mutex over ----------------------------

#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0u
#define WAIT_ABANDONED 0x80u  // the mutex is owned, and its owner before died with it
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xFFFFFFFFu

#define SYNCHRONIZE 0x00100000u
#define MUTEX_ALL_ACCESS 0x001F0001u

MORVL_HOST_API HANDLE CreateMutexA(LPSECURITY_ATTRIBUTES security, BOOL initialOwner, LPCSTR name);
MORVL_HOST_API HANDLE OpenMutexA(DWORD access, BOOL inherit, LPCSTR name);
MORVL_HOST_API BOOL ReleaseMutex(HANDLE mutex);
MORVL_HOST_API DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);

// ---- mappings: shared memory, zero when it is made; there are no mappings of files ----------------------------------

#define PAGE_READWRITE 0x04u
#define FILE_MAP_WRITE 0x0002u
#define FILE_MAP_READ 0x0004u
#define FILE_MAP_ALL_ACCESS 0x000F001Fu

MORVL_HOST_API HANDLE CreateFileMappingA(HANDLE file, LPSECURITY_ATTRIBUTES security, DWORD protection, DWORD sizeHigh,
                                         DWORD sizeLow, LPCSTR name);
MORVL_HOST_API HANDLE OpenFileMappingA(DWORD access, BOOL inherit, LPCSTR name);
// A view at an address is never laid over anything that is mapped there already.
MORVL_HOST_API LPVOID MapViewOfFileEx(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow, SIZE_T bytes,
                                      LPVOID address);
MORVL_HOST_API BOOL UnmapViewOfFile(LPCVOID address);

MORVL_END_C

#endif
