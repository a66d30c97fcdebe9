// A command of the companion: its name, its help, the options it knows, and how its arguments are taken apart.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum ExitCode : int {
    kGood = 0,
    kSomeBad = 1,   // a value was bad; the others were converted
    kCannotRun = 2  // wrong usage, a bad picture, a file that can't be read or written
};

struct Option {
    std::string_view name;
    bool hasValue;
};

// What a command was called with. Options stand in front of everything else: what follows the first operand is an
// operand too, so that "-1234.5" is a number.
class Arguments {
  public:
    // Null for an option that isn't known or lacks its value; `problem` tells.
    static std::optional<Arguments> Parse(std::span<char*> arguments, std::span<const Option> known,
                                          std::string* problem);

    bool Has(std::string_view option) const { return ValueOf(option) != nullptr; }
    const std::string* ValueOf(std::string_view option) const;
    const std::vector<std::string>& Operands() const { return operands_; }

  private:
    struct Given {
        std::string_view name;
        std::string value;
    };
    std::vector<Given> options_;
    std::vector<std::string> operands_;
};

struct Command {
    const char* name;
    const char* usage;    // what follows the name
    const char* summary;  // one line
    const char* help;
    std::span<const Option> options;
    int (*run)(const Command& command, const Arguments& arguments);
};

extern const Command kNumberCommand;
extern const Command kDateCommand;
extern const Command kMaskCommand;
extern const Command kUnformatCommand;
extern const Command kProfileCommand;

// Says on standard error what is wrong with the call and how it should be. Result: kCannotRun.
int UsageError(const Command& command, const std::string& problem);
