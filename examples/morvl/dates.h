// Dates and times by date pictures.
#pragma once

#include <memory>
#include <string>

#include "conversion.h"

// Reads by a picture, and gives the value in the form 2003-01-02 09:05:07, or what of it the picture has.
std::unique_ptr<Conversion> DatesRead(const std::string& picture);
