#include "platform/posix/PosixFile.h"

#include <cerrno>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace railwright {
namespace {

/// Repeats a call while signals interrupt it. @return its result; 0 on failure.
template <class Call>
std::int64_t Checked(Call call, std::error_code& error) {
    std::int64_t result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    if (result < 0)
        error = LastError();
    return result < 0 ? 0 : result;
}

} // namespace

std::error_code LastError() {
    return {errno, std::system_category()};
}

PosixFile::~PosixFile() {
    close(descriptor);
}

std::size_t PosixFile::Read(std::span<std::uint8_t> into, std::error_code& error) {
    return static_cast<std::size_t>(
        Checked([&] { return read(descriptor, into.data(), into.size()); }, error));
}

std::size_t PosixFile::Write(std::span<const std::uint8_t> bytes, std::error_code& error) {
    return static_cast<std::size_t>(
        Checked([&] { return write(descriptor, bytes.data(), bytes.size()); }, error));
}

void PosixFile::CutOff(std::error_code& error) {
    Checked([&] { return ftruncate(descriptor, lseek(descriptor, 0, SEEK_CUR)); }, error);
}

void PosixFile::Flush(std::error_code& error) {
    Checked([&] { return fsync(descriptor); }, error);
}

void PosixFile::Rewind(std::error_code& error) {
    Checked([&] { return lseek(descriptor, 0, SEEK_SET); }, error);
}

std::int64_t PosixFile::Length(std::error_code& error) {
    struct stat found {};
    Checked([&] { return fstat(descriptor, &found); }, error);
    return found.st_size;
}

std::vector<std::string> NamesIn(const std::string& native, std::error_code& error) {
    struct Closer {
        void operator()(DIR* open) const { closedir(open); }
    };
    const std::unique_ptr<DIR, Closer> folder(opendir(native.c_str()));
    std::vector<std::string> names;
    if (folder)
        errno = 0; // reaching the end is no error
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        const std::string name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..")
            names.push_back(name);
        errno = 0;
    }
    if (errno != 0)
        error = LastError();
    return names;
}

std::unique_ptr<PosixFile> OpenNative(const std::string& native, int flags, unsigned mode,
                                      std::error_code& error) {
    const int descriptor = open(native.c_str(), flags | O_CLOEXEC, mode);
    if (descriptor >= 0)
        return std::make_unique<PosixFile>(descriptor);
    error = LastError();
    return nullptr;
}

} // namespace railwright
