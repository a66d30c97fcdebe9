// Languages by their names in the environment.
#pragma once

#include <morvl15/host.h>

// What stands where the environment names no language, or none that the platform knows.
constexpr LANGID kDefaultLanguage = 0x0409;

// The language of a locale name as it stands in LANG: "de", "de_AT", "ja_JP.UTF-8", "sr_RS@latin". Language, territory
// and script count, in any case; a territory that the language isn't known with gives the language's own. Null, empty,
// "C", "POSIX" and unknown names give kDefaultLanguage.
LANGID LanguageOfName(const char* name);
