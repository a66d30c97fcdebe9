// The languages in force: the environment's, until HostSetLanguages says otherwise.
#include "languages.h"

#include <atomic>
#include <cstdlib>
#include <initializer_list>

#include <morvl15/host_native.h>

#include "code_page.h"

namespace {

// 0 until first asked for. Threads that ask at the same time find the same answer.
std::atomic<LANGID> systemLanguageInForce{0};
std::atomic<LCID> userLocaleInForce{0};

// The first variable that is set and not empty decides.
LANGID LanguageOfEnvironment(std::initializer_list<const char*> variables) {
    for (const char* variable : variables) {
        const char* name = std::getenv(variable);
        if (name != nullptr && *name != 0) return LanguageOfName(name);
    }
    return kDefaultLanguage;
}

LANGID SystemLanguageOfEnvironment() {
    return LanguageOfEnvironment({"LANG"});
}

LCID UserLocaleOfEnvironment() {
    return LanguageOfEnvironment({"LC_ALL", "LC_CTYPE", "LANG"});
}

}  // namespace

LANGID GetSystemDefaultLangID() {
    LANGID language = systemLanguageInForce.load(std::memory_order_relaxed);
    if (language == 0) {
        language = SystemLanguageOfEnvironment();
        systemLanguageInForce.store(language, std::memory_order_relaxed);
    }
    return language;
}

LCID GetUserDefaultLCID() {
    LCID locale = userLocaleInForce.load(std::memory_order_relaxed);
    if (locale == 0) {
        locale = UserLocaleOfEnvironment();
        userLocaleInForce.store(locale, std::memory_order_relaxed);
    }
    return locale;
}

void HostSetLanguages(LANGID systemLanguage, LCID userLocale) {
    systemLanguageInForce.store(systemLanguage, std::memory_order_relaxed);
    userLocaleInForce.store(userLocale, std::memory_order_relaxed);
    ForgetCurrentCodePage();
}
