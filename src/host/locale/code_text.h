// Texts of a code page as Unicode, and back.
#pragma once

#include <string>
#include <string_view>

#include "code_page.h"

// The characters of a text in the code page in force; U+FFFD for what means nothing in it.
std::u32string UnicodeOfText(std::string_view text);

// The text of characters in the code page in force, '?' for what it doesn't have.
std::string TextOfUnicode(std::u32string_view characters);

// The same in UTF-8.
std::string Utf8OfText(std::string_view text);
std::string TextOfUtf8(std::string_view utf8);
void AppendUtf8(std::string& text, char32_t character);
