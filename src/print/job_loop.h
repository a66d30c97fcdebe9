// The loop of a print job. It knows nothing of pages: what is printed, and when it ends, is its callback's affair.
#pragma once

#include <morvl15/print.h>

enum : int32_t {
    kJobNextSheet = 1,  // before each sheet after the first: nonzero if there is one
    kJobRender = 3,     // each sheet: nonzero to go on
    kJobBegin = 10,     // the document has started: 0 if there is nothing to print on, which ends the job as failed
    kJobEnd = 11,       // the end of a job that wasn't stopped
};

// `rectangle` is the paper in device pixels, from (0, 0); for kJobRender the sheet's band, which is the same.
using PrintJobCallback = int32_t (*)(HDC dc, int32_t command, const RECT* rectangle, void* context, int32_t zero1,
                                     int32_t zero2, int32_t zero3);

// Runs a job from the opening of the device to its close. Its outcome is the record's status; null does nothing.
void PrintRunJob(HWND owner, PrintJobRec* record, PrintJobCallback callback, void* context);
