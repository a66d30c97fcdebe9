// From one character set to another.
#pragma once

#include <iconv.h>

#include <optional>
#include <string>

// ASCII goes as it is, in sets that hold it.
class Converter {
  public:
    Converter(const char* from, const char* to);
    ~Converter();
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Nothing for a text that the other character set doesn't hold.
    std::optional<std::string> Convert(const std::string& text);

  private:
    iconv_t converter_;
};
