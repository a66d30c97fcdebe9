// The calendar under dates: day numbers, names, eras, the century rule.
#pragma once

#include <morvl15/datetime.h>

// Loads the month and day names and the words of the profile from the string table. 1 on success, 0 on failure.
int32_t FMTLoadNames();

int32_t FMTDateToDayNumber(int32_t month, int32_t day, int32_t year);
void FMTDayNumberToDate(int32_t dayNumber, DatDef* datDef);
int32_t FMTDayOfWeek(int32_t month, int32_t day, int32_t year);
int32_t FMTIsValidDate(int32_t month, int32_t day, int32_t year, const char* dayName);
int32_t FMTFindMonthName(const char* text);
int32_t FMTFindDayName(const char* text);
const char* FMTMonthAbbrev(int32_t month);
const char* FMTMonthFull(int32_t month);
const char* FMTDayAbbrev(int32_t code);
const char* FMTDayFull(int32_t code);
int32_t FMTMaxMonthNameLen();
int32_t FMTMaxDayNameLen();
int32_t FMTCenturyFor(int32_t twoDigits);
