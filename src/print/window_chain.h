// A window and those above it, disabled while a job runs.
#pragma once

#include <morvl15/host.h>

// With enable 0 disables the window and its parents, at most 50 of them, and answers a list of those that were not
// disabled already; null when there is no memory, and then none is. With enable 1 enables the windows of a list along
// the same way, frees the list and answers null.
HANDLE PrintDisableWindowChain(HWND window, int32_t enable, HANDLE list);
