// The guides' own examples: each "$ command" of a console block is run, and gives what stands under it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "program.h"

namespace {

const std::filesystem::path kTree = std::filesystem::path(__FILE__).parent_path() / "../..";

struct Example {
    std::string command;
    std::string shown;
};

std::vector<Example> ExamplesIn(const std::string& page) {
    std::vector<Example> examples;
    std::ifstream text(kTree / page);
    bool isConsole = false;
    for (std::string line; std::getline(text, line);) {
        if (line.starts_with("```")) {
            isConsole = line == "```console";
        } else if (isConsole && line.starts_with("$ ")) {
            examples.push_back({line.substr(2), ""});
        } else if (isConsole && !examples.empty()) {
            examples.back().shown += line + "\n";
        }
    }
    return examples;
}

TEST(Guides, ShowWhatTheProgramsShow) {
    const std::string programs = std::filesystem::path(MORVL_PROGRAM).parent_path();
    for (const std::string page : {"README.md", "docs/morvl.md"}) {
        const std::vector<Example> examples = ExamplesIn(page);
        EXPECT_FALSE(examples.empty()) << page;
        for (const Example& example : examples) {
            const Outcome outcome = RunProgram("PATH=" + programs + ":$PATH; " + example.command);
            EXPECT_EQ(outcome.out + outcome.err, example.shown) << page << ": " << example.command;
        }
    }
}

}  // namespace
