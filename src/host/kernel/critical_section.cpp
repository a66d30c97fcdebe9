// Critical sections: a recursive lock over one futex word (the three-state mutex of Drepper, "Futexes Are Tricky").
// While the process has never had a second thread, the word is taken and given back without an atomic exchange.
#include <linux/futex.h>
#include <sys/single_threaded.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

#include <morvl15/host.h>

#include "thread_local.h"

namespace {

constexpr int32_t kFree = 0;
constexpr int32_t kHeld = 1;
constexpr int32_t kWaitedFor = 2;

// A thread is told by the address of a variable of its own.
HOST_THREAD_LOCAL char threadMark = 0;

uintptr_t CurrentThread() {
    return reinterpret_cast<uintptr_t>(&threadMark);
}

bool IsOwner(CRITICAL_SECTION* section, uintptr_t thread) {
    return std::atomic_ref<uintptr_t>(section->owner).load(std::memory_order_relaxed) == thread;
}

void SetOwner(CRITICAL_SECTION* section, uintptr_t thread) {
    std::atomic_ref<uintptr_t>(section->owner).store(thread, std::memory_order_relaxed);
}

bool TakeFree(std::atomic_ref<int32_t> state) {
    if (__libc_single_threaded) {
        if (state.load(std::memory_order_relaxed) != kFree) return false;
        state.store(kHeld, std::memory_order_relaxed);
        return true;
    }
    int32_t expected = kFree;
    return state.compare_exchange_strong(expected, kHeld, std::memory_order_acquire, std::memory_order_relaxed);
}

// Most sections that are entered are free, which is asked first.
[[gnu::always_inline]] inline bool TakeAtOnce(CRITICAL_SECTION* section, uintptr_t self) {
    if (TakeFree(std::atomic_ref<int32_t>(section->state))) {
        SetOwner(section, self);
        return true;
    }
    if (!IsOwner(section, self)) return false;
    ++section->depth;
    return true;
}

// Kept out of the short way, which then saves no registers.
[[gnu::noinline]] void WaitUntilTaken(CRITICAL_SECTION* section, uintptr_t self) {
    std::atomic_ref<int32_t> state(section->state);
    while (state.exchange(kWaitedFor, std::memory_order_acquire) != kFree) {
        syscall(SYS_futex, &section->state, FUTEX_WAIT_PRIVATE, kWaitedFor, nullptr, nullptr, 0);
    }
    SetOwner(section, self);
}

void GiveBack(CRITICAL_SECTION* section) {
    std::atomic_ref<int32_t> state(section->state);
    if (__libc_single_threaded) {
        state.store(kFree, std::memory_order_relaxed);
        return;
    }
    if (state.exchange(kFree, std::memory_order_release) == kWaitedFor) {
        syscall(SYS_futex, &section->state, FUTEX_WAKE_PRIVATE, 1, nullptr, nullptr, 0);
    }
}

}  // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section) {
    *section = CRITICAL_SECTION{};
}

void DeleteCriticalSection(CRITICAL_SECTION* section) {
    *section = CRITICAL_SECTION{};
}

void EnterCriticalSection(CRITICAL_SECTION* section) {
    const uintptr_t self = CurrentThread();
    if (!TakeAtOnce(section, self)) WaitUntilTaken(section, self);
}

BOOL TryEnterCriticalSection(CRITICAL_SECTION* section) {
    return TakeAtOnce(section, CurrentThread()) ? TRUE : FALSE;
}

void LeaveCriticalSection(CRITICAL_SECTION* section) {
    if (!IsOwner(section, CurrentThread())) return;
    if (section->depth > 0) {
        --section->depth;
        return;
    }
    SetOwner(section, 0);
    GiveBack(section);
}
