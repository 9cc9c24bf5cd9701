#include "platform/WholeFile.h"

#include "cli/CommandLineTool.h"
#include "platform/FileOperations.h"
#include "platform/windows/Wide.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include <windows.h>

#include <sddl.h>

namespace railwright::testing {

namespace fs = std::filesystem;

TEST(WholeFile, AttributesHideAndProtectAFile) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    for (const auto& [attribute, exists, written] : {std::tuple(FILE_ATTRIBUTE_NORMAL, true, true),
                                                     {FILE_ATTRIBUTE_HIDDEN, false, true},
                                                     {FILE_ATTRIBUTE_SYSTEM, false, true},
                                                     {FILE_ATTRIBUTE_READONLY, true, false}}) {
        SCOPED_TRACE(attribute);
        WriteBytes(file, Old);
        ASSERT_TRUE(SetFileAttributesA(file.c_str(), static_cast<DWORD>(attribute)));
        EXPECT_EQ(FileExists(folder.Inside("a")), exists);
        EXPECT_EQ(WriteWholeFile(folder.Inside("a"), New).Done, written);
        SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        EXPECT_EQ(ReadBytes(file), written ? New : Old);
        EXPECT_EQ(folder.Names(), Names{"a"});
    }
    fs::create_directory(folder.File("taken"));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("taken"), New));
    EXPECT_FALSE(WriteWholeFile(folder.Inside("missing\\a"), New));
}

TEST(WholeFile, NamesAreUtf8InAnyCase) {
    const TemporaryFolder folder;
    const auto inside = [&](const char* name) { return folder.Inside(std::string("TRACKS\\") + name); };
    EXPECT_TRUE(CreateFolders(folder.Inside("Tracks\\a")) && CreateFolders(inside("A\\b")));
    WriteBytes(folder.Path() / u8"Tracks" / u8"\u00C4ltere.NLTRACK", Old);
    EXPECT_EQ(FileLength(inside("\u00E4ltere.nltrack")), 180);
    EXPECT_FALSE(FileExists(inside("altere.nltrack")));
    EXPECT_TRUE(WriteWholeFile(inside("\u00E4LTERE.nltrack"), New));
    EXPECT_EQ(FileLength(inside("\u00C4ltere.NLTRACK")), 250);
    Bytes read;
    EXPECT_TRUE(ReadWholeFile(inside("\u00C4LTERE.nltrack"), read) && read.size() == 250);
    // Windows allows names that are not valid UTF-16.
    for (const wchar_t* name :
         {L"\xD83D\xDE80\u4E00", L"\xD83D", L"\xDE80\xD83D.a\xDE80", L"\xD83D\xD83D\xDE80"})
        EXPECT_EQ(ToWide(FromWide(name)), name);
    EXPECT_EQ(FromWide(L"\xD83D\xDE80\xDE80"), "\U0001F680\xED\xBA\x80");
}

/// Another program keeps a file open without sharing, for some milliseconds or until destruction.
class Held {
public:
    Held(const std::string& file, int milliseconds) {
        const std::string neighbour = RAILWRIGHT_NEIGHBOUR;
        std::string command = '"' + neighbour + "\" hold \"" + file + "\" " + std::to_string(milliseconds);
        STARTUPINFOA start{};
        start.cb = sizeof start;
        EXPECT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &program));
        while (std::ifstream(file) && WaitForSingleObject(program.hProcess, 1) == WAIT_TIMEOUT) {
        }
    }
    ~Held() {
        TerminateProcess(program.hProcess, 0);
        WaitForSingleObject(program.hProcess, INFINITE);
        CloseHandle(program.hThread);
        CloseHandle(program.hProcess);
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    PROCESS_INFORMATION program{};
};

