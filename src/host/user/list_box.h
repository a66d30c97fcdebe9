// What a person needs to know of list boxes.
#pragma once

#include <morvl15/host.h>

constexpr INT kHostListEntryHeight = 13;  // pixels
