// Mappings: named memory, and the views by which a process sees it.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <mutex>
#include <vector>

#include "handles.h"
#include "named_memory.h"
#include "security.h"

namespace {

constexpr char kKind[] = "mapping";

class Mapping : public KernelObject {
  public:
    static constexpr ObjectKind kObjectKind = ObjectKind::kMapping;

    explicit Mapping(std::shared_ptr<NamedMemory> memory) : KernelObject(kObjectKind), memory_(std::move(memory)) {}

    const std::shared_ptr<NamedMemory>& Memory() const { return memory_; }

  private:
    std::shared_ptr<NamedMemory> memory_;
};

// A view uses its memory by itself, after the mapping's handle has been closed too.
struct View {
    void* address;
    size_t length;
    std::shared_ptr<NamedMemory> memory;
};

struct Views {
    std::mutex lock;
    std::vector<View> all;
};

Views& OpenViews() {
    static auto* views = new Views;  // never destroyed: views are closed by other destructors
    return *views;
}

HANDLE Fail(DWORD error) {
    SetLastError(error);
    return nullptr;
}

// The part of a mapping that a view shows, or 0 for one that it can't.
size_t ViewLength(const NamedMemory& memory, uint64_t offset, size_t bytes) {
    const uint64_t size = memory.Size();
    if (offset >= size || offset % static_cast<uint64_t>(sysconf(_SC_PAGESIZE)) != 0) return 0;
    const uint64_t rest = size - offset;
    return bytes <= rest ? static_cast<size_t>(bytes == 0 ? rest : bytes) : 0;
}

void* MapShared(int file, uint64_t offset, size_t length, bool writable, void* address) {
    const int protection = writable ? PROT_READ | PROT_WRITE : PROT_READ;
    const int flags = address != nullptr ? MAP_SHARED | MAP_FIXED_NOREPLACE : MAP_SHARED;
    void* view = mmap(address, length, protection, flags, file, static_cast<off_t>(offset));
    if (view == MAP_FAILED) return nullptr;
    if (address == nullptr || view == address) return view;
    munmap(view, length);  // a system that doesn't know the flag took the address for a wish
    return nullptr;
}

}  // namespace

HANDLE CreateFileMappingA(HANDLE file, LPSECURITY_ATTRIBUTES security, DWORD protection, DWORD sizeHigh, DWORD sizeLow,
                          LPCSTR name) {
    const uint64_t size = (static_cast<uint64_t>(sizeHigh) << 32) | sizeLow;
    if (file != INVALID_HANDLE_VALUE) return Fail(ERROR_INVALID_HANDLE);
    if (protection != PAGE_READWRITE || size == 0 || size > INT64_MAX) return Fail(ERROR_INVALID_PARAMETER);
    NamedMemoryResult result =
        CreateNamedMemory({.kind = kKind, .name = name, .size = size, .everybody = HostAllowsEverybody(security)});
    if (result.memory == nullptr) return Fail(result.error);
    const HANDLE handle = HostOpenHandle(std::make_unique<Mapping>(std::move(result.memory)));
    if (handle != nullptr) SetLastError(result.existed ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return handle;
}

HANDLE OpenFileMappingA(DWORD /*access*/, BOOL /*inherit*/, LPCSTR name) {
    NamedMemoryResult result = OpenNamedMemory(kKind, name);
    if (result.memory == nullptr) return Fail(result.error);
    return HostOpenHandle(std::make_unique<Mapping>(std::move(result.memory)));
}

LPVOID MapViewOfFileEx(HANDLE handle, DWORD access, DWORD offsetHigh, DWORD offsetLow, SIZE_T bytes, LPVOID address) {
    const auto* mapping = HostFindObject<Mapping>(handle);
    if (mapping == nullptr) return nullptr;
    const std::shared_ptr<NamedMemory>& memory = mapping->Memory();
    const uint64_t offset = (static_cast<uint64_t>(offsetHigh) << 32) | offsetLow;
    const size_t length = ViewLength(*memory, offset, bytes);
    if (length == 0) return Fail(ERROR_INVALID_PARAMETER);
    void* view = MapShared(memory->File(), offset, length, (access & FILE_MAP_WRITE) != 0, address);
    if (view == nullptr) return Fail(ERROR_INVALID_ADDRESS);
    const std::lock_guard guard(OpenViews().lock);
    OpenViews().all.push_back(View{view, length, memory});
    return view;
}

BOOL UnmapViewOfFile(LPCVOID address) {
    const std::lock_guard guard(OpenViews().lock);
    std::vector<View>& views = OpenViews().all;
    const auto view = std::find_if(views.begin(), views.end(), [=](const View& v) { return v.address == address; });
    if (view == views.end()) {
        SetLastError(ERROR_INVALID_ADDRESS);
        return FALSE;
    }
    munmap(view->address, view->length);
    views.erase(view);
    return TRUE;
}
