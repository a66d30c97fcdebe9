// Options, operands, and usage errors.
#include "command.h"

#include <algorithm>
#include <cstdio>

std::optional<Arguments> Arguments::Parse(std::span<char*> arguments, std::span<const Option> known,
                                          std::string* problem) {
    Arguments parsed;
    size_t at = 0;
    for (; at < arguments.size() && std::string_view(arguments[at]).starts_with("--"); ++at) {
        const std::string_view name = arguments[at];
        if (name == "--") {
            ++at;
            break;
        }
        const auto option = std::ranges::find(known, name, &Option::name);
        if (option == known.end()) {
            *problem = "there is no option " + std::string(name);
            return std::nullopt;
        }
        if (option->hasValue && at + 1 == arguments.size()) {
            *problem = "the option " + std::string(name) + " needs a value";
            return std::nullopt;
        }
        parsed.options_.push_back({option->name, option->hasValue ? arguments[++at] : ""});
    }
    parsed.operands_.assign(arguments.begin() + static_cast<std::ptrdiff_t>(at), arguments.end());
    return parsed;
}

const std::string* Arguments::ValueOf(std::string_view option) const {
    const auto given = std::ranges::find(options_, option, &Given::name);
    return given != options_.end() ? &given->value : nullptr;
}

int UsageError(const Command& command, const std::string& problem) {
    std::fprintf(stderr, "morvl %s: %s\nusage: morvl %s %s\n\"morvl %s --help\" tells more\n", command.name,
                 problem.c_str(), command.name, command.usage, command.name);
    return kCannotRun;
}
