// morvl: the library from the command line. Numbers, dates and texts through pictures, for values from the arguments or
// for files of any size from standard input, and a look at the settings in force.
//
//     morvl number '#,##0.00;(#,##0.00)' -1234.5
//     morvl --help
//
// All texts are UTF-8. Exit codes: 0 good, 1 a value was bad, 2 wrong usage or a file that can't be read or written.
#include <cstdio>
#include <cstring>

#include <morvl15/frame.h>

#include "command.h"

namespace {

const Command* const kCommands[] = {&kNumberCommand, &kDateCommand, &kMaskCommand, &kUnformatCommand, &kProfileCommand};

void PrintHelp(std::FILE* file) {
    std::fputs("usage: morvl COMMAND ...\n\n", file);
    for (const Command* command : kCommands) {
        std::fprintf(file, "  morvl %s %s\n      %s\n", command->name, command->usage, command->summary);
    }
    std::fputs(
        "\n\"morvl COMMAND --help\" tells more, \"morvl --version\" the version.\n"
        "Exit codes: 0 good, 1 a value was bad, 2 wrong usage or a file that can't be read or written.\n",
        file);
}

// A command's own --help stands in front of its operands, among its options.
bool AsksForHelp(std::span<char*> arguments) {
    for (const char* argument : arguments) {
        if (std::strcmp(argument, "--help") == 0) return true;
        if (std::strncmp(argument, "--", 2) != 0 || argument[2] == 0) return false;
    }
    return false;
}

int RunCommand(const Command& command, std::span<char*> rest) {
    if (AsksForHelp(rest)) {
        std::printf("usage: morvl %s %s\n\n%s", command.name, command.usage, command.help);
        return kGood;
    }
    std::string problem;
    const auto arguments = Arguments::Parse(rest, command.options, &problem);
    return arguments ? command.run(command, *arguments) : UsageError(command, problem);
}

}  // namespace

int main(int argc, char** argv) {
    const std::span<char*> arguments(argv + 1, static_cast<size_t>(argc > 1 ? argc - 1 : 0));
    const std::string_view name = arguments.empty() ? "" : arguments[0];
    if (name == "--help" || name == "-h") {
        PrintHelp(stdout);
        return kGood;
    }
    if (name == "--version") {
        char version[64] = "";
        VERGetVersionString(nullptr, version);
        std::printf("morvl %s\n", version);
        return kGood;
    }
    for (const Command* command : kCommands) {
        if (name == command->name) return RunCommand(*command, arguments.subspan(1));
    }
    if (!name.empty()) std::fprintf(stderr, "morvl: there is no command \"%s\"\n", arguments[0]);
    PrintHelp(stderr);
    return kCannotRun;
}
