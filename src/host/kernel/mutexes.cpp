// Mutexes: the C library's robust, recursive, process-shared mutex in a piece of named memory.
#include <pthread.h>
#include <sys/mman.h>

#include <cerrno>
#include <ctime>

#include "handles.h"
#include "named_memory.h"
#include "security.h"

namespace {

constexpr char kKind[] = "mutex";
constexpr uint32_t kMutexSignature = 0x58544D4D;

// What the memory of a mutex holds. Programs whose C libraries disagree about a mutex don't share one.
struct MutexPage {
    uint32_t signature;
    uint32_t mutexSize;
    pthread_mutex_t mutex;
};

struct Unmap {
    void operator()(MutexPage* page) const { munmap(page, sizeof(MutexPage)); }
};
using MutexView = std::unique_ptr<MutexPage, Unmap>;

MutexView MapMutex(int file) {
    void* page = mmap(nullptr, sizeof(MutexPage), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    return MutexView(page != MAP_FAILED ? static_cast<MutexPage*>(page) : nullptr);
}

bool InitMutex(MutexPage& page) {
    pthread_mutexattr_t attributes;
    if (pthread_mutexattr_init(&attributes) != 0) return false;
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    const bool made = pthread_mutex_init(&page.mutex, &attributes) == 0;
    pthread_mutexattr_destroy(&attributes);
    page.signature = kMutexSignature;
    page.mutexSize = sizeof(pthread_mutex_t);
    return made;
}

bool IsMutex(const MutexPage& page) {
    return page.signature == kMutexSignature && page.mutexSize == sizeof(pthread_mutex_t);
}

class Mutex : public KernelObject {
  public:
    static constexpr ObjectKind kObjectKind = ObjectKind::kMutex;

    Mutex(std::shared_ptr<NamedMemory> memory, MutexView page)
        : KernelObject(kObjectKind), memory_(std::move(memory)), page_(std::move(page)) {}

    ~Mutex() override;

    DWORD Wait(DWORD milliseconds);
    bool Release() { return pthread_mutex_unlock(&page_->mutex) == 0; }

  private:
    int Take(DWORD milliseconds);

    std::shared_ptr<NamedMemory> memory_;
    MutexView page_;
};

// The memory of a mutex that is owned stays: when its owner dies, the system and the C library still look into it.
Mutex::~Mutex() {
    if (__atomic_load_n(&page_->mutex.__data.__lock, __ATOMIC_RELAXED) != 0) static_cast<void>(page_.release());
}

int Mutex::Take(DWORD milliseconds) {
    if (milliseconds == INFINITE) return pthread_mutex_lock(&page_->mutex);
    if (milliseconds == 0) return pthread_mutex_trylock(&page_->mutex);
    timespec until = {};
    clock_gettime(CLOCK_MONOTONIC, &until);
    until.tv_sec += milliseconds / 1000;
    until.tv_nsec += static_cast<long>(milliseconds % 1000) * 1000000;
    if (until.tv_nsec >= 1000000000) {
        ++until.tv_sec;
        until.tv_nsec -= 1000000000;
    }
    return pthread_mutex_clocklock(&page_->mutex, CLOCK_MONOTONIC, &until);
}

DWORD Mutex::Wait(DWORD milliseconds) {
    switch (Take(milliseconds)) {
        case 0: return WAIT_OBJECT_0;
        case EOWNERDEAD: pthread_mutex_consistent(&page_->mutex); return WAIT_ABANDONED;
        case EBUSY:
        case ETIMEDOUT: return WAIT_TIMEOUT;
        default: SetLastError(ERROR_INVALID_HANDLE); return WAIT_FAILED;
    }
}

HANDLE Fail(DWORD error) {
    SetLastError(error);
    return nullptr;
}

// A handle to a mutex in memory that was there already.
HANDLE OpenExisting(std::shared_ptr<NamedMemory> memory) {
    if (memory->Size() < sizeof(MutexPage)) return Fail(ERROR_INVALID_HANDLE);
    MutexView page = MapMutex(memory->File());
    if (page == nullptr) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    if (!IsMutex(*page)) return Fail(ERROR_INVALID_HANDLE);
    return HostOpenHandle(std::make_unique<Mutex>(std::move(memory), std::move(page)));
}

}  // namespace

HANDLE CreateMutexA(LPSECURITY_ATTRIBUTES security, BOOL initialOwner, LPCSTR name) {
    MutexView page;
    // An initial owner has the mutex before anybody else can see it.
    const auto fill = [&page, initialOwner](int file) {
        page = MapMutex(file);
        if (page == nullptr || !InitMutex(*page)) return false;
        return initialOwner == FALSE || pthread_mutex_lock(&page->mutex) == 0;
    };
    NamedMemoryResult result = CreateNamedMemory({.kind = kKind,
                                                  .name = name,
                                                  .size = sizeof(MutexPage),
                                                  .everybody = HostAllowsEverybody(security),
                                                  .fill = fill});
    if (result.memory == nullptr) return Fail(result.error);
    if (!result.existed) {
        SetLastError(ERROR_SUCCESS);
        return HostOpenHandle(std::make_unique<Mutex>(std::move(result.memory), std::move(page)));
    }
    const HANDLE handle = OpenExisting(std::move(result.memory));
    if (handle != nullptr) SetLastError(ERROR_ALREADY_EXISTS);
    return handle;
}

HANDLE OpenMutexA(DWORD /*access*/, BOOL /*inherit*/, LPCSTR name) {
    NamedMemoryResult result = OpenNamedMemory(kKind, name);
    return result.memory != nullptr ? OpenExisting(std::move(result.memory)) : Fail(result.error);
}

BOOL ReleaseMutex(HANDLE handle) {
    auto* mutex = HostFindObject<Mutex>(handle);
    if (mutex == nullptr) return FALSE;
    if (mutex->Release()) return TRUE;
    SetLastError(ERROR_NOT_OWNER);
    return FALSE;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    auto* mutex = HostFindObject<Mutex>(handle);
    return mutex != nullptr ? mutex->Wait(milliseconds) : WAIT_FAILED;
}
