// Texts by masks.
#pragma once

#include <memory>
#include <string>

#include "conversion.h"

// Takes a mask off.
std::unique_ptr<Conversion> MasksRead(const std::string& picture);
