// A chain of dialogs.
#include <morvl15/dialog.h>

static_assert(sizeof(DlgWizardInfo) == 16 + 4 * sizeof(void*));
static_assert(offsetof(DlgWizardInfo, Instance) == 4 + sizeof(void*));
static_assert(offsetof(DlgWizardInfo, Count) == 4 + 4 * sizeof(void*));

namespace {

struct Page {
    const char* name;
    DLGPROC procedure;
};

// Walks to a page from the first one. A page without a name is behind the last.
Page FindPage(const DlgWizardInfo& info, int32_t index) {
    const char* name = info.Templates;
    for (int32_t i = 0;; ++i) {
        const DLGPROC procedure = info.Procs[i];
        if (*name == 0 || procedure == nullptr) return {nullptr, nullptr};
        if (i == index) return {name, procedure};
        name += lstrlenA(name) + 1;
    }
}

// Runs the page that is to be next. Whether the wizard goes on. An owner that has gone is told apart here: the platform
// answers 0 then, as an ended dialog may, and the same page would be next for ever.
bool RunPage(DlgWizardInfo* info) {
    const int32_t index = info->Next;
    if (index >= info->Count || (info->Owner != nullptr && !IsWindow(info->Owner))) return false;
    const Page page = FindPage(*info, index);
    if (page.name == nullptr) return false;
    info->Current = static_cast<uint32_t>(index);
    const auto answer =
        DialogBoxParamA(info->Instance, page.name, info->Owner, page.procedure, reinterpret_cast<LPARAM>(info));
    return answer != -1 && answer != IDCANCEL;
}

}  // namespace

int32_t MORVL_CALL DlgDoDlgWizard(DlgWizardInfo* info) {
    if (info == nullptr || info->Templates == nullptr || info->Procs == nullptr || info->Instance == nullptr) return 0;
    while (info->Next >= 0) {
        if (!RunPage(info)) return 0;
    }
    return 1;
}
