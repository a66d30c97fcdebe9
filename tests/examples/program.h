// Programs run as a person runs them, through the shell.
#pragma once

#include <initializer_list>
#include <string>

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

// Runs a command line with a standard input. The command sees no language and no settings of the machine, and a profile
// that isn't there, unless it names its own.
Outcome RunProgram(const std::string& command, const std::string& input = "");

// A folder for a scope, empty at first, gone with all that is in it at the end.
class TestFolder {
  public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    const std::string& Path() const { return path_; }

  private:
    std::string path_;
};

// Each of the texts is part of a program's output.
void ExpectTexts(const std::string& text, std::initializer_list<std::string> wanted);

void WriteFile(const std::string& path, const std::string& contents);
std::string ReadFile(const std::string& path);
