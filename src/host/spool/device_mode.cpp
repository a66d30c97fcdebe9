// How wishes become a device mode that the printer can work by.
#include "device_mode.h"

#include <strings.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "printer_handle.h"

namespace {

constexpr WORD kDriverVersion = 1;
constexpr size_t kSignatureBytes = 4;   // private bytes begin with what tells whose they are
constexpr int32_t kShortestSide = 100;  // of papers of the user's own size, in tenths of a millimetre
constexpr int32_t kLongestSide = 30000;
constexpr int32_t kTolerance = 10;                                  // a millimetre: sizes this near are the same paper
constexpr HostPaper kNoPaper = {DMPAPER_A4, "A4", 2100, 2970, {}};  // where a printer offers none

DEVMODEA* Mutable(ModeBytes* bytes) {
    return reinterpret_cast<DEVMODEA*>(bytes->data());
}

void CopyName(BYTE* field, size_t room, const char* name) {
    std::memset(field, 0, room);
    std::snprintf(reinterpret_cast<char*>(field), room, "%s", name);
}

void SetPaper(const HostPaper& paper, DEVMODEA* mode) {
    mode->dmPaperSize = paper.id;
    mode->dmPaperWidth = static_cast<int16_t>(paper.width);
    mode->dmPaperLength = static_cast<int16_t>(paper.length);
    CopyName(mode->dmFormName, sizeof mode->dmFormName, paper.name);
}

ModeBytes DefaultMode(const Printer& printer) {
    const HostPrinterTraits& traits = printer.traits;
    ModeBytes bytes(sizeof(DEVMODEA), 0);
    DEVMODEA* mode = Mutable(&bytes);
    CopyName(mode->dmDeviceName, sizeof mode->dmDeviceName, printer.name.c_str());
    mode->dmSpecVersion = DM_SPECVERSION;
    mode->dmDriverVersion = kDriverVersion;
    mode->dmSize = sizeof(DEVMODEA);
    mode->dmDriverExtra = traits.privateSize;
    mode->dmFields = DM_ORIENTATION | DM_PRINTQUALITY | DM_YRESOLUTION | DM_COLOR;
    mode->dmOrientation = DMORIENT_PORTRAIT;
    if (traits.paperCount != 0) {
        mode->dmFields |= DM_PAPERSIZE | DM_FORMNAME;
        SetPaper(traits.papers[0], mode);
    }
    if (traits.maxCopies > 1) mode->dmFields |= DM_COPIES;
    if (traits.duplex) mode->dmFields |= DM_DUPLEX;
    mode->dmScale = 100;
    mode->dmCopies = 1;
    mode->dmDefaultSource = DMBIN_AUTO;
    mode->dmPrintQuality = mode->dmYResolution = static_cast<int16_t>(traits.dpi);
    mode->dmColor = traits.color ? DMCOLOR_COLOR : DMCOLOR_MONOCHROME;
    mode->dmDuplex = DMDUP_SIMPLEX;
    bytes.append(static_cast<const char*>(traits.privateMode), traits.privateSize);
    return bytes;
}

// The public fields of wishes; those that lie behind the size that the record says are 0.
DEVMODEA PublicFields(const DEVMODEA& wishes) {
    DEVMODEA fields{};
    std::memcpy(&fields, &wishes, std::min<size_t>(wishes.dmSize, sizeof fields));
    return fields;
}

// ---- paper ------------------------------------------------------------------------------------------------------

const HostPaper* FindPaper(const HostPrinterTraits& traits, int32_t id) {
    for (size_t index = 0; index < traits.paperCount; ++index)
        if (traits.papers[index].id == id) return &traits.papers[index];
    return nullptr;
}

const HostPaper* FindPaperBySize(const HostPrinterTraits& traits, int32_t width, int32_t length) {
    for (size_t index = 0; index < traits.paperCount; ++index) {
        const HostPaper& paper = traits.papers[index];
        if (std::abs(paper.width - width) <= kTolerance && std::abs(paper.length - length) <= kTolerance) return &paper;
    }
    return nullptr;
}

const HostPaper* FindPaperByName(const HostPrinterTraits& traits, const BYTE* name) {
    char text[CCHFORMNAME + 1] = {};
    std::memcpy(text, name, CCHFORMNAME);
    for (size_t index = 0; index < traits.paperCount; ++index)
        if (strcasecmp(traits.papers[index].name, text) == 0) return &traits.papers[index];
    return nullptr;
}

bool IsUserSize(const HostPrinterTraits& traits, const DEVMODEA& wishes) {
    const auto inRange = [](int32_t side) { return side >= kShortestSide && side <= kLongestSide; };
    return traits.userSizes && (wishes.dmFields & DM_PAPERWIDTH) != 0 && (wishes.dmFields & DM_PAPERLENGTH) != 0 &&
           inRange(wishes.dmPaperWidth) && inRange(wishes.dmPaperLength);
}

void SetUserSize(const DEVMODEA& wishes, DEVMODEA* mode) {
    mode->dmFields = (mode->dmFields | DM_PAPERSIZE | DM_PAPERWIDTH | DM_PAPERLENGTH) & ~DM_FORMNAME;
    SetPaper({DMPAPER_USER, "", wishes.dmPaperWidth, wishes.dmPaperLength, {}}, mode);
}

// The id counts first, then the two lengths, then the name of the form.
void MergePaper(const HostPrinterTraits& traits, const DEVMODEA& wishes, DEVMODEA* mode) {
    const bool hasSize = (wishes.dmFields & DM_PAPERWIDTH) != 0 && (wishes.dmFields & DM_PAPERLENGTH) != 0;
    const HostPaper* paper = nullptr;
    if ((wishes.dmFields & DM_PAPERSIZE) != 0) {
        if (wishes.dmPaperSize == DMPAPER_USER && IsUserSize(traits, wishes)) return SetUserSize(wishes, mode);
        paper = FindPaper(traits, wishes.dmPaperSize);
    } else if (hasSize) {
        paper = FindPaperBySize(traits, wishes.dmPaperWidth, wishes.dmPaperLength);
        if (paper == nullptr && IsUserSize(traits, wishes)) return SetUserSize(wishes, mode);
    } else if ((wishes.dmFields & DM_FORMNAME) != 0) {
        paper = FindPaperByName(traits, wishes.dmFormName);
    }
    if (paper != nullptr) SetPaper(*paper, mode);
}

// ---- the rest ---------------------------------------------------------------------------------------------------

void MergeChoice(DWORD field, int16_t wish, int16_t last, const DEVMODEA& wishes, int16_t* value) {
    if ((wishes.dmFields & field) != 0 && wish >= 1 && wish <= last) *value = wish;
}

void MergeCopies(const HostPrinterTraits& traits, const DEVMODEA& wishes, DEVMODEA* mode) {
    if ((wishes.dmFields & DM_COPIES) == 0 || traits.maxCopies < 2) return;
    mode->dmCopies = static_cast<int16_t>(std::clamp<int32_t>(wishes.dmCopies, 1, traits.maxCopies));
    if ((wishes.dmFields & DM_COLLATE) == 0) return;
    mode->dmFields |= DM_COLLATE;
    mode->dmCollate = wishes.dmCollate != 0;
}

// The driver's own bytes, where they are the driver's own.
void MergePrivate(const HostPrinterTraits& traits, const DEVMODEA& wishes, ModeBytes* bytes) {
    const size_t size = traits.privateSize;
    if (size == 0 || wishes.dmDriverExtra != size) return;
    const char* given = reinterpret_cast<const char*>(&wishes) + wishes.dmSize;
    if (std::memcmp(given, traits.privateMode, std::min(size, kSignatureBytes)) != 0) return;
    std::memcpy(bytes->data() + sizeof(DEVMODEA), given, size);
}

// Lets the person change a device mode; what comes of it is made good. FALSE when the dialog is cancelled.
bool AskPerson(const Printer& printer, HWND owner, ModeBytes* bytes) {
    ModeBytes changed = *bytes;
    HostRequest request{};
    request.kind = HOST_REQUEST_DRIVER_SETUP;
    request.window = owner;
    request.text = printer.name.c_str();
    request.subject = changed.data();
    if (HostAskPerson(&request) != IDOK) return false;
    Mutable(&changed)->dmSize = sizeof(DEVMODEA);  // the block's own figures aren't the person's to change
    Mutable(&changed)->dmDriverExtra = printer.traits.privateSize;
    *bytes = MergeMode(printer, ModeOf(changed));
    return true;
}

LONG StandardProperties(const Printer& printer, HWND owner, DEVMODEA* output, const DEVMODEA* input, DWORD mode) {
    const bool wantsOutput = (mode & DM_OUT_BUFFER) != 0;
    const bool hasInput = (mode & DM_IN_BUFFER) != 0;
    if ((wantsOutput && output == nullptr) || (hasInput && input == nullptr)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return -1;
    }
    ModeBytes merged = MergeMode(printer, hasInput ? input : nullptr);
    if (mode == 0) return static_cast<LONG>(merged.size());
    const bool isTaken = (mode & DM_IN_PROMPT) == 0 || AskPerson(printer, owner, &merged);
    if (wantsOutput) std::memcpy(output, merged.data(), merged.size());
    return isTaken ? IDOK : IDCANCEL;
}

}  // namespace

