// Device modes: a printer's defaults, and wishes merged into them.
#pragma once

#include <string>

#include "printers.h"

// The bytes of a complete device mode: the record and, behind it, the driver's own.
using ModeBytes = std::string;

inline const DEVMODEA* ModeOf(const ModeBytes& bytes) {
    return reinterpret_cast<const DEVMODEA*>(bytes.data());
}

// The printer's defaults with the wishes that it can meet; null for none.
ModeBytes MergeMode(const Printer& printer, const DEVMODEA* wishes);

// DocumentPropertiesA of the printer: its driver's, or the host's where the driver leaves it to the host.
LONG PrinterProperties(const Printer& printer, HWND owner, DEVMODEA* output, const DEVMODEA* input, DWORD mode);

// The device mode as the driver gives it, wishes merged; empty where the driver refuses.
ModeBytes DriverMode(const Printer& printer, const DEVMODEA* wishes);

// The paper of a complete device mode as it lies upright, with its margins.
HostPaper PaperOfMode(const Printer& printer, const DEVMODEA& mode);
