// A caller's buffer for tests: full of a pattern, which shows what an operation wrote.
#pragma once

#include <string>

class Destination {
  public:
    explicit Destination(size_t size = 256) : bytes_(size, kPattern) {}

    operator char*() { return bytes_.data(); }

    // What stands before the terminator. "unterminated" where there is none.
    std::string Text() const {
        const size_t end = bytes_.find('\0');
        return end != std::string::npos ? bytes_.substr(0, end) : "unterminated";
    }
    // The first bytes, whatever they are.
    std::string Bytes(size_t count) const { return bytes_.substr(0, count); }
    // Whether nothing was written from this byte on.
    bool UntouchedFrom(size_t at) const { return bytes_.find_first_not_of(kPattern, at) == std::string::npos; }
    // The text, and a remark if anything was written behind its terminator.
    std::string Written() const { return Text() + (UntouchedFrom(bytes_.find('\0') + 1) ? "" : " and more"); }

  private:
    static constexpr char kPattern = '\xA5';
    std::string bytes_;
};
