#include "install/mTool_EnvironmentCleaner.h"

#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace railwright::testing {
namespace {

namespace fs = std::filesystem;

/// The files below a folder, by their names from there, but for what a cut-off save leaves behind.
using Tree = std::map<std::string, std::string>;

class Silent final : public OrganizerProgress {
public:
    void Clear() override { shown.clear(); }
    void ShowShare(int percent) override { shown.push_back(percent); }
    void ShowDone() override { shown.push_back(100); }
    void RunPendingEvents() override {
        if (!second.empty())
            OrganizeEnvironments(second, *this);
    }
    void Tell(const std::string&) override {}

    std::vector<int> shown;
    /// The folder of a second run that is tried in the middle of the first.
    std::string second;
};

class EnvironmentOrganizer : public ::testing::Test {
protected:
    void Fill(const Tree& tree) {
        fs::remove_all(folder.Path() / "Environments");
        for (const auto& [name, content] : tree) {
            fs::create_directories((folder.Path() / name).parent_path());
            WriteBytes(folder.Path() / name, {content.begin(), content.end()});
        }
    }
    Tree Found() const {
        Tree tree;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Path()))
            if (entry.is_regular_file() && entry.path().filename().string().substr(1, 11) != "railwright-") {
                const auto bytes = ReadBytes(entry.path());
                tree[fs::relative(entry.path(), folder.Path()).generic_string()] = {bytes.begin(),
                                                                                    bytes.end()};
            }
        return tree;
    }
    bool Organize() { return OrganizeEnvironments(folder.Inside(""), progress); }

    TemporaryFolder folder;
    Silent progress;
};

const Tree Untidy = {
    {"Environments/Dawn.env", "sky.texture.path = Environments/Sky.bmp\r\nsun=1/2\r\n"},
    {"Environments/Dusk.ENV",
     "a.TEXTURE.Path=environments\\sky.bmp  \r\nb.texture.path = Environments\\deep\\mud.bmp\r\n"
     "c.texture.path=Environments\\gone.bmp\r\nd.texture.path=..\\Environments\\up.bmp\r\n"
     "e.texture.path=C:\\Environments\\x.bmp\r\n"},
    {"Environments/Plain.env", "fog=1/2\r\n"},
    {"Environments/Done.env", "a.texture.path=Environments\\Sky.bmp\r\n"},
    {"Environments/Done/own.bmp", "own"},
    {"Environments/Out.env", "a.texture.path=Textures\\far.bmp\r\n"},
    {"Environments/Lost.env", "a.texture.path=Environments\\nowhere.bmp\r\n"},
    {"Environments/Sky.bmp", "sky"},
    {"Environments/deep/mud.bmp", "mud"},
    {"Environments/notes.txt", "new notes"},
    {"Environments/loose.tga", "loose"},
    {"Environments/.hidden", "hidden"},
    {"Environments/__Unused Files__/notes.txt", "old notes"},
    {"Textures/far.bmp", "far"},
};

const Tree Tidy = {
    {"Environments/Dawn.env", "sky.texture.path = Environments\\Dawn\\Sky.bmp\r\nsun=1\\2\r\n\r\n"},
    {"Environments/Dawn/Sky.bmp", "sky"},
    {"Environments/Dusk.ENV",
     "a.TEXTURE.Path=Environments\\Dusk\\sky.bmp  \r\nb.texture.path = Environments\\Dusk\\deep\\mud.bmp\r\n"
     "c.texture.path=Environments\\Dusk\\gone.bmp\r\nd.texture.path=..\\Environments\\up.bmp\r\n"
     "e.texture.path=C:\\Environments\\x.bmp\r\n\r\n"},
    {"Environments/Dusk/sky.bmp", "sky"},
    {"Environments/Dusk/deep/mud.bmp", "mud"},
    {"Environments/Plain.env", "fog=1/2\r\n"},
    {"Environments/Done.env", "a.texture.path=Environments\\Sky.bmp\r\n"},
    {"Environments/Done/own.bmp", "own"},
    {"Environments/Out.env", "a.texture.path=Textures\\far.bmp\r\n"},
    {"Environments/Lost.env", "a.texture.path=Environments\\Lost\\nowhere.bmp\r\n\r\n"},
    {"Environments/deep/mud.bmp", "mud"},
    {"Environments/notes.txt", "new notes"},
    {"Environments/.hidden", "hidden"},
    {"Environments/__Unused Files__/Sky.bmp", "sky"},
    {"Environments/__Unused Files__/loose.tga", "loose"},
    {"Environments/__Unused Files__/notes.txt", "old notes"},
    {"Textures/far.bmp", "far"},
};

