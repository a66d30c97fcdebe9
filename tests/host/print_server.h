// A print server of the test's own, on a socket in a folder of its own. Native host only.
#pragma once

#include <sys/types.h>

#include <string>

// Runs cupsd with two queues: "Paper", which prints PDF into Output(), has A4, Letter and a card of 300 by 500 points
// with margins, and prints on both sides; and "Held", which is stopped and keeps its jobs. It is the host's print
// server for as long as it lives.
class TestPrintServer {
  public:
    TestPrintServer();
    ~TestPrintServer();
    TestPrintServer(const TestPrintServer&) = delete;
    TestPrintServer& operator=(const TestPrintServer&) = delete;

    bool IsRunning() const { return process_ > 0; }
    const std::string& Socket() const { return socket_; }
    std::string Output() const { return folder_ + "/out.pdf"; }
    std::string Log() const;

    // The jobs of a queue, as "number state name" each, separated by commas; those that have ended are left out.
    std::string Jobs(const char* queue) const;
    // Waits until a queue has no job that hasn't ended; false after some seconds.
    bool WaitUntilDone(const char* queue) const;
    // Takes a queue away.
    void Remove(const char* queue) const;
    void Stop();

  private:
    bool Answers() const;

    std::string folder_;
    std::string socket_;
    pid_t process_ = 0;
};
