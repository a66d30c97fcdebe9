// The seam between device contexts and printers: a printer that is open for one device context, and the document that
// is being printed through it.
#pragma once

#include <memory>
#include <string>

#include <morvl15/host_native.h>

struct Printer;

class PrinterDevice {
  public:
    // Opens the printer named `device`; the driver's name isn't looked at. A port that isn't empty goes before the
    // printer's own: "FILE:" and "FILE:path". A null mode is the printer's default; another is merged into it. Null,
    // with the last error set, when there is no such printer or its driver refuses.
    static std::unique_ptr<PrinterDevice> Open(const char* device, const char* port, const DEVMODEA* mode);
    ~PrinterDevice();  // a document that is open is given up
    PrinterDevice(const PrinterDevice&) = delete;
    PrinterDevice& operator=(const PrinterDevice&) = delete;

    // Stays the same while the device is open. GetDeviceCaps: LOGPIXELSX/Y are dpi, PHYSICALWIDTH/HEIGHT the paper,
    // PHYSICALOFFSETX/Y the offset, HORZRES/VERTRES the printable size. Pixel (0, 0) of a context is the first
    // printable one.
    const HostPrinterMetrics& Metrics() const { return metrics_; }

    // The platform's Escape: QUERYESCSUPPORT, GETPHYSPAGESIZE, GETPRINTINGOFFSET, and what the driver has besides
    // (SETCOPYCOUNT, DRAFTMODE). 0 for an escape that the device hasn't got. SETABORTPROC is only supported here: the
    // context calls SetAbortProcedure.
    INT Escape(INT code, INT size, const void* input, void* output);

    // The procedure that is called with 0 at the end of each page and by drivers with their codes; it answers FALSE to
    // stop the job, which is then given up: the call that is under way, and the document's further calls, give
    // SP_APPABORT. It may be null.
    using AbortProcedure = BOOL (*)(void* context, INT code);
    void SetAbortProcedure(AbortProcedure procedure, void* context);

    // The document's calls, each with a result above 0 or an SP_ code. Calls out of their order give SP_ERROR.
    // `output` names a file, as DOCINFO's lpszOutput; a null name or output is left out. The surface of StartPage is
    // the whole paper, origin in the upper left corner, 72 units an inch: for device pixels, scale by 72 / dpi, then
    // move by the offset. It is never null on success, not the caller's, and good until EndPage, which flushes it.
    INT StartDocument(const char* name, const char* output);
    INT StartPage(cairo_surface_t** surface);
    INT EndPage();
    INT EndDocument();    // a page that is open is ended first
    INT AbortDocument();  // 1; SP_ERROR where there is no document
    bool IsDocumentOpen() const { return state_ == State::kDocument || state_ == State::kPage; }

  private:
    enum class State : uint8_t { kIdle, kDocument, kPage, kGivenUp };  // given up: until EndDocument or AbortDocument

    PrinterDevice() = default;
    bool OpenDriver();
    bool HasEscape(INT code) const;
    static INT GivePoint(POINT point, void* output);
    void TakeCopies(const void* input, void* output);
    void GiveUp();
    INT Settled(INT result);
    cairo_surface_t* Nowhere();
    static BOOL GoOn(void* device, INT code);

    std::shared_ptr<const Printer> printer_;
    std::string mode_;  // the bytes of the device mode in force
    std::string port_;
    std::string documentName_;
    std::string output_;
    void* device_ = nullptr;
    HostPrinterMetrics metrics_{};
    HostPrintJob job_{};
    INT copies_ = 0;       // as the last SETCOPYCOUNT said; 0: as the device mode says
    bool isOpen_ = false;  // the driver has been opened and has to be closed
    State state_ = State::kIdle;
    bool stopped_ = false;  // the abort procedure has answered FALSE
    AbortProcedure abort_ = nullptr;
    void* abortContext_ = nullptr;
    cairo_surface_t* nowhere_ = nullptr;  // what pages are drawn on where the driver has none
};
