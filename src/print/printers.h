// The default printer, and descriptions of printers.
#pragma once

#include <cstddef>

#include <morvl15/host.h>

// Room for the names of the default printer: three texts of 260 bytes.
constexpr size_t kPrintNamesSize = 780;

// Fills the work buffer, of kPrintNamesSize bytes, and points the outputs into it; they start as null.
// Result: 1 when all three fields were found, else 0.
int32_t PrintReadDefaultPrinter(char* work, const char** device, const char** driver, const char** port);

// The level 2 description of an open printer, in a block of MemAlloc's; null when it can't be had.
PRINTER_INFO_2A* PrintDescribe(HANDLE printer);

// Copies a text into a buffer of `size` bytes, cut to fit. Null is the empty text.
void PrintCopyText(char* to, const char* from, size_t size);
