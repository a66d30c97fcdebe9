// The modules that are attached to the process, and who hears of a thread's end.
#pragma once

#include <morvl15/host_native.h>

// Calls every attached module's notification routine for thread detach (reason 3), last attached first.
void HostNotifyThreadDetach();

// The string of a module's table, or null. Instance null is the program itself.
const char* HostFindString(HINSTANCE instance, UINT id);

// A dialog template of a module, or null. Names are compared without regard to case.
const HostDialog* HostFindDialog(HINSTANCE instance, const char* name);
