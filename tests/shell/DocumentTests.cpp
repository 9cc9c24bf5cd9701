#include "platform/Paths.h"
#include "shell/mFileDialog.h"
#include "shell/mMain.h"
#include "tests/shell/WindowHarness.h"
#include "tests/shell/WindowTests.h"
#include "track/TrackDocument.h"

#include <filesystem>

#include <QAction>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace railwright::testing {
namespace {

constexpr const char* OpenTitle = "Open NoLimits File...";
constexpr const char* SaveTrackTitle = "Save NoLimits Track File...";

/// Makes an unsaved change and tells the first node's place on X.
float Change(Program& program) {
    program.Click("btnTMirror(1)");
    return Track.BezierCurve.Nodes[0].Position.X;
}

} // namespace

void DocumentTests::OpensTheFileOfTheCommandLine() {
    TemporaryFolder folder;
    const std::string file = folder.File("two words.NLTrack");
    WriteBytes(file, ReadBytes(Example("harbor-comet.nltrack")));
    Program program('"' + file + '"');
    QCOMPARE(program.Title(), QString("Railwright: two words.NLTrack"));
    QCOMPARE(iDocumentKind, DocumentKinds::Track);
    QCOMPARE(sDocumentFile, PathFromOutside(file));
    QVERIFY(program.Report().startsWith("File Name...: two words\n"));
    QVERIFY(program.Report().contains("Total Segments"));
    QVERIFY(!bDocumentChanged);
}

void DocumentTests::AsksForTheSimulator() {
    const std::string comet = Example("harbor-comet.nltrack");
    const QString note =
        "Note|To prevent this message in the future, run Railwright from your NoLimits Folder."
        "|Information|OK";
    const auto areToolsEnabled = [](Program& program) {
        QStringList enabled;
        for (const char* const label : {"lblNolimitsTools(0)", "lblNolimitsTools(1)"})
            enabled += program.Find(label).isEnabled() ? "X" : "-";
        for (const char* const entry : {"mnuNLEnvOrganizer", "mnuNLFileAssoc"})
            enabled += program.Find<QAction>(entry).isEnabled() ? "X" : "-";
        return enabled.join("");
    };
    {
        // The question comes first, and the file of the command line is opened whatever the answer.
        Program program(comet, false, [](Answers& answers) { answers.Box(FolderQuestion, "No"); });
        QCOMPARE(areToolsEnabled(program), QString("----"));
        QCOMPARE(sNoLimitsPath, std::string());
        QCOMPARE(program.Title(), QString("Railwright: harbor-comet.nltrack"));
        program.Questions().File(OpenTitle, Example("loop.nlelem"));
        program.Choose("mnuOpen");
        QCOMPARE(areToolsEnabled(program), QString("----"));
    }
    {
        Program program("", false, [](Answers& answers) {
            answers.Box(FolderQuestion, "Yes").File("Locate NoLimits Simulator...", "");
        });
        QCOMPARE(areToolsEnabled(program), QString("----"));
    }
    TemporaryFolder simulator;
    WriteBytes(simulator.File("NoLimitsSimulator.exe"), {});
    {
        Program program("", false, [&](Answers& answers) {
            answers.Box(FolderQuestion, "Yes")
                .File("Locate NoLimits Simulator...", simulator.File("NoLimitsSimulator.exe"))
                .Box(note, "OK");
        });
        QCOMPARE(sNoLimitsPath, simulator.Inside(""));
        QCOMPARE(areToolsEnabled(program), QString("XXXX"));
    }
    const Program program;
    QCOMPARE(sNoLimitsPath, PathFromOutside(QCoreApplication::applicationDirPath().toStdString()) + '\\');
}

void DocumentTests::OpensOverUnsavedChanges() {
    Program program(Example("harbor-comet.nltrack"));
    program.Choose("mnuTMove");
    Change(program);
    program.Questions().File(OpenTitle, "");
    program.Click("imgToolBar(0)");
    QVERIFY(bDocumentChanged);
    QCOMPARE(program.Title(), QString("Railwright: harbor-comet.nltrack*"));

    program.Questions().File(OpenTitle, Example("timber-fox.nltrack"));
    program.Click("imgToolBar(0)");
    QVERIFY(!bDocumentChanged);
    QCOMPARE(program.Title(), QString("Railwright: timber-fox.nltrack"));
    QVERIFY(program.Find("ucFTab(0)").isVisible());
    QVERIFY(!program.Find("pbView(0)").isVisible());
}

