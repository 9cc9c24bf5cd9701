#include "platform/windows/AccessRights.h"

#include "platform/windows/Errors.h"

#include <cstring>
#include <memory>

#include <windows.h>

#include <aclapi.h>

namespace railwright {
namespace {

/// The access control list (DACL) of a file.
class AccessList {
public:
    /// @param code receives the error code of reading the list.
    AccessList(const std::wstring& path, DWORD& code) {
        PSECURITY_DESCRIPTOR read = nullptr;
        code = GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                     nullptr, &list, nullptr, &read);
        descriptor.reset(read);
        DWORD revision = 0;
        if (code == ERROR_SUCCESS)
            GetSecurityDescriptorControl(read, &control, &revision);
    }

    bool operator==(const AccessList& other) const {
        if (list == nullptr || other.list == nullptr || control != other.control)
            return list == other.list && control == other.control;
        return list->AclSize == other.list->AclSize && std::memcmp(list, other.list, list->AclSize) == 0;
    }

    /// Marks inherited entries as such, so that they keep following the folder.
    DWORD Give(const std::wstring& path) const {
        constexpr SECURITY_DESCRIPTOR_CONTROL follows = SE_DACL_AUTO_INHERIT_REQ | SE_DACL_AUTO_INHERITED;
        if ((control & SE_DACL_AUTO_INHERITED) != 0)
            SetSecurityDescriptorControl(descriptor.get(), follows, follows);
        SECURITY_INFORMATION what = DACL_SECURITY_INFORMATION;
        if ((control & SE_DACL_PROTECTED) != 0)
            what |= PROTECTED_DACL_SECURITY_INFORMATION;
        return SetFileSecurityW(path.c_str(), what, descriptor.get()) != FALSE ? ERROR_SUCCESS
                                                                               : GetLastError();
    }

private:
    struct Free {
        void operator()(void* memory) const { LocalFree(memory); }
    };
    std::unique_ptr<void, Free> descriptor;
    ACL* list = nullptr; // part of the descriptor
    SECURITY_DESCRIPTOR_CONTROL control = 0;
};

bool HasNoRights(DWORD code) {
    return code == ERROR_NOT_SUPPORTED || code == ERROR_INVALID_FUNCTION ||
           code == ERROR_CALL_NOT_IMPLEMENTED;
}

} // namespace

void CopyAccessRights(const std::wstring& from, const std::wstring& to, std::error_code& error) {
    DWORD code = ERROR_SUCCESS;
    const AccessList wanted(from, code);
    if (code == ERROR_SUCCESS) {
        const AccessList present(to, code);
        if (code == ERROR_SUCCESS && !(present == wanted))
            code = wanted.Give(to);
    }
    if (code != ERROR_SUCCESS && !HasNoRights(code)) {
        SetLastError(code);
        error = LastError();
    }
}

} // namespace railwright
