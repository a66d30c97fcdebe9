// Devices that are pictures in memory: the screen, and contexts in memory.
#pragma once

#include <memory>

#include "device.h"
#include "objects.h"

// An image of that many pixels, black; empty where there is no memory for it.
Surface HostMakePicture(INT width, INT height);

// A picture that is made when it is first drawn on. Nobody sees it, and it goes with its context.
class ScreenDevice : public Device {
  public:
    explicit ScreenDevice(SIZE size);

    const DeviceFigures& Figures() const override { return figures_; }
    cairo_t* Drawing() override;
    bool IsPicture() const override { return true; }

  private:
    DeviceFigures figures_;
    Cairo cairo_;
};

// A bitmap that a context in memory has selected.
class MemoryDevice : public Device {
  public:
    // As many dots an inch as the device has that it is compatible with.
    explicit MemoryDevice(const DeviceFigures& compatible);
    ~MemoryDevice() override;

    const DeviceFigures& Figures() const override { return figures_; }
    cairo_t* Drawing() override { return cairo_.get(); }
    bool IsPicture() const override { return true; }

    // Draws on another bitmap from now on. The result is the one before.
    std::shared_ptr<GdiBitmap> Select(std::shared_ptr<GdiBitmap> bitmap);

  private:
    DeviceFigures figures_;
    std::shared_ptr<GdiBitmap> bitmap_;
    std::shared_ptr<GdiBitmap> first_;  // of one pixel, the context's own
    Cairo cairo_;
};
