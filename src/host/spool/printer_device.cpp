// A printer that is open for a device context: its figures, and the order of the document's calls.
#include "printer_device.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "device_mode.h"
#include "printer_metrics.h"

namespace {

// The file that a port or a document names as FILE:path, or the document as a path; empty for none.
std::string FileOf(const std::string& output) {
    const std::string_view prefix = kFilePort;
    return output.compare(0, prefix.size(), prefix) == 0 ? output.substr(prefix.size()) : output;
}

bool NamesFile(const std::string& port) {
    return port.compare(0, std::strlen(kFilePort), kFilePort) == 0;
}

// Copies a value in the order in which the caller passes it, wherever it lies.
template <class Value>
Value ValueAt(const void* input) {
    Value value;
    std::memcpy(&value, input, sizeof value);
    return value;
}

}  // namespace

std::unique_ptr<PrinterDevice> PrinterDevice::Open(const char* device, const char* port, const DEVMODEA* mode) {
    PrinterRef printer = FindPrinter(device);
    if (printer == nullptr) return nullptr;
    std::unique_ptr<PrinterDevice> opened(new PrinterDevice);
    opened->mode_ = DriverMode(*printer, mode);
    if (opened->mode_.empty()) opened->mode_ = MergeMode(*printer, mode);
    opened->port_ = port != nullptr && port[0] != 0 ? port : printer->port;
    opened->device_ = printer->value;
    opened->printer_ = std::move(printer);
    return opened->OpenDriver() ? std::move(opened) : nullptr;
}

bool PrinterDevice::OpenDriver() {
    const Printer& printer = *printer_;
    const DEVMODEA& mode = *ModeOf(mode_);
    const bool isLandscape = mode.dmOrientation == DMORIENT_LANDSCAPE;
    metrics_ = MetricsOf(PaperOfMode(printer, mode), isLandscape, printer.traits.dpi);
    metrics_.color = printer.traits.color && mode.dmColor == DMCOLOR_COLOR;
    if (printer.driver.open == nullptr) return isOpen_ = true;
    device_ = printer.driver.open(printer.value, &mode, &metrics_);
    return isOpen_ = device_ != nullptr;
}

PrinterDevice::~PrinterDevice() {
    if (IsDocumentOpen()) GiveUp();
    if (isOpen_ && printer_->driver.close != nullptr) printer_->driver.close(device_);
    if (nowhere_ != nullptr) cairo_surface_destroy(nowhere_);
}

// ---- escapes ----------------------------------------------------------------------------------------------------

bool PrinterDevice::HasEscape(INT code) const {
    return code == QUERYESCSUPPORT || (code > 0 && code < 32 && (metrics_.escapes >> code & 1) != 0);
}

INT PrinterDevice::Escape(INT code, INT size, const void* input, void* output) {
    if (!HasEscape(code)) return 0;
    switch (code) {
        case QUERYESCSUPPORT: return input != nullptr && HasEscape(ValueAt<INT>(input));
        case SETABORTPROC: return 1;
        case GETPHYSPAGESIZE: return GivePoint({metrics_.paperWidth, metrics_.paperHeight}, output);
        case GETPRINTINGOFFSET: return GivePoint({metrics_.offsetX, metrics_.offsetY}, output);
        default: break;
    }
    const HostPrinterDriver& driver = printer_->driver;
    const INT result = driver.escape != nullptr ? driver.escape(device_, code, size, input, output) : 1;
    if (code == SETCOPYCOUNT && result > 0) TakeCopies(input, driver.escape == nullptr ? output : nullptr);
    return result;
}

INT PrinterDevice::GivePoint(POINT point, void* output) {
    if (output == nullptr) return 0;
    std::memcpy(output, &point, sizeof point);
    return 1;
}

void PrinterDevice::TakeCopies(const void* input, void* output) {
    if (input == nullptr) return;
    copies_ = std::max(ValueAt<INT>(input), 1);
    job_.copies = copies_;
    if (output != nullptr) std::memcpy(output, &copies_, sizeof copies_);
}

