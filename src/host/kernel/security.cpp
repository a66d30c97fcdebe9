// Security descriptors, as far as the host tells rights apart.
#include "security.h"

namespace {

constexpr WORD kDaclPresent = 0x0004;
constexpr WORD kDaclDefaulted = 0x0008;

}  // namespace

BOOL InitializeSecurityDescriptor(PSECURITY_DESCRIPTOR descriptor, DWORD revision) {
    if (revision != SECURITY_DESCRIPTOR_REVISION) {
        SetLastError(ERROR_UNKNOWN_REVISION);
        return FALSE;
    }
    auto* record = static_cast<SECURITY_DESCRIPTOR*>(descriptor);
    *record = SECURITY_DESCRIPTOR{};
    record->Revision = SECURITY_DESCRIPTOR_REVISION;
    return TRUE;
}

BOOL SetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR descriptor, BOOL present, PACL list, BOOL defaulted) {
    auto* record = static_cast<SECURITY_DESCRIPTOR*>(descriptor);
    if (record->Revision != SECURITY_DESCRIPTOR_REVISION) {
        SetLastError(ERROR_INVALID_SECURITY_DESCR);
        return FALSE;
    }
    record->Control = 0;
    if (present != FALSE) record->Control |= kDaclPresent;
    if (present != FALSE && defaulted != FALSE) record->Control |= kDaclDefaulted;
    record->Dacl = present != FALSE ? list : nullptr;
    return TRUE;
}

bool HostAllowsEverybody(const SECURITY_ATTRIBUTES* security) {
    if (security == nullptr || security->lpSecurityDescriptor == nullptr) return false;
    const auto* descriptor = static_cast<const SECURITY_DESCRIPTOR*>(security->lpSecurityDescriptor);
    return (descriptor->Control & kDaclPresent) != 0 && descriptor->Dacl == nullptr;
}