ModeBytes MergeMode(const Printer& printer, const DEVMODEA* wishes) {
    ModeBytes bytes = DefaultMode(printer);
    if (wishes == nullptr || wishes->dmSize < offsetof(DEVMODEA, dmOrientation)) return bytes;
    const DEVMODEA fields = PublicFields(*wishes);
    DEVMODEA* mode = Mutable(&bytes);
    MergeChoice(DM_ORIENTATION, fields.dmOrientation, DMORIENT_LANDSCAPE, fields, &mode->dmOrientation);
    MergePaper(printer.traits, fields, mode);
    MergeCopies(printer.traits, fields, mode);
    if (printer.traits.color) MergeChoice(DM_COLOR, fields.dmColor, DMCOLOR_COLOR, fields, &mode->dmColor);
    if (printer.traits.duplex) MergeChoice(DM_DUPLEX, fields.dmDuplex, DMDUP_HORIZONTAL, fields, &mode->dmDuplex);
    MergePrivate(printer.traits, *wishes, &bytes);
    return bytes;
}

LONG PrinterProperties(const Printer& printer, HWND owner, DEVMODEA* output, const DEVMODEA* input, DWORD mode) {
    if (printer.driver.properties != nullptr) {
        const LONG result = printer.driver.properties(printer.value, owner, output, input, mode);
        if (result != HOST_STANDARD) return result;
    }
    return StandardProperties(printer, owner, output, input, mode);
}

