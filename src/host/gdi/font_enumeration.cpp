// The fonts of the machine, told one by one at a context's resolution.
#include <cstring>

#include "font_list.h"
#include "mapping.h"
#include "text.h"

namespace {

constexpr double kPoints = 12;  // any size can be had: this one is told of

struct EnumeratedFont {
    LOGFONTA font;
    TEXTMETRICA metric;
    DWORD type;
};

EnumeratedFont Describe(const GdiContext& context, const ListedFont& listed, const std::string& name) {
    const SIZE& dots = context.device->Figures().dotsPerInch;
    const FaceFigures& figures = listed.figures;
    EnumeratedFont told = {};
    told.metric = HostLogicalMetric(context, HostMetricOf(figures, kPoints * dots.cy / 72, 1, dots));
    told.font.lfHeight = told.metric.tmHeight;
    told.font.lfWidth = told.metric.tmAveCharWidth;
    told.font.lfWeight = figures.weight;
    told.font.lfItalic = figures.isItalic ? 1 : 0;
    told.font.lfCharSet = told.metric.tmCharSet;
    told.font.lfPitchAndFamily = HostPitchAndFamilyOf(figures);
    std::memcpy(told.font.lfFaceName, name.c_str(), name.size() + 1);
    told.type = figures.isTrueType ? TRUETYPE_FONTTYPE : DEVICE_FONTTYPE;
    return told;
}

// Whether a list that names each face once has this font in it: the first upright one of about normal weight, or the
// first of all.
const ListedFont& FaceOf(const ListedFont* first, const ListedFont* end) {
    for (const ListedFont* font = first; font != end; ++font) {
        if (!font->figures.isItalic && font->figures.weight >= FW_NORMAL) return *font;
    }
    return *first;
}

}  // namespace

INT EnumFontsA(HDC dc, LPCSTR face, FONTENUMPROCA callback, LPARAM value) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || callback == nullptr) return 0;
    const bool allFaces = face == nullptr || face[0] == 0;
    const std::vector<ListedFont>& fonts = HostFontList();
    const ListedFont* const end = fonts.data() + fonts.size();
    INT result = 1;
    const auto tell = [&](const ListedFont& font, const std::string& name) {
        const EnumeratedFont told = Describe(*context, font, name);
        result = callback(&told.font, &told.metric, told.type, value);
        return result != 0;
    };
    for (const ListedFont* first = fonts.data(); first != end;) {
        const ListedFont* next = first + 1;
        while (next != end && next->family == first->family) ++next;
        const std::string name = HostReportedName(first->family);
        if (allFaces) {
            if (!tell(FaceOf(first, next), name)) return result;
        } else if (lstrcmpiA(name.c_str(), face) == 0) {
            for (const ListedFont* font = first; font != next; ++font) {
                if (!tell(*font, name)) return result;
            }
        }
        first = next;
    }
    return result;
}
