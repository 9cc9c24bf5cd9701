#include "platform/FileOperations.h"

#include "base/FileName.h"
#include "platform/windows/Wide.h"

#include <algorithm>
#include <utility>

#include <windows.h>

namespace railwright {
namespace {

constexpr DWORD LongestCall = 1U << 30U; // a single call takes a 32-bit length

/// The last failure of the system in the terms of the standard library, so that callers can compare it.
std::error_code LastError() {
    switch (const DWORD code = GetLastError()) {
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return std::make_error_code(std::errc::permission_denied);
    case ERROR_WRITE_PROTECT:
        return std::make_error_code(std::errc::read_only_file_system);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return std::make_error_code(std::errc::no_space_on_device);
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return std::make_error_code(std::errc::no_such_file_or_directory);
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return std::make_error_code(std::errc::file_exists);
    default:
        return {static_cast<int>(code), std::system_category()};
    }
}

void Check(BOOL done, std::error_code& error) {
    if (done == FALSE)
        error = LastError();
}

class WindowsFile final : public OpenFile {
public:
    explicit WindowsFile(HANDLE opened) : handle(opened) {}
    WindowsFile(const WindowsFile&) = delete;
    WindowsFile& operator=(const WindowsFile&) = delete;
    ~WindowsFile() override {
        if (handle != INVALID_HANDLE_VALUE)
            CloseHandle(handle);
    }

    HANDLE Handle() const { return handle; }

    std::size_t Read(std::span<std::uint8_t> into, std::error_code& error) override {
        DWORD done = 0;
        Check(ReadFile(handle, into.data(), CallLength(into.size()), &done, nullptr), error);
        return done;
    }
    std::size_t Write(std::span<const std::uint8_t> bytes, std::error_code& error) override {
        DWORD done = 0;
        Check(WriteFile(handle, bytes.data(), CallLength(bytes.size()), &done, nullptr), error);
        return done;
    }
    void CutOff(std::error_code& error) override { Check(SetEndOfFile(handle), error); }
    void Flush(std::error_code& error) override { Check(FlushFileBuffers(handle), error); }
    void Close(std::error_code& error) override {
        Check(CloseHandle(std::exchange(handle, INVALID_HANDLE_VALUE)), error);
    }

private:
    static DWORD CallLength(std::size_t size) {
        return static_cast<DWORD>(std::min<std::size_t>(size, LongestCall));
    }

    HANDLE handle;
};

class WindowsFiles final : public FileOperations {
public:
    FileStatus Status(const std::string& path) override {
        WIN32_FILE_ATTRIBUTE_DATA found{};
        FileStatus status;
        if (GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &found) == FALSE)
            return status;
        const DWORD attributes = found.dwFileAttributes;
        const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool device = (attributes & FILE_ATTRIBUTE_DEVICE) != 0;
        status.What = folder   ? FileStatus::Kind::Folder
                      : device ? FileStatus::Kind::Other
                               : FileStatus::Kind::File;
        status.Hidden = (attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
        status.Writable = (attributes & FILE_ATTRIBUTE_READONLY) == 0;
        if (status.What == FileStatus::Kind::File)
            status.Length = (static_cast<std::int64_t>(found.nFileSizeHigh) << 32U) | found.nFileSizeLow;
        return status;
    }

    FileStatus ExactStatus(const std::string& path) override { return Status(path); }

    std::string BehindLinks(const std::string& path) override {
        const DWORD attributes = GetFileAttributesW(ToWide(path).c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
            return path;
        const WindowsFile link(CreateFileW(ToWide(path).c_str(), 0,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                           OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        std::wstring name(32768, 0);
        const DWORD length = GetFinalPathNameByHandleW(link.Handle(), name.data(),
                                                       static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
        return length == 0 || length >= name.size() ? path : FromWide(name.substr(0, length));
    }

    std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) override {
        return Opened(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      OPEN_EXISTING, error);
    }

    std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string&,
                                      std::error_code& error) override {
        return Opened(path, GENERIC_WRITE, 0, CREATE_NEW, error);
    }

    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) override {
        return Opened(path, GENERIC_WRITE, 0, OPEN_EXISTING, error);
    }

    void Replace(const std::string& from, const std::string& to, std::error_code& error) override {
        const std::wstring source = ToWide(from);
        const std::wstring target = ToWide(to);
        // ReplaceFile hands the old file's attributes and access rights to the new one; where the file system
        // does not know it, or nothing stands under the name, a plain move does.
        if (GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES &&
            ReplaceFileW(target.c_str(), source.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                         nullptr) != FALSE)
            return;
        Check(MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH),
              error);
    }

    void Move(const std::string& from, const std::string& to, std::error_code& error) override {
        Check(MoveFileExW(ToWide(from).c_str(), ToWide(to).c_str(), MOVEFILE_WRITE_THROUGH), error);
    }

    void Delete(const std::string& path, std::error_code& error) override {
        Check(DeleteFileW(ToWide(path).c_str()), error);
    }

    void CreateFolder(const std::string& path, std::error_code& error) override {
        Check(CreateDirectoryW(ToWide(path).c_str(), nullptr), error);
    }

    std::vector<std::string> List(const std::string& folder, std::error_code& error) override {
        std::vector<std::string> names;
        WIN32_FIND_DATAW found{};
        const std::string inFolder = folder.empty() || folder.ends_with('\\') ? folder : folder + '\\';
        HANDLE search = FindFirstFileW(ToWide(inFolder + '*').c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) {
            error = LastError();
            return names;
        }
        do {
            if (std::string name = FromWide(&found.cFileName[0]); name != "." && name != "..")
                names.push_back(std::move(name));
        } while (FindNextFileW(search, &found) != FALSE);
        FindClose(search);
        std::sort(names.begin(), names.end());
        return names;
    }

    void FlushFolder(const std::string&) override {} // the file system keeps a log of its names

    std::string TemporaryNameBeside(const std::string& path) override {
        const std::string start =
            FolderOf(path) + "~railwright-" + std::to_string(GetCurrentProcessId()) + '-';
        for (int number = 0;; ++number) {
            std::string name = start + std::to_string(number) + ".tmp";
            if (Status(name).What == FileStatus::Kind::Missing)
                return name;
        }
    }

private:
    static std::unique_ptr<OpenFile> Opened(const std::string& path, DWORD access, DWORD sharing,
                                            DWORD disposition, std::error_code& error) {
        HANDLE handle = CreateFileW(ToWide(path).c_str(), access, sharing, nullptr, disposition,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle != INVALID_HANDLE_VALUE)
            return std::make_unique<WindowsFile>(handle);
        error = LastError();
        return nullptr;
    }
};

} // namespace

FileOperations& SystemFiles() {
    static WindowsFiles files;
    return files;
}

} // namespace railwright
