// A conversion of values, one text to one text, and how it is run over the arguments or over standard input.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "encoding.h"

// What is wrong with a value.
struct Fault {
    std::string what;          // follows the value in quotes: "is no number"
    std::optional<size_t> at;  // the byte where it shows
};

class Conversion {
  public:
    virtual ~Conversion() = default;

    // Both texts are in the code page in force. False for a bad value: `fault` tells, and `text` is what is put out in
    // its place. Never called with an empty value, which stays empty.
    virtual bool Convert(const std::string& value, std::string* text, Fault* fault) = 0;

    // From the charset of the texts that it gives.
    virtual Charset& Decoder() { return ToUtf8(); }
};

// Converts each value, or without one each line of standard input, to a line of standard output. A bad value is told on
// standard error and leaves an empty line, so that lines stay beside their lines. Result: an ExitCode.
int ConvertValues(Conversion& conversion, std::span<const std::string> values);
