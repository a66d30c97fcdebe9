// Contexts on printers, and the calls of a document.
#include "printer_context.h"

namespace {

DeviceFigures FiguresOf(const HostPrinterMetrics& metrics) {
    DeviceFigures figures;
    figures.technology = DT_RASPRINTER;
    figures.dotsPerInch = {metrics.dpiX, metrics.dpiY};
    figures.printable = {metrics.printableWidth, metrics.printableHeight};
    figures.paper = {metrics.paperWidth, metrics.paperHeight};
    figures.offset = {metrics.offsetX, metrics.offsetY};
    figures.bitsPerPixel = metrics.color ? 24 : 1;
    return figures;
}

// A page's drawing in device pixels, kept to what the printer can print on.
Cairo DrawingOf(cairo_surface_t* surface, const DeviceFigures& figures) {
    Cairo cairo(cairo_create(surface));
    cairo_scale(cairo.get(), 72.0 / figures.dotsPerInch.cx, 72.0 / figures.dotsPerInch.cy);
    cairo_translate(cairo.get(), figures.offset.x, figures.offset.y);
    cairo_rectangle(cairo.get(), 0, 0, figures.printable.cx, figures.printable.cy);
    cairo_clip(cairo.get());
    return cairo;
}

// The printer of a context that a document can be printed on; null for every other context.
std::shared_ptr<GdiContext> FindPrinting(HDC dc) {
    auto context = HostFindContext(dc);
    return context != nullptr && context->page != nullptr && !context->isInformation ? context : nullptr;
}

INT Call(HDC dc, INT (PageDevice::*call)()) {
    const auto context = FindPrinting(dc);  // lives on, should the abort procedure delete it
    return context != nullptr ? (context->page->*call)() : SP_ERROR;
}

}  // namespace

PageDevice::PageDevice(std::unique_ptr<PrinterDevice> printer)
    : printer_(std::move(printer)), figures_(FiguresOf(printer_->Metrics())) {}

void PageDevice::SetAbortProcedure(HDC dc, ABORTPROC procedure) {
    dc_ = dc;
    abort_ = procedure;
    printer_->SetAbortProcedure(procedure != nullptr ? CallAbortProcedure : nullptr, this);
}

BOOL PageDevice::CallAbortProcedure(void* device, INT code) {
    const auto* page = static_cast<const PageDevice*>(device);
    return page->abort_ == nullptr || page->abort_(page->dc_, code) ? TRUE : FALSE;
}

INT PageDevice::StartPage() {
    cairo_surface_t* surface = nullptr;
    const INT result = printer_->StartPage(&surface);
    if (result > 0) page_ = DrawingOf(surface, figures_);
    return result;
}

INT PageDevice::EndPage() {
    const bool hasMemory = page_ == nullptr || cairo_status(page_.get()) != CAIRO_STATUS_NO_MEMORY;
    page_.reset();
    if (hasMemory) return printer_->EndPage();
    printer_->AbortDocument();
    return SP_OUTOFMEMORY;
}

INT PageDevice::EndDocument() {
    page_.reset();
    return printer_->EndDocument();
}

INT PageDevice::AbortDocument() {
    page_.reset();
    return printer_->AbortDocument();
}

std::shared_ptr<GdiContext> HostMakePrinterContext(LPCSTR device, LPCSTR port, const DEVMODEA* mode) {
    auto printer = device != nullptr ? PrinterDevice::Open(device, port, mode) : nullptr;
    if (printer == nullptr || printer->Metrics().dpiX <= 0 || printer->Metrics().dpiY <= 0) return nullptr;
    auto pages = std::make_unique<PageDevice>(std::move(printer));
    PageDevice* page = pages.get();
    auto context = std::make_shared<GdiContext>(std::move(pages));
    context->page = page;
    return context;
}

// ---- the calls ----------------------------------------------------------------------------------------------------

INT Escape(HDC dc, INT escape, INT inBytes, LPCSTR in, LPVOID out) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || context->page == nullptr) return 0;
    if (escape == SETABORTPROC) return SetAbortProc(dc, reinterpret_cast<ABORTPROC>(const_cast<char*>(in)));
    return context->page->Printer().Escape(escape, inBytes, in, out);
}

INT SetAbortProc(HDC dc, ABORTPROC procedure) {
    const auto context = FindPrinting(dc);
    if (context == nullptr) return SP_ERROR;
    context->page->SetAbortProcedure(dc, procedure);
    return 1;
}

INT StartDocA(HDC dc, const DOCINFOA* document) {
    const auto context = FindPrinting(dc);
    if (context == nullptr || document == nullptr) return SP_ERROR;
    return context->page->Printer().StartDocument(document->lpszDocName, document->lpszOutput);
}

INT StartPage(HDC dc) {
    return Call(dc, &PageDevice::StartPage);
}

INT EndPage(HDC dc) {
    return Call(dc, &PageDevice::EndPage);
}

INT EndDoc(HDC dc) {
    return Call(dc, &PageDevice::EndDocument);
}

INT AbortDoc(HDC dc) {
    return Call(dc, &PageDevice::AbortDocument);
}
