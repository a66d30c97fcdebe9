// Logical and device coordinates of a context.
#pragma once

#include "context.h"

POINT HostToDevice(const GdiContext& context, POINT logical);
POINT HostToLogical(const GdiContext& context, POINT device);

// A rectangle in pixels, its sides in order, whichever way the mapping mode counts.
RECT HostToDevice(const GdiContext& context, const RECT& logical);

// Lengths, which have no direction: a positive one stays positive.
INT HostWidthToDevice(const GdiContext& context, INT width);
INT HostHeightToDevice(const GdiContext& context, INT height);
INT HostWidthToLogical(const GdiContext& context, INT pixels);
INT HostHeightToLogical(const GdiContext& context, INT pixels);
