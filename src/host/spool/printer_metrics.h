// Millimetres to pixels and points.
#pragma once

#include <morvl15/host_native.h>

// The metrics of a printer at that resolution, from an upright paper and the turn of the page.
HostPrinterMetrics MetricsOf(const HostPaper& paper, bool isLandscape, INT dpi);

// Puts other margins, of the upright paper, into metrics.
void SetMargins(const RECT& margins, bool isLandscape, HostPrinterMetrics* metrics);

// The paper's sides in points, 72 to an inch, turned as the page is.
struct PageSize {
    double width;
    double height;
};
PageSize PageSizeOf(const DEVMODEA& mode);
