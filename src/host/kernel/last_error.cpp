// The last-error value of a thread.
#include <morvl15/host.h>

#include "thread_local.h"

namespace {

HOST_THREAD_LOCAL DWORD lastError = ERROR_SUCCESS;

}  // namespace

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD error) {
    lastError = error;
}
