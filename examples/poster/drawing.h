// What the poster shows.
#pragma once

#include <morvl15/print.h>

struct Poster {
    int32_t width;  // thousandths of an inch
    int32_t height;
    const char* title;
};

// Draws the whole poster; its upper left corner is (0, 0), y grows upward. `value` is the address of a Poster.
int32_t MORVL_CALL DrawPoster(HDC dc, int32_t command, const RECT* band, uintptr_t value, int32_t zero1, int32_t zero2,
                              int32_t zero3);
