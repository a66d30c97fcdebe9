// Millimetres to pixels and points.
#include "printer_metrics.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int64_t kTenthsPerInch = 254;
constexpr int64_t kHundredthsPerInch = 2540;
constexpr double kPointsPerInch = 72;
constexpr DWORD kStandardEscapes = 1u << SETABORTPROC | 1u << GETPHYSPAGESIZE | 1u << GETPRINTINGOFFSET;

INT Pixels(int64_t length, INT dpi, int64_t perInch) {
    return static_cast<INT>((length * dpi + perInch / 2) / perInch);
}

// A landscape page is the upright one turned by 90 degrees against the clock: what was its top is its left side.
RECT Turned(const RECT& upright, bool isLandscape) {
    if (!isLandscape) return upright;
    return {upright.top, upright.right, upright.bottom, upright.left};
}

}  // namespace

HostPrinterMetrics MetricsOf(const HostPaper& paper, bool isLandscape, INT dpi) {
    HostPrinterMetrics metrics{};
    metrics.dpiX = metrics.dpiY = dpi;
    metrics.paperWidth = Pixels(paper.width, dpi, kTenthsPerInch);
    metrics.paperHeight = Pixels(paper.length, dpi, kTenthsPerInch);
    if (isLandscape) std::swap(metrics.paperWidth, metrics.paperHeight);
    metrics.escapes = kStandardEscapes;
    SetMargins(paper.margins, isLandscape, &metrics);
    return metrics;
}

void SetMargins(const RECT& margins, bool isLandscape, HostPrinterMetrics* metrics) {
    const RECT turned = Turned(margins, isLandscape);
    const auto pixels = [dpi = metrics->dpiX](LONG margin) { return Pixels(margin, dpi, kHundredthsPerInch); };
    metrics->offsetX = pixels(turned.left);
    metrics->offsetY = pixels(turned.top);
    metrics->printableWidth = std::max(metrics->paperWidth - metrics->offsetX - pixels(turned.right), 0);
    metrics->printableHeight = std::max(metrics->paperHeight - metrics->offsetY - pixels(turned.bottom), 0);
}

PageSize PageSizeOf(const DEVMODEA& mode) {
    PageSize size = {mode.dmPaperWidth * kPointsPerInch / kTenthsPerInch,
                     mode.dmPaperLength * kPointsPerInch / kTenthsPerInch};
    if (mode.dmOrientation == DMORIENT_LANDSCAPE) std::swap(size.width, size.height);
    return size;
}
