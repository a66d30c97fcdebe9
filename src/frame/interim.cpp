// Weak stand-ins until each room is built; goes away before anything lands.
#include <morvl15/format.h>
#include <morvl15/host.h>

#include "../datetime/calendar.h"

#if defined(_WIN32)
#define INTERIM_WEAK  // linked last, and later definitions of a name are passed over
#else
#define INTERIM_WEAK __attribute__((weak))
#endif
#define INTERIM extern "C" INTERIM_WEAK
INTERIM void MORVL_CALL FMTWinIniChanged(void) {}
INTERIM_WEAK int32_t FMTLoadNames() {
    return 0;
}
