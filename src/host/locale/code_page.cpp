// Which code page belongs to which language, and the one in force.
#include "code_page.h"

#include <iterator>
#include <mutex>

namespace {

constexpr UINT kLatin1 = 1252;
constexpr LANGID kPrimaryMask = 0x03FF;

struct LanguageCodePage {
    LANGID language;  // a language with its territory, or a primary language (below 0x400) for all its others
    UINT codePage;
};

// clang-format off
constexpr LanguageCodePage kLanguageCodePages[] = {
    {0x0404, 950}, {0x0C04, 950}, {0x1404, 950},        // Chinese of Taiwan, Hong Kong, Macao
    {0x0004, 936},                                      // Chinese
    {0x0011, 932}, {0x0012, 949}, {0x001E, 874},        // Japanese, Korean, Thai
    {0x0C1A, 1251}, {0x1C1A, 1251}, {0x201A, 1251},     // Serbian and Bosnian in Cyrillic script
    {0x281A, 1251}, {0x301A, 1251},
    {0x082C, 1251}, {0x0843, 1251},                     // Azerbaijani and Uzbek in Cyrillic script
    {0x0005, 1250}, {0x000E, 1250}, {0x0015, 1250},     // Czech, Hungarian, Polish
    {0x0018, 1250}, {0x001A, 1250}, {0x001B, 1250},     // Romanian, Croatian and its neighbours, Slovak
    {0x001C, 1250}, {0x0024, 1250}, {0x0042, 1250},     // Albanian, Slovenian, Turkmen
    {0x0002, 1251}, {0x0019, 1251}, {0x0022, 1251},     // Bulgarian, Russian, Ukrainian
    {0x0023, 1251}, {0x0028, 1251}, {0x002F, 1251},     // Belarusian, Tajik, Macedonian
    {0x003F, 1251}, {0x0040, 1251}, {0x0044, 1251},     // Kazakh, Kyrgyz, Tatar
    {0x0050, 1251},                                     // Mongolian
    {0x0008, 1253}, {0x000D, 1255}, {0x002A, 1258},     // Greek, Hebrew, Vietnamese
    {0x001F, 1254}, {0x002C, 1254}, {0x0043, 1254},     // Turkish, Azerbaijani, Uzbek
    {0x0001, 1256}, {0x0020, 1256}, {0x0029, 1256},     // Arabic, Urdu, Farsi
    {0x0080, 1256},                                     // Uyghur
    {0x0025, 1257}, {0x0026, 1257}, {0x0027, 1257},     // Estonian, Latvian, Lithuanian
};
// clang-format on

constexpr UINT kCodePages[] = {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

// A slot per code page. What is built stays for the life of the process, its last moments included: text functions work
// in any order of shut-down.
struct BuiltCodePage {
    std::once_flag once;
    const CodePage* page = nullptr;
};
// In a static program the library asks for a code page before the host's own objects would be constructed.
constinit BuiltCodePage builtCodePages[std::size(kCodePages)];

UINT FindLanguage(LANGID language) {
    for (const LanguageCodePage& row : kLanguageCodePages) {
        if (row.language == language) return row.codePage;
    }
    return 0;
}

size_t SlotOf(UINT id) {
    size_t latin1 = 0;
    for (size_t i = 0; i < std::size(kCodePages); ++i) {
        if (kCodePages[i] == id) return i;
        if (kCodePages[i] == kLatin1) latin1 = i;
    }
    return latin1;
}

}  // namespace

std::atomic<const CodePage*> currentCodePage{nullptr};

UINT CodePageOfLanguage(LANGID language) {
    UINT codePage = FindLanguage(language);
    if (codePage == 0) codePage = FindLanguage(language & kPrimaryMask);
    return codePage != 0 ? codePage : kLatin1;
}

const CodePage& CodePageById(UINT id) {
    const size_t slot = SlotOf(id);
    BuiltCodePage& built = builtCodePages[slot];
    std::call_once(built.once, [&built, slot] {
        auto* page = new CodePage;
        BuildCodePage(*page, kCodePages[slot]);
        built.page = page;
    });
    return *built.page;
}

const CodePage& FindCurrentCodePage() {
    const CodePage& page = CodePageById(CodePageOfLanguage(GetSystemDefaultLangID()));
    currentCodePage.store(&page, std::memory_order_release);
    return page;
}

void ForgetCurrentCodePage() {
    currentCodePage.store(nullptr, std::memory_order_release);
}

UINT GetACP() {
    return CurrentCodePage().id;
}
