// A queue's papers, margins and options as a printer's traits.
#include "print_queue.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "../locale/code_text.h"
#include "papers.h"
#include "pdf_device.h"
#include "print_server.h"

namespace {

constexpr const char* kDriverName = "CUPS";
constexpr const char* kPort = "CUPS:";
constexpr int32_t kHundredths = 10;  // in a tenth of a millimetre
constexpr int32_t kMostCopies = 9999;
constexpr HostQueueSettings kSettings = {{'c', 'u', 'p', '1'}, {}};

const char* OptionOf(const Destination& queue, const char* name) {
    const char* value = cupsGetOption(name, queue.destination->num_options, queue.destination->options);
    return value != nullptr ? value : "";
}

bool Supports(http_t* server, const Destination& queue, const char* option, const char* value) {
    return cupsCheckDestSupported(server, queue.destination, queue.info, option, value) != 0;
}

// ---- papers -----------------------------------------------------------------------------------------------------

// The papers of a queue as they are gathered.
struct PaperList {
    std::vector<HostPaper> papers;
    std::vector<std::string> names;
    std::vector<std::string> media;
    int16_t nextId = DMPAPER_USER + 1;  // of papers that the platform has no number for
};

int32_t Tenths(int hundredths) {
    return (hundredths + kHundredths / 2) / kHundredths;
}

HostPaper PaperOfSize(const cups_size_t& size) {
    HostPaper paper{};
    paper.width = Tenths(size.width);
    paper.length = Tenths(size.length);
    paper.margins = {size.left, size.top, size.right, size.bottom};
    return paper;
}

bool IsGoodSize(const cups_size_t& size) {
    return size.width > 0 && size.length > 0 && Tenths(size.width) <= INT16_MAX && Tenths(size.length) <= INT16_MAX;
}

bool SameSheet(const HostPaper& a, const HostPaper& b) {
    return a.width == b.width && a.length == b.length;
}

// A sheet that comes with several margins is listed once, with the widest: those hold whatever is chosen.
void AddPaper(const cups_size_t& size, PaperList* list) {
    if (!IsGoodSize(size)) return;
    HostPaper paper = PaperOfSize(size);
    const StandardPaper* standard = FindStandardPaper(paper.width, paper.length);
    if (standard != nullptr) {  // the server rounds to points
        paper.width = standard->width;
        paper.length = standard->length;
    }
    const auto known = std::find_if(list->papers.begin(), list->papers.end(),
                                    [&](const HostPaper& other) { return SameSheet(other, paper); });
    if (known != list->papers.end()) {
        known->margins.left = std::max(known->margins.left, paper.margins.left);
        known->margins.top = std::max(known->margins.top, paper.margins.top);
        known->margins.right = std::max(known->margins.right, paper.margins.right);
        known->margins.bottom = std::max(known->margins.bottom, paper.margins.bottom);
        return;
    }
    paper.id = standard != nullptr ? standard->id : list->nextId++;
    list->papers.push_back(paper);
    list->names.emplace_back(standard != nullptr ? standard->name : size.media);
    list->media.emplace_back(size.media);
}

// The default paper first, then the others as the server lists them.
PaperList PapersOf(http_t* server, const Destination& queue) {
    PaperList list;
    cups_size_t size;
    if (cupsGetDestMediaDefault(server, queue.destination, queue.info, CUPS_MEDIA_FLAGS_DEFAULT, &size) != 0)
        AddPaper(size, &list);
    const int count = cupsGetDestMediaCount(server, queue.destination, queue.info, CUPS_MEDIA_FLAGS_DEFAULT);
    for (int index = 0; index < count; ++index)
        if (cupsGetDestMediaByIndex(server, queue.destination, queue.info, index, CUPS_MEDIA_FLAGS_DEFAULT, &size) != 0)
            AddPaper(size, &list);
    for (size_t index = 0; index < list.papers.size(); ++index) list.papers[index].name = list.names[index].c_str();
    return list;
}

bool TakesUserSizes(http_t* server, const Destination& queue) {
    ipp_attribute_t* media = cupsFindDestSupported(server, queue.destination, queue.info, CUPS_MEDIA);
    for (int index = 0; media != nullptr && index < ippGetCount(media); ++index) {
        const char* name = ippGetString(media, index, nullptr);
        if (name != nullptr && std::strncmp(name, "custom_max_", std::strlen("custom_max_")) == 0) return true;
    }
    return false;
}

int32_t MostCopies(http_t* server, const Destination& queue) {
    ipp_attribute_t* copies = cupsFindDestSupported(server, queue.destination, queue.info, CUPS_COPIES);
    int last = 1;
    if (copies != nullptr) ippGetRange(copies, 0, &last);
    return std::clamp(last, 1, kMostCopies);
}

void* OpenQueue(void* printer, const DEVMODEA* mode, HostPrinterMetrics* /*metrics*/) {
    return OpenPdfDevice(printer, *mode, OpenQueueJob);
}

constexpr HostPrinterDriver kQueueDriver = PdfPageDriver(kDriverName, OpenQueue);

HostPrinterTraits TraitsOf(http_t* server, const Destination& destination, const PaperList& list) {
    const auto type = std::strtoul(OptionOf(destination, "printer-type"), nullptr, 10);
    HostPrinterTraits traits{};
    traits.papers = list.papers.data();
    traits.paperCount = list.papers.size();
    traits.maxCopies = MostCopies(server, destination);
    traits.color = (type & CUPS_PRINTER_COLOR) != 0;
    traits.duplex = (type & CUPS_PRINTER_DUPLEX) != 0;
    traits.userSizes = TakesUserSizes(server, destination);
    traits.privateMode = &kSettings;
    traits.privateSize = sizeof kSettings;
    return traits;
}

}  // namespace

PrinterRef MakeQueuePrinter(http_t* server, const std::string& name) {
    const Destination destination(server, name);
    if (destination.info == nullptr || name.size() > kMaxNameBytes) return nullptr;
    PaperList list = PapersOf(server, destination);
    auto printer = std::make_shared<Printer>();
    printer->name = destination.destination->name;
    printer->port = kPort;
    printer->driverName = kDriverName;
    printer->comment = TextOfUtf8(OptionOf(destination, "printer-info"));
    printer->location = TextOfUtf8(OptionOf(destination, "printer-location"));
    printer->attributes = PRINTER_ATTRIBUTE_NETWORK;
    printer->driver = kQueueDriver;
    printer->SetTraits(TraitsOf(server, destination, list));
    auto queue = std::make_shared<Queue>();
    queue->name = printer->name;
    queue->media = std::move(list.media);
    queue->hasSides = Supports(server, destination, CUPS_SIDES, nullptr);
    queue->hasColorMode = Supports(server, destination, CUPS_PRINT_COLOR_MODE, nullptr);
    for (size_t index = 0; index < queue->media.size(); ++index) queue->ids.push_back(list.papers[index].id);
    printer->value = queue.get();
    printer->queue = queue;
    return printer;
}