TEST_F(EnvironmentOrganizer, GivesEachEnvironmentItsTexturesAndPutsTheRestAway) {
    Fill(Untidy);
    EnvironmentScan scan = ScanEnvironments(folder.Inside(""));
    EXPECT_EQ(scan.EnvironmentList.size(), 6U);
    EXPECT_EQ(scan.Unorganized, 4);
    progress.second = folder.Inside(""); // a second press during the run does nothing
    EXPECT_TRUE(Organize());
    EXPECT_EQ(Found(), Tidy);
    EXPECT_TRUE(fs::is_directory(folder.Path() / "Environments/Out")); // its texture was read where it lies
    EXPECT_EQ(progress.shown, (std::vector{0, 16, 33, 50, 66, 83, 100}));

    scan = ScanEnvironments(folder.Inside(""));
    EXPECT_EQ(scan.Unorganized, 1); // none of its textures can be read
    EXPECT_TRUE(Organize());
    EXPECT_EQ(Found(), Tidy);
}

TEST_F(EnvironmentOrganizer, TakesEveryExtensionOutOfANameAndOnlyWholeLines) {
    Fill({{"Environments/a.env.b.ENV",
           "x.texture.path=Environments\\t.bmp\r\ny.texture.path=Environments\\u.bmp"},
          {"Environments/t.bmp", "t"}});
    EXPECT_EQ(ScanEnvironments(folder.Inside("")).EnvironmentList.at(0).Name, "a.b");
    EXPECT_TRUE(Organize());
    EXPECT_EQ(
        Found().at("Environments/a.env.b.ENV"),
        "x.texture.path=Environments\\a.b\\t.bmp\r\ny.texture.path=Environments\\u.bmp\r\n"); // the last has
                                                                                              // no end
    EXPECT_TRUE(fs::exists(folder.Path() / "Environments/a.b/t.bmp"));
}

TEST_F(EnvironmentOrganizer, DoesNothingWithoutEnvironments) {
    EXPECT_EQ(ScanEnvironments(folder.Inside("")).EnvironmentList.size(), 0U);
    Organize();
    EXPECT_TRUE(Found().empty());
}

/// Nothing may be lost: every content is still somewhere, and each .env holds its old or its new text.
void ExpectNothingLost(const Tree& found) {
    std::set<std::string> contents;
    for (const auto& [name, content] : found)
        contents.insert(content);
    for (const auto& [name, content] : Untidy) {
        if (name.ends_with("env") || name.ends_with("ENV"))
            EXPECT_TRUE(found.at(name) == content || found.at(name) == Tidy.at(name)) << name;
        else
            EXPECT_TRUE(contents.count(content)) << name;
    }
}

/// A texture that an .env names is where it says, wherever it was before the run.
void ExpectTexturesWhereNamed(const Tree& found) {
    const bool dawnIsNew = found.at("Environments/Dawn.env") == Tidy.at("Environments/Dawn.env");
    EXPECT_TRUE(found.count(dawnIsNew ? "Environments/Dawn/Sky.bmp" : "Environments/Sky.bmp"));
}

class CutOffOrganizer : public EnvironmentOrganizer, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(CutOffOrganizer, LosesNothingAtAnyCallAndCanBeRunAgain) {
    for (int call = 1, calls = call; call <= calls; ++call) {
        SCOPED_TRACE(call);
        Fill(Untidy);
        try {
            FailingFiles files;
            files.FailAt = call;
            files.Cause = Causes[GetParam() % 3];
            files.EndsSuddenly = GetParam() == 3;
            Organize();
            calls = files.Calls + 1;
        } catch (const SuddenEnd&) {
            calls = call + 1;
        }
        ExpectNothingLost(Found());
        ExpectTexturesWhereNamed(Found());
        EXPECT_TRUE(Organize());
        EXPECT_EQ(Found(), Tidy);
        EXPECT_FALSE(fs::exists(folder.Path() / "Environments/~railwright"));
        if (HasFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(OneCall, CutOffOrganizer, ::testing::Range<std::size_t>(0, 4));

} // namespace
} // namespace railwright::testing
