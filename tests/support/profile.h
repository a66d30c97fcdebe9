// Profile keys for tests.
#pragma once

#include <string>
#include <utility>
#include <vector>

// Writes a key of the user profile for a scope, and tells the library that the settings changed; puts the old value
// back at the end. A null value takes the key away.
class TestProfile {
  public:
    struct Entry {
        const char* section;
        const char* key;
        const char* value;
    };
    explicit TestProfile(std::vector<Entry> entries);
    ~TestProfile();
    TestProfile(const TestProfile&) = delete;
    TestProfile& operator=(const TestProfile&) = delete;

  private:
    struct Saved {
        std::string section;
        std::string key;
        std::string value;
        bool wasThere;
    };
    std::vector<Saved> saved_;
};
