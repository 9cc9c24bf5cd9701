#include "platform/WholeFile.h"

#include "platform/FileOperations.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <thread>

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
    const std::string inside = folder.Inside("TRACKS") + '\\';
    EXPECT_TRUE(CreateFolders(folder.Inside("Tracks\\a")) && CreateFolders(inside + "A\\b"));
    WriteBytes(folder.Path() / u8"Tracks" / u8"\u00C4ltere.NLTRACK", Old);
    EXPECT_EQ(FileLength(inside + "\u00E4ltere.nltrack"), 180);
    EXPECT_FALSE(FileExists(inside + "altere.nltrack"));
    EXPECT_TRUE(WriteWholeFile(inside + "\u00E4LTERE.nltrack", New));
    EXPECT_EQ(FileLength(inside + "\u00C4ltere.NLTRACK"), 250);
    Bytes read;
    EXPECT_TRUE(ReadWholeFile(inside + "\u00C4LTERE.nltrack", read) && read.size() == 250);
}

/// Opens a file as another program does that shares nothing, for some milliseconds.
std::thread Hold(const std::string& file, int milliseconds) {
    HANDLE held = CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(held, INVALID_HANDLE_VALUE);
    return std::thread([=] {
        Sleep(static_cast<DWORD>(milliseconds));
        CloseHandle(held);
    });
}

TEST(WholeFile, WaitsForOthersButNotForEver) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    for (const auto& [held, done] : {std::pair(300, true), std::pair(3000, false)}) {
        WriteBytes(file, Old);
        const ULONGLONG begin = GetTickCount64();
        std::thread other = Hold(file, held);
        const FileResult saved = WriteWholeFile(folder.Inside("a"), New);
        const ULONGLONG waited = GetTickCount64() - begin;
        Bytes read;
        const bool opened = ReadWholeFile(folder.Inside("a"), read).Done;
        other.join();
        EXPECT_EQ(saved.Done, done) << saved.Reason;
        EXPECT_EQ(opened, done) << "held files are not read either";
        EXPECT_TRUE(done || (waited >= 900 && waited < 2500)) << waited;
        EXPECT_EQ(ReadBytes(file), done ? New : Old);
        EXPECT_EQ(folder.Names(), Names{"a"});
    }
}

TEST(WholeFile, KeepsRightsAndAttributes) {
    const TemporaryFolder folder;
    const std::string file = folder.File("a");
    WriteBytes(file, Old);
    // It is its owner's alone, whatever the folder says.
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

TEST(WholeFile, TemporaryFilesAreHidden) {
    const TemporaryFolder folder;
    std::error_code error;
    const std::string name = Files().TemporaryNameBeside(folder.Inside("a"));
    const auto file = Files().OpenNew(name, "", error);
    ASSERT_TRUE(file);
    EXPECT_FALSE(FileExists(name));
    EXPECT_EQ(Files().Status(name).What, FileStatus::Kind::File);
}

TEST(WholeFile, TakesPathsOfAnyLengthAndOfTheNetwork) {
    const TemporaryFolder folder;
    std::string deep = folder.Inside("d");
    for (int level = 0; level < 12; ++level)
        deep += '\\' + std::string(40, static_cast<char>('a' + level));
    ASSERT_TRUE(CreateFolders(deep));
    const std::string drive = "\\\\server\\share"; // the same as C:
    for (const std::string& place :
         {deep + '\\', drive + folder.Inside("").substr(2), drive + deep.substr(2) + '\\'}) {
        for (const Bytes& bytes : {Old, New}) {
            EXPECT_TRUE(WriteWholeFile(place + "a.nltrack", bytes)) << place;
            Bytes read;
            EXPECT_TRUE(ReadWholeFile(place + "a.nltrack", read) && read == bytes) << place;
        }
        std::error_code error;
        const Names names = Files().List(place, error);
        EXPECT_EQ(std::count(names.begin(), names.end(), "a.nltrack"), 1) << place;
        Files().Delete(place + "a.nltrack", error);
        EXPECT_FALSE(error || FileExists(place + "a.nltrack"));
    }
    // The standard library does not reach as deep.
    for (; deep.size() > folder.Inside("").size(); deep.resize(deep.rfind('\\')))
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + std::wstring(deep.begin(), deep.end())).c_str()));
}

} // namespace railwright::testing
