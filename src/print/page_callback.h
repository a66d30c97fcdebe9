// The layout as the job's callback.
#pragma once

#include "job_loop.h"
#include "page_layout.h"

// Result: 1 for each command; 0 for kJobBegin when there is no paper, and for kJobNextSheet when there is no other
// sheet. `context` is the PageLayoutState.
int32_t PageJobCallback(HDC dc, int32_t command, const RECT* rectangle, void* context, int32_t zero1, int32_t zero2,
                        int32_t zero3);
