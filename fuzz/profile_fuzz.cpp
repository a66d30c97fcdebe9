// Raw bytes as a profile file, and changes to it. No change may crash, get lost or touch another key.
//
// Input: a letter, J for Japanese; the file; then changes, each behind a byte 0x1E: section, key and text with a byte
// 0x1F between them. A change without a text takes the key away, one without a key the section.
#include <unistd.h>

#include <fstream>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "host/kernel/profile_file.h"
#include "host/kernel/profile_text.h"
#include "input.h"

namespace {

constexpr char kChange = 0x1E;
constexpr char kPart = 0x1F;

using Keys = std::map<std::pair<std::string, std::string>, std::optional<std::string>>;

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (size_t end = text.find(separator); end != std::string::npos; end = text.find(separator, start)) {
        parts.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::string WithoutBlanks(const std::string& text) {
    constexpr const char* kBlanks = " \t\n\v\f\r\x1A";
    const size_t first = text.find_first_not_of(kBlanks);
    return first != std::string::npos ? text.substr(first, text.find_last_not_of(kBlanks) - first + 1) : "";
}

// A name as names are compared.
std::string Folded(const std::string& text) {
    std::string name = WithoutBlanks(text);
    CharLowerBuffA(name.data(), static_cast<DWORD>(name.size()));
    return name;
}

// A value as it is read back.
std::string ReadBack(const std::string& text) {
    const std::string value = WithoutBlanks(text);
    const bool quoted = value.size() > 1 && (value[0] == '"' || value[0] == '\'') && value.back() == value[0];
    return quoted ? value.substr(1, value.size() - 2) : value;
}

Keys AllKeys() {
    const std::string text = ReadProfileFile();
    Keys keys;
    for (const std::string& section : Split(ListProfileSections(text), '\0')) {
        for (const std::string& key : Split(ListProfileKeys(text, section), '\0')) {
            if (!key.empty()) keys[{Folded(section), Folded(key)}] = FindProfileValue(text, section, key);
        }
    }
    return keys;
}

void ReadThroughEveryRoom(const char* section, const char* key) {
    for (DWORD size = 0; size < 12; ++size) {
        Room buffer(size);
        const DWORD length = GetProfileStringA(section, key, "default ", buffer, size);
        Require(length < std::max<DWORD>(size, 1));
        if (size > 0) Require(buffer[length] == 0);
    }
    GetProfileIntA(section, key, 1);
}

// Makes one change and compares all the keys that it isn't about.
void Change(const std::vector<std::string>& parts) {
    const char* section = parts[0].c_str();
    const char* key = parts.size() > 1 ? parts[1].c_str() : nullptr;
    const char* value = parts.size() > 2 ? parts[2].c_str() : nullptr;
    Keys before = AllKeys();
    const bool changed = WriteProfileStringA(section, key, value) != FALSE;
    Keys after = AllKeys();
    ReadThroughEveryRoom(section, key);
    if (!changed) {
        Require(before == after);
        return;
    }
    const std::pair<std::string, std::string> changedKey{Folded(section), key != nullptr ? Folded(key) : ""};
    Require((after.count(changedKey) != 0) == (value != nullptr));
    if (value != nullptr) Require(after[changedKey] == ReadBack(value));
    const auto isConcerned = [&](const auto& entry) {
        return key != nullptr ? entry.first == changedKey : entry.first.first == changedKey.first;
    };
    std::erase_if(before, isConcerned);
    std::erase_if(after, isConcerned);
    Require(before == after);
}

std::string MakeFolder() {
    std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm/morvl15-fuzz-XXXXXX" : "/tmp/morvl15-fuzz-XXXXXX";
    Require(mkdtemp(folder.data()) != nullptr);
    return folder;
}

// One profile per process, taken away at its end.
class ProfileOfProcess {
  public:
    ProfileOfProcess() : folder_(MakeFolder()), file_(folder_ + "/profile.ini") { HostSetProfilePath(file_.c_str()); }
    ~ProfileOfProcess() {
        unlink(file_.c_str());
        rmdir(folder_.c_str());
    }
    ProfileOfProcess(const ProfileOfProcess&) = delete;
    ProfileOfProcess& operator=(const ProfileOfProcess&) = delete;
    void Put(const std::string& text) const { std::ofstream(file_, std::ios::binary) << text; }

  private:
    std::string folder_;
    std::string file_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const ProfileOfProcess profile;
    if (size == 0) return 0;
    SetLanguage(data[0] == 'J' ? 0x0411 : 0x0409);
    const std::vector<std::string> parts = Split(std::string(data + 1, data + size), kChange);
    profile.Put(parts[0]);
    ReadThroughEveryRoom(nullptr, nullptr);
    for (size_t i = 1; i < std::min<size_t>(parts.size(), 9); ++i) Change(Split(parts[i], kPart));
    return 0;
}
