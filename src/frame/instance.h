// The library's module instance.
#pragma once

#include <morvl15/host.h>

// Stored once, at process attach; resources are loaded with it.
extern HINSTANCE gLibInstance;
