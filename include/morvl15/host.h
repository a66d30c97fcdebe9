// The platform as the library and its callers see it: the Win32 names that they use. On Windows these are the system's
// own; elsewhere the native host library defines the same operations, records and constants, and no others.
#ifndef MORVL15_HOST_H
#define MORVL15_HOST_H

#include <morvl15/base.h>

#if defined(_WIN32)
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

// What the lean header leaves out: the common dialogs, printers.
#include <commdlg.h>
#include <winspool.h>

#include <stdlib.h>  // _fullpath
#include <string.h>  // _stricmp
#else
#include <morvl15/host/controls.h>
#include <morvl15/host/dialogs.h>
#include <morvl15/host/files.h>
#include <morvl15/host/gdi.h>
#include <morvl15/host/kernel.h>
#include <morvl15/host/locale.h>
#include <morvl15/host/objects.h>
#include <morvl15/host/spool.h>
#include <morvl15/host/types.h>
#include <morvl15/host/user.h>
#include <morvl15/host/version.h>
#endif

#endif
