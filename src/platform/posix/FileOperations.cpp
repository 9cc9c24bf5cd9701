#include "platform/FileOperations.h"

#include "platform/posix/FileLock.h"
#include "platform/posix/Move.h"
#include "platform/posix/NewFile.h"
#include "platform/posix/PosixFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace railwright {
namespace {

/// Prevents blocking when a named pipe is opened.
constexpr int AtOnce = O_NONBLOCK | O_NOCTTY;

FileStatus StatusOf(const FilePath& path) {
    const char* const native = path.Native().c_str();
    struct stat found {};
    FileStatus status;
    status.IsLink = lstat(native, &found) == 0 && S_ISLNK(found.st_mode);
    status.Hidden = path.Name().Native().starts_with('.');
    if (stat(native, &found) != 0) {
        if (errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG) {
            status.What = FileStatus::Kind::Unknown;
            status.Error = LastError();
        }
        return status;
    }
    status.What = S_ISREG(found.st_mode)   ? FileStatus::Kind::File
                  : S_ISDIR(found.st_mode) ? FileStatus::Kind::Folder
                                           : FileStatus::Kind::Other;
    status.Writable = access(native, W_OK) == 0;
    status.Length = status.What == FileStatus::Kind::File ? found.st_size : 0;
    return status;
}

class PosixFiles final : public FileOperations {
public:
    /// A write beyond the file size limit must fail instead of ending the process by SIGXFSZ. A handler is
    /// not inherited by started programs; an ignored signal would be.
    PosixFiles() {
        (void)std::signal(SIGXFSZ, [](int) {});
    }

    FileStatus Status(const FilePath& path) override { return StatusOf(path); }

    FilePath BehindLinks(const FilePath& path, std::error_code& error) override {
        std::string native = path.Native();
        for (int links = 0; links < 40; ++links) {
            std::array<char, PATH_MAX> target{};
            const auto length = readlink(native.c_str(), target.data(), target.size());
            if (length < 0) {
                if (errno != EINVAL && errno != ENOENT && errno != ENOTDIR) // not a link, or missing
                    error = LastError();
                return FilePath::FromUser(native);
            }
            const std::string next(target.data(), static_cast<std::size_t>(length));
            native = next.starts_with('/') ? next : native.substr(0, native.rfind('/') + 1) + next;
        }
        error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
        return path;
    }

    std::unique_ptr<OpenFile> OpenToRead(const FilePath& path, std::error_code& error) override {
        auto file = OpenNative(path.Native(), O_RDONLY | AtOnce, 0, error);
        if (file)
            LockPatiently(file->Descriptor(), Lock::Shared, error);
        return error ? nullptr : std::move(file);
    }

    std::unique_ptr<NewFile> OpenNew(const FilePath& path, const FilePath& model,
                                     std::error_code& error) override {
        return OpenNewNative(path.Native(), model.Native(), error);
    }

    std::unique_ptr<OpenFile> OpenCopy(const FilePath& path, std::error_code& error) override {
        auto copy = OpenNative(path.Native(), O_RDWR | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR, error);
        if (copy)
            LockAtOnce(copy->Descriptor(), Lock::Exclusive);
        return copy;
    }

    bool IsAbandoned(const FilePath& path) override {
        std::error_code error;
        const auto file = OpenNative(path.Native(), O_RDONLY | O_NOFOLLOW | AtOnce, 0, error);
        struct stat found {};
        return file && fstat(file->Descriptor(), &found) == 0 && S_ISREG(found.st_mode) &&
               found.st_uid == geteuid() && LockAtOnce(file->Descriptor(), Lock::Exclusive);
    }

    std::unique_ptr<OpenFile> OpenToOverwrite(const FilePath& path, std::error_code& error) override {
        const std::string& native = path.Native();
        while (!error) {
            auto file = OpenNative(native, O_RDWR | AtOnce, 0, error);
            if (file)
                LockPatiently(file->Descriptor(), Lock::Exclusive, error);
            struct stat held {
            }, named{};
            if (!error)
                Check(fstat(file->Descriptor(), &held) != 0 ? -1 : stat(native.c_str(), &named), error);
            // Another file may have taken the name while this one waited for the lock.
            if (!error && held.st_ino == named.st_ino && held.st_dev == named.st_dev) {
                file->HoldSignals();
                return file;
            }
        }
        return nullptr;
    }

    void Move(const FilePath& from, const FilePath& to, std::error_code& error) override {
        MoveNative(from.Native(), to.Native(), error);
    }

    void Delete(const FilePath& path, std::error_code& error) override {
        Check(unlink(path.Native().c_str()), error);
    }

    void CreateFolder(const FilePath& path, std::error_code& error) override {
        Check(mkdir(path.Native().c_str(), 0777), error);
    }

    std::vector<FileName> List(const FilePath& folder, std::error_code& error) override {
        std::vector<FileName> names;
        for (std::string& name : NamesIn(folder.Native(), error))
            names.emplace_back(std::move(name));
        std::sort(names.begin(), names.end());
        return names;
    }

    void FlushFolder(const FilePath& folder, std::error_code& error) override {
        const std::string native = folder.IsEmpty() ? "." : folder.Native();
        std::error_code failed;
        if (const auto opened = OpenNative(native, O_RDONLY | O_DIRECTORY, 0, failed))
            opened->Flush(failed);
        // Some file systems do not support this, and some folders are write-only.
        if (failed != std::errc::invalid_argument && failed != std::errc::not_supported &&
            failed != std::errc::permission_denied)
            error = failed ? failed : error;
    }

    void DeleteLeftovers(const FilePath& folder) override {
        DeleteLeftoversIn(folder.IsEmpty() ? "" : folder.AsFolder().Native());
    }

    /// Files in /var/tmp survive a restart of the system.
    std::vector<FilePath> TemporaryFolders() override {
        std::vector<FilePath> folders = {FilePath::FromUser("/var/tmp"), FilePath::FromUser("/tmp")};
        if (const char* const own = std::getenv("TMPDIR"); own != nullptr && *own == '/')
            folders.insert(folders.begin(), FilePath::FromUser(own));
        return folders;
    }

private:
    static void Check(int result, std::error_code& error) {
        if (result != 0)
            error = LastError();
    }
};

} // namespace

FileOperations& SystemFiles() {
    static PosixFiles files;
    return files;
}

} // namespace railwright
