// The files of modules: their names, and the sections in them. A file is not trusted: whatever it says of offsets and
// sizes, nothing outside it is read, and nothing large.
#include "module_files.h"

#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <limits.h>
#include <link.h>
#include <unistd.h>

#include <cstring>
#include <vector>

#include <morvl15/host_native.h>

namespace {

constexpr size_t kLargestNames = 1 << 20;
constexpr size_t kLargestSection = 1 << 16;

class ModuleFile {
  public:
    explicit ModuleFile(const char* path) : file_(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    ~ModuleFile() {
        if (file_ >= 0) close(file_);
    }
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;

    bool Read(uint64_t offset, void* bytes, size_t size) const {
        return offset <= INT64_MAX &&
               pread(file_, bytes, size, static_cast<off_t>(offset)) == static_cast<ssize_t>(size);
    }

    std::string ReadText(const ElfW(Shdr) & section, size_t largest) const {
        std::string text;
        if (section.sh_type == SHT_NOBITS || section.sh_size > largest) return text;
        text.resize(section.sh_size);
        return Read(section.sh_offset, text.data(), text.size()) ? text : std::string();
    }

  private:
    int file_;
};

bool IsModule(const ElfW(Ehdr) & header) {
    const unsigned char native = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == native &&
           header.e_ident[EI_DATA] == ELFDATA2LSB && header.e_shentsize == sizeof(ElfW(Shdr));
}

std::vector<ElfW(Shdr)> ReadSections(const ModuleFile& file, const ElfW(Ehdr) & header) {
    std::vector<ElfW(Shdr)> sections(header.e_shnum);
    if (!file.Read(header.e_shoff, sections.data(), sections.size() * sizeof(ElfW(Shdr)))) sections.clear();
    return sections;
}

std::string PathOfProgram() {
    char path[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return length > 0 ? std::string(path, static_cast<size_t>(length)) : std::string();
}

// The file whose image in memory holds a module's record.
std::string PathOfModule(const HostModule* module) {
    Dl_info info = {};
    link_map* map = nullptr;
    if (dladdr1(module, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0 || map == nullptr) return {};
    if (map->l_name[0] == '\0') return PathOfProgram();
    char path[PATH_MAX];
    return realpath(map->l_name, path) != nullptr ? path : map->l_name;
}

}  // namespace

std::string HostReadSection(const char* path, const char* section) {
    const ModuleFile file(path);
    ElfW(Ehdr) header = {};
    if (!file.Read(0, &header, sizeof header) || !IsModule(header)) return {};
    const std::vector<ElfW(Shdr)> sections = ReadSections(file, header);
    if (header.e_shstrndx >= sections.size()) return {};
    const std::string names = file.ReadText(sections[header.e_shstrndx], kLargestNames);
    for (const ElfW(Shdr) & candidate : sections) {
        if (candidate.sh_name >= names.size()) continue;
        if (std::strcmp(names.c_str() + candidate.sh_name, section) == 0)
            return file.ReadText(candidate, kLargestSection);
    }
    return {};
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR path, DWORD size) {
    const std::string name = module != nullptr ? PathOfModule(module) : PathOfProgram();
    if (name.empty() || size == 0) {
        SetLastError(name.empty() ? ERROR_INVALID_HANDLE : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    const size_t length = name.copy(path, size - 1);
    path[length] = '\0';
    if (length == name.size()) return static_cast<DWORD>(length);
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}
