#include "element/mNoLimits_ElementIO_1_3.h"
#include "platform/Paths.h"
#include "shell/Controls.h"
#include "shell/mMain.h"
#include "tests/shell/WindowHarness.h"
#include "tests/shell/WindowTests.h"
#include "tools/mNLE_Reverse.h"
#include "tools/mNLE_Rotate.h"
#include "tools/mNLT_3DSRenamer.h"
#include "tools/mNLT_Backwards.h"
#include "tools/mNLT_Mirror.h"
#include "tools/mNLT_Move.h"
#include "tools/mNLT_Remove.h"
#include "tools/mNLT_Rotate.h"
#include "tools/mNLT_Scale.h"
#include "tools/mNLT_ShuttleMake.h"
#include "tools/mNLT_Smoother.h"
#include "tools/mNLT_TunnelTest.h"
#include "track/mNoLimits_TrackIO_1_3.h"

#include <clocale>
#include <cstdlib>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

namespace railwright::testing {
namespace {

/// What a user does, and the procedure that does the same to the document.
struct ToolCase {
    const char* Name;
    const char* Entry;
    std::function<void(Program&)> Press;
    std::function<void()> Procedure;
    /// An example that has what the tool works on.
    const char* File = "harbor-comet.nltrack";
};

void Set(Program& program, const char* bar, int value) {
    program.Find<QScrollBar>(bar).setValue(value);
}

const std::vector<ToolCase>& ToolCases() {
    static const std::vector<ToolCase> cases = {
        {"north", "mnuTMove", [](Program& p) { p.Click("btnTMove(0)"); },
         [] {
             MoveTrack({0, 0, -5}, true);
         }},
        {"south", "mnuTMove", [](Program& p) { p.Click("btnTMove(1)"); },
         [] {
             MoveTrack({0, 0, 5}, true);
         }},
        {"east alone", "mnuTMove",
         [](Program& p) {
             Set(p, "hsTMove", 123);
             p.Click("chkTMove");
             p.Click("btnTMove(2)");
         },
         [] {
             MoveTrack({1.23F, 0, 0}, false);
         }},
        {"west", "mnuTMove", [](Program& p) { p.Click("btnTMove(3)"); },
         [] {
             MoveTrack({-5, 0, 0}, true);
         }},
        {"up", "mnuTMove", [](Program& p) { p.Click("btnTMove(4)"); },
         [] {
             MoveTrack({0, 5, 0}, true);
         }},
        {"down", "mnuTMove", [](Program& p) { p.Click("btnTMove(5)"); },
         [] {
             MoveTrack({0, -5, 0}, true);
         }},
        {"scale", "mnuTScale",
         [](Program& p) {
             Set(p, "hsTScale", 12345);
             p.Click("btnTScale");
         },
         [] { ScaleTrack(1.2345F, true); }},
        {"rotate alone", "mnuTRotate",
         [](Program& p) {
             Set(p, "hsTRotate", 330);
             p.Click("chkTRotate");
             p.Click("btnTRotate");
         },
         [] { RotateTrack(-30, false); }},
        {"north and south", "mnuTMirror", [](Program& p) { p.Click("btnTMirror(0)"); },
         [] { MirrorTrack(0, true); }},
        {"east and west", "mnuTMirror", [](Program& p) { p.Click("btnTMirror(1)"); },
         [] { MirrorTrack(1, true); }},
        {"toggle", "mnuTTunnel", [](Program& p) { p.Click("btnTTunnel(0)"); }, [] { SetTunnels(0); }},
        {"all tunnels", "mnuTTunnel", [](Program& p) { p.Click("btnTTunnel(1)"); }, [] { SetTunnels(1); }},
        {"no tunnels", "mnuTTunnel", [](Program& p) { p.Click("btnTTunnel(2)"); }, [] { SetTunnels(2); }},
        {"shuttle", "mnuTShuttle", [](Program& p) { p.Click("btnTShuttle"); }, [] { MakeShuttle(); },
         "switchback-spur.nltrack"},
        {"backwards", "mnuTBackwards", [](Program& p) { p.Click("btnTBackwards"); },
         [] { RebuildBackwards(); }},
        {"smooth", "mnuTSmoother", [](Program& p) { p.Click("btnTSmoother"); }, [] { SmoothTrackNodes(); }},
        {"remove catwalks, trees", "mnuTRemove",
         [](Program& p) {
             p.Click("chkRemove(12)");
             p.Click("chkRemove(8)");
             p.Click("btnRemove(2)");
         },
         [] { RemoveTrackData({.WoodCatwalks = true, .Trees = true}); }, "timber-fox.nltrack"},
        {"remove the rest", "mnuTRemove",
         [](Program& p) {
             p.Click("btnRemove(0)");
             for (const int kept : {12, 8, 0, 3})
                 p.Click(Indexed("chkRemove", kept));
             p.Click("btnRemove(2)");
         },
         [] {
             RemoveTrackData({.Tunnels = true,
                              .CustomColors = true,
                              .FundamentalNodes = true,
                              .PreFabSupports = true,
                              .SupportBeams = true,
                              .Terrain = true,
                              .SceneryObjects = true,
                              .AuthorComments = true,
                              .PreferredEnvironment = true});
         }},
        {"reverse", "mnuEReverse", [](Program& p) { p.Click("btnEReverse"); }, [] { ReverseElement(); },
         "banked-turn.nlelem"},
        {"about x", "mnuERotate",
         [](Program& p) {
             Set(p, "hsERotate", 405);
             p.Click("btnERotate(0)");
         },
         [] { RotateElement(0, 45); }, "banked-turn.nlelem"},
        {"about z", "mnuERotate",
         [](Program& p) {
             Set(p, "hsERotate", 0);
             p.Click("btnERotate(1)");
         },
         [] { RotateElement(1, -360); }, "banked-turn.nlelem"},
        {"about y", "mnuERotate",
         [](Program& p) {
             Set(p, "hsERotate", 370);
             p.Click("btnERotate(2)");
         },
         [] { RotateElement(2, 10); }, "banked-turn.nlelem"},
    };
    return cases;
}

std::vector<unsigned char> Stored(const Program& program, bool element) {
    const std::string file = program.Path(element ? "stored.nlelem" : "stored.nltrack");
    (element ? SaveElementFile : SaveTrackFile)(PathFromOutside(file));
    return ReadBytes(file);
}

/// The track with objects, as its file names them.
std::string TrackWithObjects(const Program& program, const std::vector<std::string>& names) {
    LoadTrackFile(PathFromOutside(Example("harbor-comet.nltrack")));
    Track.SceneryObjects.Count = static_cast<std::int32_t>(names.size());
    Track.SceneryObjects.Items.assign(names.size() + 1, {});
    for (std::size_t index = 0; index < names.size(); ++index)
        Track.SceneryObjects.Items[index].FileName = names[index];
    const std::string file = program.Path("objects.nltrack");
    SaveTrackFile(PathFromOutside(file));
    return PathFromOutside(file);
}

} // namespace

void PanelTests::ChangesTheDocument_data() {
    QTest::addColumn<std::size_t>("row");
    for (std::size_t row = 0; row < ToolCases().size(); ++row)
        QTest::newRow(ToolCases()[row].Name) << row;
}

void PanelTests::ChangesTheDocument() {
    QFETCH(std::size_t, row);
    const ToolCase& tool = ToolCases()[row];
    const QString name = tool.File;
    const bool ofElements = name.endsWith(".nlelem");
    const std::string file = Example(name.toStdString());
    Program program(file);
    program.Choose(tool.Entry);
    const QImage before = program.Window().Plan().Drawn(1).toImage();
    tool.Press(program);
    QVERIFY(bDocumentChanged);
    QCOMPARE(program.Title(), "Railwright: " + name + '*');
    const std::vector<unsigned char> changed = Stored(program, ofElements);
    const QImage picture = program.Window().Plan().Drawn(1).toImage();
    const QString report = program.Report();

    // The same by hand: what the window shows must be what a refresh of that document shows.
    if (ofElements) {
        LoadElementFile(PathFromOutside(file));
        tool.Procedure();
        RefreshElementTools();
    } else {
        LoadTrackFile(PathFromOutside(file));
        tool.Procedure();
        RefreshTrackTools();
    }
    QCOMPARE(changed, Stored(program, ofElements));
    QCOMPARE(picture, program.Window().Plan().Drawn(1).toImage());
    QCOMPARE(report, program.Report());

    // The second change leaves one star.
    program.Click(ofElements ? "btnEReverse" : "btnTTunnel(0)");
    QCOMPARE(program.Title().count('*'), 1);
}

void PanelTests::CaptionsFollowTheScrollBars() {
    Program program(Example("harbor-comet.nltrack"));
    const struct {
        const char* Entry;
        const char* Bar;
        const char* Label;
        int Least, Greatest, Large;
        const char* AtStart;
        const char* AtLeast;
        const char* AtGreatest;
        const char* OneUp;
    } bars[] = {
        {"mnuTMove", "hsTMove", "lblTMove", 0, 1000, 10, "5.00 meters.", "0.00 meters.", "10.00 meters.",
         "0.01 meters."},
        {"mnuTScale", "hsTScale", "lblTScale", 0, 20000, 100, "100.00%", "0.00%", "200.00%", "0.01%"},
        {"mnuTRotate", "hsTRotate", "lblTRotate", 0, 720, 5, "0 degrees.", "-360 degrees.", "360 degrees.",
         "-359 degrees."},
        {"mnuERotate", "hsERotate", "lblERotate", 0, 720, 5, "0 degrees.", "-360 degrees.", "360 degrees.",
         "-359 degrees."},
    };
    for (const auto& each : bars) {
        program.Choose(each.Entry);
        auto& bar = program.Find<QScrollBar>(each.Bar);
        const QLabel& label = program.Find<QLabel>(each.Label);
        QCOMPARE(label.text(), QString(each.AtStart));
        QCOMPARE(bar.minimum(), each.Least);
        QCOMPARE(bar.maximum(), each.Greatest);
        QCOMPARE(bar.pageStep(), each.Large);
        QTest::keyClick(&bar, Qt::Key_End);
        QCOMPARE(label.text(), QString(each.AtGreatest));
        QTest::keyClick(&bar, Qt::Key_Home);
        QCOMPARE(label.text(), QString(each.AtLeast));
        QTest::keyClick(&bar, Qt::Key_Right);
        QCOMPARE(label.text(), QString(each.OneUp));
        QTest::keyClick(&bar, Qt::Key_PageDown);
        QCOMPARE(bar.value(), 1 + each.Large);
        // The text follows while the thumb is held.
        bar.setSliderDown(true);
        bar.setSliderPosition(each.Least);
        QCOMPARE(label.text(), QString(each.AtLeast));
        bar.setSliderDown(false);
    }
    QVERIFY(!bDocumentChanged);
}

void PanelTests::GreysWhatGoesWithTheTrack() {
    Program program(Example("harbor-comet.nltrack"));
    program.Choose("mnuTRemove");
    const auto state = [&] {
        QString marks;
        for (int index = 0; index < 13; ++index) {
            const auto& box = program.Find<QCheckBox>(Indexed("chkRemove", index));
            marks += box.isChecked() ? (box.isEnabled() ? 'X' : 'x') : (box.isEnabled() ? '-' : '.');
        }
        return marks;
    };
    QCOMPARE(state(), QString("-------------"));
    program.Click("chkRemove(1)");
    program.Click("chkRemove(0)");
    QCOMPARE(state(), QString("Xx.----------"));
    program.Click("chkRemove(0)");
    QCOMPARE(state(), QString("-X-----------"));
    program.Click("btnRemove(0)");
    QCOMPARE(state(), QString("XxxXXXXXXXXXX"));
    program.Click("btnRemove(1)");
    QCOMPARE(state(), QString("-------------"));
    QVERIFY(!bDocumentChanged);
    // Nothing ticked is a change all the same; the ticks outlive the document.
    program.Click("btnRemove(2)");
    QVERIFY(bDocumentChanged);
    program.Click("chkRemove(4)");
    QVERIFY(OpenNoLimitsFile(PathFromOutside(Example("timber-fox.nltrack"))));
    QCOMPARE(state(), QString("----X--------"));
}

void PanelTests::FollowsTheTrackInShuttleMake() {
    Program program(Example("switchback-spur.nltrack"));
    program.Choose("mnuTShuttle");
    const QWidget& button = program.Find("btnTShuttle");
    QVERIFY(!Track.SegmentList.ClosedCircuit);
    QVERIFY(button.isEnabled());
    program.Click("btnTShuttle");
    QVERIFY(Track.SegmentList.ClosedCircuit);
    QVERIFY(!button.isEnabled());
    QVERIFY(OpenNoLimitsFile(PathFromOutside(Example("switchback-spur.nltrack"))));
    QVERIFY(button.isEnabled());
    Track.SegmentList.ClosedCircuit = true;
    RefreshTrackTools();
    QVERIFY(!button.isEnabled());
}

void PanelTests::RenamesObjects() {
    Program program;
    const char* const controls[] = {"cmbTDSRenamer", "txtTDSRenamer", "chkTDSRenamer", "btnTDSRenamer"};
    QVERIFY(OpenNoLimitsFile(TrackWithObjects(program, {})));
    for (const char* const control : controls)
        QVERIFY(!program.Find(control).isEnabled());
    QCOMPARE(program.Find<QComboBox>("cmbTDSRenamer").count(), 0);

    // The second name is "café.3ds" in another case of letters than the first.
    QVERIFY(OpenNoLimitsFile(TrackWithObjects(program, {"CAF\xC9.3ds", "caf\xE9.3DS", "tree.3ds"})));
    program.Choose("mnuT3dsRenamer");
    auto& list = program.Find<QComboBox>("cmbTDSRenamer");
    auto& field = program.Find<QLineEdit>("txtTDSRenamer");
    const auto& label = program.Find<QLabel>("lblTDSRenamer");
    for (const char* const control : controls)
        QVERIFY(program.Find(control).isEnabled());
    QCOMPARE(list.itemText(0) + list.itemText(2), QString("Object 01Object 03"));
    QCOMPARE(label.text(), QString("CAFÉ.3ds"));
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(field.text(), QString("café.3DS"));

    // Four characters are too few, by the button and by Enter.
    field.setText("ABÉD");
    program.Click("btnTDSRenamer");
    QTest::keyClick(&field, Qt::Key_Return);
    QVERIFY(!bDocumentChanged);
    QCOMPARE(list.currentIndex(), 1);

    field.setText("sub\\é");
    QTest::keyClick(&field, Qt::Key_Return);
    QVERIFY(bDocumentChanged);
    const auto name = [](std::size_t index) { return Track.SceneryObjects.Items[index].FileName; };
    QCOMPARE(name(0), std::string("sub\\\xE9"));
    QCOMPARE(name(1), std::string("sub\\\xE9"));
    QCOMPARE(name(2), std::string("tree.3ds"));
    QCOMPARE(list.currentIndex(), 0);
    QCOMPARE(label.text() + field.text(), QString("sub\\ésub\\é"));
    QVERIFY(program.Report().contains("   Object 001: sub\\é\n"));

    program.Click("chkTDSRenamer");
    field.setText("alone.3ds");
    program.Click("btnTDSRenamer");
    QCOMPARE(name(0) + name(1), std::string("alone.3dssub\\\xE9"));

    QVERIFY(OpenNoLimitsFile(TrackWithObjects(program, std::vector<std::string>(100, "a.3ds"))));
    QCOMPARE(list.itemText(98) + list.itemText(99), QString("Object 99Object 100"));
}

void PanelTests::RefusesLongTracksInTheSmoother() {
    Program program(Example("harbor-comet.nltrack"));
    const auto& line = program.Find<QLabel>("lblTSmoother");
    program.Choose("mnuTSmoother");
    QCOMPARE(line.text(), QString());

    for (const std::size_t count : {501U, 502U}) {
        LoadTrackFile(PathFromOutside(Example("harbor-comet.nltrack")));
        Track.BezierCurve.Nodes.resize(count, Track.BezierCurve.Nodes[1]);
        Track.BezierCurve.NodeCount = static_cast<std::int32_t>(count);
        const bool isTooLong = count > 501;
        program.Click("btnTSmoother");
        QCOMPARE(line.text().isEmpty(), !isTooLong);
        QVERIFY(!isTooLong || line.text().contains("502"));
        program.Choose("mnuHAbout");
        program.Choose("mnuTSmoother");
        QCOMPARE(line.text().isEmpty(), !isTooLong);
    }
}

void PanelTests::ChoosesTheFileAssociation() {
    Program program;
    program.Choose("mnuNLFileAssoc");
    const auto boxes = [&] {
        QString marks;
        for (int index = 0; index < 4; ++index) {
            const auto& box = program.Find<QCheckBox>(Indexed("chkNLAssocRtClk", index));
            marks += box.isChecked() ? (box.isEnabled() ? 'X' : 'x') : (box.isEnabled() ? '-' : '.');
        }
        return marks;
    };
    QCOMPARE(boxes(), QString("xXXX"));
    program.Find<QCheckBox>("chkNLAssocRtClk(1)").click();
    program.Find<QRadioButton>("optNLAssocDblClk(1)").click();
    QCOMPARE(boxes(), QString("X.XX"));
    program.Find<QRadioButton>("optNLAssocDblClk(2)").click();
    QCOMPARE(boxes(), QString("X-xX"));

    const auto& shown = program.Find("imgNLAssoc");
    const auto pictureOf = [](const QWidget& control) {
        return dynamic_cast<const Picture&>(control).Shown();
    };
    const QLineEdit& field = program.Find<QLineEdit>("txtNLAssoc");
    QVERIFY(!field.isEnabled() && !program.Find("btnNLAssocBrowse").isEnabled());
    for (const int index : {6, 0, 3}) {
        program.Find<QRadioButton>(Indexed("optNLAssocIcon", index)).click();
        QCOMPARE(pictureOf(shown).pixmap(32).toImage(),
                 pictureOf(program.Find(Indexed("imgNLIcons", index))).pixmap(32).toImage());
        QVERIFY(!pictureOf(shown).pixmap(32).isNull());
    }
    program.Find<QRadioButton>("optNLAssocIcon(7)").click();
    QVERIFY(pictureOf(shown).isNull());
    QVERIFY(field.isEnabled() && field.isReadOnly() && program.Find("btnNLAssocBrowse").isEnabled());

    // A file that is no icon leaves the picture empty and is named all the same.
    const std::string broken = program.Path("broken.ico");
    WriteBytes(broken, {'n', 'o'});
    program.Questions().File("Select Icon...", broken);
    program.Click("btnNLAssocBrowse");
    QCOMPARE(field.text().toStdString(), PathFromOutside(broken));
    QVERIFY(pictureOf(shown).pixmap(32).isNull());
    QImage red(32, 32, QImage::Format_ARGB32);
    red.fill(Qt::red);
    const std::string good = program.Path("good.ico");
    QVERIFY(red.save(QString::fromStdString(good)));
    program.Questions().File("Select Icon...", good);
    program.Click("btnNLAssocBrowse");
    QCOMPARE(pictureOf(shown).pixmap(32).toImage().pixelColor(16, 16), QColor(Qt::red));
    program.Find<QRadioButton>("optNLAssocIcon(2)").click();
    QCOMPARE(field.text().toStdString(), PathFromOutside(good));
    QVERIFY(!bDocumentChanged);
}

} // namespace railwright::testing
