// Named objects for tests: a session of their own, so that nobody else's are met, and child processes to share them
// with.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <functional>
#include <string>

#include <morvl15/host_native.h>

#include "variable.h"

// A child process that does some work and then waits to be told to end, or killed.
class Child {
  public:
    // The work's result is the first thing to be known of the child.
    explicit Child(const std::function<int()>& work) {
        int results[2];
        int orders[2];
        EXPECT_EQ(pipe(results), 0);
        EXPECT_EQ(pipe(orders), 0);
        id_ = fork();
        if (id_ == 0) {
            close(orders[1]);
            const int result = work();
            if (write(results[1], &result, sizeof result) != sizeof result) _exit(1);
            char order = 0;
            static_cast<void>(!read(orders[0], &order, 1));
            std::exit(0);
        }
        close(results[1]);
        close(orders[0]);
        EXPECT_EQ(read(results[0], &result_, sizeof result_), static_cast<ssize_t>(sizeof result_));
        close(results[0]);
        orders_ = orders[1];
    }
    ~Child() { End(); }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    int Result() const { return result_; }
    void Kill() {
        kill(id_, SIGKILL);
        End();
    }
    void End() {
        if (id_ < 0) return;
        close(orders_);
        waitpid(id_, nullptr, 0);
        id_ = -1;
    }

  private:
    pid_t id_ = -1;
    int orders_ = -1;
    int result_ = -1;
};

class Objects : public testing::Test {
  protected:
    void SetUp() override {
        InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor_, TRUE, nullptr, FALSE);
    }
    void TearDown() override {
        EXPECT_FALSE(IsThere("mapping"));
        EXPECT_FALSE(IsThere("mutex"));
    }

    // The file behind the object "m" of a kind.
    std::string PathOf(const std::string& kind) const { return "/dev/shm/morvl15." + session_ + "." + kind + ".m"; }
    bool IsThere(const std::string& kind) const { return access(PathOf(kind).c_str(), F_OK) == 0; }

    // Creates, and keeps the last error.
    HANDLE NewMapping(DWORD size, const char* name = "m") {
        SetLastError(ERROR_INVALID_PARAMETER);
        const HANDLE handle = CreateFileMappingA(INVALID_HANDLE_VALUE, &everybody_, PAGE_READWRITE, 0, size, name);
        error_ = GetLastError();
        return handle;
    }
    static char* View(HANDLE mapping) {
        return static_cast<char*>(MapViewOfFileEx(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0, nullptr));
    }
    static void Drop(char* view, HANDLE mapping) {
        EXPECT_TRUE(UnmapViewOfFile(view));
        EXPECT_TRUE(CloseHandle(mapping));
    }
    // The error of making a mapping, which is closed again.
    static int ErrorOfNewMapping(LPSECURITY_ATTRIBUTES security) {
        const HANDLE handle = CreateFileMappingA(INVALID_HANDLE_VALUE, security, PAGE_READWRITE, 0, 4096, "m");
        const auto error = static_cast<int>(GetLastError());
        CloseHandle(handle);
        return error;
    }

    std::string session_ = "test" + std::to_string(getpid());
    TestVariable variable_{"MORVL15_SESSION", session_.c_str()};
    DWORD error_ = ERROR_SUCCESS;
    SECURITY_DESCRIPTOR descriptor_ = {};
    SECURITY_ATTRIBUTES everybody_ = {sizeof everybody_, &descriptor_, TRUE};
};
