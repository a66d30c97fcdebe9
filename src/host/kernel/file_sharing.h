// What the openers of a file let each other do.
//
// An opener notes what it does and what it forbids, each by a shared lock on a byte of its own far behind the end of
// the file, and looks whether a lock of another opener stands against it. Shared locks can be had by those who only
// read the file; they are the system's, bound to the open file, and end with it. The two steps of one opener are kept
// apart from those of another by a lock on the whole file, for that moment.
#pragma once

#include <morvl15/host.h>

// Whether the openers there are let an open file (readable) be used so; its own facts stay noted then. True as well
// where the file system knows no locks.
bool HostShareFile(int file, DWORD access, DWORD share);

// Whether the openers there are let a file be emptied, or be deleted, through a file that is open for that.
bool HostMayEmpty(int file);
bool HostMayDelete(int file);
