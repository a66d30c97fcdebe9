// What stands in a module's file.
#pragma once

#include <string>

// The bytes of a section of an ELF file of this machine's kind. Empty when there is no such file or section.
std::string HostReadSection(const char* path, const char* section);
