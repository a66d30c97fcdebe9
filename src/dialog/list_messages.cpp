#include "list_messages.h"

#include <morvl15/memory.h>

const DlgListMessages kDlgListBox = {LB_FINDSTRING, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_ADDSTRING};
const DlgListMessages kDlgComboBox = {CB_FINDSTRING, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_ADDSTRING};

DlgEntryText::DlgEntryText(HWND list, const DlgListMessages& messages, int32_t index)
    : length_(static_cast<int32_t>(SendMessageA(list, messages.textLength, static_cast<WPARAM>(index), 0))) {
    if (length_ < 0) length_ = 0;
    if (length_ == 0) return;
    text_ = static_cast<char*>(MemAlloc(static_cast<uint32_t>(length_) + 1));
    if (text_ != nullptr) {
        SendMessageA(list, messages.text, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text_));
    }
}

DlgEntryText::~DlgEntryText() {
    MemFree(text_);
}
