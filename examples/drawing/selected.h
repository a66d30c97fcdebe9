// For programs that draw.
#pragma once

#include <morvl15/host.h>

// A pen, brush or font that is selected for a scope, and deleted behind it.
class Selected {
  public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), object_(object), before_(SelectObject(dc, object)) {}
    ~Selected() {
        SelectObject(dc_, before_);
        DeleteObject(object_);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC dc_;
    HGDIOBJ object_;
    HGDIOBJ before_;
};
