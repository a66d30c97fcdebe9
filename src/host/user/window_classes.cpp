// Window classes: the standard ones and those that an application registers.
#include <algorithm>
#include <cctype>
#include <mutex>

#include "window.h"

namespace {

std::mutex classesLock;

using Classes = std::map<std::string, std::shared_ptr<const HostWindowClass>>;

std::string KeyOf(const char* name) {
    std::string key = name;
    for (char& c : key) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return key;
}

Classes StandardClasses() {
    const HostWindowClass standard[] = {
        {"Button", HostButtonProcedure, 0, nullptr}, {"ComboBox", HostComboBoxProcedure, 0, nullptr},
        {"Edit", HostEditProcedure, 0, nullptr},     {"ListBox", HostListBoxProcedure, 0, nullptr},
        {"Static", HostStaticProcedure, 0, nullptr}, {kHostDialogClass, DefDlgProcA, DLGWINDOWEXTRA, nullptr},
    };
    Classes classes;
    for (const HostWindowClass& made : standard) {
        classes.emplace(KeyOf(made.name.c_str()), std::make_shared<HostWindowClass>(made));
    }
    return classes;
}

Classes& AllClasses() {
    static Classes classes = StandardClasses();
    return classes;
}

}  // namespace

std::shared_ptr<const HostWindowClass> HostFindClass(const char* name) {
    const std::lock_guard guard(classesLock);
    const auto found = AllClasses().find(KeyOf(name));
    return found == AllClasses().end() ? nullptr : found->second;
}

WORD RegisterClassA(const WNDCLASSA* windowClass) {
    if (windowClass->lpszClassName == nullptr || windowClass->lpfnWndProc == nullptr || windowClass->cbWndExtra < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::lock_guard guard(classesLock);
    auto made = std::make_shared<HostWindowClass>(HostWindowClass{windowClass->lpszClassName, windowClass->lpfnWndProc,
                                                                  windowClass->cbWndExtra, windowClass->hInstance});
    const bool isNew = AllClasses().emplace(KeyOf(windowClass->lpszClassName), std::move(made)).second;
    if (!isNew) SetLastError(ERROR_CLASS_ALREADY_EXISTS);
    return isNew ? 1 : 0;
}

BOOL UnregisterClassA(LPCSTR name, HINSTANCE /*instance*/) {
    const std::lock_guard guard(classesLock);
    return AllClasses().erase(KeyOf(name)) != 0 ? TRUE : FALSE;
}

INT GetClassNameA(HWND handle, LPSTR buffer, INT size) {
    const HostWindowData* window = HostFindWindow(handle);
    if (window == nullptr || size <= 0) return 0;
    lstrcpynA(buffer, window->windowClass->name.c_str(), size);
    return lstrlenA(buffer);
}
