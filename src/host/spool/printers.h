// The printers that there are: the PDF printer, those that were added, the queues of the print server.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <morvl15/host_native.h>

constexpr INT kStandardDpi = 600;
constexpr size_t kMaxNameBytes = 255;  // three names and their record fit the 780 bytes that callers have for them

constexpr const char* kFilePort = "FILE:";

// What is known of a printer. It doesn't change: a printer whose facts change is another record.
struct Printer {
    Printer() = default;
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    // Copies traits with all they point to.
    void SetTraits(const HostPrinterTraits& given);

    std::string name;
    std::string port;
    std::string driverName;
    std::string comment;
    std::string location;
    DWORD attributes = PRINTER_ATTRIBUTE_LOCAL;
    HostPrinterDriver driver{};
    HostPrinterTraits traits{};
    void* value = nullptr;
    std::shared_ptr<void> queue;  // what belongs to `value`

  private:
    std::vector<HostPaper> papers_;
    std::vector<std::string> paperNames_;
    std::string privateMode_;
};

using PrinterRef = std::shared_ptr<const Printer>;

// The printer of a name, or null with the last error set. Upper and lower case are alike.
PrinterRef FindPrinter(const char* name);

// All printers of the kinds that PRINTER_ENUM_ bits name.
std::vector<PrinterRef> ListPrinters(DWORD kinds);

// The default printer, and the port that its line in the profile gives it: empty for the printer's own.
PrinterRef FindDefaultPrinter(std::string* port);
