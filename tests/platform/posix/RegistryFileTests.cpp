#include "base/Text.h"
#include "install/mWinRegistry.h"
#include "platform/posix/RegistryText.h"
#include "tests/support/FailingFiles.h"
#include "tests/support/TestRegistry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include <sys/wait.h>
#include <unistd.h>

namespace railwright::testing {

/// UTF-16LE text with a byte order mark, as the editor saves it.
static Bytes Wide(std::string_view characters) {
    Bytes bytes = {0xFF, 0xFE};
    for (const char character : characters)
        bytes.insert(bytes.end(), {static_cast<unsigned char>(character), 0});
    return bytes;
}

/// Replaces the registry's file.
static void Put(const TestRegistry& own, const Bytes& bytes) {
    std::filesystem::create_directories(std::filesystem::path(own.File()).parent_path());
    WriteBytes(own.File(), bytes);
}

static bool Write(std::uint32_t type, const char* name, RegistryInput value) {
    return WriteRegistryValue(HKEY_CLASSES_ROOT, "a\\B", type, name, value);
}

static std::string Read(const std::string& key, const std::string& name) {
    text result;
    return ReadRegistryValue(HKEY_CLASSES_ROOT, key, name, result) ? BytesOf(result) : "none";
}

const std::string Head = "Windows Registry Editor Version 5.00\r\n\r\n";

TEST(RegistryFile, IsWrittenAsTheEditorWritesIt) {
    const TestRegistry own;
    EXPECT_TRUE(Write(REG_BINARY, "z", text(30, '\x01')));
    EXPECT_TRUE(Write(REG_DWORD, "d", 0x1A2B));
    EXPECT_TRUE(Write(REG_SZ, "", "C:\\x \"%1\""));
    EXPECT_TRUE(Write(REG_SZ, "q\"\\", "a\nb"));
    EXPECT_TRUE(Write(REG_BINARY, "empty", ""));
    EXPECT_TRUE(Write(REG_SZ, "no NUL", ""));
    EXPECT_TRUE(Write(REG_SZ, "own NUL", text("a\0", 2)));
    RegistryInput other = "x";
    EXPECT_TRUE(WriteRegistryValue(HKEY_CLASSES_ROOT, ".nltrack", REG_SZ, "", other));
    // A line has at most 80 characters. 8 characters and 23 bytes of 3 characters are 77, and 78 with the
    // backslash; another byte would make it 81. The other 7 bytes follow.
    std::string first;
    for (int i = 0; i < 23; ++i)
        first += "01,";
    EXPECT_EQ(ReadBytes(own.File()), Wide(Head +
                                          "[HKEY_CLASSES_ROOT\\.nltrack]\r\n"
                                          "@=\"x\"\r\n\r\n"
                                          "[HKEY_CLASSES_ROOT\\a\\B]\r\n@=\"C:\\\\x \\\"%1\\\"\"\r\n"
                                          "\"d\"=dword:00001a2b\r\n\"empty\"=hex:\r\n"
                                          "\"no NUL\"=hex(1):\r\n\"own NUL\"=\"a\"\r\n"
                                          "\"q\\\"\\\\\"=hex(1):61,00,0a,00,62,00,00,00\r\n\"z\"=hex:" +
                                          first + "\\\r\n  01,01,01,01,01,01,01\r\n\r\n"));
    EXPECT_EQ(Read("A\\b", ""), "C:\\x \"%1\"");
    EXPECT_EQ(Read("A\\b", "q\"\\"), "a\nb");
}

TEST(RegistryFile, IsReadAsTheEditorExportsIt) {
    const std::string lines = "; a comment\r\n[HKEY_CLASSES_ROOT\\Some [key]]\r\n@=\"first\"\r\n"
                              "; @=\"not this\"\r\n  \"two\" = \"over\r\nlines\"\r\n"
                              "\"Bytes\"=hex:01,\\\r\n  02,\\\r\n  0a\r\n\"number\"=dword:0000000A\r\n"
                              "no line of the editor\r\n\"broken\"=what:1\r\n\r\n\r\n"
                              "[hkey_classes_root\\SOME [KEY]]\r\n@=\"second\"\r\n\r\n"
                              "[HKEY_CLASSES_ROOT\\old]\r\n@=\"kept\"\r\n[-HKEY_CLASSES_ROOT\\OLD]\r\n"
                              "@=\"of no key\"\r\n[HKEY_LOCAL_MACHINE\\Software]\r\n\"e\"=hex(2):%\r\n"
                              "[HKEY_CLASSES_ROOT\\end]\r\n@=\"no line end";
    std::string plain = Head + lines; // as text editors save it, with other line ends
    std::erase(plain, '\r');
    for (const Bytes& file : {Wide(Head + lines), Bytes(plain.begin(), plain.end())}) {
        const TestRegistry own;
        Put(own, file);
        const std::string between = file[0] == 0xFF ? "\r\n" : "\n";
        const std::pair<std::pair<const char*, const char*>, std::string> cases[] = {
            {{"some [KEY]", ""}, "second"},
            {{"Some [key]", "TWO"}, "over" + between + "lines"},
            {{"Some [key]", "number"}, "&h00000A"},
            {{"Some [key]", "bytes"}, ""},
            {{"Some [key]", "broken"}, "none"},
            {{"old", ""}, "kept"},
            {{"end", ""}, "no line end"}};
        for (const auto& [where, expected] : cases)
            EXPECT_EQ(Read(where.first, where.second), expected) << where.first << ' ' << where.second;

        // Unknown content survives a change of the file.
        EXPECT_TRUE(Write(REG_SZ, "", "new"));
        auto tree = ParseRegistry(ReadBytes(own.File()));
        ASSERT_TRUE(tree);
        EXPECT_NE(tree->Find(u"HKEY_LOCAL_MACHINE\\Software"), nullptr);
        const RegistryKey* const key = tree->Find(u"HKEY_CLASSES_ROOT\\Some [key]");
        ASSERT_NE(key, nullptr);
        EXPECT_EQ(RegistryTree::FindValue(*key, u"Bytes")->Data, (Bytes{1, 2, 10}));
    }
}

TEST(RegistryFile, HasRootsThatStayAndGrowsNotWithTheLevelsOfAKey) {
    std::string path;
    for (std::size_t level = 0; level < 512; ++level)
        path += "\\k";
    const Bytes deep = Wide(Head + "[HKEY_CLASSES_ROOT" + path + "]\r\n@=\"deep\"\r\n\r\n");
    EXPECT_EQ(FormatRegistry(ParseRegistry(deep).value()), deep);
    const TestRegistry own;
    Put(own, deep);
    EXPECT_EQ(Read(path.substr(1), ""), "deep");
    // The parent key has the case of the file, and stays when its subkey is deleted.
    std::string capitals = path.substr(1);
    std::replace(capitals.begin(), capitals.end(), 'k', 'K');
    EXPECT_TRUE(DeleteRegistryKey(HKEY_CLASSES_ROOT, capitals));
    EXPECT_EQ(ReadBytes(own.File()), Wide(Head + "[HKEY_CLASSES_ROOT" + path.substr(2) + "]\r\n\r\n"));
    RegistryInput value = "x";
    EXPECT_TRUE(WriteRegistryValue(HKEY_CLASSES_ROOT, "", REG_SZ, "", value));
    EXPECT_FALSE(DeleteRegistryKey(HKEY_CLASSES_ROOT, ""));
    EXPECT_EQ(Read("", ""), "x");
}

TEST(RegistryFile, TextsInHexAreWide) {
    const std::pair<Bytes, const char*> cases[] = {
        {Wide(Head + "[HKEY_CLASSES_ROOT\\k]\r\n@=hex(1):43,00,e9,00,00,4e,00,00\r\n"), "C\xE9?"},
        {Wide(Head + "[HKEY_CLASSES_ROOT\\k]\r\n@=hex(1):43,00,44,00\r\n"), "CD"},
        {Wide(Head + "[HKEY_CLASSES_ROOT\\k]\r\n@=hex(1):\r\n"), ""}};
    for (const auto& [file, expected] : cases) {
        const TestRegistry own;
        Put(own, file);
        EXPECT_EQ(Read("k", ""), expected);
        EXPECT_TRUE(Write(REG_SZ, "", "new"));
        EXPECT_EQ(Read("k", ""), expected) << "also when the file is written again";
    }
}

TEST(RegistryFile, StaysWholeWhateverFails) {
    for (int failing = 1;; ++failing) {
        const TestRegistry own;
        EXPECT_TRUE(Write(REG_SZ, "", "old"));
        const Bytes before = ReadBytes(own.File());
        bool written = false;
        int calls = 0;
        {
            FailingFiles files;
            files.FailAt = failing;
            written = Write(REG_SZ, "", "new");
            calls = files.Calls;
        }
        if (calls < failing)
            break;
        EXPECT_EQ(Read("a\\b", ""), written ? "new" : "old") << failing;
        EXPECT_TRUE(written || ReadBytes(own.File()) == before) << failing;
    }
}

TEST(RegistryFile, LosesNothingIfTwoChangeItAtOnce) {
    const TestRegistry own;
    const auto count =
        [](const char* name) { // counts to 200 in the value; 0 if each round reads its number back
            const FailingFiles noWaiting;
            for (int round = 1; round <= 200; ++round)
                if (!Write(REG_SZ, name, TextOf(std::to_string(round))) ||
                    Read("a\\b", name) != std::to_string(round))
                    return 1;
            return 0;
        };
    EXPECT_TRUE(Write(REG_SZ, "", "x"));
    const pid_t other = fork();
    if (other == 0)
        _exit(count("other"));
    EXPECT_EQ(count("this"), 0);
    int status = -1;
    EXPECT_TRUE(waitpid(other, &status, 0) == other && status == 0);
    EXPECT_EQ(Read("a\\b", "this") + Read("a\\b", "other"), "200200");
}

TEST(RegistryFile, IsNeverOverwrittenIfItIsNone) {
    for (const std::string content : {"", "a letter", "REGEDIT"}) {
        const TestRegistry own;
        const Bytes bytes(content.begin(), content.end());
        Put(own, bytes);
        EXPECT_EQ(Read("a", ""), "none");
        EXPECT_FALSE(Write(REG_SZ, "", "x"));
        EXPECT_FALSE(DeleteRegistryKey(HKEY_CLASSES_ROOT, "a"));
        EXPECT_EQ(ReadBytes(own.File()), bytes);
    }
}

TEST(RegistryFile, LiesInTheUsersDataFolder) {
    const TemporaryFolder folder;
    const char* const oldHome = std::getenv("HOME");
    const std::string home = oldHome == nullptr ? "" : oldHome;
    setenv("HOME", folder.File("home").c_str(), 1);
    const std::pair<std::string, const char*> cases[] = {
        {folder.File("data"), "data/railwright/registry.reg"},
        {"", "home/.local/share/railwright/registry.reg"},
        {"relative", "home/.local/share/railwright/registry.reg"}};
    for (const auto& [data, expected] : cases) {
        setenv("XDG_DATA_HOME", data.c_str(), 1);
        EXPECT_TRUE(Write(REG_SZ, "", "x"));
        EXPECT_TRUE(std::filesystem::remove(folder.File(expected))) << expected;
    }
    unsetenv("XDG_DATA_HOME");
    unsetenv("HOME");
    EXPECT_EQ(Read("a\\B", ""), "none");
    EXPECT_FALSE(Write(REG_SZ, "", "x")) << "no folder of the user's";
    setenv("HOME", home.c_str(), 1);
}

} // namespace railwright::testing
