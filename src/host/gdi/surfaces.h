// Cairo's objects as owners that give them back.
#pragma once

#include <cairo.h>

#include <memory>

struct SurfaceCloser {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceCloser>;

struct CairoCloser {
    void operator()(cairo_t* cairo) const { cairo_destroy(cairo); }
};
using Cairo = std::unique_ptr<cairo_t, CairoCloser>;

struct ScaledFontCloser {
    void operator()(cairo_scaled_font_t* font) const { cairo_scaled_font_destroy(font); }
};
using ScaledFont = std::unique_ptr<cairo_scaled_font_t, ScaledFontCloser>;

struct FontFaceCloser {
    void operator()(cairo_font_face_t* face) const { cairo_font_face_destroy(face); }
};
using FontFaceOwner = std::unique_ptr<cairo_font_face_t, FontFaceCloser>;

// Keeps cairo's settings as they were at its end.
class CairoState {
  public:
    explicit CairoState(cairo_t* cairo) : cairo_(cairo) { cairo_save(cairo_); }
    ~CairoState() { cairo_restore(cairo_); }
    CairoState(const CairoState&) = delete;
    CairoState& operator=(const CairoState&) = delete;

  private:
    cairo_t* cairo_;
};
