#include "font_list.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <tuple>

#include "../locale/code_page.h"
#include "../locale/code_text.h"

namespace {

// ---- what fontconfig tells ----------------------------------------------------------------------------------------

struct FontFile {
    std::string family;
    std::string foldedFamily;
    int weight = 0;
    int slant = 0;
    int width = 0;
    bool isType1 = false;  // the same face often stands there in a newer form too
    std::string path;
    int index = 0;

    auto Style() const { return std::tie(foldedFamily, weight, slant, width); }
    auto Order() const { return std::tie(foldedFamily, weight, slant, width, isType1, path, index); }
};

struct FontSetCloser {
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};
struct PatternCloser {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
struct ObjectSetCloser {
    void operator()(FcObjectSet* set) const { FcObjectSetDestroy(set); }
};

std::string StringOf(const FcPattern* pattern, const char* object, int n) {
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, object, n, &text) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(text);
}

int IntegerOf(const FcPattern* pattern, const char* object) {
    int value = 0;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : 0;
}

// A font names its family in several ways. The last English one is that which counts no more than regular, italic,
// bold and bold italic as one family, as the platform does.
std::string FamilyOf(const FcPattern* pattern) {
    std::string family = StringOf(pattern, FC_FAMILY, 0);
    for (int n = 1;; ++n) {
        const std::string other = StringOf(pattern, FC_FAMILY, n);
        if (other.empty()) return family;
        if (StringOf(pattern, FC_FAMILYLANG, n) == "en") family = other;
    }
}

std::string Folded(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

FontFile FontFileOf(const FcPattern* pattern) {
    FontFile file;
    file.family = FamilyOf(pattern);
    file.foldedFamily = Folded(file.family);
    file.weight = IntegerOf(pattern, FC_WEIGHT);
    file.slant = IntegerOf(pattern, FC_SLANT);
    file.width = IntegerOf(pattern, FC_WIDTH);
    file.isType1 = StringOf(pattern, FC_FONTFORMAT, 0) == "Type 1";
    file.path = StringOf(pattern, FC_FILE, 0);
    file.index = IntegerOf(pattern, FC_INDEX);
    return file;
}

std::vector<FontFile> FontFiles() {
    const std::unique_ptr<FcPattern, PatternCloser> wanted(FcPatternCreate());
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(wanted.get(), FC_VARIABLE, FcFalse);
    const std::unique_ptr<FcObjectSet, ObjectSetCloser> objects(
        FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_WEIGHT, FC_SLANT, FC_WIDTH, FC_FONTFORMAT, FC_FILE, FC_INDEX,
                         static_cast<char*>(nullptr)));
    const std::unique_ptr<FcFontSet, FontSetCloser> set(FcFontList(nullptr, wanted.get(), objects.get()));
    std::vector<FontFile> files;
    for (int i = 0; set != nullptr && i < set->nfont; ++i) files.push_back(FontFileOf(set->fonts[i]));
    std::sort(files.begin(), files.end(), [](const FontFile& a, const FontFile& b) { return a.Order() < b.Order(); });
    const auto sameStyle = [](const FontFile& a, const FontFile& b) { return a.Style() == b.Style(); };
    files.erase(std::unique(files.begin(), files.end(), sameStyle), files.end());
    return files;
}

// ---- what the files tell ------------------------------------------------------------------------------------------

std::vector<ListedFont> ReadFonts() {
    std::vector<ListedFont> fonts;
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) return fonts;
    for (const FontFile& file : FontFiles()) {
        FT_Face face = nullptr;
        if (FT_New_Face(library, file.path.c_str(), file.index & 0xFFFF, &face) != 0) continue;
        ListedFont font = {file.family, HostReadFaceFigures(face)};
        font.figures.isItalic = file.slant != FC_SLANT_ROMAN;
        font.figures.weight = FcWeightToOpenType(file.weight);
        fonts.push_back(std::move(font));
        FT_Done_Face(face);
    }
    FT_Done_FreeType(library);
    return fonts;
}

}  // namespace

const std::vector<ListedFont>& HostFontList() {
    static const auto* fonts = new std::vector<ListedFont>(ReadFonts());
    return *fonts;
}

std::string HostReportedName(const std::string& family) {
    std::string name = TextOfUtf8(family);
    if (name.size() < LF_FACESIZE) return name;
    const CodePage& page = CurrentCodePage();
    size_t kept = 0;
    for (size_t at = 0; at < LF_FACESIZE; at += CharacterBytes(page, &name[at], name.size() - at)) kept = at;
    name.resize(kept);
    return name;
}

std::string HostFaceNameOf(const FcPattern* pattern) {
    return HostReportedName(FamilyOf(pattern));
}

std::string HostFullFaceName(const char* reported) {
    const std::string name = reported;
    std::string family = Utf8OfText(name);
    if (name.size() + 2 < LF_FACESIZE) return family;  // can't have been cut
    for (const ListedFont& font : HostFontList()) {
        if (HostReportedName(font.family) == name) return font.family;
    }
    return family;
}
