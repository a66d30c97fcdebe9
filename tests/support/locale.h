// Languages for tests.
#pragma once

#include <cstdint>

constexpr uint16_t kEnglish = 0x0409;
constexpr uint16_t kJapanese = 0x0411;
constexpr uint16_t kChinese = 0x0804;
constexpr uint16_t kChineseTraditional = 0x0404;
constexpr uint16_t kKorean = 0x0412;
constexpr uint16_t kArabic = 0x0401;
constexpr uint16_t kHebrew = 0x040D;
constexpr uint16_t kFarsi = 0x0429;
constexpr uint16_t kGerman = 0x0407;

// Puts a system and a user language in force for a scope, and the library's locale values with them (IntlInit); at the
// end of the scope English again. On Windows the language can't be changed: there the test program runs once more
// under each language, with the suites named after it (...Japanese, ...Arabic), and the scope checks that it is so.
class TestLanguage {
  public:
    explicit TestLanguage(uint16_t systemLanguage) : TestLanguage(systemLanguage, systemLanguage) {}
    TestLanguage(uint16_t systemLanguage, uint16_t userLanguage);
    ~TestLanguage();
    TestLanguage(const TestLanguage&) = delete;
    TestLanguage& operator=(const TestLanguage&) = delete;
};
