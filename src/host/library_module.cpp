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

HostModule libraryModule = {"libmorvl15.so", DllMain, kStrings, std::size(kStrings), nullptr};

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
