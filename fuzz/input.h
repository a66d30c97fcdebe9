// What the fuzzers share: requirements, languages, and inputs cut into bytes, numbers and texts.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <morvl15/host_native.h>
#include <morvl15/intl.h>

inline void Require(bool holds) {
    if (!holds) std::abort();
}

inline void SetLanguage(LANGID language) {
    static LANGID inForce = 0;
    if (language == inForce) return;
    HostSetLanguages(language, language);
    IntlInit();
    inForce = language;
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

// A text as far as its first zero byte, and what stands behind the byte that ends it.
struct Texts {
    std::string first;
    std::string second;
};

inline Texts SplitAt(char end, const uint8_t* data, size_t size) {
    const std::string all(reinterpret_cast<const char*>(data), size);
    const size_t at = all.find(end);
    return {all.substr(0, at).c_str(), at == std::string::npos ? "" : all.substr(at + 1).c_str()};
}

class Input {
  public:
    Input(const uint8_t* data, size_t size) : at_(data), left_(size) {}

    // By a letter.
    void TakeLanguage() {
        constexpr LANGID kLanguages[] = {0x0409, 0x0411, 0x0412, 0x0804};
        SetLanguage(kLanguages[TakeByte() % 4]);
    }
    bool IsEmpty() const { return left_ == 0; }
    uint8_t TakeByte() {
        if (left_ == 0) return 0;
        --left_;
        return *at_++;
    }
    uint32_t TakeHalf() {
        const uint32_t low = TakeByte();
        return low | static_cast<uint32_t>(TakeByte()) << 8;
    }
    uint32_t TakeWord() {
        const uint32_t low = TakeHalf();
        return low | TakeHalf() << 16;
    }
    // Small numbers mostly, of both signs, and the ends of the range.
    int32_t TakeNumber() {
        const uint8_t byte = TakeByte();
        if (byte == 0x7F) return INT32_MAX;
        if (byte == 0x80) return INT32_MIN;
        return static_cast<int8_t>(byte);
    }
    // Up to a zero byte.
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
