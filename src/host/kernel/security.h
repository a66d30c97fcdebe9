// Who may use an object.
#pragma once

#include <morvl15/host.h>

// Whether the attributes let everybody in: a descriptor with an access list that is present and null.
bool HostAllowsEverybody(const SECURITY_ATTRIBUTES* security);
