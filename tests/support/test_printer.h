// Printers for tests. Native host only.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <morvl15/host_native.h>

// A test of the host's own printers: no print server has any beside them.
class OwnPrinters : public testing::Test {
  protected:
    OwnPrinters() { HostSetPrintServer(""); }
    ~OwnPrinters() override { HostSetPrintServer(nullptr); }
};

// Opens a printer by its name; null for none.
HANDLE OpenPrinter(const char* name);

// The block of a printer's description, asked for as callers do: first its size, then the description itself.
std::vector<BYTE> Describe(HANDLE printer);

// The descriptions in a block.
inline const PRINTER_INFO_2A* InfosOf(const std::vector<BYTE>& block) {
    return reinterpret_cast<const PRINTER_INFO_2A*>(block.data());
}

// A device mode that wishes for a paper, turned as DMORIENT_ says.
inline DEVMODEA ModeOfPaper(int16_t paper, int16_t turn) {
    DEVMODEA mode{};
    mode.dmSize = sizeof mode;
    mode.dmFields = DM_PAPERSIZE | DM_ORIENTATION;
    mode.dmPaperSize = paper;
    mode.dmOrientation = turn;
    return mode;
}

// A printer whose driver does as the test says, and notes what it is asked for.
class TestPrinter {
  public:
    // Adds the printer, with A4, Letter and a card of 100 by 150 millimetres whose four margins differ.
    explicit TestPrinter(std::string name, std::string port = "LPT1:");
    ~TestPrinter() { HostRemovePrinter(name_.c_str()); }
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    static HostPrinterDriver Driver();
    static constexpr int16_t kCard = DMPAPER_USER + 1;

    // Takes changed traits over.
    void AddAgain();

    HostPrinterTraits traits{};
    LONG properties = HOST_STANDARD;   // what DocumentPropertiesA answers
    INT capabilities = HOST_STANDARD;  // what DeviceCapabilitiesA answers
    bool refusesToOpen = false;
    void (*changeMetrics)(HostPrinterMetrics* metrics) = nullptr;

    // A document's calls fail with that code, each by its name: 's' start of document, 'p' start of page, 'e' end of
    // page, 'd' end of document. Before, the driver calls the abort procedure with `told`, if that isn't 0.
    char failing = 0;
    INT code = 0;
    INT told = 0;

    std::string calls;  // 'o' open, 's', 'p', 'e', 'd', 'a' abort, 'c' close, 'x' an escape
    std::string documentName;
    std::string output;
    INT copies = 0;                   // of the job, at its last call
    cairo_surface_t* page = nullptr;  // given at the start of a page; null for none

  private:
    INT Call(char call);
    static TestPrinter& Of(void* printer) { return *static_cast<TestPrinter*>(printer); }

    const std::string name_;
    const std::string port_;
    const HostPrintJob* job_ = nullptr;
};
