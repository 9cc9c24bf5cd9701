#include "platform/posix/Move.h"

#include "platform/posix/PosixFile.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace railwright {

void MoveNative(const std::string& from, const std::string& to, std::error_code& error) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return;
    if (errno != EINVAL && errno != ENOSYS) {
        error = LastError();
        return;
    }
    // On a file system without this call a file takes the new name first, which fails if there is one. A
    // folder cannot have two names.
    struct stat found {};
    const bool isFolder = stat(from.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
    const bool moved = isFolder && access(to.c_str(), F_OK) != 0
                           ? rename(from.c_str(), to.c_str()) == 0
                           : link(from.c_str(), to.c_str()) == 0 && unlink(from.c_str()) == 0;
    if (!moved)
        error = LastError();
}

} // namespace railwright
