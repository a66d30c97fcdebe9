// A poster: a picture larger than a sheet of paper, printed over as many sheets as it takes. Trimmed to what the printer
// can print and laid edge to edge, the sheets show it without a gap.
//
//     poster [--pdf FILE.pdf | --printer NAME] [--size WIDTHxHEIGHT] [--paper ID] [--landscape] [--copies N] [TITLE]
//
// Sizes are in inches. Without a printer it is the system's default one. A paper is a number of the platform's: 1 is
// Letter, 8 A3, 9 A4. On Windows the same program prints through the system's spooler; --pdf is for the native host,
// whose printer "PDF" writes the file named by its port.
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>

#include <morvl15/print.h>

#include "drawing.h"

namespace {

struct Options {
    std::string printer;  // empty: the default printer
    std::string pdf;
    double width = 24;
    double height = 18;
    int paper = 0;
    int copies = 1;
    bool landscape = false;
    std::string title = "morvl15";
};

constexpr double kMostInches = 1000;

bool ReadSize(const char* text, Options* options) {
    char* end = nullptr;
    options->width = std::strtod(text, &end);
    if (*end != 'x') return false;
    options->height = std::strtod(end + 1, &end);
    return *end == '\0' && options->width > 0 && options->width <= kMostInches && options->height > 0 &&
           options->height <= kMostInches;
}

// Takes an option and its value. Result: how many arguments that were, 0 for none that is known.
int TakeOption(char** argument, Options* options) {
    const std::string name = argument[0];
    const char* value = argument[1];
    if (name == "--landscape") {
        options->landscape = true;
        return 1;
    }
    if (name.rfind("--", 0) != 0) {
        options->title = name;
        return 1;
    }
    if (value == nullptr) return 0;
    if (name == "--pdf") {
        options->pdf = value;
    } else if (name == "--printer") {
        options->printer = value;
    } else if (name == "--paper") {
        options->paper = std::atoi(value);
    } else if (name == "--copies") {
        options->copies = std::atoi(value);
    } else if (name != "--size" || !ReadSize(value, options)) {
        return 0;
    }
    return 2;
}

bool CopyName(char* to, const std::string& name) {
    if (name.size() >= PRINT_NAME_SIZE) return false;
    std::memcpy(to, name.c_str(), name.size() + 1);
    return true;
}

bool FindPrinter(const Options& options, PrintJobRec* job) {
    if (!options.pdf.empty()) {
        return CopyName(job->deviceName, "PDF") && CopyName(job->driverName, "PDF") &&
               CopyName(job->portName, "FILE:" + options.pdf);
    }
    if (options.printer.empty()) return PrintGetDefaultPrinter(job->deviceName, job->driverName, job->portName) != 0;
    return CopyName(job->deviceName, options.printer) &&
           PrintGetDevice(job->deviceName, job->driverName, job->portName) != 0;
}

constexpr const char* kOutcomes[] = {
    "printed",       "cancelled",         "no window", "the printer can't be opened, or the document can't be started",
    "out of memory", "out of disk space", "stopped",   "printing failed",
};

int Print(const Options& options) {
    Poster poster = {static_cast<int32_t>(std::lround(options.width * 1000)),
                     static_cast<int32_t>(std::lround(options.height * 1000)), options.title.c_str()};
    PageRecord record = {};
    record.copies = options.copies;
    record.docWidth = poster.width;
    record.docHeight = poster.height;
    record.spanA = 1;
    record.renderHook = DrawPoster;
    record.hookValue = reinterpret_cast<uintptr_t>(&poster);
    record.job.title = "Poster";
    record.job.documentName = options.title.c_str();
    record.job.line1 = "Printing the poster";
    record.job.line2 = options.title.c_str();
    if (!FindPrinter(options, &record.job)) {
        std::cerr << "poster: there is no such printer\n";
        return 2;
    }
    HGLOBAL mode = PrintGetDevMode(options.landscape ? 1 : 0, record.job.deviceName, record.job.driverName,
                                   record.job.portName, static_cast<uint16_t>(options.paper));
    if (mode != nullptr) record.job.deviceMode = static_cast<DEVMODEA*>(GlobalLock(mode));
    HWND owner = CreateWindowExA(0, "STATIC", "Poster", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    PagePrint(owner, &record);
    DestroyWindow(owner);
    if (mode != nullptr) {
        GlobalUnlock(mode);
        GlobalFree(mode);
    }
    const uint16_t status = record.job.status;
    (status == PRINT_FINISHED ? std::cout : std::cerr) << "poster: " << kOutcomes[status] << '\n';
    return status == PRINT_FINISHED ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc;) {
        const int taken = TakeOption(argv + i, &options);
        if (taken == 0) {
            std::cerr << "usage: poster [--pdf FILE.pdf | --printer NAME] [--size WIDTHxHEIGHT] [--paper ID] "
                         "[--landscape] [--copies N] [TITLE]\n";
            return 2;
        }
        i += taken;
    }
    return Print(options);
}
