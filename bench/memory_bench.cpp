// Memory: the process heap, thread slots and the shared mutex, beside what a user would take instead.
#include <benchmark/benchmark.h>
#include <pthread.h>
#include <sys/mman.h>

#include <cstdlib>

#include <morvl15/frame.h>
#include <morvl15/memory.h>

namespace {

// ---- the process heap -------------------------------------------------------------------------------------------

constexpr uint32_t kBlock = 64;

void AllocAndFree(benchmark::State& state) {
    for (auto _ : state) {
        void* block = MemAlloc(kBlock);
        benchmark::DoNotOptimize(block);
        MemFree(block);
    }
}

pthread_mutex_t* RecursiveMutex(bool shared) {
    auto* mutex = static_cast<pthread_mutex_t*>(
        mmap(nullptr, sizeof(pthread_mutex_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    if (shared) {
        pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
        pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    }
    pthread_mutex_init(mutex, &attributes);
    return mutex;
}

void CallocAndFreeUnderARecursiveMutex(benchmark::State& state) {
    pthread_mutex_t* mutex = RecursiveMutex(false);
    for (auto _ : state) {
        pthread_mutex_lock(mutex);
        void* block = std::calloc(1, kBlock);
        pthread_mutex_unlock(mutex);
        benchmark::DoNotOptimize(block);
        pthread_mutex_lock(mutex);
        std::free(block);
        pthread_mutex_unlock(mutex);
    }
}

// ---- thread slots -----------------------------------------------------------------------------------------------

thread_local uintptr_t threadValue = 1;

__attribute__((noinline)) uintptr_t ReadThreadValue() {
    asm volatile("" ::: "memory");
    return threadValue;
}

void GetItem(benchmark::State& state) {
    static const int32_t slot = TLS_AllocIndex();
    TLS_SetItem(slot, 1, nullptr);
    for (auto _ : state) benchmark::DoNotOptimize(TLS_GetItem(slot));
}

void ThreadLocal(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(ReadThreadValue());
}

// ---- the mutex --------------------------------------------------------------------------------------------------

void AcquireAndRelease(benchmark::State& state) {
    for (auto _ : state) {
        MemAcquireMutex();
        MemReleaseMutex();
    }
}

void RobustRecursiveMutex(benchmark::State& state) {
    pthread_mutex_t* mutex = RecursiveMutex(true);
    for (auto _ : state) {
        pthread_mutex_lock(mutex);
        pthread_mutex_unlock(mutex);
    }
}

// ---- the table --------------------------------------------------------------------------------------------------

BENCHMARK(AllocAndFree);
BENCHMARK(CallocAndFreeUnderARecursiveMutex);
BENCHMARK(GetItem);
BENCHMARK(ThreadLocal);
BENCHMARK(AcquireAndRelease);
BENCHMARK(RobustRecursiveMutex);

}  // namespace

BENCHMARK_MAIN();
