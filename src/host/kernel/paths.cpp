// Paths: searching folders for a file, making a path absolute.
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <morvl15/host.h>

namespace {

bool Exists(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0;
}

bool IsLink(const std::string& path) {
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::string CurrentFolder() {
    char folder[PATH_MAX];
    return getcwd(folder, sizeof folder) != nullptr ? folder : "/";
}

std::string ProgramFolder() {
    char path[PATH_MAX] = {};
    const std::string program(path, GetModuleFileNameA(nullptr, path, sizeof path));
    return program.substr(0, program.find_last_of('/'));
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (size_t at = 0; at <= text.size();) {
        const size_t end = std::min(text.find(separator, at), text.size());
        parts.emplace_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

std::vector<std::string> UsualFolders() {
    std::vector<std::string> folders = {ProgramFolder(), "."};
    const char* path = std::getenv("PATH");
    if (path == nullptr) return folders;
    for (std::string& folder : Split(path, ':')) folders.push_back(std::move(folder));
    return folders;
}

// An empty name in a list of folders is the current one.
std::string Join(const std::string& folder, const std::string& name) {
    if (folder.empty()) return "./" + name;
    return folder.back() == '/' ? folder + name : folder + '/' + name;
}

std::string Absolute(const std::string& path) {
    std::string absolute = path.starts_with('/') ? "" : CurrentFolder();
    if (absolute == "/") absolute.clear();
    for (const std::string& part : Split(path, '/')) {
        if (part.empty() || part == ".") continue;
        const size_t last = absolute.find_last_of('/');
        const bool steps = part == ".." && !absolute.ends_with("/..") && !IsLink(absolute);
        if (!steps) {
            absolute += '/' + part;
        } else if (last != std::string::npos) {
            absolute.resize(last);
        }
    }
    return absolute.empty() ? "/" : absolute;
}

bool HasPlace(const std::string& name) {
    return name.starts_with('/') || name.starts_with("./") || name.starts_with("../");
}

// The path of a file in the first folder that has it; empty for none.
std::string Search(const char* path, const std::string& name) {
    if (HasPlace(name)) return Exists(name) ? Absolute(name) : std::string();
    for (const std::string& folder : path != nullptr ? Split(path, ':') : UsualFolders()) {
        const std::string candidate = Join(folder, name);
        if (Exists(candidate)) return Absolute(candidate);
    }
    return {};
}

bool HasExtension(const std::string& name) {
    return name.find('.', name.find_last_of('/') + 1) != std::string::npos;
}

}  // namespace

DWORD SearchPathA(LPCSTR path, LPCSTR name, LPCSTR extension, DWORD size, LPSTR buffer, LPSTR* filePart) {
    if (name == nullptr || name[0] == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::string sought = name;
    if (extension != nullptr && !HasExtension(sought)) sought += extension;
    const std::string found = Search(path, sought);
    if (found.empty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return 0;
    }
    if (found.size() >= size) return static_cast<DWORD>(found.size() + 1);
    std::memcpy(buffer, found.c_str(), found.size() + 1);
    if (filePart != nullptr) *filePart = buffer + found.find_last_of('/') + 1;
    return static_cast<DWORD>(found.size());
}

char* _fullpath(char* buffer, const char* path, size_t size) {
    const std::string absolute = Absolute(path != nullptr ? path : "");
    if (absolute.size() >= size) return nullptr;
    std::memcpy(buffer, absolute.c_str(), absolute.size() + 1);
    return buffer;
}

int _stricmp(const char* first, const char* second) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : static_cast<unsigned char>(c); };
    while (*first != 0 && lower(*first) == lower(*second)) {
        ++first;
        ++second;
    }
    return lower(*first) - lower(*second);
}
