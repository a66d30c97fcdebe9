#include "support/profile.h"

#include <cstring>

#include <morvl15/format.h>
#include <morvl15/host.h>

namespace {

constexpr char kAbsent[] = "\x01 absent";

std::string Read(const char* section, const char* key) {
    char value[512];
    GetProfileStringA(section, key, kAbsent, value, sizeof value);
    return value;
}

bool IsQuoted(const std::string& value) {
    return value.size() > 1 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
}

// Behind a section that Windows keeps in the registry, Wine gives the quotes of a value back; there they are not
// needed.
void Write(const char* section, const char* key, const char* value) {
    WriteProfileStringA(section, key, value);
    if (value == nullptr || !IsQuoted(value) || Read(section, key) != value) return;
    WriteProfileStringA(section, key, std::string(value + 1, std::strlen(value) - 2).c_str());
}

}  // namespace

TestProfile::TestProfile(std::vector<Entry> entries) {
    for (const Entry& entry : entries) {
        const std::string value = Read(entry.section, entry.key);
        saved_.push_back({entry.section, entry.key, '"' + value + '"', value != kAbsent});
        Write(entry.section, entry.key, entry.value);
    }
    FMTWinIniChanged();
}

TestProfile::~TestProfile() {
    for (auto saved = saved_.rbegin(); saved != saved_.rend(); ++saved) {
        Write(saved->section.c_str(), saved->key.c_str(), saved->wasThere ? saved->value.c_str() : nullptr);
    }
    FMTWinIniChanged();
}
