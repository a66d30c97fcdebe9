// Lists without doubles.
#include <morvl15/dialog.h>

#include "list_messages.h"

namespace {

enum class Walk : uint8_t { kFound, kNotFound, kNoMemory };

int32_t CountOf(HWND list, const DlgListMessages& messages) {
    return static_cast<int32_t>(SendMessageA(list, messages.count, 0, 0));
}

// Looks for a text, case counting, from the first entry that begins with it but for the case. The list is taken to be
// sorted: behind the last entry with the same first byte nothing is sought.
Walk FindAmongSimilar(HWND list, const DlgListMessages& messages, const char* text) {
    const auto first = static_cast<int32_t>(
        SendMessageA(list, messages.find, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text)));
    if (first < 0) return Walk::kNotFound;
    for (int32_t index = first; index < CountOf(list, messages); ++index) {
        const DlgEntryText entry(list, messages, index);
        if (entry.Length() == 0) break;
        if (entry.Text() == nullptr) return Walk::kNoMemory;
        if (lstrcmpA(entry.Text(), text) == 0) return Walk::kFound;
        if (entry.Text()[0] != text[0]) break;
    }
    return Walk::kNotFound;
}

int32_t AddDistinct(HWND list, const DlgListMessages& messages, const char* text) {
    if (text == nullptr) return 0;
    if (text[0] == 0) return 1;
    switch (FindAmongSimilar(list, messages, text)) {
        case Walk::kFound: return 1;
        case Walk::kNoMemory: return 0;
        case Walk::kNotFound: break;
    }
    const auto added = static_cast<int32_t>(SendMessageA(list, messages.add, 0, reinterpret_cast<LPARAM>(text)));
    return added != LB_ERR && added != LB_ERRSPACE ? 1 : 0;
}

}  // namespace

int32_t MORVL_CALL DlgAddDistinctStringIntoListbox(HWND list, const char* text) {
    return AddDistinct(list, kDlgListBox, text);
}

int32_t MORVL_CALL DlgAddDistinctStringIntoCombo(HWND combo, const char* text) {
    return AddDistinct(combo, kDlgComboBox, text);
}

int32_t MORVL_CALL DlgLocateStringInListbox(HWND list, const char* text) {
    constexpr int32_t kNotFound = -1;
    if (text == nullptr || text[0] == 0) return kNotFound;
    const int32_t count = CountOf(list, kDlgListBox);
    for (int32_t index = 0; index < count; ++index) {
        const DlgEntryText entry(list, kDlgListBox, index);
        if (entry.Length() == 0) return kNotFound;
        if (entry.Text() == nullptr) return 0;
        if (lstrcmpA(entry.Text(), text) == 0) return index;
    }
    return kNotFound;
}
