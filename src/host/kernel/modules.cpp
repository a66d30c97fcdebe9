// Modules: attaching, detaching, notifications, string tables, dialog templates.
#include "modules.h"

#include <mutex>

namespace {

constexpr DWORD kProcessDetach = 0;
constexpr DWORD kProcessAttach = 1;
constexpr DWORD kThreadDetach = 3;

std::recursive_mutex& ModulesLock() {
    static std::recursive_mutex lock;
    return lock;
}

HostModule* firstModule = nullptr;
HostModule program = {};

void Notify(HostModule* module, DWORD reason) {
    if (module->entry != nullptr) module->entry(module, reason, nullptr);
}

// The link that leads to a module, or the empty one at the end of the list.
HostModule** LinkTo(const HostModule* module) {
    HostModule** link = &firstModule;
    while (*link != nullptr && *link != module) link = &(*link)->next;
    return link;
}

}  // namespace

void HostAttachModule(HostModule* module) {
    const std::lock_guard guard(ModulesLock());
    if (*LinkTo(module) != nullptr) return;
    module->next = firstModule;
    firstModule = module;
    Notify(module, kProcessAttach);
}

void HostDetachModule(HostModule* module) {
    const std::lock_guard guard(ModulesLock());
    if (*LinkTo(module) == nullptr) return;
    Notify(module, kProcessDetach);
    *LinkTo(module) = module->next;  // sought anew: the module may have attached or detached others
}

void HostNotifyThreadDetach() {
    const std::lock_guard guard(ModulesLock());
    for (HostModule* module = firstModule; module != nullptr; module = module->next) Notify(module, kThreadDetach);
}

void HostSetProgramStrings(const HostString* strings, size_t count) {
    program.strings = strings;
    program.stringCount = count;
}

void HostSetProgramDialogs(const HostDialog* dialogs, size_t count) {
    program.dialogs = dialogs;
    program.dialogCount = count;
}

const HostDialog* HostFindDialog(HINSTANCE instance, const char* name) {
    const HostModule& module = instance != nullptr ? *instance : program;
    for (size_t i = 0; i < module.dialogCount; ++i) {
        if (_stricmp(module.dialogs[i].name, name) == 0) return &module.dialogs[i];
    }
    return nullptr;
}

const char* HostFindString(HINSTANCE instance, UINT id) {
    const HostModule& module = instance != nullptr ? *instance : program;
    for (size_t i = 0; i < module.stringCount; ++i) {
        if (module.strings[i].id == id) return module.strings[i].text;
    }
    return nullptr;
}
