#include "platform/windows/AccessRights.h"

#include "platform/windows/Errors.h"

#include <cstring>
#include <memory>

#include <windows.h>

#include <aclapi.h>

namespace railwright {
namespace {

/// The list of who may do what with a file.
class AccessList {
public:
    /// @param code what the system says of the attempt to read it.
    AccessList(const std::wstring& path, DWORD& code) {
        PSECURITY_DESCRIPTOR read = nullptr;
        code = GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                                     nullptr, &read);
        descriptor.reset(read);
        SECURITY_DESCRIPTOR_CONTROL control = 0;
        DWORD revision = 0;
        if (code == ERROR_SUCCESS && GetSecurityDescriptorControl(read, &control, &revision) != FALSE)
            isProtected = (control & SE_DACL_PROTECTED) != 0;
    }

    bool IsLike(const AccessList& other) const {
        if (list == nullptr || other.list == nullptr)
            return list == other.list;
        return isProtected == other.isProtected && list->AclSize == other.list->AclSize &&
               std::memcmp(list, other.list, list->AclSize) == 0;
    }

    /// A list that takes over entries of the folder goes on doing so.
    DWORD Give(const std::wstring& path) const {
        const SECURITY_INFORMATION inheritance =
            isProtected ? PROTECTED_DACL_SECURITY_INFORMATION : UNPROTECTED_DACL_SECURITY_INFORMATION;
        std::wstring name = path; // the call takes no constant
        return SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr,
                                     nullptr, list, nullptr);
    }

private:
    struct Free {
        void operator()(void* memory) const { LocalFree(memory); }
    };
    std::unique_ptr<void, Free> descriptor;
    ACL* list = nullptr; // a piece of the descriptor
    bool isProtected = false;
};

bool HasNoRights(DWORD code) {
    return code == ERROR_NOT_SUPPORTED || code == ERROR_INVALID_FUNCTION || code == ERROR_CALL_NOT_IMPLEMENTED;
}

} // namespace

void CopyAccessRights(const std::wstring& from, const std::wstring& to, std::error_code& error) {
    DWORD code = ERROR_SUCCESS;
    const AccessList wanted(from, code);
    if (code == ERROR_SUCCESS) {
        const AccessList present(to, code);
        if (code == ERROR_SUCCESS && !wanted.IsLike(present))
            code = wanted.Give(to);
    }
    if (code != ERROR_SUCCESS && !HasNoRights(code)) {
        SetLastError(code);
        error = LastError();
    }
}

} // namespace railwright
