// The papers that the platform has numbers for.
#pragma once

#include <morvl15/host_native.h>

struct StandardPaper {
    int16_t id;
    const char* name;
    const char* mediaName;  // what print servers call it
    int32_t width;          // in tenths of a millimetre
    int32_t length;
};

// The paper of that size, to within half a millimetre a side, or null.
const StandardPaper* FindStandardPaper(int32_t width, int32_t length);
