// What tests of drawing need: a picture in memory, and what is selected into it.
#pragma once

#include <cairo.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <ostream>

#include <morvl15/host_native.h>

#include "../../examples/drawing/selected.h"

// Rectangles and points are compared as wholes.
inline bool operator==(const RECT& a, const RECT& b) {
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}
inline bool operator==(const POINT& a, const POINT& b) {
    return a.x == b.x && a.y == b.y;
}
inline std::ostream& operator<<(std::ostream& out, const RECT& r) {
    return out << r.left << ' ' << r.top << ' ' << r.right << ' ' << r.bottom;
}
inline std::ostream& operator<<(std::ostream& out, const POINT& p) {
    return out << p.x << ' ' << p.y;
}

inline LOGFONTA FontOf(const char* face, LONG height) {
    LOGFONTA font = {};
    font.lfHeight = height;
    std::snprintf(font.lfFaceName, sizeof font.lfFaceName, "%s", face);
    return font;
}

// A pixel of a picture, 0xRRGGBB.
inline uint32_t PixelOf(cairo_surface_t* picture, INT x, INT y) {
    cairo_surface_flush(picture);
    const unsigned char* row = cairo_image_surface_get_data(picture) + y * cairo_image_surface_get_stride(picture);
    return reinterpret_cast<const uint32_t*>(row)[x] & 0xFFFFFF;
}

class TestPicture {
  public:
    TestPicture(INT width, INT height) : whole_{0, 0, width, height}, dc_(CreateCompatibleDC(nullptr)) {
        HDC screen = GetDC(nullptr);
        bitmap_.emplace(dc_, CreateCompatibleBitmap(screen, width, height));
        ReleaseDC(nullptr, screen);
        FillRect(dc_, &whole_, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    }
    ~TestPicture() {
        bitmap_.reset();
        DeleteDC(dc_);
    }
    TestPicture(const TestPicture&) = delete;
    TestPicture& operator=(const TestPicture&) = delete;

    operator HDC() const { return dc_; }

    uint32_t At(INT x, INT y) const { return PixelOf(cairo_get_target(HostGetCairo(dc_)), x, y); }

    // The smallest rectangle around all that isn't white; empty for a white picture.
    RECT Inked() const {
        RECT inked = {whole_.right, whole_.bottom, 0, 0};
        for (INT y = 0; y < whole_.bottom; ++y) {
            for (INT x = 0; x < whole_.right; ++x) {
                if (At(x, y) == 0xFFFFFF) continue;
                inked = {std::min(inked.left, x), std::min(inked.top, y), std::max(inked.right, x + 1),
                         std::max(inked.bottom, y + 1)};
            }
        }
        return inked;
    }

  private:
    const RECT whole_;
    HDC dc_;
    std::optional<Selected> bitmap_;
};
