// Where the bytes of a PDF go.
#pragma once

#include <memory>

#include <morvl15/host_native.h>

// What isn't committed is taken back in the end.
class PdfSink {
  public:
    PdfSink() = default;
    virtual ~PdfSink() = default;
    PdfSink(const PdfSink&) = delete;
    PdfSink& operator=(const PdfSink&) = delete;

    // FALSE, once and for all, when the bytes can't be taken.
    virtual bool Write(const void* bytes, size_t size) = 0;
    // Hands on what was written so far, so that troubles show.
    virtual bool Flush() = 0;
    // The PDF is whole: it appears where it belongs.
    virtual bool Commit() = 0;
    // The SP_ code of what went wrong.
    virtual INT Failure() const = 0;
    // The job's number, above 0.
    virtual INT JobNumber() const = 0;
};

// A file, named as the job says or after its document. Null when there can't be one.
std::unique_ptr<PdfSink> OpenPdfFile(void* printer, const HostPrintJob& job);

// A job of the print server's queue; `printer` is the Queue of print_queue.h.
std::unique_ptr<PdfSink> OpenQueueJob(void* printer, const HostPrintJob& job);
