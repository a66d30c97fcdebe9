// The user profile, as the platform's calls read and write it.
#include <algorithm>
#include <cstring>
#include <string>

#include <morvl15/host.h>

#include "profile_file.h"
#include "profile_text.h"

namespace {

constexpr char kTrailingBlank = ' ';

// A text without zeros of its own, cut to size - 1 bytes.
DWORD GiveText(const std::string& text, LPSTR buffer, DWORD size) {
    const size_t length = std::min(std::strlen(text.c_str()), size_t{size} - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    return static_cast<DWORD>(length);
}

// A list of texts, each with its zero, and a zero behind the last. What is cut ends in two zeros all the same.
DWORD GiveList(const std::string& names, LPSTR buffer, DWORD size) {
    if (names.size() < size) {
        std::memcpy(buffer, names.c_str(), names.size() + 1);
        return static_cast<DWORD>(names.size());
    }
    const DWORD length = std::max<DWORD>(size, 2) - 2;
    std::memcpy(buffer, names.data(), length);
    std::fill(buffer + length, buffer + size, '\0');
    return length;
}

std::string DefaultOf(LPCSTR text) {
    std::string given = text != nullptr ? text : "";
    given.erase(given.find_last_not_of(kTrailingBlank) + 1);
    return given;
}

int DigitOf(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 16;
}

// The base that the prefix at `at` tells, which is passed.
uint32_t TakeBase(const char*& at) {
    if (at[0] != '0') return 10;
    const uint32_t base = at[1] == 'x' ? 16 : at[1] == 'o' ? 8 : at[1] == 'b' ? 2 : 10;
    if (base != 10) at += 2;
    return base;
}

// A whole number as the platform reads it: blanks, a sign, 0x, 0o or 0b, then digits up to the first other character;
// none are 0, and what goes beyond 32 bits is lost.
UINT WholeNumber(const char* at) {
    while (*at > 0 && *at <= ' ') ++at;
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+') ++at;
    const uint32_t base = TakeBase(at);
    UINT value = 0;
    for (; static_cast<uint32_t>(DigitOf(*at)) < base; ++at) value = value * base + static_cast<uint32_t>(DigitOf(*at));
    return negative ? 0 - value : value;
}

DWORD WriteProfile(LPCSTR section, LPCSTR key, LPCSTR text) {
    if (section == nullptr || !IsProfileSectionName(section)) return ERROR_INVALID_PARAMETER;
    if (key == nullptr) {
        return ChangeProfileFile([=](std::string& profile) { RemoveProfileSection(profile, section); });
    }
    if (!IsProfileKeyName(key)) return ERROR_INVALID_PARAMETER;
    if (text == nullptr) {
        return ChangeProfileFile([=](std::string& profile) { RemoveProfileKey(profile, section, key); });
    }
    if (!IsProfileValue(text)) return ERROR_INVALID_PARAMETER;
    return ChangeProfileFile([=](std::string& profile) { SetProfileValue(profile, section, key, text); });
}

}  // namespace

DWORD GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size) {
    if (buffer == nullptr || size == 0) return 0;
    const std::string profile = ReadProfileFile();
    if (section == nullptr || key == nullptr) {
        const std::string names = section == nullptr ? ListProfileSections(profile) : ListProfileKeys(profile, section);
        if (!names.empty()) return GiveList(names, buffer, size);
        return GiveText(DefaultOf(defaultText), buffer, size);
    }
    const auto value = FindProfileValue(profile, section, key);
    return GiveText(value ? *value : DefaultOf(defaultText), buffer, size);
}

UINT GetProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue) {
    if (section == nullptr || key == nullptr) return static_cast<UINT>(defaultValue);
    const auto value = FindProfileValue(ReadProfileFile(), section, key);
    return value && !value->empty() ? WholeNumber(value->c_str()) : static_cast<UINT>(defaultValue);
}

BOOL WriteProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text) {
    if (section == nullptr && key == nullptr && text == nullptr) {
        FlushProfileFile();
        return FALSE;  // as on the platform: nothing was written
    }
    const DWORD error = WriteProfile(section, key, text);
    if (error != ERROR_SUCCESS) SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}
