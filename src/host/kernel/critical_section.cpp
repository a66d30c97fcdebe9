// Critical sections: a recursive lock over one futex word (the three-state mutex of Drepper, "Futexes Are Tricky").
// While the process has never had a second thread, the word is taken and given back without an atomic exchange.
#include <linux/futex.h>
#include <pthread.h>
#include <sys/single_threaded.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

#include <morvl15/host.h>

namespace {

constexpr int32_t kFree = 0;
constexpr int32_t kHeld = 1;
constexpr int32_t kWaitedFor = 2;

uintptr_t CurrentThread() {
    return static_cast<uintptr_t>(pthread_self());
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

void WaitUntilTaken(CRITICAL_SECTION* section) {
    std::atomic_ref<int32_t> state(section->state);
    while (state.exchange(kWaitedFor, std::memory_order_acquire) != kFree) {
        syscall(SYS_futex, &section->state, FUTEX_WAIT_PRIVATE, kWaitedFor, nullptr, nullptr, 0);
    }
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

bool IsOwner(CRITICAL_SECTION* section, uintptr_t thread) {
    return std::atomic_ref<uintptr_t>(section->owner).load(std::memory_order_relaxed) == thread;
}

void SetOwner(CRITICAL_SECTION* section, uintptr_t thread) {
    std::atomic_ref<uintptr_t>(section->owner).store(thread, std::memory_order_relaxed);
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
    if (IsOwner(section, self)) {
        ++section->depth;
        return;
    }
    if (!TakeFree(std::atomic_ref<int32_t>(section->state))) WaitUntilTaken(section);
    SetOwner(section, self);
    section->depth = 1;
}

BOOL TryEnterCriticalSection(CRITICAL_SECTION* section) {
    const uintptr_t self = CurrentThread();
    if (IsOwner(section, self)) {
        ++section->depth;
        return TRUE;
    }
    if (!TakeFree(std::atomic_ref<int32_t>(section->state))) return FALSE;
    SetOwner(section, self);
    section->depth = 1;
    return TRUE;
}

void LeaveCriticalSection(CRITICAL_SECTION* section) {
    if (!IsOwner(section, CurrentThread()) || --section->depth > 0) return;
    SetOwner(section, 0);
    GiveBack(section);
}
