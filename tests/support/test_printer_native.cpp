#include "support/test_printer.h"

namespace {

// clang-format off
constexpr HostPaper kPapers[] = {
    { DMPAPER_A4,         "A4",     2100,  2970,   {} },
    { DMPAPER_LETTER,     "Letter", 2159,  2794,   {} },
    { TestPrinter::kCard, "Card",   1000,  1500,   {100, 200, 300, 400} },
};
// clang-format on

}  // namespace

HANDLE OpenPrinter(const char* name) {
    HANDLE printer = nullptr;
    OpenPrinterA(const_cast<char*>(name), &printer, nullptr);
    return printer;
}

std::vector<BYTE> Describe(HANDLE printer) {
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterA(printer, 2, nullptr, 0, &needed));
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    std::vector<BYTE> block(needed);
    EXPECT_TRUE(GetPrinterA(printer, 2, block.data(), needed, &needed));
    return block;
}

TestPrinter::TestPrinter(std::string name, std::string port) : name_(std::move(name)), port_(std::move(port)) {
    traits.papers = kPapers;
    traits.paperCount = std::size(kPapers);
    AddAgain();
}

void TestPrinter::AddAgain() {
    const HostPrinterDriver driver = Driver();
    HostRemovePrinter(name_.c_str());
    HostAddPrinter(name_.c_str(), port_.c_str(), &driver, &traits, this);
}

INT TestPrinter::Call(char call) {
    calls += call;
    if (job_ != nullptr) copies = job_->copies;
    if (failing != call) return 1;
    if (told != 0 && job_ != nullptr) job_->goOn(job_->spooler, told);
    return code;
}

HostPrinterDriver TestPrinter::Driver() {
    HostPrinterDriver driver{};
    driver.name = "Test";
    driver.properties = [](void* printer, HWND, DEVMODEA*, const DEVMODEA*, DWORD) { return Of(printer).properties; };
    driver.capabilities = [](void* printer, WORD, char*) { return Of(printer).capabilities; };
    driver.open = [](void* printer, const DEVMODEA*, HostPrinterMetrics* metrics) -> void* {
        TestPrinter& self = Of(printer);
        if (self.refusesToOpen) return nullptr;
        if (self.changeMetrics != nullptr) self.changeMetrics(metrics);
        self.calls += 'o';
        return printer;
    };
    driver.close = [](void* printer) { Of(printer).calls += 'c'; };
    driver.escape = [](void* printer, INT, INT, const void*, void*) {
        Of(printer).calls += 'x';
        return 1;
    };
    driver.startDocument = [](void* printer, const HostPrintJob* job) {
        TestPrinter& self = Of(printer);
        self.job_ = job;
        self.documentName = job->documentName;
        self.output = job->output != nullptr ? job->output : "-";
        return self.Call('s');
    };
    driver.startPage = [](void* printer, cairo_surface_t** surface) {
        *surface = Of(printer).page;
        return Of(printer).Call('p');
    };
    driver.endPage = [](void* printer) { return Of(printer).Call('e'); };
    driver.endDocument = [](void* printer) { return Of(printer).Call('d'); };
    driver.abortDocument = [](void* printer) { Of(printer).calls += 'a'; };
    return driver;
}
