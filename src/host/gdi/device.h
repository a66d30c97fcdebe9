// What a context draws on, and its figures.
#pragma once

#include <morvl15/host.h>

#include "surfaces.h"

// All in pixels, but for the dots per inch.
struct DeviceFigures {
    INT technology = DT_RASDISPLAY;
    SIZE dotsPerInch = {96, 96};
    SIZE printable = {};  // the part that can be drawn on, device coordinate (0, 0) at its corner
    SIZE paper = {};      // printers only
    POINT offset = {};    // of the printable part from the paper's corner
    INT bitsPerPixel = 32;
};

class Device {
  public:
    Device() = default;
    virtual ~Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    virtual const DeviceFigures& Figures() const = 0;

    // Where to draw, a user unit a pixel, (0, 0) at the corner of the printable part; null while there is no place.
    virtual cairo_t* Drawing() = 0;

    // Whether drawing ends up in pixels, so that shapes should cover whole ones.
    virtual bool IsPicture() const = 0;
};
