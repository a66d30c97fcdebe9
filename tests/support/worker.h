// A second process for tests: tests/helpers/shared_heap_worker.cpp under remote control. It reads a command a line and
// answers each by a line.
#pragma once

#include <memory>
#include <string>
#include <utility>

class Worker {
  public:
    Worker();
    ~Worker();  // tells it to end, if it hasn't been killed, and waits for that
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void Tell(const std::string& command);  // the answer is to be fetched, by Answer
    std::string Answer();                   // empty when the process has ended
    std::string Ask(const std::string& command) {
        Tell(command);
        return Answer();
    }

    void Kill();  // ends it at once, whatever it is doing, and waits for that

  private:
    struct Process;
    std::unique_ptr<Process> process_;
};

// The path of a program or module that stands beside the running test program.
std::string BesideTestProgram(const std::string& name);
