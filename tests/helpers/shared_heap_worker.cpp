// A process that works on the shared heap and opens files as a test tells it: a command a line on standard input, an
// answer a line on standard output. It ends with its input.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include <morvl15/dialog.h>
#include <morvl15/memory.h>

#include "support/shared_churn.h"

namespace {

void* Pointer(unsigned long address) {
    return reinterpret_cast<void*>(static_cast<uintptr_t>(address));
}

void Answer(const char* word, unsigned long value) {
    std::printf("%s %lx\n", word, value);
}

void Init(unsigned long size) {
    uint32_t created = 0xFFFFFFFF;
    const void* base = MemSharedInit(&created, static_cast<uint32_t>(size));
    Answer(base == nullptr ? "failed" : created == 1 ? "created" : "found", reinterpret_cast<uintptr_t>(base));
}

// Whether all bytes of a block have the value.
bool Holds(unsigned long address, unsigned long size, unsigned long value) {
    const auto* bytes = static_cast<const unsigned char*>(Pointer(address));
    return std::all_of(bytes, bytes + size, [value](unsigned char byte) { return byte == value; });
}

// Steps until something is wrong or the count is reached; a count of 0 is never reached.
void Churn(unsigned long slots, unsigned long seed, unsigned long count) {
    SharedChurn churn(static_cast<SharedChurn::Slots*>(Pointer(slots)), static_cast<uint32_t>(seed));
    if (count == 0) {
        Answer("started", 0);
        std::fflush(stdout);
    }
    bool good = true;
    for (unsigned long step = 0; good && (count == 0 || step < count); ++step) good = churn.Step();
    Answer(churn.End() && good ? "good" : "bad", 0);
}

// Opens the file that the rest of the command names, and keeps it open.
void Open(unsigned long flags, const char* command) {
    const std::string text = command;
    const std::string name = text.substr(text.find(' ', text.find(' ') + 1) + 1);
    const int32_t file =
        CBOpenFile(name.substr(0, name.find_last_not_of("\r\n") + 1).c_str(), nullptr, static_cast<uint32_t>(flags));
    Answer(file == -1 ? "refused" : "opened", file == -1 ? GetLastError() : 0);
}

void Obey(const char* command) {
    char word[32] = {};
    unsigned long a = 0;
    unsigned long b = 0;
    unsigned long c = 0;
    std::sscanf(command, "%31s %lx %lx %lx", word, &a, &b, &c);
    const std::string verb = word;
    if (verb == "init") return Init(a);
    if (verb == "open") return Open(a, command);
    if (verb == "churn") return Churn(a, b, c);
    if (verb == "alloc") return Answer("at", reinterpret_cast<uintptr_t>(MemSharedAlloc(static_cast<uint32_t>(a))));
    if (verb == "fill") {
        std::memset(Pointer(a), static_cast<int>(c), b);
        return Answer("filled", b);
    }
    if (verb == "terminate") {
        MemSharedTerminate();
        return Answer("terminated", 0);
    }
    int32_t result = -1;
    if (verb == "heap") result = MemSharedInitHeap(Pointer(a), static_cast<uint32_t>(b), static_cast<int32_t>(c));
    if (verb == "free") result = MemSharedFree(Pointer(a));
    if (verb == "holds") result = Holds(a, b, c) ? 1 : 0;
    if (verb == "check") result = MemSharedCheckAll();
    if (verb == "acquire") result = MemAcquireMutex();
    std::printf("%d\n", static_cast<int>(result));
}

}  // namespace

int main() {
    char line[256];
    while (std::fgets(line, sizeof line, stdin) != nullptr) {
        Obey(line);
        std::fflush(stdout);
    }
    return 0;
}
