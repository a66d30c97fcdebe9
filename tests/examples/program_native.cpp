#include "program.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

TestFolder::TestFolder() : path_(testing::TempDir() + "/morvl15-examples-XXXXXX") {
    if (mkdtemp(path_.data()) == nullptr) ADD_FAILURE() << "no folder " << path_;
}

TestFolder::~TestFolder() {
    std::filesystem::remove_all(path_);
}

void ExpectTexts(const std::string& text, std::initializer_list<std::string> wanted) {
    for (const std::string& part : wanted) {
        EXPECT_NE(text.find(part), std::string::npos) << part << " is missing in\n" << text;
    }
}

void WriteFile(const std::string& path, const std::string& contents) {
    std::ofstream(path, std::ios::binary) << contents;
}

std::string ReadFile(const std::string& path) {
    std::ostringstream contents;
    contents << std::ifstream(path, std::ios::binary).rdbuf();
    return contents.str();
}

Outcome RunProgram(const std::string& command, const std::string& input) {
    const TestFolder folder;
    WriteFile(folder.Path() + "/in", input);
    const std::string surroundings =
        "cd " + folder.Path() + "; unset LC_ALL LC_CTYPE LC_MONETARY LANG; export XDG_CONFIG_HOME=" + folder.Path() +
        "; { " + command + "\n} <in >out 2>err";
    const int status = std::system(surroundings.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(folder.Path() + "/out"),
            ReadFile(folder.Path() + "/err")};
}
