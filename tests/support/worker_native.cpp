#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include <gtest/gtest.h>

#include "support/worker.h"

extern char** environ;

struct Worker::Process {
    pid_t id = -1;
    FILE* commands = nullptr;
    FILE* answers = nullptr;

    void End() {
        if (commands != nullptr) std::fclose(std::exchange(commands, nullptr));
        if (id > 0) waitpid(std::exchange(id, -1), nullptr, 0);
        if (answers != nullptr) std::fclose(std::exchange(answers, nullptr));
    }
};

Worker::Worker() : process_(std::make_unique<Process>()) {
    int commands[2] = {-1, -1};
    int answers[2] = {-1, -1};
    EXPECT_EQ(pipe2(commands, O_CLOEXEC), 0);
    EXPECT_EQ(pipe2(answers, O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, commands[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, answers[1], STDOUT_FILENO);
    std::string program = BesideTestProgram("shared_heap_worker");
    char* arguments[] = {program.data(), nullptr};
    const int error = posix_spawn(&process_->id, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(commands[0]);
    close(answers[1]);
    process_->commands = fdopen(commands[1], "w");
    process_->answers = fdopen(answers[0], "r");
    EXPECT_EQ(error, 0) << program;
}

Worker::~Worker() {
    process_->End();
}

void Worker::Tell(const std::string& command) {
    std::fprintf(process_->commands, "%s\n", command.c_str());
    std::fflush(process_->commands);
}

std::string Worker::Answer() {
    char line[256];
    if (std::fgets(line, sizeof line, process_->answers) == nullptr) return {};
    std::string answer = line;
    return answer.substr(0, answer.find_last_not_of("\r\n") + 1);
}

void Worker::Kill() {
    kill(process_->id, SIGKILL);
    process_->End();
}
