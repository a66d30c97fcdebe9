// The scalable fonts of the machine, read once.
#pragma once

#include <fontconfig/fontconfig.h>

#include <string>
#include <vector>

#include "face_figures.h"

struct ListedFont {
    std::string family;  // UTF-8
    FaceFigures figures;
};

// By family without regard to case, then from the lightest on, upright before slanted, wide after narrow.
const std::vector<ListedFont>& HostFontList();

// A family's name as it is reported: in the code page in force, cut between characters to what LOGFONTA holds.
std::string HostReportedName(const std::string& family);
std::string HostFaceNameOf(const FcPattern* pattern);

// The family, in UTF-8, of a reported name.
std::string HostFullFaceName(const char* reported);
