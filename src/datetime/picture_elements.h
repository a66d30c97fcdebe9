// The elements of a picture as an array. Callers go on with the same few pictures, so a thread keeps those that it used
// last, and reads a picture again only where another has taken its place.
#pragma once

#include "date_elements.h"

// All zero is the empty picture, which is rejected.
struct PictureElements {
    static constexpr int32_t kRoom = 48;  // bytes of a picture, the terminator included
    static constexpr int32_t kMost = 24;

    char picture[kRoom];
    bool accepted;  // a rejected picture has no elements
    int32_t count;
    DateElement elements[kMost];  // their texts stand in `picture`
};

// The elements that FMTParseDatePic gives for a picture; valid until the thread's next call. Null for a picture that is
// longer or has more elements than is kept.
const PictureElements* FMTPictureElements(const char* picture);
