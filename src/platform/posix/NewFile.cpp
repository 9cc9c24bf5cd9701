#include "platform/posix/NewFile.h"

#include "platform/posix/AccessRights.h"
#include "platform/posix/FileLock.h"
#include "platform/posix/Move.h"
#include "platform/posix/PosixFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace railwright {
namespace {

constexpr std::string_view Start = ".railwright-";
constexpr std::string_view End = ".tmp";

/// Returns a temporary name of a new file of this process.
std::string TemporaryName(const std::string& folder, int number) {
    return folder + std::string(Start) + std::to_string(getpid()) + '-' + std::to_string(number) +
           std::string(End);
}

/// Returns whether this is the temporary name of a file of any process.
bool IsTemporaryName(std::string_view name) {
    if (!name.starts_with(Start) || !name.ends_with(End) || name.size() < Start.size() + End.size())
        return false;
    const std::string_view numbers = name.substr(Start.size(), name.size() - Start.size() - End.size());
    return std::ranges::count(numbers, '-') == 1 && !numbers.starts_with('-') && !numbers.ends_with('-') &&
           numbers.find_first_not_of("0123456789-") == std::string_view::npos;
}

/// Returns the /proc path of an open file, which exists even for a nameless file.
std::string OpenName(const PosixFile& file) {
    return "/proc/self/fd/" + std::to_string(file.Descriptor());
}

mode_t ModeLike(const std::string& model) {
    struct stat found {};
    if (model.empty() || stat(model.c_str(), &found) != 0)
        return 0666;
    const mode_t others = found.st_mode & 6U;
    const mode_t group = found.st_gid == getegid() ? found.st_mode & 060U : others << 3U;
    return (found.st_mode & 0600U) | group | others;
}

/// Returns whether names in the folder can be added but not changed or removed.
bool IsAppendOnly(const std::string& folder) {
    struct statx found {};
    return statx(AT_FDCWD, folder.c_str(), 0, STATX_TYPE, &found) == 0 &&
           (found.stx_attributes & STATX_ATTR_APPEND) != 0;
}

class PosixNewFile final : public NewFile {
public:
    PosixNewFile(std::string native, const std::string& model, std::error_code& error)
        : target(std::move(native)), folder(target.substr(0, target.rfind('/') + 1)) {
        if (IsAppendOnly(folder.empty() ? "." : folder)) { // the temporary name could not be removed
            error = std::make_error_code(std::errc::operation_not_permitted);
            return;
        }
        // The mode of a replaced file is copied later.
        const bool replaces = model == target;
        const mode_t mode = replaces ? S_IRUSR | S_IWUSR : ModeLike(model);
        if (!OpenNameless(mode))
            OpenNamed(mode, error);
        if (!error && replaces)
            TakeOverProperties(target, file->Descriptor(), error);
    }
    PosixNewFile(const PosixNewFile&) = delete;
    PosixNewFile& operator=(const PosixNewFile&) = delete;
    ~PosixNewFile() override {
        if (!temporary.empty())
            unlink(temporary.c_str());
    }

    OpenFile& Content() override { return *file; }

    void TakePlace(std::error_code& error) override {
        // linkat never replaces a file, so the file is linked to a temporary name and then renamed.
        for (int number = 0; temporary.empty(); ++number) {
            std::error_code failed;
            Link(TemporaryName(folder, number), failed);
            if (failed && failed != std::errc::file_exists) {
                error = failed;
                return;
            }
        }
        if (rename(temporary.c_str(), target.c_str()) == 0)
            temporary.clear();
        else
            error = LastError();
    }

    void KeepAs(const FilePath& path, std::error_code& error) override {
        if (temporary.empty())
            Link(path.Native(), error);
        else
            MoveNative(temporary, path.Native(), error);
        if (!error)
            temporary.clear();
    }

private:
    bool OpenNameless(mode_t mode) {
        std::error_code ignored; // not supported by every file system
        file = OpenNative(folder.empty() ? "." : folder, O_TMPFILE | O_WRONLY, mode, ignored);
        if (!file || access(OpenName(*file).c_str(), F_OK) != 0)
            return false;
        LockAtOnce(file->Descriptor(), Lock::Exclusive);
        return true;
    }

    void OpenNamed(mode_t mode, std::error_code& error) {
        for (int number = 0;; ++number) {
            std::error_code failed;
            const std::string name = TemporaryName(folder, number);
            file = OpenNative(name, O_WRONLY | O_CREAT | O_EXCL, mode, failed);
            if (failed == std::errc::file_exists)
                continue;
            error = failed;
            if (!file)
                return;
            temporary = name;
            struct stat found {};
            // Before the lock, another process may have deleted it as a leftover.
            if ((LockAtOnce(file->Descriptor(), Lock::Exclusive) || errno != EWOULDBLOCK) &&
                fstat(file->Descriptor(), &found) == 0 && found.st_nlink > 0)
                return;
            temporary.clear();
        }
    }

    void Link(const std::string& name, std::error_code& error) {
        if (linkat(AT_FDCWD, OpenName(*file).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0)
            temporary = name;
        else
            error = LastError();
    }

    std::string target;
    std::string folder;
    std::unique_ptr<PosixFile> file;
    /// Empty while the file is nameless, and once it has its final name.
    std::string temporary;
};

} // namespace

std::unique_ptr<NewFile> OpenNewNative(const std::string& native, const std::string& model,
                                       std::error_code& error) {
    auto file = std::make_unique<PosixNewFile>(native, model, error);
    return error ? nullptr : std::move(file);
}

void DeleteLeftoversIn(const std::string& nativeFolder) {
    std::error_code ignored;
    for (const std::string& name : NamesIn(nativeFolder.empty() ? "." : nativeFolder, ignored)) {
        if (!IsTemporaryName(name))
            continue;
        const std::string path = nativeFolder + name;
        const auto file = OpenNative(path, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0, ignored);
        struct stat found {
        }, named{};
        if (file && fstat(file->Descriptor(), &found) == 0 && S_ISREG(found.st_mode) &&
            (found.st_uid == geteuid() || geteuid() == 0) &&
            LockAtOnce(file->Descriptor(), Lock::Exclusive) && lstat(path.c_str(), &named) == 0 &&
            named.st_ino == found.st_ino)
            unlink(path.c_str());
    }
}

} // namespace railwright
