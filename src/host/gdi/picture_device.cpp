#include "picture_device.h"

Surface HostMakePicture(INT width, INT height) {
    Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) surface.reset();
    return surface;
}

ScreenDevice::ScreenDevice(SIZE size) {
    figures_.printable = size;
}

cairo_t* ScreenDevice::Drawing() {
    if (cairo_ == nullptr) {
        const Surface surface = HostMakePicture(figures_.printable.cx, figures_.printable.cy);
        if (surface == nullptr) return nullptr;
        cairo_.reset(cairo_create(surface.get()));
        cairo_set_source_rgb(cairo_.get(), 1, 1, 1);
        cairo_paint(cairo_.get());
    }
    return cairo_.get();
}

MemoryDevice::MemoryDevice(const DeviceFigures& compatible)
    : first_(std::make_shared<GdiBitmap>(HostMakePicture(1, 1))) {
    figures_.dotsPerInch = compatible.dotsPerInch;
    HostOpenGdiObject(first_);
    first_->isStock = true;  // nobody else's to delete
    Select(first_);
}

MemoryDevice::~MemoryDevice() {
    HostCloseGdiObject(first_->handle);
}

std::shared_ptr<GdiBitmap> MemoryDevice::Select(std::shared_ptr<GdiBitmap> bitmap) {
    cairo_.reset(cairo_create(bitmap->surface.get()));
    figures_.printable = {cairo_image_surface_get_width(bitmap->surface.get()),
                          cairo_image_surface_get_height(bitmap->surface.get())};
    bitmap_.swap(bitmap);
    return bitmap;
}
