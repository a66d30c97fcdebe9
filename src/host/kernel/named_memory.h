// Shared memory that processes find by its name, and that goes with its last user.
//
// Each piece is a file in /dev/shm. A user holds a shared lock on it for as long as it uses the memory; the system
// takes the lock away when the user ends, however it ends. So a file that can be locked exclusively is one that nobody
// uses: a leftover, which counts as absent. A new file gets its size, its first contents and its lock before it gets
// its name: nobody ever sees it half made.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <morvl15/host.h>

class NamedMemory {
  public:
    // Takes over an open file and its lock. An empty path stands for memory without a name.
    NamedMemory(int file, std::string path);
    // Ends the use; the last user takes the name away.
    ~NamedMemory();
    NamedMemory(const NamedMemory&) = delete;
    NamedMemory& operator=(const NamedMemory&) = delete;

    int File() const { return file_; }
    uint64_t Size() const;  // bytes

    // Ends the use at the end of the process, ahead of the destructor; views of the memory stay as they are.
    void Release();
    // Makes a forked child a user of its own.
    void Reopen();

  private:
    int file_;
    std::string path_;
};

struct NamedMemoryRequest {
    const char* kind;                              // objects of different kinds don't share their names
    const char* name;                              // null or empty for memory without a name
    uint64_t size;                                 // bytes of new memory, which is all zero
    bool everybody;                                // whether every user of the machine may use new memory
    std::function<bool(int file)> fill = nullptr;  // writes the first contents of new memory, if there are any
};

// The memory, or null and the reason. When it was there already, `existed` is set, and its size is its own.
struct NamedMemoryResult {
    std::shared_ptr<NamedMemory> memory = nullptr;
    bool existed = false;
    DWORD error = ERROR_SUCCESS;
};

NamedMemoryResult CreateNamedMemory(const NamedMemoryRequest& request);
NamedMemoryResult OpenNamedMemory(const char* kind, const char* name);
