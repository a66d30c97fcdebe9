// Files of the native host. Each call does what the platform documents under the same name.
//
// The name of a file is the bytes that it has in the file system, whatever the code page: names that come from the
// environment, the command line or a folder serve as they are, and a name in the code page gives a file of these bytes.
// Folders are parted by "/".
#ifndef MORVL15_HOST_FILES_H
#define MORVL15_HOST_FILES_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

#define ERROR_SHARING_VIOLATION 32u
#define ERROR_HANDLE_EOF 38u
#define ERROR_NOT_SUPPORTED 50u
#define ERROR_FILE_EXISTS 80u
#define ERROR_NEGATIVE_SEEK 131u

#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 0x00000001u
#define FILE_SHARE_WRITE 0x00000002u
#define FILE_SHARE_DELETE 0x00000004u
#define CREATE_NEW 1u
#define CREATE_ALWAYS 2u
#define OPEN_EXISTING 3u
#define OPEN_ALWAYS 4u
#define TRUNCATE_EXISTING 5u
#define FILE_ATTRIBUTE_NORMAL 0x00000080u
#define INVALID_FILE_SIZE 0xFFFFFFFFu
#define INVALID_SET_FILE_POINTER 0xFFFFFFFFu
#define FILE_BEGIN 0u
#define FILE_CURRENT 1u
#define FILE_END 2u

struct SECURITY_ATTRIBUTES;
struct OVERLAPPED;  // there is no overlapped input and output: always null

// CreateFileA: opens a file, or makes one.
//   access      in:  GENERIC_READ, GENERIC_WRITE, both, or 0 for a handle that neither reads nor writes
//   share       in:  what other openers may do meanwhile: FILE_SHARE_READ, FILE_SHARE_WRITE, FILE_SHARE_DELETE
//   disposition in:  CREATE_NEW (the file mustn't be there), CREATE_ALWAYS (it is emptied if it is), OPEN_EXISTING,
//                    OPEN_ALWAYS (it is made if it isn't there), TRUNCATE_EXISTING
//   others      in:  the other arguments aren't looked at
// Result: a handle; INVALID_HANDLE_VALUE with the reason as last error: 2 no such file, 3 no such folder, 5 not
// allowed, or a folder, 32 another opener's sharing forbids it or has it open in a way that `share` forbids, 80 there
// already. After a success of CREATE_ALWAYS and OPEN_ALWAYS the last error is 183 if the file was there.
//
// Sharing holds between all openers that open by this call, in all processes of the machine, and ends with the opener,
// a killed one included. A program that opens the file in another way isn't bound by it and doesn't bind. Nor does it
// hold where the file system knows no locks, or in a network file system whose server is reached by other machines;
// such files open all the same. A file that may be written but not read can't be opened for writing.
MORVL_HOST_API HANDLE CreateFileA(LPCSTR name, DWORD access, DWORD share, struct SECURITY_ATTRIBUTES* security,
                                  DWORD disposition, DWORD attributes, HANDLE templateFile);

MORVL_HOST_API BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD bytes, DWORD* bytesRead, struct OVERLAPPED* overlapped);
MORVL_HOST_API BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD bytes, DWORD* bytesWritten,
                              struct OVERLAPPED* overlapped);
MORVL_HOST_API DWORD SetFilePointer(HANDLE file, LONG distance, LONG* distanceHigh, DWORD from);
MORVL_HOST_API DWORD GetFileSize(HANDLE file, DWORD* sizeHigh);

// DeleteFileA: takes a file away. FALSE with the reason as last error: 2, 3, 5 as above, a folder among them; 32 while
// an opener has it that doesn't share its deletion.
MORVL_HOST_API BOOL DeleteFileA(LPCSTR name);

// SearchPathA: finds a file.
//   path      in:  folders to look in, parted by ":"; null for the program's own folder, the current one, and those of
//                  PATH, in turn. A name that is absolute, or begins with "./" or "../", has its one place
//   name      in:  the file's name, or one with folders before it
//   extension in:  what is appended to a name without a "."; null for nothing
//   buffer    out: the path found, absolute, in `size` bytes
//   filePart  out: where the last name in the buffer begins; may be null
// Result: the path's length; the bytes that it needs, terminator included, where the buffer is too small, which stays
// as it was; 0 with the reason as last error: 2 not found, 87 no name. Folders are found too.
MORVL_HOST_API DWORD SearchPathA(LPCSTR path, LPCSTR name, LPCSTR extension, DWORD size, LPSTR buffer, LPSTR* filePart);

// _fullpath: makes a path absolute, from the current folder, and takes ".", ".." and doubled "/" out of it; ".." stays
// behind a symbolic link. The file need not be there. Null or empty is the current folder.
//   buffer  out: room for `size` bytes
// Result: the buffer; null where the path doesn't fit.
MORVL_HOST_API char* _fullpath(char* buffer, const char* path, size_t size);

// _stricmp: compares bytes without regard to the case of the 26 Latin letters. Below 0, 0, above 0.
MORVL_HOST_API int _stricmp(const char* first, const char* second);

MORVL_END_C

#endif