TEST(WholeFile, WaitsForOtherProgramsButNotForEver) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a.nlelem"), loop = Example("loop.nlelem");
    for (const auto& [milliseconds, done] : {std::pair(300, true), std::pair(600'000, false)}) {
        WriteBytes(file, Old);
        {
            const Held held(file, milliseconds);
            const ULONGLONG begin = GetTickCount64();
            std::ostringstream out, errors;
            EXPECT_EQ(RunCommandLineTool({"apply", loop, "-o", file}, out, errors), done ? 0 : 1);
            const ULONGLONG waited = GetTickCount64() - begin;
            const std::string said = errors.str(),
                              start = "railwright-cli: " + file + ": cannot be written: ";
            EXPECT_TRUE(done ? said.empty() : said.starts_with(start) && said.size() > start.size() + 1)
                << said;
            EXPECT_TRUE(done || waited >= 900) << waited;
            Bytes read;
            EXPECT_EQ(ReadWholeFile(folder.Inside("a.nlelem"), read).Done, done)
                << "held files are not read either";
        }
        EXPECT_EQ(ReadBytes(file), done ? ReadBytes(loop) : Old);
        EXPECT_EQ(folder.Names(), Names{"a.nlelem"});
    }
}

TEST(WholeFile, KeepsRightsAndAttributes) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    WriteBytes(file, Old);
    // Only the owner may access it, whatever the folder's rights.
    PSECURITY_DESCRIPTOR rights = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA("D:P(A;;FA;;;OW)", 1, &rights, nullptr));
    ASSERT_TRUE(SetFileSecurityA(file.c_str(),
                                 DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION, rights));
    const auto state = [&] {
        std::array<std::uint8_t, 1024> bytes{};
        DWORD size = 0;
        EXPECT_TRUE(
            GetFileSecurityA(file.c_str(), DACL_SECURITY_INFORMATION, bytes.data(), bytes.size(), &size));
        return std::pair(std::string(bytes.begin(), bytes.begin() + size), GetFileAttributesA(file.c_str()));
    };
    ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_ARCHIVE));
    const auto before = state();
    EXPECT_TRUE(WriteWholeFile(folder.Inside("a"), New));
    EXPECT_EQ(state(), before);
    EXPECT_EQ(ReadBytes(file), New);
    EXPECT_TRUE(WriteWholeFile(folder.Inside("c"), New));
    EXPECT_EQ(GetFileAttributesA(folder.File("c").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
    LocalFree(rights);
}

TEST(WholeFile, IsHiddenUntilItIsWholeAndLeftAloneByTheOrganizer) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("Environments"));
    WriteBytes(folder.File("Environments/loose"), Old);
    const auto content = [&](OpenFile& file, std::error_code& error) {
        WriteAll(file, New, error);
        WIN32_FIND_DATAA found{};
        FindClose(FindFirstFileA(folder.File("Environments/~railwright-*").c_str(), &found));
        EXPECT_NE(found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN, 0U) << &found.cFileName[0];
        // A file left by a crash just before the rename is not hidden.
        WriteBytes(folder.File("Environments/~railwright-1-0.tmp"), Old);
        std::ostringstream out, errors;
        EXPECT_EQ(RunCommandLineTool({"organize", folder.File("")}, out, errors), 0);
        EXPECT_EQ(out.str(), "loose: moved to __Unused Files__\n");
    };
    EXPECT_TRUE(WriteWholeFile(folder.Inside("Environments\\a"), content));
    EXPECT_EQ(ReadBytes(folder.File("Environments/a")), New);
    EXPECT_TRUE(FileExists(folder.Inside("Environments\\a")));
}

TEST(WholeFile, TakesPathsOfAnyLengthAndOfTheNetwork) {
    const TemporaryFolder folder;
    const std::string start = folder.Inside("").Native();
    std::string deep = start + "d";
    for (int level = 0; level < 12; ++level)
        deep += '\\' + std::string(40, static_cast<char>('a' + level));
    ASSERT_TRUE(CreateFolders(FilePath::FromUser(deep)));
    const std::string drive = "\\\\server\\share"; // the same as C:
    for (const std::string& name : {deep + '\\', drive + start.substr(2), drive + deep.substr(2) + '\\'}) {
        const FilePath place = FilePath::FromUser(name);
        const FilePath file = place / FileName("a.nltrack");
        for (const Bytes& bytes : {Old, New}) {
            EXPECT_TRUE(WriteWholeFile(file, bytes)) << name;
            Bytes read;
            EXPECT_TRUE(ReadWholeFile(file, read) && read == bytes) << name;
        }
        std::error_code error;
        const std::vector<FileName> names = Files().List(place, error);
        EXPECT_EQ(std::count(names.begin(), names.end(), FileName("a.nltrack")), 1) << name;
        Files().Delete(file, error);
        EXPECT_FALSE(error || FileExists(file));
    }
    // The standard library cannot delete such long paths.
    for (; deep.size() > start.size(); deep.resize(deep.rfind('\\')))
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + std::wstring(deep.begin(), deep.end())).c_str()));
}

} // namespace railwright::testing
