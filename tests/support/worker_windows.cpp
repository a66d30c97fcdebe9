#include <gtest/gtest.h>

#include <morvl15/host.h>

#include "support/worker.h"

struct Worker::Process {
    HANDLE process = nullptr;
    HANDLE commands = nullptr;
    HANDLE answers = nullptr;

    void End() {
        CloseHandle(std::exchange(commands, nullptr));
        WaitForSingleObject(process, INFINITE);
        CloseHandle(std::exchange(process, nullptr));
        CloseHandle(std::exchange(answers, nullptr));
    }
};

namespace {

// A pipe whose one end the child gets; the other stays here.
void MakePipe(HANDLE* read, HANDLE* write, HANDLE* ours) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    EXPECT_TRUE(CreatePipe(read, write, &inherited, 0));
    SetHandleInformation(*ours, HANDLE_FLAG_INHERIT, 0);
}

}  // namespace

Worker::Worker() : process_(std::make_unique<Process>()) {
    HANDLE commands = nullptr;
    HANDLE answers = nullptr;
    MakePipe(&commands, &process_->commands, &process_->commands);
    MakePipe(&process_->answers, &answers, &process_->answers);
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = commands;
    start.hStdOutput = answers;
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION made = {};
    const std::string program = BesideTestProgram("shared_heap_worker.exe");
    EXPECT_TRUE(CreateProcessA(program.c_str(), nullptr, nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made))
        << program;
    CloseHandle(made.hThread);
    CloseHandle(commands);
    CloseHandle(answers);
    process_->process = made.hProcess;
}

Worker::~Worker() {
    if (process_->process != nullptr) process_->End();
}

void Worker::Tell(const std::string& command) {
    const std::string line = command + "\n";
    DWORD written = 0;
    WriteFile(process_->commands, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

std::string Worker::Answer() {
    std::string answer;
    char byte = 0;
    for (DWORD read = 0; ReadFile(process_->answers, &byte, 1, &read, nullptr) && read == 1 && byte != '\n';) {
        if (byte != '\r') answer += byte;
    }
    return answer;
}

void Worker::Kill() {
    TerminateProcess(process_->process, 1);
    process_->End();
}
