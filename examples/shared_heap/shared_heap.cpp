// A heap for several processes: this one lays orders out on a board in the shared heap and starts workers; each worker
// takes orders off the board, works out what they cost, and hangs the answer, a block of its own, onto the order. What
// goes from one process to the other are addresses: the heap is at the same place in all of them.
//
//     shared_heap [WORKERS]           # 1 to 8, by default 2
//
// Workers are this program too, started as "shared_heap worker NUMBER BOARD".
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <morvl15/memory.h>
#include <morvl15/number.h>

namespace {

constexpr uint32_t kHeapSize = 1 << 20;
constexpr int kMostWorkers = 8;

// Blocks of the heap lie at any alignment, so the records in them are packed.
#pragma pack(push, 1)

struct Order {
    Order* next;
    Number price;
    int32_t count;
    char* answer;  // a block of the worker's
    int32_t worker;
};

// Orders in a row. Changed by whoever holds the mutex.
struct Row {
    Order* first;
};

struct Board {
    Row open;
    Row done;
};

#pragma pack(pop)

// Holds the heap's mutex for a scope.
class Turn {
  public:
    Turn() : taken_(MemAcquireMutex() != 0) {}
    ~Turn() {
        if (taken_) MemReleaseMutex();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

  private:
    bool taken_;
};

// The first process to come lays the heap out, the others find it.
bool Attach() {
    uint32_t created = 0;
    void* base = MemSharedInit(&created, kHeapSize);
    return base != nullptr && MemSharedInitHeap(base, kHeapSize, static_cast<int32_t>(created)) != 0;
}

void Push(Row* row, Order* order) {
    const Turn turn;
    order->next = row->first;
    row->first = order;
}

Order* Pop(Row* row) {
    const Turn turn;
    Order* order = row->first;
    if (order != nullptr) row->first = order->next;
    return order;
}

// ---- a worker ---------------------------------------------------------------------------------------------------

// The order's price times its count, as text in a new block.
char* WorkOut(const Order& order) {
    Number count;
    Number total;
    NumLongToNumber(&count, order.count);
    NumMultiply(&total, &order.price, &count);
    char text[110] = "";
    if (NumToAscii(&total, text, sizeof text - 2) == 0) return nullptr;
    auto* answer = static_cast<char*>(MemSharedAlloc(static_cast<uint32_t>(std::strlen(text)) + 1));
    return answer != nullptr ? std::strcpy(answer, text) : nullptr;
}

int Work(int32_t worker, uintptr_t address) {
    if (!Attach()) return 1;
    auto* board = reinterpret_cast<Board*>(address);
    while (Order* order = Pop(&board->open)) {
        order->answer = WorkOut(*order);
        order->worker = worker;
        Push(&board->done, order);
    }
    MemSharedTerminate();
    return 0;
}

// ---- the producer -----------------------------------------------------------------------------------------------

pid_t StartWorker(const char* program, int number, const Board* board) {
    char address[32];
    std::snprintf(address, sizeof address, "%zu", reinterpret_cast<size_t>(board));
    std::string worker = std::to_string(number);
    std::string role = "worker";
    std::string name = program;
    char* arguments[] = {name.data(), role.data(), worker.data(), address, nullptr};
    pid_t id = -1;
    return posix_spawn(&id, "/proc/self/exe", nullptr, nullptr, arguments, environ) == 0 ? id : -1;
}

bool LayOut(Board* board) {
    static constexpr struct {
        const char* price;
        int32_t count;
    } kOrders[] = {{"19.99", 3}, {"0.05", 2000}, {"1299", 1}, {"7.125", 8}, {"249.50", 12}, {"3.333", 3}};
    for (const auto& wanted : kOrders) {
        auto* order = static_cast<Order*>(MemSharedAlloc(sizeof(Order)));
        if (order == nullptr || NumAsciiToNumber(&order->price, wanted.price) <= 0) return false;
        order->count = wanted.count;
        Push(&board->open, order);
    }
    return true;
}

bool RunWorkers(const char* program, int count, const Board* board) {
    std::vector<pid_t> workers;
    for (int number = 1; number <= count; ++number) workers.push_back(StartWorker(program, number, board));
    bool good = true;
    for (const pid_t id : workers) {
        int status = 0;
        good = id > 0 && waitpid(id, &status, 0) == id && WIFEXITED(status) && WEXITSTATUS(status) == 0 && good;
    }
    return good;
}

// Shows the orders that are done, and frees them: also the blocks that came from other processes.
void Show(Board* board) {
    while (Order* order = Pop(&board->done)) {
        char price[110] = "";
        NumToAscii(&order->price, price, sizeof price - 2);
        std::printf("%4d x %s = %s (worker %d)\n", order->count, price, order->answer != nullptr ? order->answer : "?",
                    order->worker);
        MemSharedFree(order->answer);
        MemSharedFree(order);
    }
}

int Produce(const char* program, int workers) {
    // A name of its own keeps this heap apart from that of other programs.
    setenv("MORVL15_SESSION", ("example-" + std::to_string(getpid())).c_str(), 1);
    if (!Attach()) {
        std::fputs("no shared heap\n", stderr);
        return 1;
    }
    auto* board = static_cast<Board*>(MemSharedAlloc(sizeof(Board)));
    const bool done = board != nullptr && LayOut(board) && RunWorkers(program, workers, board);
    if (done) Show(board);
    const bool whole = MemSharedCheckAll() != 0;
    std::printf("%s, the heap is %s\n", done ? "all done" : "failed", whole ? "whole" : "spoiled");
    MemSharedTerminate();
    return done && whole ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 4 && std::strcmp(argv[1], "worker") == 0) {
        return Work(std::atoi(argv[2]), static_cast<uintptr_t>(std::strtoull(argv[3], nullptr, 10)));
    }
    const int workers = argc > 1 ? std::atoi(argv[1]) : 2;
    if (workers < 1 || workers > kMostWorkers) {
        std::fprintf(stderr, "usage: %s [WORKERS], 1 to %d of them\n", argv[0], kMostWorkers);
        return 2;
    }
    return Produce(argv[0], workers);
}
