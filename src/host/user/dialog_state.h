// What a dialog knows besides its window, and what modal dialogs and message boxes share.
#pragma once

#include <utility>

#include <morvl15/host_native.h>

#include "window.h"

struct HostDialogState : HostControl {
    bool ended = false;
    INT_PTR result = IDCANCEL;  // until EndDialog tells another: a request to quit cancels
    INT defaultId = 0;          // of the default push button; 0 for none
};

// The owner of a modal window takes no input while this lives, unless it took none before.
class HostDisabledOwner {
  public:
    explicit HostDisabledOwner(HWND owner);
    ~HostDisabledOwner() { Enable(); }
    HostDisabledOwner(const HostDisabledOwner&) = delete;
    HostDisabledOwner& operator=(const HostDisabledOwner&) = delete;

    void Enable() const;

  private:
    mutable HWND window_ = nullptr;
};

// Gives a control of a dialog the focus; all text of an edit control is selected.
void HostFocusControl(HWND control);
