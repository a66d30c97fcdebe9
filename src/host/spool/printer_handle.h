// Handles of printers.
#pragma once

#include "printers.h"

// The printer of a handle as it is now; null, with the last error set, for no such handle and for a printer that has
// gone.
PrinterRef PrinterOfHandle(HANDLE handle);
