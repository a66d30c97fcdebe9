// The text of a profile: sections in brackets, beneath them lines of key, "=" and value. A line that begins with ";"
// and any line that makes no sense are nobody's, and stay as they are when others change. Names are compared without
// regard to case; the first section of a name counts, and in it the first key of a name. A zero byte ends what a line
// says: strings of C couldn't hold more.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The value of a key, without the blanks round it and one pair of quotes; none where there is no such key.
std::optional<std::string> FindProfileValue(std::string_view text, std::string_view section, std::string_view key);

// The names of all sections, of all keys of a section, each followed by a zero.
std::string ListProfileSections(std::string_view text);
std::string ListProfileKeys(std::string_view text, std::string_view section);

// Whether a name can stand in a profile and be found there again, a value be held by one line.
bool IsProfileSectionName(std::string_view name);
bool IsProfileKeyName(std::string_view name);
bool IsProfileValue(std::string_view value);

// Gives a key a value; the key and its section come into being where they aren't there. All other lines stay as they
// are, byte for byte.
void SetProfileValue(std::string& text, std::string_view section, std::string_view key, std::string_view value);

// Take a key, a whole section away, with all that repeat its name.
void RemoveProfileKey(std::string& text, std::string_view section, std::string_view key);
void RemoveProfileSection(std::string& text, std::string_view section);
