#include "base/Text.h"
#include "element/mNoLimits_ElementIO_1_3.h"
#include "geometry/Preview.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "install/mWinRegistry.h"
#include "tests/shell/WindowTests.h"
#include "thumbnailer/Thumbnail.h"
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

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QRadioButton>

namespace railwright::testing {
namespace {

/// Controls to set and click, and the procedure that makes the same change.
struct ToolCase {
    const char* Steps;
    std::function<void()> Procedure;
    const char* File = "harbor-comet.nltrack";
};

std::function<void()> Moved(float x, float y, float z, bool supports = true) {
    return [=] { MoveTrack({x, y, z}, supports); };
}

const ToolCase ToolCases[] = {
    {"btnTMove(0)", Moved(0, 0, -5)},
    {"btnTMove(1)", Moved(0, 0, 5)},
    {"hsTMove=123 chkTMove btnTMove(2)", Moved(1.23F, 0, 0, false)},
    {"btnTMove(3)", Moved(-5, 0, 0)},
    {"btnTMove(4)", Moved(0, 5, 0)},
    {"btnTMove(5)", Moved(0, -5, 0)},
    {"hsTScale=12345 btnTScale", [] { ScaleTrack(1.2345F, true); }},
    {"chkTScale btnTScale", [] { ScaleTrack(1, false); }},
    {"hsTRotate=330 chkTRotate btnTRotate", [] { RotateTrack(-30, false); }},
    {"btnTMirror(0)", [] { MirrorTrack(0, true); }},
    {"chkTMirror btnTMirror(1)", [] { MirrorTrack(1, false); }},
    {"btnTTunnel(0)", [] { SetTunnels(0); }},
    {"btnTTunnel(1)", [] { SetTunnels(1); }},
    {"btnTTunnel(2)", [] { SetTunnels(2); }},
    {"btnTShuttle", MakeShuttle, "switchback-spur.nltrack"},
    {"btnTBackwards", RebuildBackwards},
    {"btnTSmoother", SmoothTrackNodes},
    {"chkRemove(12) chkRemove(8) btnRemove(2)",
     [] { RemoveTrackData({.WoodCatwalks = true, .Trees = true}); }, "timber-fox.nltrack"},
    {"chkRemove(1) chkRemove(7) chkRemove(11) btnRemove(2)",
     [] { RemoveTrackData({.Tunnels = true, .Terrain = true, .PreferredEnvironment = true}); }},
    {"chkRemove(2) chkRemove(6) chkRemove(9) btnRemove(2)",
     [] { RemoveTrackData({.CustomColors = true, .SupportBeams = true, .SceneryObjects = true}); }},
    {"chkRemove(4) chkRemove(5) chkRemove(10) btnRemove(2)",
     [] { RemoveTrackData({.FundamentalNodes = true, .PreFabSupports = true, .AuthorComments = true}); }},
    {"btnEReverse", ReverseElement, "banked-turn.nlelem"},
    {"hsERotate=405 btnERotate(0)", [] { RotateElement(0, 45); }, "banked-turn.nlelem"},
    {"hsERotate=0 btnERotate(1)", [] { RotateElement(1, -360); }, "banked-turn.nlelem"},
    {"hsERotate=370 btnERotate(2)", [] { RotateElement(2, 10); }, "banked-turn.nlelem"},
};

/// Opens the track with objects of these names.
bool OpenWithObjects(const Program& program, const std::vector<text>& names) {
    LoadTrackFile(FilePath::FromUser(Comet));
    Track.SceneryObjects.Count = static_cast<std::int32_t>(names.size());
    Track.SceneryObjects.Items.assign(names.size() + 1, {});
    for (std::size_t index = 0; index < names.size(); ++index)
        Track.SceneryObjects.Items[index].FileName = names[index];
    SaveTrackFile(FilePath::FromUser(program.Path("objects.nltrack")));
    return Open(program.Path("objects.nltrack"));
}

/// Value of a pixel's colour in HSV.
int Brightness(const QImage& picture, int x, int y) {
    return picture.pixelColor(x, y).value();
}

/// Bounding box of the pixels that are brighter than the ground.
QRect CurveIn(const QImage& picture) {
    QRect box;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (Brightness(picture, x, y) > 96)
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace

void WindowTests::ChangesTheDocument() {
    for (const auto& [steps, procedure, name] : ToolCases) {
        const std::string file = Example(name);
        const bool ofElements = file.ends_with(".nlelem");
        Program program(file);
        // The saved document, and the state of the window.
        const auto state = [&] {
            const std::string stored = program.Path(ofElements ? "stored.nlelem" : "stored.nltrack");
            (ofElements ? SaveElementFile : SaveTrackFile)(FilePath::FromUser(stored));
            frmMain& window = program.Window();
            return std::tuple(ReadBytes(stored), program.Report(), window.Plan().Drawn(1).toImage(),
                              window.Side().Drawn(1).toImage());
        };
        const auto opened = state();
        QVERIFY2(!CurveIn(std::get<2>(opened)).isEmpty() && !CurveIn(std::get<3>(opened)).isEmpty(), name);
        for (const QString& step : QString(steps).split(' '))
            if (step.contains('='))
                program.Find<QScrollBar>(step.section('=', 0, 0)).setValue(step.section('=', 1).toInt());
            else
                program.Click(step);
        QVERIFY2(bDocumentChanged, steps);
        QCOMPARE(program.Title(), QString("Railwright: %1*").arg(name));
        const auto changed = state();
        // The procedure and a refresh must result in the same window.
        (ofElements ? LoadElementFile : LoadTrackFile)(FilePath::FromUser(file));
        procedure();
        (ofElements ? RefreshElementTools : RefreshTrackTools)();
        QVERIFY2(changed == state(), steps);
        program.Click(ofElements ? "btnEReverse" : "btnTTunnel(0)");
        QCOMPARE(program.Title().count('*'), 1);
    }
}

void WindowTests::CaptionsFollowTheScrollBars() {
    Program program;
    for (const QStringList& texts :
         {QStringList{"TMove", "5.00 meters.", "10.00 meters.", "0.00 meters.", "0.01 meters.",
                      "0.11 meters."},
          {"TScale", "100.00%", "200.00%", "0.00%", "0.01%", "1.01%"},
          {"TRotate", "0 degrees.", "360 degrees.", "-360 degrees.", "-359 degrees.", "-354 degrees."},
          {"ERotate", "0 degrees.", "360 degrees.", "-360 degrees.", "-359 degrees.", "-354 degrees."}}) {
        auto& bar = program.Find<QScrollBar>("hs" + texts[0]);
        QVERIFY(!bar.accessibleName().isEmpty());
        const auto& label = program.Find<QLabel>("lbl" + texts[0]);
        QCOMPARE(label.text(), texts[1]);
        int step = 2;
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Home, Qt::Key_Right, Qt::Key_PageDown}) {
            QTest::keyClick(&bar, key);
            QCOMPARE(label.text(), texts[step++]);
        }
    }
}

void WindowTests::FollowsTheTrack() {
    Program program(Comet);
    for (const auto& [click, marks] :
         {std::pair("chkRemove(1)", "-X-----------"), std::pair("chkRemove(0)", "Xx.----------"),
          std::pair("chkRemove(0)", "-X-----------"), std::pair("btnRemove(0)", "XxxXXXXXXXXXX"),
          std::pair("btnRemove(1)", "-------------")}) {
        program.Click(click);
        QCOMPARE(program.Marks("chkRemove", 13), QString(marks));
    }
    QVERIFY(!bDocumentChanged);
    // Removing nothing counts as a change. The ticks survive opening another document.
    program.Click("btnRemove(2)");
    QVERIFY(bDocumentChanged);
    program.Click("chkRemove(4)");
    const QWidget& button = program.Find("btnTShuttle");
    for (int round = 0; round < 2; ++round) {
        QVERIFY(Open(Example("switchback-spur.nltrack")) && button.isEnabled());
        QTest::keyClick(&program.Find("btnTShuttle"), Qt::Key_Enter);
        QVERIFY(Track.SegmentList.ClosedCircuit && !button.isEnabled());
    }
    QCOMPARE(program.Marks("chkRemove", 13), QString("----X--------"));
    const auto& line = program.Find<QLabel>("lblTSmoother");
    for (const std::size_t count : {501U, 502U}) {
        QVERIFY(Open(Comet));
        Track.BezierCurve.Nodes.resize(count, Track.BezierCurve.Nodes[1]);
        Track.BezierCurve.NodeCount = static_cast<std::int32_t>(count);
        program.Click("btnTSmoother");
        QCOMPARE(line.text().contains("502"), count == 502);
    }
    QVERIFY(Open(Comet));
    program.Choose("mnuTSmoother");
    QCOMPARE(line.text(), QString());
    // The visible report follows changes.
    program.Choose("mnuTOverview");
    auto& report = program.Find<QPlainTextEdit>("txtOverview");
    for (const auto& [tool, tunnels] : {std::pair("btnTTunnel(1)", 1), {"btnTTunnel(2)", 0}}) {
        QTest::keyClick(&program.Find(tool), Qt::Key_Return);
        QVERIFY(report.toPlainText().contains(QString("Actual Tunnels...: %1\n").arg(tunnels)));
    }
    program.Window().setAttribute(Qt::WA_KeyboardFocusChange);
    QVERIFY(QTest::qWaitForWindowActive(&program.Window()));
    const QImage without = report.grab().toImage();
    report.setFocus();
    QVERIFY(report.hasFocus() && report.grab().toImage() != without);
}

void WindowTests::RenamesObjects() {
    Program program;
    auto& list = program.Find<QComboBox>("cmbTDSRenamer");
    auto& field = program.Find<QLineEdit>("txtTDSRenamer");
    const auto& label = program.Find<QLabel>("lblTDSRenamer");
    // The first two names differ only in case.
    const std::vector<text> some = {"CAF\xC9.3ds", "caf\xE9.3DS", "tree.3ds"};
    for (const auto& names : {std::vector<text>(), some}) {
        QVERIFY(OpenWithObjects(program, names));
        QCOMPARE(list.count(), static_cast<int>(names.size()));
        for (const char* const control : {"cmbTDSRenamer", "txtTDSRenamer", "chkTDSRenamer", "btnTDSRenamer"})
            QCOMPARE(program.Find(control).isEnabled(), !names.empty());
    }
    QCOMPARE(list.itemText(0) + label.text(), QString("Object 01CAFÉ.3ds"));
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(field.text(), QString("café.3DS"));
    // Both the button and Enter refuse four characters, and characters that a file cannot store.
    for (const char* const refused : {"ABÉD", "日本語.3ds"}) {
        field.setText(refused);
        program.Click("btnTDSRenamer");
        QTest::keyClick(&field, Qt::Key_Return);
        QVERIFY(!bDocumentChanged && list.currentIndex() == 1);
    }
    field.setText("sub\\é");
    QTest::keyClick(&field, Qt::Key_Return);
    QVERIFY(bDocumentChanged && list.currentIndex() == 0);
    const auto name = [](std::size_t index) { return Track.SceneryObjects.Items[index].FileName + ';'; };
    QCOMPARE(name(0) + name(1) + name(2), text("sub\\\xE9;sub\\\xE9;tree.3ds;"));
    QCOMPARE(label.text() + field.text(), QString("sub\\ésub\\é"));
    QVERIFY(program.Report().contains("   Object 001: sub\\é\n"));
    program.Click("chkTDSRenamer");
    field.setText("alone.3ds");
    program.Click("btnTDSRenamer");
    QCOMPARE(name(0) + name(1), text("alone.3ds;sub\\\xE9;"));
}

void WindowTests::ChoosesTheFileAssociation() {
    Program program;
    const auto select = [&](const char* name, int index) {
        program.Find<QRadioButton>(Indexed(name, index)).click();
    };
    program.Choose("mnuNLFileAssoc");
    QCOMPARE(program.Marks("chkNLAssocRtClk", 4), QString("xXXX"));
    for (const auto& [index, marks] : {std::pair(1, "XxXX"), std::pair(2, "XXxX")}) {
        select("optNLAssocDblClk", index);
        QCOMPARE(program.Marks("chkNLAssocRtClk", 4), QString(marks));
    }
    const auto pictureOf = [&](const QString& name) {
        return dynamic_cast<const Picture&>(program.Find(name)).Shown().pixmap(32).toImage();
    };
    const QLineEdit& field = program.Find<QLineEdit>("txtNLAssoc");
    for (const int index : {6, 0, 3}) {
        select("optNLAssocIcon", index);
        QCOMPARE(pictureOf("imgNLAssoc"), pictureOf(Indexed("imgNLIcons", index)));
        QVERIFY(!pictureOf("imgNLAssoc").isNull() && !field.isEnabled());
        QVERIFY(!program.Find("btnNLAssocBrowse").isEnabled());
    }
    select("optNLAssocIcon", 7);
    QVERIFY(pictureOf("imgNLAssoc").isNull());
    QVERIFY(field.isEnabled() && field.isReadOnly() && program.Find("btnNLAssocBrowse").isEnabled());
    QImage red(32, 32, QImage::Format_ARGB32);
    red.fill(Qt::red);
    QVERIFY(red.save(QString::fromStdString(program.Path("good.ico"))));
    program.File("Select Icon...", program.Path("good.ico"));
    program.Click("btnNLAssocBrowse");
    const FilePath icon = FilePath::FromUser(program.Path("good.ico"));
    QCOMPARE(field.text().toStdString(), icon.Native());
    QCOMPARE(pictureOf("imgNLAssoc").pixelColor(16, 16), QColor(Qt::red));

    sNoLimitsPath = FilePath::FromWindowsForm("C:\\Rides\\");
    program.Choose("mnuNLFileAssoc");
    for (const char* const box : {"chkNLAssocRtClk(0)", "chkNLAssocRtClk(2)", "chkNLAssocRtClk(3)"})
        program.Click(box);
    select("optNLAssocDblClk", 0); // is ticked again; the other two are cleared
    program.Click("chkNLAssocRtClk(2)");
    program.Click("btnNLAssoc");
    QCOMPARE(program.Marks("chkNLAssocRtClk", 4), QString("xX--"));
    const auto registered = [](const std::string& key) {
        text value = "none";
        ReadRegistryValue(HKEY_CLASSES_ROOT, "NoLimits.Trackfile\\" + key, "", value);
        return BytesOf(value);
    };
    QCOMPARE(registered("Shell"), std::string("Ride"));
    QCOMPARE(registered("Shell\\Ride\\Command"), std::string("C:\\Rides\\NoLimitsSimulator.exe -s \"%1\""));
    QCOMPARE(registered("Shell\\Edit"), std::string("Edit"));
    QCOMPARE(registered("Shell\\Tera") + registered("Shell\\Tool"), std::string("nonenone"));
#ifdef Q_OS_WIN
    const std::string drive; // already in the path
#else
    const std::string drive = "Z:";
#endif
    QCOMPARE(registered("DefaultIcon"), drive + icon.InWindowsForm() + ",0");
}

void WindowTests::OrganizesTheEnvironments() {
    Program program;
    sNoLimitsPath = FilePath::FromUser(program.Path(""));
    const auto shown = [&] {
        return QString("%1 of %2, %3")
            .arg(program.Find<QLabel>("lblNLEnvOrganize(1)").text(),
                 program.Find<QLabel>("lblNLEnvOrganize(0)").text(),
                 program.IsEnabled("btnNLEnvOrganize") ? "more" : "done");
    };
    program.Choose("mnuNLEnvOrganizer");
    QCOMPARE(shown(), QString("0 of 0, done"));

    const std::filesystem::path folder = program.Path("Environments");
    std::filesystem::create_directory(folder);
    const std::string text = "a.texture.path=Environments\\Sky.bmp\r\n";
    for (const char* const name : {"Dawn.env", "Noon.env", "Sky.bmp"})
        WriteBytes(folder / name, {text.begin(), text.end()});
    program.Choose("mnuNLEnvOrganizer");
    QCOMPARE(shown(), QString("2 of 2, more"));
    // Colours of the bar at a quarter and three quarters, at each change that events during and after the run
    // see.
    QStringList bar;
    const auto look = [&] {
        const QImage drawn = program.Find("pbNLEnvOrganize").grab().toImage();
        const auto colour = [&](int quarter) {
            return drawn.pixelColor(drawn.width() * quarter / 4, drawn.height() / 2).name();
        };
        if (const QString seen = colour(1) + colour(3); bar.isEmpty() || bar.last() != seen)
            bar += seen;
    };
    const QString red = "#ff0000", green = "#00ff00";
    const std::function<void()> watch = [&] {
        look();
        if (bar.last().startsWith(red))
            program.Click("btnNLEnvOrganize"); // has no effect during the run
        else
            QTimer::singleShot(0, &program.Window(), watch);
    };
    QTimer::singleShot(0, &program.Window(), watch);
    program.Click("btnNLEnvOrganize");
    look();
    const QString ground = bar.value(0).left(7);
    QCOMPARE(bar, QStringList({ground + ground, red + ground, green + green}));
    QCOMPARE(shown(), QString("0 of 2, done"));
    QVERIFY(exists(folder / "Noon" / "Sky.bmp") && exists(folder / "__Unused Files__" / "Sky.bmp"));
    QVERIFY(!bDocumentChanged);
}

void WindowTests::FitsThumbnailsToTheCurve() {
    for (const std::string& file : {Comet, Loop}) {
        Program program(file);
        const auto thumbnail = [&](int size) {
            return DrawThumbnail(size, [&](PictureBox& plan) {
                NoPicture side;
                (file == Comet ? DrawTrackPreview : DrawElementPreview)(plan, side);
            });
        };
        AnalyzeTrack();
        for (const int size : {64, 128, 512}) {
            const QRect curve = CurveIn(thumbnail(size));
            QCOMPARE(std::max(curve.width(), curve.height()) * 8 / size, 7);
            const QPoint offCentre = curve.topLeft() + curve.bottomRight() - QPoint(size - 1, size - 1);
            QVERIFY(offCentre.manhattanLength() <= std::max(4, size / 64));
        }
        // A small thumbnail is the large one scaled down.
        const QImage small = thumbnail(128);
        const QImage reduced =
            thumbnail(512).scaled(128, 128, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        int light = 0, difference = 0;
        for (int y = 0; y < 128; ++y)
            for (int x = 0; x < 128; ++x) {
                light += Brightness(reduced, x, y);
                difference += std::abs(Brightness(small, x, y) - Brightness(reduced, x, y));
            }
        QVERIFY2(difference < light / 4, file.c_str());
    }
}

void WindowTests::OpensMenusAndPages() {
    Program program;
    QVERIFY(QTest::qWaitForWindowActive(&program.Window()));
    QTest::keyClick(&program.Window(), Qt::Key_F10);
    QWidget* const menu = QApplication::activePopupWidget();
    QVERIFY(menu != nullptr && menu->objectName() == "mnuF");
    QCOMPARE(menu->font().families(), ControlFont().families());
    QTest::keyClick(menu, Qt::Key_Escape);
#ifdef HAS_PAGE
    const QString page = "https://ridehaven.example/?a=1&b=%20c#d";
#else
    const QString page;
#endif
    for (const char* const entry :
         {"mnuHINoLimits", "mnuHIVesna", "mnuHISweetgrade", "mnuHILoopkammer", "mnuHIBrisko"})
        QVERIFY2(!program.IsEnabled(entry), entry);
    QCOMPARE(program.IsEnabled("mnuHIRidehaven"), !page.isEmpty());
    QDesktopServices::setUrlHandler("https", this, "Visit");
    program.Choose("mnuHIRidehaven");
    QDesktopServices::unsetUrlHandler("https");
    QCOMPARE(visited, page);
}

} // namespace railwright::testing
