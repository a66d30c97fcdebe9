#include "scripted_printer.h"

#include <cstring>
#include <utility>

namespace {

constexpr HostPaper kPapers[] = {
    {DMPAPER_LETTER, "Letter", 2159, 2794, {635, 635, 635, 635}},
    {DMPAPER_A4, "A4", 2100, 2970, {635, 635, 635, 635}},
};

}  // namespace

ScriptedPrinter::ScriptedPrinter(const char* printerName, const char* portName) : name(printerName), port(portName) {
    HostPrinterDriver driver{};
    driver.name = "Script";
    driver.properties = [](void* self, HWND, DEVMODEA*, const DEVMODEA*, DWORD) { return Of(self).properties; };
    driver.capabilities = [](void* self, WORD index, char*) {
        return index == DC_PAPERS ? Of(self).paperCount : HOST_STANDARD;
    };
    driver.open = [](void* self, const DEVMODEA*, HostPrinterMetrics* told) {
        *told = Of(self).metrics;
        return Of(self).refusesToOpen ? nullptr : self;
    };
    driver.escape = [](void* self, INT code, INT, const void* input, void* output) {
        INT value = 0;
        std::memcpy(&value, input, sizeof value);
        if (code == SETCOPYCOUNT) std::memcpy(output, &value, sizeof value);  // there is always a place for the answer
        return Of(self).Answer("escape " + std::to_string(code) + ": " + std::to_string(value));
    };
    driver.startDocument = [](void* self, const HostPrintJob* job) {
        Of(self).job_ = job;
        Of(self).lastDocument = job->documentName;
        return Of(self).Answer("start");
    };
    driver.startPage = [](void* self, cairo_surface_t**) { return Of(self).Answer("page"); };
    driver.endPage = [](void* self) { return Of(self).Answer("end page"); };
    driver.endDocument = [](void* self) { return Of(self).Answer("end"); };
    driver.abortDocument = [](void* self) { Of(self).Answer("abort"); };
    HostPrinterTraits traits{};
    traits.papers = kPapers;
    traits.paperCount = std::size(kPapers);
    traits.dpi = 100;
    traits.maxCopies = 9;
    traits.userSizes = TRUE;
    traits.privateMode = "private";
    traits.privateSize = 8;
    HostAddPrinter(name.c_str(), port.c_str(), &driver, &traits, this);
}

std::string ScriptedPrinter::Calls() const {
    std::string all;
    for (const std::string& call : calls) all += (all.empty() ? "" : ", ") + call;
    return all;
}

INT ScriptedPrinter::Answer(const std::string& call) {
    calls.push_back(call);
    const std::string numbered = call + " " + std::to_string(++counts_[call]);
    if (const auto trouble = troubles.find(call); trouble != troubles.end()) job_->goOn(job_->spooler, trouble->second);
    for (const std::string& key : {call, numbered}) {
        if (const auto result = results.find(key); result != results.end()) return result->second;
    }
    return 1;
}

MessageReader::MessageReader() {
    HostSetPerson(
        [](const HostRequest* request, LPVOID value) -> INT {
            auto* reader = static_cast<MessageReader*>(value);
            if (request->kind != HOST_REQUEST_MESSAGE_BOX) return 0;
            reader->shown.push_back(std::string(request->caption) + ": " + request->text);
            reader->style = request->style;
            return IDOK;
        },
        this);
}
