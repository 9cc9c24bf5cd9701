#include "platform/FileOperations.h"

#include "platform/windows/AccessRights.h"
#include "platform/windows/Errors.h"
#include "platform/windows/Wide.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include <windows.h>

namespace railwright {
namespace {

constexpr DWORD LongestCall = 1U << 30U; // the length parameter has 32 bits

/// Repeats a call while another program holds the file, ten times within a second. Virus scanners and
/// synchronized folders hold files open briefly.
template <class Call>
BOOL Patiently(Call call, bool deniedMayPass = false) {
    constexpr DWORD longestWait = 180; // milliseconds
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

/// Returns whether the error means that the file does not exist.
bool MeansMissing(const std::error_code& error) {
    constexpr std::array codes = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME,
                                  ERROR_BAD_PATHNAME,   ERROR_DIRECTORY,      ERROR_FILENAME_EXCED_RANGE};
    return std::ranges::count(codes, static_cast<DWORD>(error.value())) > 0;
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
    void Rewind(std::error_code& error) override {
        Check(SetFilePointerEx(handle, LARGE_INTEGER{}, nullptr, FILE_BEGIN), error);
    }
    std::int64_t Length(std::error_code& error) override {
        LARGE_INTEGER length{};
        Check(GetFileSizeEx(handle, &length), error);
        return length.QuadPart;
    }

private:
    static DWORD CallLength(std::size_t size) {
        return static_cast<DWORD>(std::min<std::size_t>(size, LongestCall));
    }

    HANDLE handle;
};

std::unique_ptr<WindowsFile> Opened(const FilePath& path, DWORD access, DWORD sharing, DWORD disposition,
                                    DWORD attributes, std::error_code& error) {
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

DWORD AttributesOf(const FilePath& path) {
    const DWORD attributes = GetFileAttributesW(NativePath(path).c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes;
}

/// Copies the attributes and the creation date of the replaced file to the new one. Unhides the new file if
/// it replaces none.
void TakeOverProperties(const FilePath& from, const FilePath& to, std::error_code& error) {
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    FILE_BASIC_INFO properties{}; // a time of 0 keeps the current one
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
        Check(SetFileInformationByHandle(file->Handle(), FileBasicInfo, &properties, sizeof properties),
              error);
}

/// Renames a file in one step and flushes the rename to the disk. Fails if the replaced file is open.
void Rename(const FilePath& from, const FilePath& to, DWORD how, std::error_code& error) {
    const std::wstring source = NativePath(from);
    const std::wstring target = NativePath(to);
    const bool replaces = how == MOVEFILE_REPLACE_EXISTING && AttributesOf(to) != 0;
    Check(Patiently([&] { return MoveFileExW(source.c_str(), target.c_str(), how | MOVEFILE_WRITE_THROUGH); },
                    replaces),
          error);
}

/// Returns whether a path is a link. Placeholders of files stored online are not links.
bool LeadsElsewhere(const FilePath& path) {
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW(NativePath(path).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    FindClose(search);
    return IsReparseTagNameSurrogate(found.dwReserved0);
}

constexpr std::string_view TemporaryStart = "~railwright-";
constexpr std::string_view TemporaryEnd = ".tmp";

bool IsThere(const FilePath& path) {
    return GetFileAttributesW(NativePath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

FilePath TemporaryNameBeside(const FilePath& path) {
    const std::string start = std::string(TemporaryStart) + std::to_string(GetCurrentProcessId()) + '-';
    for (int number = 0;; ++number) {
        const FileName name(start + std::to_string(number) + std::string(TemporaryEnd));
        if (FilePath temporary = path.Folder() / name; !IsThere(temporary))
            return temporary;
    }
}

/// A new file that no other process can open until it is closed, so copying its rights after creation is
/// safe. Hidden until it gets its final name.
class WindowsNewFile final : public NewFile {
public:
    WindowsNewFile(const FilePath& path, const FilePath& model, std::error_code& error)
        : target(path), temporary(TemporaryNameBeside(path)) {
        const bool replaces = model == path; // otherwise the rights come from the folder
        DWORD attributes = FILE_ATTRIBUTE_HIDDEN;
        if (replaces && (AttributesOf(target) & FILE_ATTRIBUTE_ENCRYPTED) != 0)
            attributes |= FILE_ATTRIBUTE_ENCRYPTED;
        file = Opened(temporary, GENERIC_WRITE, 0, CREATE_NEW, attributes, error);
        if (!file)
            temporary = {};
        else if (replaces)
            CopyAccessRights(NativePath(target), NativePath(temporary), error);
    }
    WindowsNewFile(const WindowsNewFile&) = delete;
    WindowsNewFile& operator=(const WindowsNewFile&) = delete;
    ~WindowsNewFile() override {
        file.reset();
        if (!temporary.IsEmpty())
            Patiently([&] { return DeleteFileW(NativePath(temporary).c_str()); });
    }

    OpenFile& Content() override { return *file; }

    void TakePlace(std::error_code& error) override { Take(target, MOVEFILE_REPLACE_EXISTING, error); }
    void KeepAs(const FilePath& path, std::error_code& error) override { Take(path, 0, error); }

private:
    void Take(const FilePath& path, DWORD how, std::error_code& error) {
        file.reset();
        TakeOverProperties(temporary, path, error);
        if (!error)
            Rename(temporary, path, how, error);
        if (!error)
            temporary = {};
    }

    FilePath target;
    FilePath temporary;
    std::unique_ptr<WindowsFile> file;
};

class WindowsFiles final : public FileOperations {
public:
    FileStatus Status(const FilePath& path) override {
        WIN32_FILE_ATTRIBUTE_DATA found{};
        FileStatus status;
        if (GetFileAttributesExW(NativePath(path).c_str(), GetFileExInfoStandard, &found) == FALSE) {
            if (const std::error_code error = LastError(); !MeansMissing(error)) {
                status.What = FileStatus::Kind::Unknown;
                status.Error = error;
            }
            return status;
        }
        const DWORD attributes = found.dwFileAttributes;
        const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool device = (attributes & FILE_ATTRIBUTE_DEVICE) != 0;
        status.What = folder   ? FileStatus::Kind::Folder
                      : device ? FileStatus::Kind::Other
                               : FileStatus::Kind::File;
        status.IsLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && LeadsElsewhere(path);
        const std::string name = path.Name().Native();
        status.Hidden = (attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0 ||
                        (name.starts_with(TemporaryStart) && name.ends_with(TemporaryEnd));
        status.Writable = (attributes & FILE_ATTRIBUTE_READONLY) == 0;
        if (status.What == FileStatus::Kind::File)
            status.Length = (static_cast<std::int64_t>(found.nFileSizeHigh) << 32U) | found.nFileSizeLow;
        return status;
    }

    FilePath BehindLinks(const FilePath& path, std::error_code& error) override {
        if ((AttributesOf(path) & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
            return path;
        std::error_code failed;
        const auto link = Opened(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, failed);
        if (!link) {
            if (!MeansMissing(failed))
                error = failed;
            return path;
        }
        std::wstring name(32768, 0);
        const DWORD length = GetFinalPathNameByHandleW(link->Handle(), name.data(),
                                                       static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
        return length == 0 || length >= name.size() ? path
                                                    : FilePath::FromUser(FromWide(name.substr(0, length)));
    }

    std::unique_ptr<OpenFile> OpenToRead(const FilePath& path, std::error_code& error) override {
        return Opened(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, error);
    }

    std::unique_ptr<NewFile> OpenNew(const FilePath& path, const FilePath& model,
                                     std::error_code& error) override {
        auto file = std::make_unique<WindowsNewFile>(path, model, error);
        return error ? nullptr : std::move(file);
    }

    std::unique_ptr<OpenFile> OpenCopy(const FilePath& path, std::error_code& error) override {
        return Opened(path, GENERIC_READ | GENERIC_WRITE, 0, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, error);
    }

    bool IsAbandoned(const FilePath& path) override {
        HANDLE const handle = CreateFileW(NativePath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr);
        return handle != INVALID_HANDLE_VALUE && CloseHandle(handle) != FALSE;
    }

    std::unique_ptr<OpenFile> OpenToOverwrite(const FilePath& path, std::error_code& error) override {
        return Opened(path, GENERIC_READ | GENERIC_WRITE, 0, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, error);
    }

    void Move(const FilePath& from, const FilePath& to, std::error_code& error) override {
        Rename(from, to, 0, error);
    }

    void Delete(const FilePath& path, std::error_code& error) override {
        const std::wstring name = NativePath(path);
        Check(Patiently([&] { return DeleteFileW(name.c_str()); }), error);
    }

    void CreateFolder(const FilePath& path, std::error_code& error) override {
        Check(CreateDirectoryW(NativePath(path).c_str(), nullptr), error);
    }

    std::vector<FileName> List(const FilePath& folder, std::error_code& error) override {
        std::vector<FileName> names;
        WIN32_FIND_DATAW found{};
        HANDLE search = FindFirstFileW(NativePath(folder / FileName("*")).c_str(), &found);
        if (search == INVALID_HANDLE_VALUE) {
            error = LastError();
            return names;
        }
        do {
            if (std::string name = FromWide(&found.cFileName[0]); name != "." && name != "..")
                names.emplace_back(std::move(name));
        } while (FindNextFileW(search, &found) != FALSE);
        FindClose(search);
        std::sort(names.begin(), names.end());
        return names;
    }

    void FlushFolder(const FilePath&, std::error_code&) override {
    } // the file system keeps a log of its names

    /// The leftovers are hidden, and another process may still be writing them.
    void DeleteLeftovers(const FilePath&) override {}

    std::vector<FilePath> TemporaryFolders() override {
        std::wstring folder(MAX_PATH + 1, 0);
        folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
        return {FilePath::FromUser(FromWide(folder))};
    }
};

} // namespace

FileOperations& SystemFiles() {
    static WindowsFiles files;
    return files;
}

} // namespace railwright
