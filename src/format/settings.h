// The cached regional settings and the accessors through which every FMT operation reads them.
#pragma once

#include <morvl15/format.h>

const char* FMTGetIntlString(int32_t selector);
int32_t FMTGetIntlValue(int32_t selector);
