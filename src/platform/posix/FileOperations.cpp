#include "platform/FileOperations.h"

#include "base/FileName.h"
#include "platform/Paths.h"
#include "platform/posix/NameLookup.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace railwright {
namespace {

std::error_code LastError() {
    return {errno, std::system_category()};
}

class PosixFile final : public OpenFile {
public:
    explicit PosixFile(int opened) : descriptor(opened) {}
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;
    ~PosixFile() override {
        if (descriptor >= 0)
            close(descriptor);
    }

    std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) override {
        return Checked([&] { return read(descriptor, into.data(), into.size()); }, error);
    }
    std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) override {
        return Checked([&] { return write(descriptor, bytes.data(), bytes.size()); }, error);
    }
    void CutOff(std::error_code& error) override {
        Checked([&] { return ftruncate(descriptor, lseek(descriptor, 0, SEEK_CUR)); }, error);
    }
    void Flush(std::error_code& error) override {
        Checked([&] { return fsync(descriptor); }, error);
    }
    void Close(std::error_code& error) override {
        if (close(std::exchange(descriptor, -1)) != 0 && errno != EINTR)
            error = LastError();
    }

private:
    /// Runs a call again for as long as a signal interrupts it. @return its result, 0 on failure.
    template <class Call>
    static std::size_t Checked(Call call, std::error_code& error) {
        auto result = call();
        while (result < 0 && errno == EINTR)
            result = call();
        if (result < 0)
            error = LastError();
        return result < 0 ? 0 : static_cast<std::size_t>(result);
    }

    int descriptor;
};

FileStatus StatusOf(const std::string& native) {
    struct stat found {};
    FileStatus status;
    if (stat(native.c_str(), &found) != 0)
        return status;
    status.What = S_ISREG(found.st_mode)   ? FileStatus::Kind::File
                  : S_ISDIR(found.st_mode) ? FileStatus::Kind::Folder
                                           : FileStatus::Kind::Other;
    status.Hidden = native[native.rfind('/') + 1] == '.';
    status.Writable = access(native.c_str(), W_OK) == 0;
    status.Length = status.What == FileStatus::Kind::File ? found.st_size : 0;
    return status;
}

class PosixFiles final : public FileOperations {
public:
    FileStatus Status(const std::string& path) override { return StatusOf(ExistingName(path)); }

    FileStatus ExactStatus(const std::string& path) override { return StatusOf(NewName(path)); }

    std::string BehindLinks(const std::string& path) override {
        std::string native = NewName(path);
        for (int links = 0; links < 40; ++links) {
            std::array<char, 4096> target{};
            const auto length = readlink(native.c_str(), target.data(), target.size());
            if (length <= 0 || static_cast<std::size_t>(length) == target.size())
                break;
            const std::string next(target.data(), static_cast<std::size_t>(length));
            native = next.front() == '/' ? next : native.substr(0, native.rfind('/') + 1) + next;
        }
        return PathFromOutside(native);
    }

    std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) override {
        // Without O_NONBLOCK a named pipe would keep the program waiting for a writer.
        return Opened(open(ExistingName(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK), error);
    }

    std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string& like,
                                      std::error_code& error) override {
        struct stat old {};
        const bool inherits = !like.empty() && stat(NewName(like).c_str(), &old) == 0;
        const int descriptor = open(NewName(path).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                                    inherits ? S_IRUSR | S_IWUSR : 0666);
        if (descriptor >= 0 && inherits) {
            // The owner first: a change of owner clears some bits of the mode. Only root can give a file
            // away, and a file that another owner let everybody write is still saved.
            [[maybe_unused]] const int owned = fchown(descriptor, old.st_uid, old.st_gid);
            fchmod(descriptor, old.st_mode & 07777U);
        }
        return Opened(descriptor, error);
    }

    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) override {
        return Opened(open(NewName(path).c_str(), O_WRONLY | O_CLOEXEC), error);
    }

    void Replace(const std::string& from, const std::string& to, std::error_code& error) override {
        Check(rename(NewName(from).c_str(), NewName(to).c_str()), error);
    }

    void Move(const std::string& from, const std::string& to, std::error_code& error) override {
        const std::string source = ExistingName(from);
        const std::string target = NewName(to);
        if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
            return;
        if (errno != EINVAL && errno != ENOSYS) {
            error = LastError();
            return;
        }
        // On a file system without this call a file takes the new name first, which fails if there is one. A
        // folder cannot have two names.
        if (StatusOf(source).What == FileStatus::Kind::Folder && access(target.c_str(), F_OK) != 0) {
            Check(rename(source.c_str(), target.c_str()), error);
            return;
        }
        Check(link(source.c_str(), target.c_str()), error);
        if (!error)
            Check(unlink(source.c_str()), error);
    }

    void Delete(const std::string& path, std::error_code& error) override {
        Check(unlink(ExistingName(path).c_str()), error);
    }

    void CreateFolder(const std::string& path, std::error_code& error) override {
        Check(mkdir(NewName(path).c_str(), 0777), error);
    }

    std::vector<std::string> List(const std::string& folder, std::error_code& error) override {
        std::vector<std::string> names = NamesIn(ExistingName(folder), error);
        std::sort(names.begin(), names.end());
        return names;
    }

    void FlushFolder(const std::string& folder) override {
        const std::string native = folder.empty() ? "." : ExistingName(folder);
        std::error_code ignored; // not every file system can do it
        if (const auto opened = Opened(open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), ignored);
            opened)
            opened->Flush(ignored);
    }

    std::string TemporaryNameBeside(const std::string& path) override {
        const std::string start = FolderOf(path) + ".railwright-" + std::to_string(getpid()) + '-';
        for (int number = 0;; ++number) {
            std::string name = start + std::to_string(number) + ".tmp";
            if (ExactStatus(name).What == FileStatus::Kind::Missing)
                return name;
        }
    }

private:
    static std::unique_ptr<OpenFile> Opened(int descriptor, std::error_code& error) {
        if (descriptor >= 0)
            return std::make_unique<PosixFile>(descriptor);
        error = LastError();
        return nullptr;
    }

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
