// The printers that the setup dialog offers: their descriptions, alive as long as the dialog, and the way a printer and
// a port stand in one line of the list.
#pragma once

#include <morvl15/host.h>

// Fetches the descriptions of all local and connected printers. Result: their number; -1 on failure.
int32_t PrintLoadPrinterList();
void PrintFreePrinterList();

// The description of a printer, by its name without regard to case; null if it isn't in the list.
const PRINTER_INFO_2A* PrintFindPrinter(const char* name);

// The next port of a port field, whose names are separated by commas or spaces: `port` is its start, the result its
// length, 0 for an empty one. The cursor moves behind it, behind one comma and white space; at the terminator it ends.
size_t PrintNextPort(const char** cursor, const char** port);

// The longest line of the list with its terminator: the platform's own limit of a formatted text.
constexpr int32_t kPrintEntrySize = 1025;

// Walks over the lines of the list: a line for each port of each printer, ports named "None" left out if wanted.
using PrintEntryTaker = void (*)(HWND list, const char* entry);
void PrintWalkEntries(bool hideNone, PrintEntryTaker take, HWND list);

// What the lines of a printer begin with.
void PrintEntryStart(char* entry, const char* device);

// Cuts a line to its printer's name. False when it is no such line.
bool PrintCutEntry(char* entry);
