// Modules: attaching, detaching, notifications, string tables.
#include "modules.h"

#include <mutex>

namespace {

std::recursive_mutex& ModulesLock() {
    static std::recursive_mutex lock;
    return lock;
}

HostModule* firstModule = nullptr;
HostModule program = {};

void Notify(HostModule* module, DWORD reason) {
    if (module->entry != nullptr) module->entry(module, reason, nullptr);
}

}  // namespace

void HostAttachModule(HostModule* module) {
    const std::lock_guard guard(ModulesLock());
    module->next = firstModule;
    firstModule = module;
    Notify(module, 1);
}

void HostDetachModule(HostModule* module) {
    const std::lock_guard guard(ModulesLock());
    for (HostModule** link = &firstModule; *link != nullptr; link = &(*link)->next) {
        if (*link != module) continue;
        Notify(module, 0);
        *link = module->next;
        return;
    }
}

void HostNotifyThreadDetach() {
    const std::lock_guard guard(ModulesLock());
    for (HostModule* module = firstModule; module != nullptr; module = module->next) Notify(module, 3);
}

void HostSetProgramStrings(const HostString* strings, size_t count) {
    program.strings = strings;
    program.stringCount = count;
}

const char* HostFindString(HINSTANCE instance, UINT id) {
    const HostModule& module = instance != nullptr ? *instance : program;
    for (size_t i = 0; i < module.stringCount; ++i) {
        if (module.strings[i].id == id) return module.strings[i].text;
    }
    return nullptr;
}
