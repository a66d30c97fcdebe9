// Dates and times.
#ifndef MORVL15_DATETIME_H
#define MORVL15_DATETIME_H

#include <morvl15/base.h>
#include <morvl15/format.h>

MORVL_BEGIN_C

#pragma pack(push, 1)
typedef struct DatDef {
    int32_t Month;
    int32_t Day;
    int32_t Year;
    int32_t Hour;
    int32_t Minute;
    int32_t Second;
    int32_t Microsecond;
} DatDef;
#pragma pack(pop)

MORVL_API int32_t MORVL_CALL FMTIsoToDatDef(const char* text, DatDef* datDef);

MORVL_END_C

#endif
