// Jobs of the print server: the PDF goes to the server while it is made.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "../locale/code_text.h"
#include "pdf_sink.h"
#include "print_queue.h"
#include "print_server.h"

namespace {

constexpr double kJobAnswerSeconds = 30;  // a busy server may take its time over a document
constexpr int32_t kTenthsPerMillimetre = 10;

int GiveUpWaiting(http_t* /*server*/, void* /*value*/) {
    return 0;
}

bool Succeeded(ipp_status_t status) {
    return status >= IPP_STATUS_OK && status < IPP_STATUS_REDIRECTION_OTHER_SITE;
}

// ---- a job's options --------------------------------------------------------------------------------------------

class Options {
  public:
    Options() = default;
    ~Options() { cupsFreeOptions(count_, options_); }
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    void Set(const char* name, const std::string& value) {
        count_ = cupsAddOption(name, value.c_str(), count_, &options_);
    }
    void Take(int count, const cups_option_t* options) {
        for (int index = 0; index < count; ++index) Set(options[index].name, options[index].value);
    }
    void Parse(const char* text) { count_ = cupsParseOptions(text, count_, &options_); }

    int Count() const { return count_; }
    cups_option_t* List() const { return options_; }

  private:
    int count_ = 0;
    cups_option_t* options_ = nullptr;
};

// The server's name of the mode's paper; empty for the queue's default.
std::string MediaOf(const Queue& queue, const DEVMODEA& mode) {
    const auto found = std::find(queue.ids.begin(), queue.ids.end(), mode.dmPaperSize);
    if (found != queue.ids.end()) return queue.media[static_cast<size_t>(found - queue.ids.begin())];
    if (mode.dmPaperSize != DMPAPER_USER) return "";
    char text[64];
    std::snprintf(text, sizeof text, "custom_%d.%dx%d.%dmm", mode.dmPaperWidth / kTenthsPerMillimetre,
                  mode.dmPaperWidth % kTenthsPerMillimetre, mode.dmPaperLength / kTenthsPerMillimetre,
                  mode.dmPaperLength % kTenthsPerMillimetre);
    return text;
}

const char* SidesOf(const DEVMODEA& mode) {
    switch (mode.dmDuplex) {
        case DMDUP_VERTICAL: return CUPS_SIDES_TWO_SIDED_PORTRAIT;
        case DMDUP_HORIZONTAL: return CUPS_SIDES_TWO_SIDED_LANDSCAPE;
        default: return CUPS_SIDES_ONE_SIDED;
    }
}

// The person's own options for the queue, then what the device mode says, then its private bytes.
void FillOptions(const Queue& queue, const cups_dest_t& destination, const HostPrintJob& job, Options* options) {
    const DEVMODEA& mode = *job.mode;
    options->Take(destination.num_options, destination.options);
    const std::string media = MediaOf(queue, mode);
    if (!media.empty()) options->Set(CUPS_MEDIA, media);
    options->Set(CUPS_COPIES, std::to_string(job.copies));
    if (queue.hasSides) options->Set(CUPS_SIDES, SidesOf(mode));
    if (queue.hasColorMode)
        options->Set(CUPS_PRINT_COLOR_MODE,
                     mode.dmColor == DMCOLOR_COLOR ? CUPS_PRINT_COLOR_MODE_COLOR : CUPS_PRINT_COLOR_MODE_MONOCHROME);
    options->Set("print-scaling", "none");  // a page has the paper's size already
    if (mode.dmDriverExtra != sizeof(HostQueueSettings)) return;
    HostQueueSettings settings;
    std::memcpy(&settings, reinterpret_cast<const char*>(&mode) + mode.dmSize, sizeof settings);
    settings.options[sizeof settings.options - 1] = 0;
    options->Parse(settings.options);
}

// ---- the job ----------------------------------------------------------------------------------------------------

class QueueJob : public PdfSink {
  public:
    QueueJob(const Queue& queue, Server server)
        : name_(queue.name), server_(std::move(server)), queue_(server_.get(), name_) {}
    ~QueueJob() override {
        if (number_ > 0 && !isCommitted_) Cancel();
    }

    bool Open(const Queue& queue, const HostPrintJob& job);
    bool Write(const void* bytes, size_t size) override {
        if (isGood_)
            isGood_ =
                cupsWriteRequestData(server_.get(), static_cast<const char*>(bytes), size) == HTTP_STATUS_CONTINUE;
        return isGood_;
    }
    bool Flush() override { return isGood_; }
    bool Commit() override {
        if (isGood_) isGood_ = Succeeded(cupsFinishDestDocument(server_.get(), queue_.destination, queue_.info));
        isCommitted_ = isGood_;
        return isGood_;
    }
    INT Failure() const override { return SP_ERROR; }
    INT JobNumber() const override { return number_; }

  private:
    void Cancel();

    const std::string name_;
    Server server_;
    Destination queue_;
    int number_ = 0;
    bool isGood_ = true;
    bool isCommitted_ = false;
};

bool QueueJob::Open(const Queue& queue, const HostPrintJob& job) {
    if (queue_.info == nullptr) return false;
    httpSetTimeout(server_.get(), kJobAnswerSeconds, GiveUpWaiting, nullptr);
    Options options;
    FillOptions(queue, *queue_.destination, job, &options);
    const std::string given = Utf8OfText(job.documentName);
    const std::string title = given.empty() ? "Document" : given;
    if (!Succeeded(cupsCreateDestJob(server_.get(), queue_.destination, queue_.info, &number_, title.c_str(),
                                     options.Count(), options.List())))
        return false;
    return cupsStartDestDocument(server_.get(), queue_.destination, queue_.info, number_, title.c_str(),
                                 CUPS_FORMAT_PDF, 0, nullptr, 1) == HTTP_STATUS_CONTINUE;
}

// The connection is in the midst of the document: another one takes the job away.
void QueueJob::Cancel() {
    server_.reset();
    const Server server = ConnectServer();
    if (server == nullptr || !HasQueue(server.get(), name_)) return;
    const Destination queue(server.get(), name_);
    if (queue.destination != nullptr) cupsCancelDestJob(server.get(), queue.destination, number_);
}

}  // namespace

std::unique_ptr<PdfSink> OpenQueueJob(void* printer, const HostPrintJob& job) {
    const auto& queue = *static_cast<const Queue*>(printer);
    Server server = ConnectServer();
    if (server == nullptr || !HasQueue(server.get(), queue.name)) return nullptr;
    auto opened = std::make_unique<QueueJob>(queue, std::move(server));
    return opened->Open(queue, job) ? std::move(opened) : nullptr;
}
