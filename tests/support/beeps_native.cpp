#include <morvl15/host_native.h>

#include "support/beeps.h"

std::optional<int> TakeBeeps() {
    return static_cast<int>(HostTakeBeeps());
}
