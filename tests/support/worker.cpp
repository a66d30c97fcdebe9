#include "support/worker.h"

#include <morvl15/host.h>

std::string BesideTestProgram(const std::string& name) {
    char path[520] = {};
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string program = path;
    return program.substr(0, program.find_last_of("/\\") + 1) + name;
}
