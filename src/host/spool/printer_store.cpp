// The printer store: handles of printers, and their descriptions.
#include <algorithm>
#include <cstring>

#include "../kernel/handles.h"
#include "device_mode.h"
#include "printer_handle.h"

namespace {

constexpr DWORD kLevel = 2;

// An open printer is a name: the printer is looked up with each call, since it can go in the meantime.
class PrinterHandle : public KernelObject {
  public:
    static constexpr ObjectKind kObjectKind = ObjectKind::kPrinter;
    explicit PrinterHandle(std::string name) : KernelObject(kObjectKind), name_(std::move(name)) {}
    const std::string& Name() const { return name_; }

  private:
    const std::string name_;
};

constexpr size_t Aligned(size_t bytes) {
    return (bytes + alignof(DEVMODEA) - 1) / alignof(DEVMODEA) * alignof(DEVMODEA);
}

// What a description takes and holds behind its record.
struct Description {
    PrinterRef printer;
    ModeBytes mode;

    explicit Description(PrinterRef described) : printer(std::move(described)) {
        if (printer->traits.noDescriptionMode) return;
        mode = DriverMode(*printer, nullptr);
        if (mode.empty()) mode = MergeMode(*printer, nullptr);
    }

    size_t TextBytes() const {
        return printer->name.size() + printer->port.size() + printer->driverName.size() + printer->comment.size() +
               printer->location.size() + sizeof "RAW" + 6;  // the five terminators, and an empty text
    }
    size_t Bytes() const { return Aligned(TextBytes()) + Aligned(mode.size()); }
};

// Puts texts one behind the other.
class TextWriter {
  public:
    explicit TextWriter(BYTE* at) : at_(reinterpret_cast<char*>(at)) {}

    LPSTR Put(const std::string& text) {
        char* start = at_;
        std::memcpy(start, text.c_str(), text.size() + 1);
        at_ += text.size() + 1;
        return start;
    }

  private:
    char* at_;
};

// Writes a description: the record, and at `extra` its device mode and texts.
void WriteDescription(const Description& description, const std::string& defaultName, PRINTER_INFO_2A* info,
                      BYTE* extra) {
    const Printer& printer = *description.printer;
    *info = {};
    if (!description.mode.empty()) {
        std::copy(description.mode.begin(), description.mode.end(), extra);
        info->pDevMode = reinterpret_cast<DEVMODEA*>(extra);
    }
    TextWriter texts(extra + Aligned(description.mode.size()));
    info->pPrinterName = texts.Put(printer.name);
    info->pPortName = texts.Put(printer.port);
    info->pDriverName = texts.Put(printer.driverName);
    info->pComment = texts.Put(printer.comment);
    info->pLocation = texts.Put(printer.location);
    info->pDatatype = texts.Put("RAW");
    LPSTR empty = texts.Put("");
    info->pShareName = info->pSepFile = info->pPrintProcessor = info->pParameters = empty;
    info->Attributes = printer.attributes | (printer.name == defaultName ? PRINTER_ATTRIBUTE_DEFAULT : 0);
    info->Priority = info->DefaultPriority = 1;
}

// Gives descriptions as a block, records first.
BOOL GiveDescriptions(const std::vector<Description>& descriptions, BYTE* block, DWORD size, DWORD* needed) {
    const size_t records = Aligned(descriptions.size() * sizeof(PRINTER_INFO_2A));
    size_t bytes = records;
    for (const Description& description : descriptions) bytes += description.Bytes();
    if (needed != nullptr) *needed = static_cast<DWORD>(bytes);
    if (descriptions.empty()) return TRUE;
    if (bytes > size || block == nullptr) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::string port;
    const PrinterRef byDefault = FindDefaultPrinter(&port);
    const std::string defaultName = byDefault != nullptr ? byDefault->name : "";
    auto* info = reinterpret_cast<PRINTER_INFO_2A*>(block);
    BYTE* extra = block + records;
    for (const Description& description : descriptions) {
        WriteDescription(description, defaultName, info++, extra);
        extra += description.Bytes();
    }
    return TRUE;
}

BOOL Refuse(DWORD error) {
    SetLastError(error);
    return FALSE;
}

}  // namespace

PrinterRef PrinterOfHandle(HANDLE handle) {
    const auto* open = HostFindObject<PrinterHandle>(handle);
    return open != nullptr ? FindPrinter(open->Name().c_str()) : nullptr;
}

BOOL OpenPrinterA(LPSTR name, HANDLE* printer, LPPRINTER_DEFAULTSA /*defaults*/) {
    if (printer == nullptr) return Refuse(ERROR_INVALID_PARAMETER);
    const PrinterRef found = FindPrinter(name);
    *printer = found != nullptr ? HostOpenHandle(std::make_unique<PrinterHandle>(found->name)) : nullptr;
    return *printer != nullptr;
}

BOOL ClosePrinter(HANDLE printer) {
    return HostFindObject<PrinterHandle>(printer) != nullptr && CloseHandle(printer);
}

BOOL GetPrinterA(HANDLE printer, DWORD level, BYTE* info, DWORD size, DWORD* needed) {
    if (needed != nullptr) *needed = 0;
    if (level != kLevel) return Refuse(ERROR_INVALID_LEVEL);
    PrinterRef found = PrinterOfHandle(printer);
    if (found == nullptr) return FALSE;
    std::vector<Description> descriptions;
    descriptions.emplace_back(std::move(found));
    return GiveDescriptions(descriptions, info, size, needed);
}

BOOL EnumPrintersA(DWORD flags, LPSTR /*name*/, DWORD level, BYTE* info, DWORD size, DWORD* needed, DWORD* returned) {
    if (needed == nullptr || returned == nullptr) return Refuse(ERROR_INVALID_PARAMETER);
    *needed = *returned = 0;
    if (level != kLevel) return Refuse(ERROR_INVALID_LEVEL);
    std::vector<Description> descriptions;
    for (PrinterRef& printer : ListPrinters(flags)) descriptions.emplace_back(std::move(printer));
    if (!GiveDescriptions(descriptions, info, size, needed)) return FALSE;
    *returned = static_cast<DWORD>(descriptions.size());
    return TRUE;
}
