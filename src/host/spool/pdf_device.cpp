// PDF pages by cairo, handed on page by page.
#include "pdf_device.h"

#include <cairo-pdf.h>

#include "../locale/code_text.h"
#include "printer_metrics.h"

namespace {

struct PdfDevice {
    PdfDevice(void* itsPrinter, PageSize itsPage, PdfSinkOpener itsOpener)
        : printer(itsPrinter), page(itsPage), opener(itsOpener) {}

    void* printer;
    PageSize page;
    PdfSinkOpener opener;
    const HostPrintJob* job = nullptr;
    std::unique_ptr<PdfSink> sink;
    cairo_surface_t* surface = nullptr;
};

PdfDevice& DeviceOf(void* device) {
    return *static_cast<PdfDevice*>(device);
}

cairo_status_t WriteToSink(void* sink, const unsigned char* bytes, unsigned int size) {
    return static_cast<PdfSink*>(sink)->Write(bytes, size) ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

cairo_surface_t* MakeSurface(const PdfDevice& pdf) {
    cairo_surface_t* surface =
        cairo_pdf_surface_create_for_stream(WriteToSink, pdf.sink.get(), pdf.page.width, pdf.page.height);
    const std::string title = Utf8OfText(pdf.job->documentName);
    if (!title.empty()) cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, title.c_str());
    return surface;
}

// The trouble of a surface, or of the sink under it, as a code; 0 for none.
INT TroubleOf(cairo_status_t status, bool isSinkGood, const PdfSink& sink) {
    if (status == CAIRO_STATUS_NO_MEMORY) return SP_OUTOFMEMORY;
    if (!isSinkGood || status == CAIRO_STATUS_WRITE_ERROR) return sink.Failure();
    return status == CAIRO_STATUS_SUCCESS ? 0 : SP_ERROR;
}

// The result of a call, which the application hears of before if it is a failure.
INT Told(const PdfDevice& pdf, INT trouble) {
    if (trouble == 0) return 1;
    pdf.job->goOn(pdf.job->spooler, trouble);
    return trouble;
}

// Ends the surface, which may write. Its last state.
cairo_status_t FinishSurface(PdfDevice* pdf) {
    if (pdf->surface == nullptr) return CAIRO_STATUS_SUCCESS;
    cairo_surface_finish(pdf->surface);
    const cairo_status_t status = cairo_surface_status(pdf->surface);
    cairo_surface_destroy(pdf->surface);
    pdf->surface = nullptr;
    return status;
}

}  // namespace

void* OpenPdfDevice(void* printer, const DEVMODEA& mode, PdfSinkOpener opener) {
    return new PdfDevice(printer, PageSizeOf(mode), opener);
}

void ClosePdfDevice(void* device) {
    delete static_cast<PdfDevice*>(device);
}

INT StartPdfDocument(void* device, const HostPrintJob* job) {
    PdfDevice& pdf = DeviceOf(device);
    pdf.job = job;
    pdf.sink = pdf.opener(pdf.printer, *job);
    if (pdf.sink == nullptr) return SP_ERROR;
    pdf.surface = MakeSurface(pdf);
    const INT trouble = TroubleOf(cairo_surface_status(pdf.surface), true, *pdf.sink);
    if (trouble == 0) return pdf.sink->JobNumber();
    AbortPdfDocument(device);
    return trouble;
}

INT StartPdfPage(void* device, cairo_surface_t** surface) {
    *surface = DeviceOf(device).surface;
    return 1;
}

INT EndPdfPage(void* device) {
    PdfDevice& pdf = DeviceOf(device);
    cairo_surface_show_page(pdf.surface);
    return Told(pdf, TroubleOf(cairo_surface_status(pdf.surface), pdf.sink->Flush(), *pdf.sink));
}

INT EndPdfDocument(void* device) {
    PdfDevice& pdf = DeviceOf(device);
    const cairo_status_t status = FinishSurface(&pdf);
    const bool isWhole = status == CAIRO_STATUS_SUCCESS && pdf.sink->Commit();
    const INT result = Told(pdf, TroubleOf(status, isWhole, *pdf.sink));
    pdf.sink.reset();
    return result;
}

void AbortPdfDocument(void* device) {
    PdfDevice& pdf = DeviceOf(device);
    FinishSurface(&pdf);
    pdf.sink.reset();
}
