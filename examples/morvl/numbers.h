// Numbers by number pictures.
#pragma once

#include <memory>
#include <string>

#include "conversion.h"

// Bytes that any number shown by a picture in the code page needs, the terminator included. "" and "$" are the layouts
// of the settings in force.
size_t RoomForNumber(const std::string& picture);

// Reads what was made by a picture, and gives the number in plain digits.
std::unique_ptr<Conversion> NumbersRead(const std::string& picture);
