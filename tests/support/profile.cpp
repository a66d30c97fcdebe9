#include "support/profile.h"

#include <cstring>

#include <morvl15/format.h>
#include <morvl15/host.h>

namespace {

constexpr char kAbsent[] =
    "\x01"
    "absent";

}  // namespace

TestProfile::TestProfile(std::vector<Entry> entries) {
    for (const Entry& entry : entries) {
        char value[512] = {};
        GetProfileStringA(entry.section, entry.key, kAbsent, value, sizeof value);
        saved_.push_back({entry.section, entry.key, value, std::strcmp(value, kAbsent) != 0});
        WriteProfileStringA(entry.section, entry.key, entry.value);
    }
    FMTWinIniChanged();
}

TestProfile::~TestProfile() {
    for (auto saved = saved_.rbegin(); saved != saved_.rend(); ++saved) {
        WriteProfileStringA(saved->section.c_str(), saved->key.c_str(),
                            saved->wasThere ? saved->value.c_str() : nullptr);
    }
    FMTWinIniChanged();
}
