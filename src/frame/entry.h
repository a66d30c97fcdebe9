// What the loader of the host calls, and what it leaves behind.
#pragma once

#include <morvl15/host.h>

// The loader's notification: reason 0 process detach, 1 process attach, 2 thread attach, 3 thread detach. Always 1.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved);
