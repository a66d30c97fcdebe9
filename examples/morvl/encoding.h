// UTF-8 outside, the code page of the library's texts inside.
#pragma once

#include <iconv.h>

#include <cstddef>
#include <string>
#include <string_view>

// Converts texts from one charset to another, both named as iconv knows them. Texts of ASCII alone are copied: they are
// the same in UTF-8 and in every code page.
class Charset {
  public:
    Charset(const char* to, const char* from) : converter_(iconv_open(to, from)) {}
    ~Charset();
    Charset(const Charset&) = delete;
    Charset& operator=(const Charset&) = delete;

    // False where the text is malformed or holds a character that the other charset doesn't have, at byte `badAt`.
    bool Convert(std::string_view text, std::string* converted, size_t* badAt);

  private:
    bool IsOpen() const;
    iconv_t converter_;
};

// "CP1252" and the like: the code page in force.
std::string CodePageName();

bool IsAscii(std::string_view text);

// Characters of a text in UTF-8.
size_t CharactersIn(std::string_view utf8);

// The character of a text in UTF-8 that begins at a byte.
std::string_view CharacterAt(std::string_view utf8, size_t at);

// For converters that stay: from UTF-8 to the code page in force and back.
Charset& ToCodePage();
Charset& ToUtf8();

// A text of the library for people to read; what can't be converted is "?".
std::string Readable(std::string_view text);