// ---- the document -----------------------------------------------------------------------------------------------

void PrinterDevice::SetAbortProcedure(AbortProcedure procedure, void* context) {
    abort_ = procedure;
    abortContext_ = context;
}

BOOL PrinterDevice::GoOn(void* device, INT code) {
    auto* self = static_cast<PrinterDevice*>(device);
    if (!self->stopped_ && self->abort_ != nullptr && self->abort_(self->abortContext_, code) == FALSE)
        self->stopped_ = true;
    return !self->stopped_;
}

// Takes the document back. Its further calls fail until it is ended.
void PrinterDevice::GiveUp() {
    state_ = State::kGivenUp;
    if (printer_->driver.abortDocument != nullptr) printer_->driver.abortDocument(device_);
}

// What a call of the document gives: a failure of the driver's, or that the application stops the job. Both take the
// document back.
INT PrinterDevice::Settled(INT result) {
    if (result > 0 && stopped_) result = SP_APPABORT;
    if (result <= 0) GiveUp();
    return result;
}

INT PrinterDevice::StartDocument(const char* name, const char* output) {
    if (state_ != State::kIdle) return SP_ERROR;
    documentName_ = name != nullptr ? name : "";
    output_ = FileOf(output != nullptr ? output : "");
    if (output_.empty() && NamesFile(port_)) output_ = FileOf(port_);
    job_ = {};
    job_.documentName = documentName_.c_str();
    job_.output = output_.empty() ? nullptr : output_.c_str();
    job_.mode = ModeOf(mode_);
    job_.copies = copies_ != 0 ? copies_ : std::max<INT>(job_.mode->dmCopies, 1);
    job_.goOn = GoOn;
    job_.spooler = this;
    stopped_ = false;
    const HostPrinterDriver& driver = printer_->driver;
    INT result = driver.startDocument != nullptr ? driver.startDocument(device_, &job_) : 1;
    if (result <= 0) return result;
    state_ = State::kDocument;
    result = Settled(result);
    if (result <= 0) state_ = State::kIdle;
    return result;
}

INT PrinterDevice::StartPage(cairo_surface_t** surface) {
    *surface = nullptr;
    if (state_ != State::kDocument) return stopped_ ? SP_APPABORT : SP_ERROR;
    const HostPrinterDriver& driver = printer_->driver;
    const INT result = Settled(driver.startPage != nullptr ? driver.startPage(device_, surface) : 1);
    if (result <= 0) return result;
    state_ = State::kPage;
    if (*surface == nullptr) *surface = Nowhere();
    return result;
}

cairo_surface_t* PrinterDevice::Nowhere() {
    if (nowhere_ == nullptr) nowhere_ = cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1);
    return nowhere_;
}

INT PrinterDevice::EndPage() {
    if (state_ != State::kPage) return stopped_ ? SP_APPABORT : SP_ERROR;
    state_ = State::kDocument;
    const HostPrinterDriver& driver = printer_->driver;
    const INT result = driver.endPage != nullptr ? driver.endPage(device_) : 1;
    if (result > 0) GoOn(this, 0);
    return Settled(result);
}

INT PrinterDevice::EndDocument() {
    if (state_ == State::kPage) EndPage();
    if (state_ == State::kDocument && !GoOn(this, 0)) GiveUp();
    if (state_ != State::kDocument) {
        state_ = State::kIdle;
        return stopped_ ? SP_APPABORT : SP_ERROR;
    }
    const HostPrinterDriver& driver = printer_->driver;
    const INT result = Settled(driver.endDocument != nullptr ? driver.endDocument(device_) : 1);
    state_ = State::kIdle;
    return result;
}

INT PrinterDevice::AbortDocument() {
    if (state_ == State::kIdle) return SP_ERROR;
    if (IsDocumentOpen()) GiveUp();
    state_ = State::kIdle;
    return 1;
}
