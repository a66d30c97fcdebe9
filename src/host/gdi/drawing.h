// How the drawing calls draw through cairo: in pixels of the device, inside the context's clip rectangle.
#pragma once

#include <optional>

#include "context.h"

void HostSetColor(cairo_t* cairo, COLORREF color);

// One drawing call's hold on a context: the settings that it makes end with it. Empty where nothing can be drawn, for
// which the call answers that all is well if the context is a good one, as drawing outside of a page does.
class Drawing {
  public:
    explicit Drawing(const GdiContext& context);

    explicit operator bool() const { return cairo_ != nullptr; }
    cairo_t* Get() const { return cairo_; }

    // Fills a rectangle of whole pixels.
    void Fill(const RECT& device, COLORREF color);

    // Fills, then strokes the current path with the context's brush and pen. The path stands on pixels' centres.
    void FillPath();
    void StrokePath();

  private:
    const GdiContext& context_;
    cairo_t* cairo_;
    std::optional<CairoState> kept_;
};
