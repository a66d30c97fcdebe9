// The file system's reasons in the platform's numbers.
#pragma once

#include <morvl15/host.h>

// The platform's number of a reason (errno). For a name that isn't there it tells whether its folder is.
DWORD HostFileError(int reason, const char* name);
