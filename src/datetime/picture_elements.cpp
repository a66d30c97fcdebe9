#include "picture_elements.h"

#include <cstring>

#include "picture_parser.h"

namespace {

constexpr unsigned kKept = 4;
thread_local PictureElements kept[kKept];

// Where a picture has its place: short and long dates, with the year or the month first, and times have their own.
PictureElements& PlaceOf(const char* picture) {
    return kept[static_cast<unsigned char>(*picture) / 4 % kKept];
}

// Reads a picture into its place. False, and an empty place, for one that doesn't fit.
bool Read(const char* picture, PictureElements* place) {
    const size_t length = std::strlen(picture);
    place->picture[0] = 0;
    place->accepted = false;
    place->count = 0;
    if (length >= PictureElements::kRoom) return false;

    std::memcpy(place->picture, picture, length + 1);
    DateElementReader reader(place->picture, ScanState::kPicture);
    DateElement beyond;
    int32_t count = 0;
    while (reader.Read(count < PictureElements::kMost ? &place->elements[count] : &beyond)) ++count;
    if (count > PictureElements::kMost) {
        place->picture[0] = 0;
        return false;
    }
    place->accepted = reader.Accepted();
    place->count = place->accepted ? count : 0;
    return true;
}

}  // namespace

const PictureElements* FMTPictureElements(const char* picture) {
    PictureElements& place = PlaceOf(picture);
    return std::strcmp(place.picture, picture) == 0 || Read(picture, &place) ? &place : nullptr;
}
