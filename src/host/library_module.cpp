// The library as a module of the native host: its resources, and the object whose life is the library's attachment to
// the process. Linked into the library, not into the host.
#include <iterator>

#include <morvl15/host_native.h>

#include "../frame/entry.h"

namespace {

constexpr HostString kStrings[] = {
#define STRING(id, text) {id, text},
#include "../resources/strings.def"
#undef STRING
};

// Each template's controls, then the templates.
#define DIALOG_BEGIN(name, ...) constexpr HostDialogControl k##name##Controls[] = {
#define CONTROL_OF(...) {__VA_ARGS__},
#define DIALOG_END \
    }              \
    ;
#include "../resources/dialogs.def"
#undef DIALOG_BEGIN
#undef CONTROL_OF
#undef DIALOG_END

constexpr HostDialog kDialogs[] = {
#define DIALOG_BEGIN(name, ...) {#name, __VA_ARGS__, k##name##Controls, std::size(k##name##Controls)},
#define CONTROL_OF(...)
#define DIALOG_END
#include "../resources/dialogs.def"
#undef DIALOG_BEGIN
#undef CONTROL_OF
#undef DIALOG_END
};

HostModule libraryModule = {"libmorvl15.so",     DllMain, kStrings, std::size(kStrings), kDialogs,
                            std::size(kDialogs), nullptr};

struct LibraryAttachment {
    LibraryAttachment() { HostAttachModule(&libraryModule); }
    ~LibraryAttachment() { HostDetachModule(&libraryModule); }
    LibraryAttachment(const LibraryAttachment&) = delete;
    LibraryAttachment& operator=(const LibraryAttachment&) = delete;
};

const LibraryAttachment libraryAttachment;

}  // namespace

// A static library takes this object file in by the name.
extern "C" const int morvl15LibraryModule = 1;
