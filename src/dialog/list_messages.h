// The entries of list boxes and combo boxes, which differ in nothing but their messages.
#pragma once

#include <morvl15/host.h>

struct DlgListMessages {
    UINT find;  // the first entry that begins with a text
    UINT count;
    UINT textLength;
    UINT text;
    UINT add;
};

extern const DlgListMessages kDlgListBox;
extern const DlgListMessages kDlgComboBox;

// The text of an entry, in a block of its own for as long as this lives.
class DlgEntryText {
  public:
    DlgEntryText(HWND list, const DlgListMessages& messages, int32_t index);
    ~DlgEntryText();
    DlgEntryText(const DlgEntryText&) = delete;
    DlgEntryText& operator=(const DlgEntryText&) = delete;

    int32_t Length() const { return length_; }  // in bytes; 0 as well where there is no such entry
    const char* Text() const { return text_; }  // null where there is no memory, and for a length of 0

  private:
    int32_t length_;
    char* text_ = nullptr;
};
