// The shared heap example: every order comes back answered, whatever number of processes worked on them.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "program.h"

namespace {

Outcome RunWithWorkers(const std::string& workers) {
    return RunProgram(std::string(SHARED_HEAP_PROGRAM) + " " + workers);
}

TEST(SharedHeapExample, EveryOrderIsAnsweredOnce) {
    const std::multiset<std::string> wanted = {
        "3 x 19.99 = 59.97", "2000 x .05 = 100",           "1 x 1299 = 1299", "8 x 7.125 = 57", "12 x 249.5 = 2994",
        "3 x 3.333 = 9.999", "all done, the heap is whole"};
    for (const char* workers : {"", "1", "8"}) {
        const Outcome outcome = RunWithWorkers(workers);
        EXPECT_EQ(outcome.status, 0) << outcome.out + outcome.err;
        std::multiset<std::string> lines;
        std::istringstream text(outcome.out);
        for (std::string line; std::getline(text, line);) {
            line.erase(0, line.find_first_not_of(' '));
            lines.insert(line.substr(0, line.find(" (worker ")));
        }
        EXPECT_EQ(lines, wanted) << outcome.out + outcome.err;
    }
}

TEST(SharedHeapExample, RefusesOtherNumbersOfWorkers) {
    for (const char* workers : {"0", "9", "x"}) EXPECT_EQ(RunWithWorkers(workers).status, 2) << workers;
}

}  // namespace
