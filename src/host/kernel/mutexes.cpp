// Mutexes: the C library's robust, recursive, process-shared mutex in a piece of named memory.
#include <pthread.h>
#include <sys/mman.h>

#include <atomic>
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

    MutexPage* Page() { return page_.get(); }

  private:
    std::shared_ptr<NamedMemory> memory_;
    MutexView page_;
};

// The mutex that was used last: the address of its page and, in the low bits that are 0 in such an address, its handle.
// Most processes know one mutex and find it here by one load. The way to it is kept as short as that: next to the taking
// of a mutex, processors do calls and loads one after the other.
constinit std::atomic<uintptr_t> recentMutex{0};
constexpr uintptr_t kHandleBits = 0xFFF;

// The memory of a mutex that is owned stays: when its owner dies, the system and the C library still look into it.
Mutex::~Mutex() {
    uintptr_t recent = recentMutex.load();
    if ((recent & ~kHandleBits) == reinterpret_cast<uintptr_t>(page_.get())) {
        recentMutex.compare_exchange_strong(recent, 0);
    }
    if (__atomic_load_n(&page_->mutex.__data.__lock, __ATOMIC_RELAXED) != 0) static_cast<void>(page_.release());
}

// Finds a page by the table of handles and makes it the recent one. Out of line, for the short way to need no registers.
[[gnu::noinline]] MutexPage* LookUpPage(HANDLE handle) {
    auto* object = HostFindObject<Mutex>(handle);
    if (object == nullptr) return nullptr;
    const auto number = reinterpret_cast<uintptr_t>(handle);
    if (number <= kHandleBits) recentMutex.store(reinterpret_cast<uintptr_t>(object->Page()) | number);
    return object->Page();
}

// The page of a handle, or null, with the last error set, when there is none.
inline MutexPage* PageOf(HANDLE handle) {
    const uintptr_t recent = recentMutex.load(std::memory_order_acquire);
    const bool found = (recent & kHandleBits) == reinterpret_cast<uintptr_t>(handle) && recent != 0;
    return found ? reinterpret_cast<MutexPage*>(recent & ~kHandleBits) : LookUpPage(handle);
}

int TakeWithin(pthread_mutex_t* mutex, DWORD milliseconds) {
    if (milliseconds == 0) return pthread_mutex_trylock(mutex);
    timespec until = {};
    clock_gettime(CLOCK_MONOTONIC, &until);
    until.tv_sec += milliseconds / 1000;
    until.tv_nsec += static_cast<long>(milliseconds % 1000) * 1000000;
    if (until.tv_nsec >= 1000000000) {
        ++until.tv_sec;
        until.tv_nsec -= 1000000000;
    }
    return pthread_mutex_clocklock(mutex, CLOCK_MONOTONIC, &until);
}

// What a wait says of a mutex that wasn't simply taken.
[[gnu::noinline]] DWORD OutcomeOf(pthread_mutex_t* mutex, int error) {
    switch (error) {
        case EOWNERDEAD: pthread_mutex_consistent(mutex); return WAIT_ABANDONED;
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
    MutexPage* page = PageOf(handle);
    if (page == nullptr) return FALSE;
    if (pthread_mutex_unlock(&page->mutex) == 0) return TRUE;
    SetLastError(ERROR_NOT_OWNER);
    return FALSE;
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    MutexPage* page = PageOf(handle);
    if (page == nullptr) return WAIT_FAILED;
    const int error =
        milliseconds == INFINITE ? pthread_mutex_lock(&page->mutex) : TakeWithin(&page->mutex, milliseconds);
    return error == 0 ? WAIT_OBJECT_0 : OutcomeOf(&page->mutex, error);
}
