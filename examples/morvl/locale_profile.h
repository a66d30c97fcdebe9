// The conventions of the machine's locale, as the keys of the profile hold them.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct ProfileValue {
    const char* key;
    std::string value;  // in the code page in force
};

// The conventions of a locale by name, or for an empty one of LC_ALL, LC_..., LANG. Null where it isn't installed or
// tells nothing of money ("C"); `problem` says so. Sets the program's locale.
std::optional<std::vector<ProfileValue>> ConventionsOfLocale(const std::string& name, std::string* problem);
