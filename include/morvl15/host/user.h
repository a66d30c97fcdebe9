// Resources, windows and dialogs of the native host.
#ifndef MORVL15_HOST_USER_H
#define MORVL15_HOST_USER_H

#include <morvl15/host/types.h>

MORVL_BEGIN_C

// Copies a string of a module's string table, cut to size - 1 bytes. The result is its length, 0 if there is none.
MORVL_HOST_API INT LoadStringA(HINSTANCE instance, UINT id, LPSTR buffer, INT size);

MORVL_END_C

#endif
