// The picture of a command: brought into the code page, tested, and where it is bad shown with its place.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "command.h"

struct PictureKind {
    const char* name;                            // "number picture"
    const char* page;                            // that tells the language
    bool (*isValid)(const std::string&);         // of a picture in the code page
    std::span<const char* const> continuations;  // with which the beginning of a good picture becomes a whole one
    std::string (*hint)();                       // a last line for the message
};

extern const PictureKind kNumberPicture;
extern const PictureKind kDatePicture;
extern const PictureKind kMaskPicture;

// The picture in the code page; null, with a message on standard error, where it is bad.
std::optional<std::string> TakePicture(const Command& command, const PictureKind& kind, const std::string& utf8);
