// A printer for tests: it takes notes of what is asked of it, and fails where it is told to.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <morvl15/host_native.h>
#include <morvl15/print.h>

#include "print_job.h"

constexpr uint32_t EscapeBit(int code) {
    return 1u << code;
}
constexpr uint32_t kUsualEscapes = EscapeBit(SETABORTPROC) | EscapeBit(GETPHYSPAGESIZE) | EscapeBit(GETPRINTINGOFFSET);

class ScriptedPrinter {
  public:
    explicit ScriptedPrinter(const char* name = "Scripted", const char* port = "LPT1:");
    ~ScriptedPrinter() { HostRemovePrinter(name.c_str()); }
    ScriptedPrinter(const ScriptedPrinter&) = delete;
    ScriptedPrinter& operator=(const ScriptedPrinter&) = delete;

    // The calls of a document as they came: "start", "page", "end page", "end", "abort"; escapes as "escape 17: 3".
    std::vector<std::string> calls;
    std::string Calls() const;  // joined by ", "

    // What a call answers in the place of success; "end page 2" is the second of its kind.
    std::map<std::string, INT> results;
    // Codes that the application's abort procedure is called with before a call answers.
    std::map<std::string, INT> troubles;

    // Taken by contexts opened from now on: Letter paper at 100 dots an inch with a quarter of an inch of margins.
    HostPrinterMetrics metrics{100, 100, 850, 1100, 25, 25, 800, 1050, FALSE, kUsualEscapes};
    bool refusesToOpen = false;
    LONG properties = HOST_STANDARD;  // what DocumentPropertiesA answers
    int32_t paperCount = HOST_STANDARD;
    std::string lastDocument;
    const std::string name;
    const std::string port;

  private:
    static ScriptedPrinter& Of(void* printer) { return *static_cast<ScriptedPrinter*>(printer); }
    INT Answer(const std::string& call);

    std::map<std::string, int> counts_;
    const HostPrintJob* job_ = nullptr;
};

// The person at message boxes: presses OK and keeps what was shown as "caption: text".
class MessageReader {
  public:
    MessageReader();
    ~MessageReader() { HostSetPerson(nullptr, nullptr); }
    MessageReader(const MessageReader&) = delete;
    MessageReader& operator=(const MessageReader&) = delete;

    std::vector<std::string> shown;
    UINT style = 0;
};

// A document on a scripted printer, before a person who reads messages.
class ScriptedJob : public JobFixture {
  public:
    explicit ScriptedJob(const ScriptedPrinter& printer) : JobFixture(printer.name, "Script", printer.port) {}

    MessageReader reader;
};
