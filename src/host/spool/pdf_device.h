// The part of a driver that draws PDF pages, wherever they go.
#pragma once

#include "pdf_sink.h"

using PdfSinkOpener = std::unique_ptr<PdfSink> (*)(void* printer, const HostPrintJob& job);

// A device for HostPrinterDriver::open, and the functions that take it.
void* OpenPdfDevice(void* printer, const DEVMODEA& mode, PdfSinkOpener opener);
void ClosePdfDevice(void* device);
INT StartPdfDocument(void* device, const HostPrintJob* job);
INT StartPdfPage(void* device, cairo_surface_t** surface);
INT EndPdfPage(void* device);
INT EndPdfDocument(void* device);
void AbortPdfDocument(void* device);

// The driver whose `open` gives such a device.
constexpr HostPrinterDriver PdfPageDriver(const char* name, decltype(HostPrinterDriver::open) open) {
    HostPrinterDriver driver{};
    driver.name = name;
    driver.open = open;
    driver.close = ClosePdfDevice;
    driver.startDocument = StartPdfDocument;
    driver.startPage = StartPdfPage;
    driver.endPage = EndPdfPage;
    driver.endDocument = EndPdfDocument;
    driver.abortDocument = AbortPdfDocument;
    return driver;
}
