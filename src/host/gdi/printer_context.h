// Contexts on printers: the pages of a document as a place to draw.
#pragma once

#include "../spool/printer_device.h"
#include "context.h"

class PageDevice : public Device {
  public:
    explicit PageDevice(std::unique_ptr<PrinterDevice> printer);

    const DeviceFigures& Figures() const override { return figures_; }
    cairo_t* Drawing() override { return page_.get(); }
    bool IsPicture() const override { return false; }

    PrinterDevice& Printer() { return *printer_; }
    void SetAbortProcedure(HDC dc, ABORTPROC procedure);

    // The document's calls: above 0 or an SP_ code.
    INT StartPage();
    INT EndPage();
    INT EndDocument();
    INT AbortDocument();

  private:
    static BOOL CallAbortProcedure(void* device, INT code);

    const std::unique_ptr<PrinterDevice> printer_;
    DeviceFigures figures_;
    HDC dc_ = nullptr;  // for the abort procedure
    ABORTPROC abort_ = nullptr;
    Cairo page_;
};

// A context on a printer; null when it can't be opened. The driver's name alone opens nothing.
std::shared_ptr<GdiContext> HostMakePrinterContext(LPCSTR device, LPCSTR port, const DEVMODEA* mode);
