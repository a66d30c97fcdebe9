// What a job needs to know of its queue.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct Queue {
    std::string name;
    std::vector<int16_t> ids;        // of the printer's papers
    std::vector<std::string> media;  // the server's names of the same papers
    bool hasSides = false;
    bool hasColorMode = false;
};
