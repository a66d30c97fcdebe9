// The driver and the traits of the "PDF" printer.
#include <cstring>

#include "pdf_device.h"
#include "printer_metrics.h"
#include "printers.h"

namespace {

// clang-format off
constexpr HostPaper kPapers[] = {
    // id             name      width  length  margins
    { DMPAPER_A4,     "A4",     2100,  2970,   {} },
    { DMPAPER_A3,     "A3",     2970,  4200,   {} },
    { DMPAPER_A5,     "A5",     1480,  2100,   {} },
    { DMPAPER_LETTER, "Letter", 2159,  2794,   {} },
    { DMPAPER_LEGAL,  "Legal",  2159,  3556,   {} },
};
// clang-format on

constexpr HostPdfSettings kSettings = {{'p', 'd', 'f', '1'}, {0, 0, 0, 0}};
constexpr int32_t kHundredths = 10;  // in a tenth of a millimetre

// The margins in a device mode's private bytes: false for none, and for those that leave nothing of the paper.
bool TakeMargins(const DEVMODEA& mode, RECT* margins) {
    if (mode.dmDriverExtra != sizeof(HostPdfSettings)) return false;
    HostPdfSettings settings;
    std::memcpy(&settings, reinterpret_cast<const char*>(&mode) + mode.dmSize, sizeof settings);
    bool isGood = false;
    for (const int32_t margin : settings.margins) {
        if (margin < 0 || margin > INT16_MAX * kHundredths) return false;
        isGood = isGood || margin > 0;
    }
    *margins = {settings.margins[0], settings.margins[1], settings.margins[2], settings.margins[3]};
    return isGood && margins->left + margins->right < mode.dmPaperWidth * kHundredths &&
           margins->top + margins->bottom < mode.dmPaperLength * kHundredths;
}

void* OpenPdf(void* printer, const DEVMODEA* mode, HostPrinterMetrics* metrics) {
    RECT margins;
    if (TakeMargins(*mode, &margins)) SetMargins(margins, mode->dmOrientation == DMORIENT_LANDSCAPE, metrics);
    return OpenPdfDevice(printer, *mode, OpenPdfFile);
}

constexpr HostPrinterTraits MakePdfTraits() {
    HostPrinterTraits traits{};
    traits.papers = kPapers;
    traits.paperCount = std::size(kPapers);
    traits.dpi = kStandardDpi;
    traits.color = TRUE;
    traits.userSizes = TRUE;
    traits.privateMode = &kSettings;
    traits.privateSize = sizeof kSettings;
    return traits;
}

constexpr HostPrinterDriver kPdfDriver = PdfPageDriver("PDF", OpenPdf);
constexpr HostPrinterTraits kPdfTraits = MakePdfTraits();

}  // namespace

const HostPrinterDriver* HostPdfDriver() {
    return &kPdfDriver;
}

const HostPrinterTraits* HostPdfTraits() {
    return &kPdfTraits;
}
