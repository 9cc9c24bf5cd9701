#include "platform/posix/AccessRights.h"

#include "platform/posix/PosixFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <string_view>
#include <vector>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace railwright {
namespace {

using Value = std::vector<char>;

constexpr const char* AccessList = "system.posix_acl_access";
/// Attributes that describe the old content.
constexpr std::string_view NotKept[] = {"security.capability", "security.evm", "security.ima"};

/// Makes a system call that must first be asked for the size of its result. @return nothing if the result
/// does not exist.
template <class Call>
std::optional<Value> Sized(Call call, std::error_code& error) {
    Value value;
    for (;;) {
        const ssize_t size = call(nullptr, 0);
        if (size >= 0) {
            value.resize(static_cast<std::size_t>(size));
            const ssize_t read = size == 0 ? 0 : call(value.data(), value.size());
            value.resize(static_cast<std::size_t>(std::max<ssize_t>(read, 0)));
            if (read >= 0)
                return value;
        }
        if (errno == ERANGE) // the value grew meanwhile
            continue;
        if (errno != ENODATA && errno != ENOTSUP)
            error = LastError();
        return std::nullopt;
    }
}

/// Changes the owner before the mode, because a change of owner clears some rights. @return whether the owner
/// is kept.
bool TakeOverOwner(const struct stat& from, int to, std::error_code& error) {
    struct stat found {};
    if (fstat(to, &found) != 0)
        error = LastError();
    if (error || (found.st_uid == from.st_uid && found.st_gid == from.st_gid) ||
        fchown(to, from.st_uid, from.st_gid) == 0)
        return true;
    constexpr uid_t unchanged = static_cast<uid_t>(-1);
    // In a container, an unknown owner or group is reported as an invalid argument.
    if (found.st_gid != from.st_gid && fchown(to, unchanged, from.st_gid) != 0)
        error = errno == EINVAL ? std::make_error_code(std::errc::operation_not_permitted) : LastError();
    // The old owner becomes one of the others and must not gain rights.
    const mode_t owners = from.st_mode >> 6U, others = from.st_mode >> 3U | from.st_mode;
    if (!error && (others & ~owners & 7U) != 0)
        error = std::make_error_code(std::errc::operation_not_permitted);
    return found.st_uid == from.st_uid;
}

/// Copies the access list, or removes one inherited from the folder.
void TakeOverAccessList(const std::string& from, int to, std::error_code& error) {
    const auto list = Sized(
        [&](char* into, std::size_t size) { return getxattr(from.c_str(), AccessList, into, size); }, error);
    if (error)
        return;
    const int result =
        list ? fsetxattr(to, AccessList, list->data(), list->size(), 0) : fremovexattr(to, AccessList);
    if (result != 0 && (list || (errno != ENODATA && errno != ENOTSUP)))
        error = LastError();
}

/// Copies one extended attribute. Skips it if the user may not read or write it. A "system." attribute may be
/// another kind of access list, so it must not be skipped.
void TakeOverAttribute(const std::string& from, const char* name, int to, std::error_code& error) {
    std::error_code failed;
    const auto value =
        Sized([&](char* into, std::size_t size) { return getxattr(from.c_str(), name, into, size); }, failed);
    if (value && fsetxattr(to, name, value->data(), value->size(), 0) != 0)
        failed = LastError();
    const bool notPermitted = failed == std::errc::permission_denied ||
                              failed == std::errc::operation_not_permitted ||
                              failed == std::errc::not_supported;
    if (notPermitted && std::string_view(name).starts_with("system."))
        error = std::make_error_code(std::errc::operation_not_permitted);
    else if (!notPermitted && failed)
        error = failed;
}

void TakeOverAttributes(const std::string& from, int to, std::error_code& error) {
    const auto names =
        Sized([&](char* into, std::size_t size) { return listxattr(from.c_str(), into, size); }, error);
    const std::string all = names ? std::string(names->begin(), names->end()) : "";
    for (std::size_t at = 0; at < all.size() && !error; at = all.find('\0', at) + 1) {
        const std::string name = all.c_str() + at;
        if (name != AccessList && std::ranges::count(NotKept, name) == 0)
            TakeOverAttribute(from, name.c_str(), to, error);
    }
}

} // namespace

void TakeOverProperties(const std::string& from, int to, std::error_code& error) {
    struct stat old {
    }, found{};
    if (stat(from.c_str(), &old) != 0) {
        error = LastError();
        return;
    }
    const bool isOwnerKept = TakeOverOwner(old, to, error);
    if (!error)
        TakeOverAccessList(from, to, error);
    if (!error)
        TakeOverAttributes(from, to, error);
    if (error)
        return;
    const mode_t mode = old.st_mode & (isOwnerKept ? 07777U : 03777U);
    if (fstat(to, &found) != 0 || ((found.st_mode & 07777U) != mode && fchmod(to, mode) != 0))
        error = LastError();
}

} // namespace railwright
