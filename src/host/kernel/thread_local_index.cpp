// Thread-local indexes, and the notification of modules at the end of a thread that has used one.
#include <pthread.h>

#include <array>
#include <atomic>
#include <memory>
#include <new>

#include <morvl15/host_native.h>

#include "modules.h"
#include "thread_local.h"

namespace {

constexpr DWORD kIndexes = 64;

// How often an index has been taken and given back: odd while it is taken. A value belongs to the turn in which it was
// set, so that whoever takes an index next finds it empty in every thread.
std::array<std::atomic<uint32_t>, kIndexes> indexTurns;

struct ThreadValue {
    LPVOID value;
    uint32_t turn;
};
using ThreadValues = std::array<ThreadValue, kIndexes>;

HOST_THREAD_LOCAL ThreadValues* threadValues = nullptr;

// The routine of a pthread key runs while the thread's own variables still live, which a destructor of theirs would
// not promise to the modules it calls.
void EndThread(void* values) {
    HostNotifyThreadDetach();
    threadValues = nullptr;
    delete static_cast<ThreadValues*>(values);
}

pthread_key_t EndOfThreadKey() {
    static const pthread_key_t key = [] {
        pthread_key_t made{};
        pthread_key_create(&made, EndThread);
        return made;
    }();
    return key;
}

ThreadValues* ValuesOfThread() {
    if (threadValues != nullptr) return threadValues;
    std::unique_ptr<ThreadValues> values(new (std::nothrow) ThreadValues{});
    if (values == nullptr || pthread_setspecific(EndOfThreadKey(), values.get()) != 0) return nullptr;
    threadValues = values.release();
    return threadValues;
}

bool IsTaken(uint32_t turn) {
    return turn % 2 != 0;
}

// The turn of an index; 0, which is nobody's, for a number that is none.
uint32_t TurnOf(DWORD index) {
    return index < kIndexes ? indexTurns[index].load(std::memory_order_acquire) : 0;
}

bool TakeIndex(DWORD index) {
    uint32_t turn = TurnOf(index);
    return !IsTaken(turn) && indexTurns[index].compare_exchange_strong(turn, turn + 1, std::memory_order_acq_rel);
}

}  // namespace

DWORD TlsAlloc() {
    for (DWORD index = 0; index < kIndexes; ++index) {
        if (TakeIndex(index)) return index;
    }
    return TLS_OUT_OF_INDEXES;
}

BOOL TlsFree(DWORD index) {
    uint32_t turn = TurnOf(index);
    const bool freed =
        IsTaken(turn) && indexTurns[index].compare_exchange_strong(turn, turn + 1, std::memory_order_acq_rel);
    return freed ? TRUE : FALSE;
}

LPVOID TlsGetValue(DWORD index) {
    const uint32_t turn = TurnOf(index);
    if (!IsTaken(turn) || threadValues == nullptr) return nullptr;
    const ThreadValue& entry = (*threadValues)[index];
    return entry.turn == turn ? entry.value : nullptr;
}

BOOL TlsSetValue(DWORD index, LPVOID value) {
    const uint32_t turn = TurnOf(index);
    if (!IsTaken(turn)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    ThreadValues* values = ValuesOfThread();
    if (values == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return FALSE;
    }
    (*values)[index] = ThreadValue{value, turn};
    return TRUE;
}
