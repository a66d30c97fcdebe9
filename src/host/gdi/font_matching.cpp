// Which face of the machine stands for a logical font: fontconfig's choice, with the platform's own face names told in
// the words that it knows. Choices are kept, since drawing code makes the same fonts again for each page.
#include <cairo-ft.h>
#include <fontconfig/fontconfig.h>

#include <cstring>
#include <map>
#include <mutex>

#include "../locale/code_page.h"
#include "../locale/code_text.h"
#include "font.h"
#include "font_list.h"

namespace {

constexpr size_t kMostKept = 256;

struct PatternCloser {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternCloser>;

const FcChar8* AsFc(const char* text) {
    return reinterpret_cast<const FcChar8*>(text);
}

// Faces that every program of the platform counts on, and that no machine of another kind has.
struct Alias {
    const char* name;
    const char* family;
};
constexpr Alias kAliases[] = {
    {"Helv", "sans-serif"},         {"MS Sans Serif", "sans-serif"},
    {"MS Shell Dlg", "sans-serif"}, {"MS Shell Dlg 2", "sans-serif"},
    {"System", "sans-serif"},       {"Tms Rmn", "serif"},
    {"MS Serif", "serif"},          {"Terminal", "monospace"},
    {"Fixedsys", "monospace"},
};

std::string FamilyOf(const char* face) {
    for (const Alias& alias : kAliases) {
        if (lstrcmpiA(alias.name, face) == 0) return alias.family;
    }
    return HostFullFaceName(face);
}

const char* GenericFamilyOf(BYTE pitchAndFamily) {
    const int family = pitchAndFamily & 0xF0;
    if (family == FF_MODERN || (pitchAndFamily & 0x03) == FIXED_PITCH) return "monospace";
    if (family == FF_ROMAN) return "serif";
    return family == FF_SCRIPT ? "cursive" : "sans-serif";
}

// A language that is written with the character set, so that a face is chosen that has its characters.
const char* LanguageOf(BYTE charSet) {
    struct Language {
        BYTE charSet;
        UINT codePage;
        const char* name;
    };
    static constexpr Language kLanguages[] = {
        {SHIFTJIS_CHARSET, 932, "ja"},       {GB2312_CHARSET, 936, "zh-cn"}, {HANGUL_CHARSET, 949, "ko"},
        {CHINESEBIG5_CHARSET, 950, "zh-tw"}, {GREEK_CHARSET, 1253, "el"},    {TURKISH_CHARSET, 1254, "tr"},
        {HEBREW_CHARSET, 1255, "he"},        {ARABIC_CHARSET, 1256, "ar"},   {BALTIC_CHARSET, 1257, "lt"},
        {VIETNAMESE_CHARSET, 1258, "vi"},    {THAI_CHARSET, 874, "th"},      {RUSSIAN_CHARSET, 1251, "ru"},
        {EASTEUROPE_CHARSET, 1250, "pl"},
    };
    const UINT current = CurrentCodePage().id;
    for (const Language& language : kLanguages) {
        const bool asCodePage = charSet == DEFAULT_CHARSET || charSet == ANSI_CHARSET;
        if (asCodePage ? language.codePage == current : language.charSet == charSet) return language.name;
    }
    return "en";
}

Pattern PatternOf(const LOGFONTA& font) {
    Pattern pattern(FcPatternCreate());
    if (font.lfFaceName[0] != 0) FcPatternAddString(pattern.get(), FC_FAMILY, AsFc(FamilyOf(font.lfFaceName).c_str()));
    FcPatternAddString(pattern.get(), FC_FAMILY, AsFc(GenericFamilyOf(font.lfPitchAndFamily)));
    const int weight = font.lfWeight > 0 ? font.lfWeight : FW_NORMAL;
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, FcWeightFromOpenType(weight > 1000 ? 1000 : weight));
    FcPatternAddInteger(pattern.get(), FC_SLANT, font.lfItalic != 0 ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcPatternAddString(pattern.get(), FC_LANG, AsFc(LanguageOf(font.lfCharSet)));
    return pattern;
}

std::shared_ptr<const MatchedFace> Match(const LOGFONTA& font) {
    const Pattern wanted = PatternOf(font);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultMatch;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    const FcPattern* chosen = found != nullptr ? found.get() : wanted.get();
    auto matched = std::make_shared<MatchedFace>();
    matched->face.reset(cairo_ft_font_face_create_for_pattern(const_cast<FcPattern*>(chosen)));
    matched->name = HostFaceNameOf(chosen);
    return matched;
}

// What of a logical font takes part in the choice.
std::string KeyOf(const LOGFONTA& font) {
    char rest[64];
    std::snprintf(rest, sizeof rest, "\n%d %d %d %d %u", font.lfWeight, font.lfItalic != 0, font.lfCharSet,
                  font.lfPitchAndFamily, CurrentCodePage().id);
    return font.lfFaceName + std::string(rest);
}

}  // namespace

std::shared_ptr<const MatchedFace> HostMatchFace(const LOGFONTA& font) {
    static std::mutex lock;
    static auto* kept = new std::map<std::string, std::shared_ptr<const MatchedFace>>;
    const std::lock_guard guard(lock);
    if (kept->size() >= kMostKept) kept->clear();
    std::shared_ptr<const MatchedFace>& matched = (*kept)[KeyOf(font)];
    if (matched == nullptr) matched = Match(font);
    return matched;
}
