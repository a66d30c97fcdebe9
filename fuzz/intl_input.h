// The input of the string fuzzers: a letter for the language, two numbers, and texts, each up to a zero byte.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <morvl15/host_native.h>
#include <morvl15/intl.h>

inline void Require(bool holds) {
    if (!holds) std::abort();
}

// A buffer that the sanitizer watches to the byte.
class Room {
  public:
    explicit Room(size_t size) : bytes_(new char[size]) { std::memset(bytes_.get(), 0x5A, size); }
    operator char*() { return bytes_.get(); }
    operator const char*() const { return bytes_.get(); }

  private:
    std::unique_ptr<char[]> bytes_;
};

class Input {
  public:
    Input(const uint8_t* data, size_t size) : at_(data), left_(size) {
        constexpr LANGID kLanguages[] = {0x0409, 0x0411, 0x0412, 0x0804};
        static LANGID inForce = 0;
        const LANGID language = kLanguages[TakeByte() % 4];
        if (language == inForce) return;
        HostSetLanguages(language, language);
        IntlInit();
        inForce = language;
    }

    uint8_t TakeByte() {
        if (left_ == 0) return 0;
        --left_;
        return *at_++;
    }
    // Small numbers mostly, of both signs, and the ends of the range.
    int32_t TakeNumber() {
        const uint8_t byte = TakeByte();
        if (byte == 0x7F) return INT32_MAX;
        if (byte == 0x80) return INT32_MIN;
        return static_cast<int8_t>(byte);
    }
    Room TakeText() {
        size_t length = 0;
        while (length < left_ && at_[length] != 0) ++length;
        Room text(length + 1);
        std::memcpy(text, at_, length);
        text[length] = '\0';
        const size_t used = length < left_ ? length + 1 : length;
        at_ += used;
        left_ -= used;
        return text;
    }

  private:
    const uint8_t* at_;
    size_t left_;
};
