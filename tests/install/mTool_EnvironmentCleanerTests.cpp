#include "install/mTool_EnvironmentCleaner.h"

#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>

namespace railwright::testing {
namespace {

namespace fs = std::filesystem;

/// The files below a folder by relative path, without leftovers of interrupted saves.
using Tree = std::map<std::string, std::string>;

class Silent final : public OrganizerProgress {
public:
    void Clear() override { shown.clear(); }
    void ShowShare(int percent) override { shown.push_back(percent); }
    void ShowDone() override { shown.push_back(100); }
    void RunPendingEvents() override {
        if (!second.IsEmpty()) {
            EXPECT_TRUE(OrganizeEnvironments(second, *this));
        }
    }
    void Tell(const std::string& line) override { copies += line.ends_with(" copied") ? 1 : 0; }

    std::vector<int> shown;
    int copies = 0;
    /// Folder of a second run, which is tried during the first.
    FilePath second;
};

class EnvironmentOrganizer : public ::testing::Test {
protected:
    void Fill(const Tree& tree) {
        for (const std::string& name : folder.Names())
            fs::remove_all(folder.Path() / name);
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

/// Environments that share a name with each other, or with a file that the organizer or its user creates.
const Tree Sharing = {
    {"Environments/x.env", "t.texture.path=Environments\\a.png\r\n"},
    {"Environments/x.env.env", "t.texture.path=Environments\\b.png\r\n"},
    {"Environments/X.env.ENV.env", "t.texture.path=Environments\\c.png\r\n"},
    {"Environments/__unused files__.env", "t.texture.path=Environments\\d.png\r\n"},
    {"Environments/~railwright.env", "t.texture.path=Environments\\e.png\r\n"},
    {"Environments/a.png", "a"},
    {"Environments/b.png", "b"},
    {"Environments/c.png", "c"},
    {"Environments/d.png", "d"},
    {"Environments/e.png", "e"},
};

/// The shared folder has the case of the first name in byte order. A file in the position of the folder
/// counts as the folder until it is moved away.
const Tree Shared = {
    {"Environments/x.env", "t.texture.path=Environments\\x\\a.png\r\n\r\n"},
    {"Environments/x.env.env", "t.texture.path=Environments\\x\\b.png\r\n\r\n"},
    {"Environments/X.env.ENV.env", "t.texture.path=Environments\\X\\c.png\r\n\r\n"},
    {"Environments/X/a.png", "a"},
    {"Environments/X/b.png", "b"},
    {"Environments/X/c.png", "c"},
    {"Environments/__unused files__.env", "t.texture.path=Environments\\__unused files__\\d.png\r\n\r\n"},
    {"Environments/~railwright.env", "t.texture.path=Environments\\~railwright\\e.png\r\n\r\n"},
    {"Environments/~railwright/e.png", "e"},
    {"Environments/__unused files__/d.png", "d"},
    {"Environments/__unused files__/a.png", "a"},
    {"Environments/__unused files__/b.png", "b"},
    {"Environments/__unused files__/c.png", "c"},
    {"Environments/__unused files__/e.png", "e"},
    {"Environments/d.png", "d"}, // its name is already taken
};

/// A file in the position of an environment's folder counts as the folder until it is moved away.
const Tree InPlaceOfFolders = {
    {"Environments/y.env", "t.texture.path=Environments\\z.png\r\n"},
    {"Environments/Y.env.env", "t.texture.path=Environments\\z.png\r\n"},
    {"Environments/x.env", "t.texture.path=Environments\\z.png\r\n"},
    {"Environments/z.png", "z"},
    {"Environments/x", "x in the place of a folder"},
    {"Environments/y", "y in the place of a folder"},
};
const Tree FilesGone = {
    {"Environments/y.env", "t.texture.path=Environments\\y\\z.png\r\n\r\n"},
    {"Environments/Y.env.env", "t.texture.path=Environments\\Y\\z.png\r\n\r\n"},
    {"Environments/x.env", "t.texture.path=Environments\\x\\z.png\r\n\r\n"},
    {"Environments/__Unused Files__/z.png", "z"},
    {"Environments/__Unused Files__/x", "x in the place of a folder"},
    {"Environments/__Unused Files__/y", "y in the place of a folder"},
};

const Tree Untidy = {
    {"Environments/Dawn.env", "sky.texture.path = Environments/Sky.bmp\r\nsun=1/2\r\n"},
    {"Environments/Dusk.ENV",
     "a.TEXTURE.Path=environments\\sky.bmp  \r\nb.texture.path = Environments\\deep\\mud.bmp\r\n"
     "c.texture.path=Environments\\gone.bmp\r\nd.texture.path=..\\Environments\\up.bmp\r\n"
     "e.texture.path=C:\\Environments\\x.bmp\r\nf.texture.path=Environments\\.hidden\r\n"},
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
     "e.texture.path=C:\\Environments\\x.bmp\r\nf.texture.path=Environments\\Dusk\\.hidden\r\n\r\n"},
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
    progress.second = folder.Inside(""); // a second press during the run has no effect
    EXPECT_TRUE(Organize());
    EXPECT_EQ(Found(), Tidy);
    EXPECT_TRUE(fs::is_directory(folder.Path() / "Environments/Out")); // its texture was read from there
    EXPECT_EQ(progress.shown, (std::vector{0, 16, 33, 50, 66, 83, 100}));

    scan = ScanEnvironments(folder.Inside(""));
    EXPECT_EQ(scan.Unorganized, 1); // its textures are all unreadable
    EXPECT_TRUE(Organize());
    EXPECT_EQ(Found(), Tidy);
}

TEST_F(EnvironmentOrganizer, TakesEveryExtensionOutOfANameAndAnySeparator) {
    Fill({{"Environments/a.env.b.ENV",
           "x.texture.path=Environments\\t.bmp\r\nz.texture.path:Environments\\v.bmp\r\n"},
          {"Environments/t.bmp", "t"}});
    EXPECT_EQ(ScanEnvironments(folder.Inside("")).EnvironmentList.at(0).Name, FileName("a.b"));
    EXPECT_TRUE(Organize());
    EXPECT_EQ(Found().at("Environments/a.env.b.ENV"),
              "x.texture.path=Environments\\a.b\\t.bmp\r\nz.texture.path:Environments\\a.b\\v.bmp\r\n\r\n");
    EXPECT_TRUE(fs::exists(folder.Path() / "Environments/a.b/t.bmp"));
    const auto paths = ParseTexturePaths("x.texture.path=\r\ny.texture.path=s\r\nz.texture.path= \tt \r\n");
    EXPECT_TRUE(paths.size() == 2 && paths[1].Text() == "\tt"); // only blanks are trimmed
}

TEST_F(EnvironmentOrganizer, MovesNothingBesideAnEnvironmentThatItCannotOrganize) {
    const std::string texture = "t.texture.path=Environments\\t.bmp";
    for (const auto& [name, settings] : {std::pair("a=b", texture + "\r\n"), // reads back as "ab"
                                         {"a", texture},
                                         {"a", texture + "\n"},
                                         {"a", texture + "\nsun=1\r\n"},
                                         {"a", texture + "\rsun=1\r\n"},
                                         {"x.env", texture + "\r\n"}}) {
        Fill({{std::string("Environments/") + name + ".env", settings},
              {"Environments/x.env", "sun=1\r\n"}, // has no texture, and the name of the last one
              {"Environments/t.bmp", "t"}});
        Tree before = Found();
        EXPECT_FALSE(Organize()) << settings;
        Tree after = Found();
        after.erase("Environments/~unfinished=");
        EXPECT_EQ(after, before);
    }
}

TEST_F(EnvironmentOrganizer, KeepsACopyThatHasBeenChanged) {
    const std::string list = "Railwright has not finished organizing these environments:/x.env/\r\n";
    Fill({{"Environments/x.env",
           "t.texture.path=Environments\\a.png\r\nt.texture.path=Environments\\b.png\r\n"},
          {"Environments/a.png", "loose"},
          {"Environments/b.png", "b"},
          {"Environments/x/a.png", "edited"},
          {"Environments/x/b.png", "b"},
          {"Environments/~unfinished=", list}});
    EXPECT_TRUE(Organize());
    EXPECT_EQ(progress.copies, 0);
    EXPECT_EQ(Found(), (Tree{{"Environments/x.env", "t.texture.path=Environments\\x\\a.png\r\n"
                                                    "t.texture.path=Environments\\x\\b.png\r\n\r\n"},
                             {"Environments/__Unused Files__/a.png", "loose"},
                             {"Environments/__Unused Files__/b.png", "b"},
                             {"Environments/x/a.png", "edited"},
                             {"Environments/x/b.png", "b"}}));
}

TEST_F(EnvironmentOrganizer, StopsAtTheFirstMissingFolderOfAPath) {
    std::string path = "Environments";
    for (int level = 0; level < 20'000; ++level)
        path += "\\a";
    Fill({{"Environments/x.env", "t.texture.path=" + path + "\r\n"}});
    FailingFiles files;
    EXPECT_TRUE(Organize());
    EXPECT_LE(files.Calls, 1000); // most calls write the settings, 100 bytes at a time
}

TEST_F(EnvironmentOrganizer, DoesNothingWithoutEnvironments) {
    EXPECT_EQ(ScanEnvironments(folder.Inside("")).EnvironmentList.size(), 0U);
    Organize();
    EXPECT_TRUE(Found().empty());
}

TEST_F(EnvironmentOrganizer, GivesEnvironmentsOfOneNameOneFolder) {
    for (const auto& [before, after] : {std::pair(Sharing, Shared), {InPlaceOfFolders, FilesGone}}) {
        Fill(before);
        for (int run = 0; run < 3; ++run)
            EXPECT_TRUE(Organize());
        EXPECT_EQ(Found(), after);
    }
}

TEST_F(EnvironmentOrganizer, ListsAFolderAsOftenForManyEnvironmentsAsForFew) {
    std::size_t listed[2] = {}, calls[2] = {};
    for (const std::size_t times : {1U, 2U}) {
        Tree tree;
        for (std::size_t i = 0; i < 10 * times; ++i) {
            const std::string name = "e" + std::to_string(10 + i);
            tree["Environments/" + name + ".env"] = "t.texture.path=Environments\\" + name +
                                                    ".PNG\r\nt.texture.path=Environments\\none" + name +
                                                    "\r\n";
            tree["Environments/" + name + ".png"] = name;
        }
        Fill(tree);
        FailingFiles files;
        EXPECT_TRUE(Organize());
        EXPECT_TRUE(Found().count("Environments/e10/e10.PNG"));
        listed[times - 1] = files.Listed, calls[times - 1] = static_cast<std::size_t>(files.Calls);
    }
    EXPECT_LE(listed[1], 2 * listed[0]);
    EXPECT_LE(calls[1], 2 * calls[0]);
}

TEST_F(EnvironmentOrganizer, LeavesAListAloneThatIsNotItsOwn) {
    for (const auto& [content, isOwn] :
         {std::pair("a letter", false),
          {"Railwright has not finished organizing these environments:/Dawn.env/gone.env/\r\n", true}}) {
        const std::string own = "u.texture.path=Environments\\Dawn\\own.bmp\r\n"; // already in its folder
        Fill({{"Environments/Dawn.env", "t.texture.path=Environments\\Sky.bmp\r\n" + own},
              {"Environments/Dawn/own.bmp", "own"},
              {"Environments/New.env", "t.texture.path=Environments\\Sky.bmp\r\n"},
              {"Environments/Sky.bmp", "sky"},
              {"Environments/~unfinished=", content}});
        const Tree before = Found();
        EXPECT_EQ(ScanEnvironments(folder.Inside("")).Unorganized, isOwn ? 2 : 1);
        EXPECT_EQ(Organize(), isOwn);
        EXPECT_EQ(Found() == before, !isOwn);
        EXPECT_EQ(Found().count("Environments/Dawn/Sky.bmp"), isOwn ? 1U : 0U);
        EXPECT_EQ(Found().at("Environments/Dawn.env").ends_with("\\Dawn\\Sky.bmp\r\n" + own + "\r\n"), isOwn);
        EXPECT_EQ(progress.copies, isOwn ? 2 : 0); // one per environment
        EXPECT_EQ(Found().count("Environments/~unfinished="), isOwn ? 0U : 1U);
    }
    // An environment with the name of the list cannot have a folder, and continues to use a loose file.
    Fill({{"Environments/~unfinished=.env", "t.texture.path=Environments\\Sky.bmp\r\n"},
          {"Environments/~unfinished=", "Railwright has not finished organizing these environments:/\r\n"},
          {"Environments/Sky.bmp", "sky"}});
    EXPECT_FALSE(Organize());
    EXPECT_TRUE(Found().count("Environments/Sky.bmp"));
}

} // namespace
} // namespace railwright::testing
