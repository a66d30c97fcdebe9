// Variables of the environment for tests.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

// Sets a variable of the environment for a scope; null takes it away.
class TestVariable {
  public:
    TestVariable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) saved_ = old;
        Put(value);
    }
    ~TestVariable() { Put(saved_ ? saved_->c_str() : nullptr); }
    TestVariable(const TestVariable&) = delete;
    TestVariable& operator=(const TestVariable&) = delete;

    void Put(const char* value) { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }

  private:
    const char* name_;
    std::optional<std::string> saved_;
};
