// A module that has nothing but its version texts, if any.
#include <morvl15/host.h>

#if !defined(_WIN32)
#include <morvl15/host_native.h>

// What the native host knows a module by.
extern "C" {
__attribute__((visibility("default"))) HostModule testModule = {"test", nullptr, nullptr, 0, nullptr, 0, nullptr};
}
#endif
