// A logical font, and the face of the machine that stands for it.
#pragma once

#include <mutex>
#include <string>

#include "objects.h"

struct MatchedFace {
    FontFaceOwner face;
    std::string name;  // as it is reported, in the code page in force at the time
};

// The face of the machine that comes nearest to a logical font. There is always one as long as the machine has any
// font; cairo has a stand-in where it has none.
std::shared_ptr<const MatchedFace> HostMatchFace(const LOGFONTA& font);

struct GdiFont : GdiObject {
    static constexpr GdiKind kKind = GdiKind::kFont;
    explicit GdiFont(const LOGFONTA& font) : GdiObject(kKind), logicalFont(font) {
        logicalFont.lfFaceName[LF_FACESIZE - 1] = 0;
    }

    // Looked for when it is first asked for.
    std::shared_ptr<const MatchedFace> Face() {
        std::call_once(matched_, [this] { face_ = HostMatchFace(logicalFont); });
        return face_;
    }

    LOGFONTA logicalFont;

  private:
    std::once_flag matched_;
    std::shared_ptr<const MatchedFace> face_;
};
