// A process that works on the shared heap as a test tells it: a command a line on standard input, an answer a line on
// standard output. It ends with its input.
#include <cstdio>
#include <cstring>
#include <string>

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
    for (unsigned long i = 0; i < size; ++i) {
        if (bytes[i] != value) return false;
    }
    return true;
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

void Obey(const char* command) {
    char word[32] = {};
    unsigned long a = 0;
    unsigned long b = 0;
    unsigned long c = 0;
    std::sscanf(command, "%31s %lx %lx %lx", word, &a, &b, &c);
    const std::string verb = word;
    if (verb == "init") return Init(a);
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
    if (verb == "release") result = MemReleaseMutex();
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
