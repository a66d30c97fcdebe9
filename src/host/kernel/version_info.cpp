// Version texts of modules. A version record is the length of what follows, then the pairs of texts from the module's
// file, then two terminators that are always there, whatever the file holds.
#include <strings.h>

#include <algorithm>
#include <cstring>
#include <string>

#include <morvl15/host.h>

#include "module_files.h"

namespace {

constexpr char kSection[] = ".morvl15.version";
constexpr char kTextsPath[] = "\\StringFileInfo\\";
constexpr size_t kTerminators = 2;

size_t RecordSize(const std::string& texts) {
    return sizeof(DWORD) + texts.size() + kTerminators;
}

std::string ReadTexts(LPCSTR path) {
    std::string texts = HostReadSection(path, kSection);
    if (texts.empty()) SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return texts;
}

}  // namespace

DWORD GetFileVersionInfoSizeA(LPCSTR path, DWORD* handle) {
    if (handle != nullptr) *handle = 0;
    const std::string texts = ReadTexts(path);
    return texts.empty() ? 0 : static_cast<DWORD>(RecordSize(texts));
}

BOOL GetFileVersionInfoA(LPCSTR path, DWORD /*handle*/, DWORD size, LPVOID record) {
    const std::string texts = ReadTexts(path);
    if (texts.empty()) return FALSE;
    if (size < RecordSize(texts)) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    const auto length = static_cast<DWORD>(texts.size());
    auto* bytes = static_cast<char*>(record);
    std::memset(bytes, 0, RecordSize(texts));
    std::memcpy(bytes, &length, sizeof length);
    texts.copy(bytes + sizeof length, length);
    return TRUE;
}

BOOL VerQueryValueA(LPCVOID record, LPCSTR path, LPVOID* value, UINT* length) {
    const size_t prefix = std::strlen(kTextsPath);
    const bool wantsText = strncasecmp(path, kTextsPath, prefix) == 0;
    DWORD size = 0;
    std::memcpy(&size, record, sizeof size);
    const char* key = static_cast<const char*>(record) + sizeof size;
    const char* const end = key + size;
    while (wantsText && key < end) {
        const char* text = key + std::strlen(key) + 1;
        if (text > end) break;
        if (strcasecmp(path + prefix, key) == 0) {
            *value = const_cast<char*>(text);
            *length = static_cast<UINT>(std::strlen(text) + 1);
            return TRUE;
        }
        key = text + std::strlen(text) + 1;
    }
    SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
    return FALSE;
}