void DocumentTests::FailsToOpen_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("keepsName");
    QTest::newRow("wrong tag") << "a.nltrack"
                               << "NLEL----"
                               << "Error Loading Track File!" << true;
    QTest::newRow("cut off") << "A.NLTRACK"
                             << "NLIM"
                             << "Error Loading Track File!" << true;
    QTest::newRow("broken element") << "a.nlelem"
                                    << "NLIM----"
                                    << "Error Loading Element File!" << true;
    QTest::newRow("other extension") << "a.txt"
                                     << "NLIM"
                                     << "Unknown File Type!" << false;
    QTest::newRow("short name") << "nltrack"
                                << "NLIM"
                                << "Unknown File Type!" << false;
}

void DocumentTests::FailsToOpen() {
    QFETCH(QString, name);
    QFETCH(QString, content);
    QFETCH(QString, message);
    QFETCH(bool, keepsName);
    Program program(Example("switchback-spur.nltrack"));
    const std::string before = sDocumentFile;
    program.Choose("mnuTMirror");
    Change(program);
    const std::string file = program.Path(name.toStdString());
    const QByteArray bytes = content.toLatin1();
    WriteBytes(file, {bytes.begin(), bytes.end()});

    program.Questions().Box(ErrorBox(message), "OK");
    QVERIFY(!OpenNoLimitsFile(PathFromOutside(file)));
    QCOMPARE(iDocumentKind, DocumentKinds::None);
    QVERIFY(!bDocumentChanged);
    QCOMPARE(sDocumentFile, keepsName ? before : "");
    QCOMPARE(program.Title(), QString("Railwright: switchback-spur.nltrack*"));
    QVERIFY(program.Find("ucFTab(6)").isVisible());
    QVERIFY(program.Find("lblTrackTools(0)").isEnabled());

    // Nothing works on what is left: no tool changes it, and it is not saved over anything.
    const QString report = program.Report();
    const std::int32_t nodes = Track.BezierCurve.NodeCount;
    for (const char* const button :
         {"btnTMove(0)", "btnTScale", "btnTRotate", "btnTMirror(0)", "btnTTunnel(0)", "btnTShuttle",
          "btnRemove(2)", "btnTBackwards", "btnTSmoother", "btnTDSRenamer", "btnEReverse", "btnERotate(0)"})
        program.Click(button);
    QCOMPARE(program.Report(), report);
    QCOMPARE(Track.BezierCurve.NodeCount, nodes);
    QVERIFY(!bDocumentChanged);
    program.Choose("mnuSaveAs");
    QCOMPARE(iDocumentKind, DocumentKinds::None);
    QCOMPARE(sDocumentFile, keepsName ? before : "");
}

void DocumentTests::Saves() {
    Program program(Example("harbor-comet.nltrack"));
    const float x = Change(program);
    const std::string chosen = program.Path("saved");
    QString offered;
    program.Questions().File(SaveTrackTitle, "", &offered).File(SaveTrackTitle, chosen);
    program.Choose("mnuSaveAs");
    QCOMPARE(offered, QString("harbor-comet.nltrack"));
    QVERIFY(bDocumentChanged);
    QCOMPARE(program.Title(), QString("Railwright: harbor-comet.nltrack*"));
    program.Choose("mnuSaveAs");
    QVERIFY(!bDocumentChanged);
    QCOMPARE(program.Title(), QString("Railwright: saved.nltrack"));

    QVERIFY(OpenNoLimitsFile(PathFromOutside(chosen + ".nltrack")));
    QCOMPARE(Track.BezierCurve.Nodes[0].Position.X, x);

    // The name of a file that exists is asked about; with No the dialog stays.
    const QString overwrite = SaveTrackTitle +
                              QString("|saved.nltrack already exists.\nDo you want to replace it?") +
                              "|Warning|Yes,No";
    program.Questions()
        .File(SaveTrackTitle, chosen + ".nltrack")
        .Box(overwrite, "Yes")
        .File(SaveTrackTitle, program.Path("other.dat"));
    const float back = Change(program);
    program.Choose("mnuSaveAs");
    QVERIFY(!bDocumentChanged);

    // Another extension is left alone by the dialog, and the writer adds its own behind it. From then on
    // the name tells no format, so that nothing is asked or written.
    program.Choose("mnuSaveAs");
    QCOMPARE(program.Title(), QString("Railwright: other.dat"));
    QVERIFY(std::filesystem::exists(program.Path("other.dat.nltrack")));
    QVERIFY(!std::filesystem::exists(program.Path("other.dat")));
    Change(program);
    program.Choose("mnuSaveAs");
    QVERIFY(!bDocumentChanged);
    QVERIFY(OpenNoLimitsFile(PathFromOutside(program.Path("other.dat.nltrack"))));
    QCOMPARE(Track.BezierCurve.Nodes[0].Position.X, back);

    QVERIFY(OpenNoLimitsFile(PathFromOutside(Example("loop.nlelem"))));
    program.Click("btnEReverse");
    program.Questions().File("Save NoLimits Element File...", program.Path("turned"));
    program.Choose("mnuSaveAs");
    QCOMPARE(program.Title(), QString("Railwright: turned.nlelem"));
    QVERIFY(std::filesystem::exists(program.Path("turned.nlelem")));
}

