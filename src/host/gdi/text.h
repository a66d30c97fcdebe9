// Text on a context: the font at its size, and lines of text in pixels.
#pragma once

#include <string_view>

#include "context.h"

// The context's font at the device's resolution; null when it can't be had.
RealisedFont* HostRealiseFont(GdiContext& context);

// The metric in the context's logical units.
TEXTMETRICA HostLogicalMetric(const GdiContext& context, const TEXTMETRICA& pixels);

// Length of a text that a call gives: below 0 is up to the terminator.
std::string_view HostTextOf(const char* text, INT bytes);