ModeBytes DriverMode(const Printer& printer, const DEVMODEA* wishes) {
    const LONG size = PrinterProperties(printer, nullptr, nullptr, nullptr, 0);
    if (size < 0) return {};
    ModeBytes bytes(std::max(static_cast<size_t>(size), sizeof(DEVMODEA)), 0);
    const DWORD mode = wishes != nullptr ? DM_IN_BUFFER | DM_OUT_BUFFER : DM_OUT_BUFFER;
    return PrinterProperties(printer, nullptr, Mutable(&bytes), wishes, mode) == IDOK ? bytes : ModeBytes();
}

HostPaper PaperOfMode(const Printer& printer, const DEVMODEA& mode) {
    const HostPrinterTraits& traits = printer.traits;
    const HostPaper* paper = FindPaper(traits, mode.dmPaperSize);
    if (paper != nullptr) return *paper;
    HostPaper first = traits.paperCount != 0 ? traits.papers[0] : kNoPaper;
    if (mode.dmPaperSize == DMPAPER_USER) {
        first.id = DMPAPER_USER;
        first.width = mode.dmPaperWidth;
        first.length = mode.dmPaperLength;
    }
    return first;
}

LONG DocumentPropertiesA(HWND owner, HANDLE printer, LPSTR device, DEVMODEA* output, const DEVMODEA* input,
                         DWORD mode) {
    const PrinterRef found = printer != nullptr ? PrinterOfHandle(printer) : FindPrinter(device);
    return found != nullptr ? PrinterProperties(*found, owner, output, input, mode) : -1;
}
