// Weak stand-ins until each room is built; goes away before anything lands.
#include <morvl15/format.h>
#include <morvl15/host.h>

#include "../datetime/calendar.h"

#define INTERIM extern "C" __attribute__((weak))
INTERIM void MORVL_CALL FMTWinIniChanged(void) {}
__attribute__((weak)) int32_t FMTLoadNames() {
    return 0;
}
