// The list of printers, and which of them is the default.
#include "printers.h"

#include <strings.h>

#include <algorithm>
#include <cstring>
#include <mutex>

#include "print_server.h"

namespace {

struct Store {
    std::mutex lock;
    std::vector<PrinterRef> printers;
};

PrinterRef MakePrinter(const char* name, const char* port, const HostPrinterDriver& driver,
                       const HostPrinterTraits& traits, void* value) {
    auto printer = std::make_shared<Printer>();
    printer->name = name;
    printer->port = port;
    printer->driverName = driver.name;
    printer->driver = driver;
    printer->driver.name = printer->driverName.c_str();
    printer->SetTraits(traits);
    printer->value = value;
    return printer;
}

Store& PrinterStore() {
    static Store store{{}, {MakePrinter("PDF", kFilePort, *HostPdfDriver(), *HostPdfTraits(), nullptr)}};
    return store;
}

bool SameName(const std::string& name, const char* other) {
    return strcasecmp(name.c_str(), other) == 0;
}

auto FindIn(const std::vector<PrinterRef>& printers, const char* name) {
    return std::find_if(printers.begin(), printers.end(),
                        [=](const PrinterRef& printer) { return SameName(printer->name, name); });
}

PrinterRef FindLocalPrinter(const char* name) {
    Store& store = PrinterStore();
    const std::lock_guard guard(store.lock);
    const auto found = FindIn(store.printers, name);
    return found != store.printers.end() ? *found : nullptr;
}

bool IsGoodName(const char* name) {
    return name != nullptr && name[0] != 0 && std::strlen(name) <= kMaxNameBytes && std::strchr(name, ',') == nullptr;
}

// Takes the field that ends at the next comma, or at the end, from a device line.
std::string TakeField(std::string* line) {
    const size_t comma = line->find(',');
    std::string field = line->substr(0, comma);
    line->erase(0, comma == std::string::npos ? comma : comma + 1);
    field.erase(0, field.find_first_not_of(" \t"));
    field.erase(field.find_last_not_of(" \t") + 1);
    return field;
}

}  // namespace

void Printer::SetTraits(const HostPrinterTraits& given) {
    traits = given;
    papers_.assign(given.papers, given.papers + given.paperCount);
    for (const HostPaper& paper : papers_) paperNames_.emplace_back(paper.name != nullptr ? paper.name : "");
    for (size_t index = 0; index < papers_.size(); ++index) papers_[index].name = paperNames_[index].c_str();
    privateMode_.assign(static_cast<const char*>(given.privateMode),
                        given.privateMode != nullptr ? given.privateSize : 0);
    traits.papers = papers_.data();
    traits.privateMode = privateMode_.data();
    traits.privateSize = static_cast<WORD>(privateMode_.size());
    if (traits.dpi <= 0) traits.dpi = kStandardDpi;
    traits.maxCopies = std::clamp(traits.maxCopies, 1, INT16_MAX + 0);
}

PrinterRef FindPrinter(const char* name) {
    PrinterRef printer;
    if (name != nullptr && name[0] != 0) {
        printer = FindLocalPrinter(name);
        if (printer == nullptr) printer = FindQueue(name);
    }
    if (printer == nullptr) SetLastError(ERROR_INVALID_PRINTER_NAME);
    return printer;
}

std::vector<PrinterRef> ListPrinters(DWORD kinds) {
    std::vector<PrinterRef> local;
    {
        const std::lock_guard guard(PrinterStore().lock);
        local = PrinterStore().printers;
    }
    std::vector<PrinterRef> listed;
    if ((kinds & PRINTER_ENUM_LOCAL) != 0) listed = local;
    if ((kinds & PRINTER_ENUM_CONNECTIONS) == 0) return listed;
    for (PrinterRef& queue : ListQueues())
        if (FindIn(local, queue->name.c_str()) == local.end()) listed.push_back(std::move(queue));
    return listed;
}

PrinterRef FindDefaultPrinter(std::string* port) {
    char text[1024];
    GetProfileStringA("windows", "device", "", text, sizeof text);
    std::string line = text;
    const std::string name = TakeField(&line);
    TakeField(&line);
    *port = line.size() <= kMaxNameBytes ? TakeField(&line) : "";
    PrinterRef printer = name.empty() ? nullptr : FindPrinter(name.c_str());
    if (printer != nullptr) return printer;
    port->clear();
    const std::string queue = DefaultQueueName();
    if (!queue.empty()) printer = FindPrinter(queue.c_str());
    return printer != nullptr ? printer : FindPrinter("PDF");
}

// ---- added printers ---------------------------------------------------------------------------------------------

BOOL HostAddPrinter(const char* name, const char* port, const HostPrinterDriver* driver,
                    const HostPrinterTraits* traits, void* value) {
    if (!IsGoodName(name) || !IsGoodName(port) || driver == nullptr || traits == nullptr || !IsGoodName(driver->name)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    PrinterRef printer = MakePrinter(name, port, *driver, *traits, value);
    Store& store = PrinterStore();
    const std::lock_guard guard(store.lock);
    if (FindIn(store.printers, name) != store.printers.end()) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    store.printers.push_back(std::move(printer));
    return TRUE;
}

BOOL HostRemovePrinter(const char* name) {
    Store& store = PrinterStore();
    const std::lock_guard guard(store.lock);
    const auto found = name != nullptr ? FindIn(store.printers, name) : store.printers.end();
    if (found == store.printers.end() || found == store.printers.begin()) {  // "PDF" stays
        SetLastError(ERROR_INVALID_PRINTER_NAME);
        return FALSE;
    }
    store.printers.erase(found);
    return TRUE;
}