void DocumentTests::FailsToSave() {
    Program program(Example("harbor-comet.nltrack"));
    Change(program);
    // A folder of the very name that the writer would use stands in its way.
    std::filesystem::create_directory(program.Path("taken.dat.nltrack"));
    program.Questions()
        .File(SaveTrackTitle, program.Path("taken.dat"))
        .Box(ErrorBox("Error Saving Track File!"), "OK");
    const std::string before = sDocumentFile;
    program.Choose("mnuSaveAs");
    QVERIFY(bDocumentChanged);
    QCOMPARE(sDocumentFile, before);
    QCOMPARE(program.Title(), QString("Railwright: harbor-comet.nltrack*"));
}

void DocumentTests::PassesNamesThroughTheDialogs() {
    Program program;
    const std::string file = program.CopyOf("loop.nlelem");
    const auto ask = [&](std::string& name, std::string& title, bool& readOnly, std::string& filter,
                         std::int32_t& index, std::int32_t& flags) {
        return ShowOpenFileDialog(name, title, true, readOnly, true, filter, index,
                                  PathFromOutside(program.Path("")), "Pick", "nlelem",
                                  program.Window().Handle(), flags);
    };
    std::string name;
    std::string title = "title";
    std::string filter = "Tracks (*.nltrack)|*.nltrack:Elements (*.nlelem)|*.nlelem";
    bool readOnly = false;
    std::int32_t index = 2;
    std::int32_t flags = 32 | 64 | 8;
    program.Questions().File("Pick", "loop");
    QVERIFY(ask(name, title, readOnly, filter, index, flags));
    QCOMPARE(name, PathFromOutside(file));
    QCOMPARE(title, std::string("loop.nlelem"));
    QCOMPARE(index, 2);
    QCOMPARE(flags, 4096 | 4 | 8);
    QVERIFY(!readOnly);
    using namespace std::string_literals;
    QCOMPARE(filter, "Tracks (*.nltrack)\0*.nltrack\0Elements (*.nlelem)\0*.nlelem\0\0"s);

    filter = "Elements (*.nlelem)|*.nlelem";
    flags = 0;
    program.Questions().File("Pick", "");
    QVERIFY(!ask(name, title, readOnly, filter, index, flags));
    QCOMPARE(name + title, std::string());
    QCOMPARE(index, -1);
    QCOMPARE(flags, 0);

    // A name that has no room is not offered; the dialog comes all the same.
    name.assign(260, 'n');
    filter = "Elements (*.nlelem)|*.nlelem";
    QString offered = "something";
    program.Questions().File("Pick", "", &offered);
    QVERIFY(!ShowSaveFileDialog(name, title, true, filter, index, "", "Pick", "nlelem", NoWindow, flags));
    QCOMPARE(offered, QString());
    QCOMPARE(index, 0);
}

void DocumentTests::ClosesAsAnswered() {
    const std::string comet = Example("harbor-comet.nltrack");
    {
        Program program(comet);
        QVERIFY(program.Window().close());
    }
    {
        Program program(comet);
        Change(program);
        program.Questions().Box(UnsavedQuestion, "Cancel").Box(UnsavedQuestion, "No");
        QVERIFY(!program.Window().close());
        QVERIFY(program.Window().isVisible());
        QVERIFY(program.Window().close());
    }
    {
        Program program(comet);
        Change(program);
        program.Questions().Box(UnsavedQuestion, "Yes").File(SaveTrackTitle, program.Path("closed.nltrack"));
        QVERIFY(program.Window().close());
        QVERIFY(std::filesystem::exists(program.Path("closed.nltrack")));
    }
    Program program(comet);
    Change(program);
    program.Questions().Box(UnsavedQuestion, "Yes").File(SaveTrackTitle, "");
    QVERIFY(program.Window().close());
}

void DocumentTests::ExitsAtOnce() {
#ifdef Q_OS_UNIX
    Program program(Example("harbor-comet.nltrack"));
    Change(program);
    // In a process of its own, which ends by no other way with this code.
    const pid_t child = fork();
    if (child == 0) {
        program.Choose("mnuExit");
        _exit(77);
    }
    int status = -1;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
#else
    QSKIP("a process cannot be split in two here");
#endif
}

} // namespace railwright::testing
