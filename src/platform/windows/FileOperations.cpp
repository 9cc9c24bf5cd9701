#include "platform/FileOperations.h"

#include "base/FileName.h"
#include "platform/windows/AccessRights.h"
#include "platform/windows/Errors.h"
#include "platform/windows/Wide.h"

#include <algorithm>
#include <utility>

#include <windows.h>

namespace railwright {
namespace {

constexpr DWORD LongestCall = 1U << 30U; // a single call takes a 32-bit length

/// Virus scanners, and folders that are kept in step with others, hold a file open for a moment. Runs a call
/// until it succeeds, fails for another reason, or has been waited for some ten times, a second in all.
template <class Call>
BOOL Patiently(Call call, bool deniedMayPass = false) {
    constexpr DWORD longestWait = 180; // milliseconds, reached in ten steps
    for (DWORD wait = longestWait / 10;; wait += longestWait / 10) {
        if (call())
            return TRUE;
        const DWORD code = GetLastError();
        const bool isHeld = code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION ||
                            (deniedMayPass && code == ERROR_ACCESS_DENIED);
        if (!isHeld || wait > longestWait)
            return FALSE;
        Sleep(wait);
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
        if (GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &found) == FALSE)
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
        const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
        if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
            return path;
        const WindowsFile link(CreateFileW(NativePath(path).c_str(), 0,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                           OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        std::wstring name(32768, 0);
        const DWORD length = GetFinalPathNameByHandleW(link.Handle(), name.data(),
                                                       static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
        return length == 0 || length >= name.size() ? path : FromWide(name.substr(0, length));
    }

    std::unique_ptr<OpenFile> OpenToRead(const std::string& path, std::error_code& error) override {
        return Opened(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, error);
    }

    std::unique_ptr<OpenFile> OpenNew(const std::string& path, const std::string& like,
                                      std::error_code& error) override {
        // Nobody else opens it until it is closed, so its rights are in time. It stays hidden until it takes
        // its name.
        DWORD attributes = FILE_ATTRIBUTE_HIDDEN;
        if (!like.empty() && (AttributesOf(like) & FILE_ATTRIBUTE_ENCRYPTED) != 0)
            attributes |= FILE_ATTRIBUTE_ENCRYPTED;
        auto file = Opened(path, GENERIC_WRITE, 0, CREATE_NEW, attributes, error);
        if (file && !like.empty())
            CopyAccessRights(NativePath(like), NativePath(path), error);
        if (!file || !error)
            return file;
        file.reset();
        DeleteFileW(NativePath(path).c_str());
        return nullptr;
    }

    std::unique_ptr<OpenFile> OpenToOverwrite(const std::string& path, std::error_code& error) override {
        return Opened(path, GENERIC_WRITE, 0, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, error);
    }

    void Replace(const std::string& from, const std::string& to, std::error_code& error) override {
        TakeOverProperties(from, to, error);
        if (!error)
            Rename(from, to, MOVEFILE_REPLACE_EXISTING, error);
    }

    void Move(const std::string& from, const std::string& to, std::error_code& error) override {
        Rename(from, to, 0, error);
    }

    void Delete(const std::string& path, std::error_code& error) override {
        const std::wstring name = NativePath(path);
        Check(Patiently([&] { return DeleteFileW(name.c_str()); }), error);
    }

    void CreateFolder(const std::string& path, std::error_code& error) override {
        Check(CreateDirectoryW(NativePath(path).c_str(), nullptr), error);
    }

    std::vector<std::string> List(const std::string& folder, std::error_code& error) override {
        std::vector<std::string> names;
        WIN32_FIND_DATAW found{};
        const std::string inFolder = folder.empty() || folder.ends_with('\\') ? folder : folder + '\\';
        HANDLE search = FindFirstFileW(NativePath(inFolder + '*').c_str(), &found);
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
                                            DWORD disposition, DWORD attributes, std::error_code& error) {
        const std::wstring name = NativePath(path);
        HANDLE handle = INVALID_HANDLE_VALUE;
        Patiently([&] {
            handle = CreateFileW(name.c_str(), access, sharing, nullptr, disposition, attributes, nullptr);
            return handle != INVALID_HANDLE_VALUE;
        });
        if (handle != INVALID_HANDLE_VALUE)
            return std::make_unique<WindowsFile>(handle);
        error = LastError();
        return nullptr;
    }

    static DWORD AttributesOf(const std::string& path) {
        const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
        return attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes;
    }

    /// Gives a new file the attributes and the date of creation of the one whose place it takes; one that
    /// takes nobody's place is no longer hidden.
    static void TakeOverProperties(const std::string& from, const std::string& to, std::error_code& error) {
        constexpr DWORD kept =
            FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
        FILE_BASIC_INFO properties{}; // a time of 0 stays as it is
        properties.FileAttributes = FILE_ATTRIBUTE_ARCHIVE;
        WIN32_FILE_ATTRIBUTE_DATA old{};
        if (GetFileAttributesExW(NativePath(to).c_str(), GetFileExInfoStandard, &old) != FALSE) {
            properties.FileAttributes |= old.dwFileAttributes & kept;
            properties.CreationTime.LowPart = old.ftCreationTime.dwLowDateTime;
            properties.CreationTime.HighPart = static_cast<LONG>(old.ftCreationTime.dwHighDateTime);
        }
        const auto file =
            Opened(from, FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, error);
        if (file)
            Check(SetFileInformationByHandle(static_cast<WindowsFile&>(*file).Handle(), FileBasicInfo,
                                             &properties, sizeof properties),
                  error);
    }

    /// A rename is one step of the file system and is on the disk when it returns. Over a file that somebody
    /// has open it is denied.
    static void Rename(const std::string& from, const std::string& to, DWORD how, std::error_code& error) {
        const std::wstring source = NativePath(from);
        const std::wstring target = NativePath(to);
        const bool replaces = how == MOVEFILE_REPLACE_EXISTING && AttributesOf(to) != 0;
        Check(Patiently(
                  [&] { return MoveFileExW(source.c_str(), target.c_str(), how | MOVEFILE_WRITE_THROUGH); },
                  replaces),
              error);
    }
};

} // namespace

FileOperations& SystemFiles() {
    static WindowsFiles files;
    return files;
}

} // namespace railwright
