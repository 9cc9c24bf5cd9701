#include "tests/shell/WindowTests.h"
#include "base/Text.h"
#include "install/mWinRegistry.h"
#include "shell/mFileDialog.h"
#include "shell/ucFrame.h"

#include <QApplication>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyleOption>
#include <QUrl>

#include <random>

namespace railwright::testing {
namespace {

/// Every panel, how to open it, and its appearance.
constexpr struct PanelCase {
    const char* Label;
    const char* Entry;
    int Tab;
    bool Previews;
    const char* Title;
} Cases[] = {
    {nullptr, "mnuHAbout", 0, false, "About Railwright..."},
    {"lblTrackTools(0)", "mnuTOverview", 1, false, "Track Tool: Overview"},
    {"lblTrackTools(1)", "mnuTRemove", 2, false, "Track Tool: Remove Data"},
    {"lblTrackTools(2)", "mnuTMove", 3, true, "Track Tool: Move"},
    {"lblTrackTools(3)", "mnuTScale", 4, true, "Track Tool: Scale"},
    {"lblTrackTools(4)", "mnuTRotate", 5, true, "Track Tool: Rotate"},
    {"lblTrackTools(5)", "mnuTMirror", 6, true, "Track Tool: Mirror"},
    {"lblTrackTools(6)", "mnuTTunnel", 7, false, "Track Tool: Tunnel Test"},
    {"lblTrackTools(7)", "mnuTShuttle", 8, false, "Track Tool: Shuttle Make"},
    {"lblTrackTools(8)", "mnuTBackwards", 9, false, "Track Tool: Backwards Rebuild"},
    {"lblElementTools(0)", "mnuEReverse", 10, true, "Element Tool: Reverse"},
    {"lblElementTools(1)", "mnuERotate", 11, true, "Element Tool: Rotate"},
    {"lblNolimitsTools(0)", "mnuNLEnvOrganizer", 12, false, "NoLimits Tool: Environment Organizer"},
    {"lblNolimitsTools(1)", "mnuNLFileAssoc", 13, false, "NoLimits Tool: File Association"},
    {"lblTrackTools(9)", "mnuTSmoother", 14, false, "Track Tool: Node Smoother"},
    {"lblTrackTools(10)", "mnuT3dsRenamer", 15, false, "Track Tool: 3DS Renamer"},
};

/// Returns the visible panel, its title, its previews and the marked label, in one line.
QString Shown(Program& program) {
    QStringList shown;
    for (int tab = 0; tab < 16; ++tab)
        if (program.Find(Indexed("ucFTab", tab)).isVisible())
            shown += QString::number(tab);
    shown += program.Find<QLabel>("lblTitle").text();
    for (const char* const view : {"pbView(0)", "pbView(1)"})
        shown += program.Find(view).isVisible() ? "picture" : "none";
    const QWidget& mark = program.Find("lblIndicator");
    for (const PanelCase& each : Cases)
        if (mark.isVisible() && each.Label != nullptr && program.Find(each.Label).y() == mark.y())
            shown += each.Label;
    return shown.join('|') + (mark.isVisible() ? ">" : "");
}

QString Expected(const PanelCase& panel) {
    const QString view = panel.Previews ? "|picture|picture" : "|none|none";
    const QString mark = panel.Label == nullptr ? QString() : QString("|%1>").arg(panel.Label);
    return QString("%1|%2").arg(panel.Tab).arg(panel.Title) + view + mark;
}

/// Returns one letter per control that depends on the document: X if it is enabled.
QString Enabled(Program& program) {
    QString enabled;
    for (const char* const name :
         {"mnuT", "mnuE", "mnuNL", "mnuOpen", "mnuSaveAs", "mnuExit", "imgToolBar(1)"})
        enabled += program.IsEnabled(name) ? 'X' : '-';
    for (const PanelCase& each : Cases)
        if (each.Label != nullptr)
            enabled += program.IsEnabled(each.Label) && program.IsEnabled(each.Entry) ? 'X' : '-';
    return enabled;
}

constexpr const char* SaveTrackTitle = "Save NoLimits Track File...";

const QString UnsavedChanges =
    "Unsaved Changes|There are unsaved changes to the file.\nSave changes?|Question|"
    "Yes,No,Cancel";

QString NothingTo(const QString& what) {
    return "Note|There is no document to " + what + ".|Information|OK";
}

/// Makes an unsaved change. Returns the first node's X.
float Change(Program& program) {
    program.Click("btnTMirror(1)");
    return Track.BezierCurve.Nodes[0].Position.X;
}

} // namespace

void WindowTests::ReachesEveryPanel() {
    constexpr Qt::Key keys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter};
    for (const PanelCase& panel : Cases) {
        Program program(QString(panel.Title).startsWith("Element") ? Loop : Comet);
        program.Choose(panel.Entry);
        QCOMPARE(Shown(program), Expected(panel));
        program.Choose("mnuHAbout");
        QCOMPARE(Shown(program), Expected(Cases[0]));
        if (panel.Label == nullptr)
            continue;
        program.Click(panel.Label);
        QCOMPARE(Shown(program), Expected(panel));
        program.Choose("mnuHAbout");
        QTest::keyClick(&program.Find(panel.Label), keys[panel.Tab % 3]);
        QCOMPARE(Shown(program), Expected(panel));
    }
}

void WindowTests::EnablesByTheDocument() {
    // Menus, entries, a picture; then labels: tracks 0 to 8, elements, simulator, tracks 9 and 10.
    const QString track = "X-XXXXXXXXXXXXXX--XXXX";
    const QString element = "-XXXXXX---------XXXX--";
    Program program;
    QCOMPARE(program.Title(), QString("Railwright"));
    QCOMPARE(Shown(program), Expected(Cases[0]));
    // Save answers even without a document. The title then shows the empty name.
    program.Box(NothingTo("save"), "OK");
    program.Click("imgToolBar(1)");
    QCOMPARE(program.Title(), QString("Railwright: "));
    QCOMPARE(Enabled(program), QString("--XX-XX-----------XX--"));
    for (const std::string& file : {Comet, Loop, Comet, Comet, Loop}) {
        // Opening discards unsaved changes without a question, but Escape keeps them.
        program.Choose("mnuTMove");
        if (iDocumentKind == CurrentDocument::None)
            program.Box(NothingTo("change"), "OK");
        program.Click("btnTTunnel(0)");
        const QString before = program.Title();
        program.File("Open NoLimits File...", "").File("Open NoLimits File...", file);
        program.Choose("mnuOpen");
        QCOMPARE(program.Title(), before);
        program.Click("imgToolBar(0)");
        QCOMPARE(program.Title(), "Railwright: " + QString::fromStdString(file).section('/', -1));
        QVERIFY(!bDocumentChanged && program.Find("ucFTab(0)").isVisible());
        QCOMPARE(Enabled(program), file == Comet ? track : element);
    }
    // A disabled label does nothing.
    program.Click("lblTrackTools(2)");
    QCOMPARE(Shown(program), Expected(Cases[0]));
}

void WindowTests::DrawsFrameAndPreviewsSharp() {
    QWidget window;
    ucFrame frame(&window);
    const QRgb light = frame.palette().color(QPalette::Light).rgb();
    const QRgb dark = frame.palette().color(QPalette::Shadow).rgb();
    for (const QSize size : {QSize(40, 30), QSize(50, 60)}) {
        frame.resize(size);
        const QImage image = frame.grab().toImage();
        QVERIFY(image.pixel(20, 0) == light && image.pixel(0, 15) == light);
        QVERIFY(image.pixel(size.width() - 1, 0) == dark && image.pixel(0, size.height() - 1) == dark);
    }
    QtPictureBox box(&window);
    // Cls keeps the pen width.
    box.DrawWidth(3);
    box.Cls();
    box.Line(-1e30F, 200, 1e30F, 200, {255, 0, 0});
    const QImage drawn = box.Drawn(2).toImage();
    for (int row = 390; row < 410; ++row)
        QCOMPARE(drawn.pixelColor(220, row) == QColor(255, 0, 0), row >= 398 && row < 404);
}

void WindowTests::PaintsAsIfNothingWereLeftOut() {
    constexpr int size = PictureBox::Size;
    std::mt19937 random(7);
    const auto place = [&](int least, int greatest) {
        const double share = static_cast<double>(random()) / 0x1p32;
        return static_cast<float>(least + (greatest - least) * share);
    };
    for (const double ratio : {1.0, 2.0, 1.25, 3.0, 0.25, 1.0 / size}) {
        PaintedPicture kept;
        QImage whole((QSizeF(size, size) * ratio).toSize(), QImage::Format_RGB32);
        whole.fill(Qt::black);
        QPainter painter(&whole);
        painter.scale(ratio, ratio);
        painter.translate(0.5, 0.5);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int stroke = 0; stroke < 2000; ++stroke) {
            // Strokes around the picture, most of which just miss or touch its edge, and a few points.
            const int width = stroke % 7 == 0 ? 3 : 1;
            const float x = place(-size, 2 * size),
                        y = stroke % 2 == 0 ? place(-4, 4) : place(-size, 2 * size);
            const bool isPoint = stroke % 5 == 0;
            const float toX = isPoint ? x : x + place(-9, 9), toY = isPoint ? y : y + place(-9, 9);
            const Rgb colour = {static_cast<std::uint8_t>(random() % 256), 128, 255};
            kept.DrawWidth(width);
            kept.Line(x, y, toX, toY, colour);
            painter.setPen(
                QPen(QColor(colour.Red, colour.Green, colour.Blue), width, Qt::SolidLine, Qt::RoundCap));
            if (isPoint)
                painter.drawPoint(QPointF(x, y));
            else
                painter.drawLine(QPointF(x, y), QPointF(toX, toY));
        }
        painter.end();
        QVERIFY2(kept.Drawn(ratio) == whole, qPrintable(QString::number(ratio)));
    }
    // Strokes far outside the picture are not stored.
    PaintedPicture picture;
    for (const auto& [x, y] : {std::pair(1e6F, 0.F), {-1e6F, 0.F}, {0.F, 1e6F}, {0.F, -1e6F}, {1e6F, 1e6F}}) {
        picture.Line(x, y, x + 1, y + 9, {});
        picture.PSet(x, y, {});
    }
    picture.Line(-1e6F, 400, 400, -1e6F, {});
    QCOMPARE(picture.StrokeCount(), std::size_t{0});
    picture.Line(-1e6F, 1e6F, 1e6F, -1e6F, {}); // through the corner
    QCOMPARE(picture.StrokeCount(), std::size_t{1});
}

void WindowTests::ShowsTextsWhole() {
    // A text with a bar at each end, in labels that are too narrow.
    for (const int lacking : {0, 2, 8}) {
        QLabel label("|wwwwwwwwww|");
        label.setFont(ControlFont());
        label.setAlignment(Qt::AlignRight);
        label.resize(label.sizeHint() - QSize(lacking, 0));
        const QImage drawn = label.grab().toImage();
        const int ground = drawn.pixelColor(0, 0).lightness();
        int bars = 0;
        for (int x = 0, wasBar = 0; x < drawn.width(); ++x) {
            int dark = 0;
            for (int y = 0; y < drawn.height(); ++y)
                dark += drawn.pixelColor(x, y).lightness() < ground * 2 / 3 ? 1 : 0;
            const int isBar = dark > 8 ? 1 : 0;
            bars += isBar > wasBar ? 1 : 0;
            wasBar = isBar;
        }
        QCOMPARE(bars, 2);
    }
    Program program(Comet);
    int texts = 0;
    for (const QWidget* const control : program.Window().findChildren<QWidget*>()) {
        const QString text = control->property("text").toString();
        if (text.isEmpty() || control->property("wordWrap").toBool())
            continue;
        QStyleOptionButton option;
        option.initFrom(control);
        const bool isChoice = control->inherits("QCheckBox") || control->inherits("QRadioButton");
        const QRect place = isChoice ? control->style()->subElementRect(QStyle::SE_CheckBoxContents, &option)
                                     : control->contentsRect();
        const int width = control->fontMetrics().size(Qt::TextShowMnemonic, text).width();
        QVERIFY2(width <= place.width() + 2, qPrintable(text));
        ++texts;
    }
    QVERIFY(texts > 80);
}

void WindowTests::StartsWithFileAndSimulator() {
    const QString question = "Unknown NoLimits Path|Unable to locate your NoLimits Installation Path.\n"
                             "This path is required to use some of the Tools featured in this Railwright.\n"
                             "Locate this path yourself?|Question|Yes,No";
    const QString note = "Note|To prevent this message in the future, run Railwright from your NoLimits "
                         "Folder.|Information|OK";
    TemporaryFolder simulator;
    const std::string there = simulator.File("NoLimitsSimulator.exe");
    WriteBytes(there, {});
    for (const auto& [answer, chosen] :
         {std::pair("No", std::string()), std::pair("Yes", std::string()), std::pair("Yes", there)}) {
        // The question comes first. The file of the command line is opened whatever the answer.
        Program program(Comet, false, [&, reply = QString(answer), name = chosen](Program& asked) {
            asked.Box(question, reply);
            if (reply == "Yes")
                asked.File("Locate NoLimits Simulator...", name);
            if (!name.empty())
                asked.Box(note, "OK");
        });
        QCOMPARE(program.Title(), QString("Railwright: harbor-comet.nltrack"));
        QVERIFY(sNoLimitsPath == (chosen.empty() ? FilePath() : simulator.Inside("")));
        QVERIFY(Open(Loop));
        for (const char* const name :
             {"lblNolimitsTools(0)", "lblNolimitsTools(1)", "mnuNLEnvOrganizer", "mnuNLFileAssoc"})
            QCOMPARE(program.IsEnabled(name), !chosen.empty());
    }
#ifdef Q_OS_WIN
    const QString mark = "[.]"; // Windows forbids asterisks and quotes in names
#else
    const QString mark = "[*]\"";
#endif
    const QString words = "two " + mark + " words";
    const std::string file = simulator.File(words.toStdString() + ".NLTrack");
    WriteBytes(file, ReadBytes(Comet));
    Program program(file);
    // Qt shows a doubled mark as one.
    QCOMPARE(program.Title(), "Railwright: " + QString(words).replace("[*]", "[*][*]") + ".NLTrack");
    // Panels built later show the file, too.
    QVERIFY(!program.IsEnabled("btnTShuttle") && Track.SceneryObjects.Count > 0);
    QCOMPARE(program.Find<QComboBox>("cmbTDSRenamer").count(), Track.SceneryObjects.Count);
    QVERIFY(program.Report().startsWith("File Name...: " + words + '\n') && !bDocumentChanged);
    QVERIFY(sNoLimitsPath ==
            FilePath::FromUser(QCoreApplication::applicationDirPath().toStdString()).AsFolder());

    // The registered folder is used unchecked, even if it is empty.
    const char* const key = "Software\\NoLimits Coasters";
    for (const auto& [registered, path] :
         {std::pair("D:\\Spa\xDF", "D:\\Spa\u00DF\\"), std::pair("", "\\")}) {
        RegistryInput installed = registered;
        QVERIFY(WriteRegistryValue(HKEY_CURRENT_USER, key, REG_SZ, "InstPath", installed));
        Program found("", false);
        QCOMPARE(sNoLimitsPath.InWindowsForm(), std::string(path));
        QVERIFY(found.IsEnabled("lblNolimitsTools(1)"));
    }
    QVERIFY(DeleteRegistryKey(HKEY_CURRENT_USER, key));
#ifndef Q_OS_WIN
    // On other systems, the folder is in Wine's registry and on a drive of Wine.
    const TemporaryFolder prefix;
    std::filesystem::create_directories(prefix.File("drive_c/Spiele/NoLimits \u00DF"));
    std::filesystem::create_directory(prefix.File("dosdevices"));
    std::filesystem::create_symlink("../drive_c", prefix.File("dosdevices/c:"));
    const std::string wine =
        "WINE REGISTRY Version 2\n\n[Software\\\\NoLimits] 17\n\"InstPath\"=\"Z:\\\\no\"\n\n"
        "[Software\\\\NoLimits Coasters] 17\n#time=1d\n\"instPath\"=dword:00000001\n"
        "\"InstPath\"=\"C:\\\\spiele\\\\NoLimits \\xdf\"\n";
    WriteBytes(prefix.File("user.reg"), {wine.begin(), wine.end()});
    qputenv("WINEPREFIX", QByteArray::fromStdString(prefix.File("")));
    {
        const Program found("", false);
        QVERIFY(sNoLimitsPath == FilePath::FromUser(prefix.File("drive_c/Spiele/NoLimits \u00DF/")));
    }
    // The program's own registry takes precedence.
    RegistryInput own = TextOf("Z:" + FilePath::FromUser(simulator.File("")).InWindowsForm());
    QVERIFY(WriteRegistryValue(HKEY_CURRENT_USER, key, REG_SZ, "InstPath", own));
    {
        const Program found("", false);
        QVERIFY(sNoLimitsPath == simulator.Inside(""));
    }
    QVERIFY(DeleteRegistryKey(HKEY_CURRENT_USER, key));
    qunsetenv("WINEPREFIX");
#endif
}

void WindowTests::FailsToOpen() {
    const QString track = "Error Loading Track File!", unknown = "Unknown File Type!";
    const QString ofNoKind = "the name ends in neither .nltrack nor .nlelem";
    for (const auto& [name, content, message, reason] :
         std::vector<std::tuple<std::string, std::string, QString, QString>>{
             {"wrong-tag.nltrack", "NLEL----", track, "the file does not begin with the tag NLIM at byte 0"},
             {"CUT-OFF.NLTRACK", "NLIM", track, "NLIM: the file ends too early at byte 4"},
             {"broken.nlelem", "NLIM----", "Error Loading Element File!",
              "the file does not begin with the tag ELEM at byte 0"},
             {"other.txt", "NLIM", unknown, ofNoKind},
             {"nltrack", "NLIM", unknown, ofNoKind}}) {
        Program program(Example("switchback-spur.nltrack"));
        const FilePath left = message == unknown ? FilePath() : sDocumentFile;
        program.Choose("mnuTMirror");
        Change(program);
        WriteBytes(program.Path(name), {content.begin(), content.end()});
        program.Box("Error|" + message + '\n' + QString::fromStdString(name) + ": " + reason + "|Warning|OK",
                    "OK");
        QVERIFY2(!Open(program.Path(name)), name.c_str());
        QCOMPARE(program.Title(), QString("Railwright: switchback-spur.nltrack*"));
        QVERIFY(program.Find("ucFTab(6)").isVisible() && program.Find("lblTrackTools(0)").isEnabled());
        // No tool changes the remaining document, and it cannot be saved.
        const QString report = program.Report();
        const std::int32_t nodes = Track.BezierCurve.NodeCount;
        for (const char* const button : {"btnTMove(0)", "btnTScale", "btnTRotate", "btnTMirror(0)",
                                         "btnTTunnel(0)", "btnTShuttle", "btnRemove(2)", "btnTBackwards",
                                         "btnTSmoother", "btnTDSRenamer", "btnEReverse", "btnERotate(0)"}) {
            if (program.IsEnabled(button)) // disabled for a track without objects
                program.Box(NothingTo("change"), "OK");
            program.Click(button);
        }
        QVERIFY(program.Report() == report && Track.BezierCurve.NodeCount == nodes && !bDocumentChanged);
        program.Box(NothingTo("save"), "OK");
        program.Choose("mnuSaveAs");
        QVERIFY2(iDocumentKind == CurrentDocument::None && sDocumentFile == left, name.c_str());
        QCOMPARE(program.Title(), QString("Railwright: switchback-spur.nltrack*"));
    }
}

void WindowTests::Saves() {
    Program program(Comet);
    // A folder already has the name that the writer would use.
    std::filesystem::create_directory(program.Path("taken.dat.nltrack"));
    const float x = Change(program);
    QString offered;
    program.File(SaveTrackTitle, "", &offered)
        .File(SaveTrackTitle, program.Path("taken.dat"))
        .Box("Error|Error Saving Track File!\ntaken.dat: is a folder|Warning|OK", "OK")
        .File(SaveTrackTitle, program.Path("saved"));
    for (int failure = 0; failure < 2; ++failure) {
        program.Choose("mnuSaveAs");
        QCOMPARE(offered, QString("harbor-comet.nltrack"));
        QVERIFY(bDocumentChanged && program.Title().endsWith('*') &&
                sDocumentFile == FilePath::FromUser(Comet));
    }
    program.Choose("mnuSaveAs");
    QVERIFY(!bDocumentChanged && program.Title() == "Railwright: saved.nltrack");
    QVERIFY(Open(program.Path("saved.nltrack")));
    QCOMPARE(Track.BezierCurve.Nodes[0].Position.X, x);
    // The dialog asks before it replaces a file. It accepts another extension, and the writer appends its
    // own. Then the name says nothing about the format: nothing is written unless the user confirms the
    // written name.
    program.File(SaveTrackTitle, program.Path("saved.nltrack"))
        .Box(OverwriteQuestion(SaveTrackTitle, "saved.nltrack"), "Yes")
        .File(SaveTrackTitle, program.Path("other.dat"))
        .Box("Note|The document was saved as other.dat.nltrack.|Information|OK", "OK");
    const float back = Change(program);
    program.Choose("mnuSaveAs");
    program.Choose("mnuSaveAs");
    QCOMPARE(program.Title(), QString("Railwright: other.dat"));
    const QString again = "Save As|The document was saved as other.dat.nltrack.\nSave it under that name "
                          "again?|Question|Yes,No";
    const float forth = Change(program);
    program.Box(again, "No");
    program.Choose("mnuSaveAs");
    QVERIFY(bDocumentChanged && program.Title() == "Railwright: other.dat*");
    program.Box(again, "Yes").File(SaveTrackTitle, program.Path("third.nltrack"), &offered);
    program.Choose("mnuSaveAs");
    QCOMPARE(offered, QString("other.dat.nltrack"));
    QCOMPARE(program.Title(), QString("Railwright: third.nltrack"));
    program.File(SaveTrackTitle, program.Path("other.dat"))
        .Box("Save As|other.dat.nltrack already exists.\nDo you want to replace it?|Question|Yes,No", "No");
    program.Choose("mnuSaveAs");
    for (const auto& [file, place] : {std::pair("other.dat.nltrack", back), {"third.nltrack", forth}}) {
        QVERIFY(Open(program.Path(file)));
        QCOMPARE(Track.BezierCurve.Nodes[0].Position.X, place);
    }
    QVERIFY(Open(Loop));
    // No code page contains all letters of this name.
    const std::string turned = "turned  \u6771\u4EAC \u0416";
    program.File("Save NoLimits Element File...", program.Path(turned))
        .File("Open NoLimits File...", program.Path(turned + ".nlelem"));
    program.Choose("mnuSaveAs");
    const QString title = program.Title();
    QCOMPARE(title, QString::fromStdString("Railwright: " + turned + ".nlelem"));
    QVERIFY(Open(Comet));
    program.Choose("mnuOpen");
    QCOMPARE(program.Title(), title);
}

void WindowTests::KeepsTheOldFileOfASaveThatFails() {
    Program program(Loop);
    program.Click("btnEReverse");
    const std::string file = program.Path("a.nlelem");
    const Bytes old = ReadBytes(Loop);
    WriteBytes(file, old);
    // Check, follow links, open, a write per 100 bytes, truncate, flush, exchange.
    const auto calls = 6 + static_cast<int>(old.size() + 99) / 100;
    const QString title = "Save NoLimits Element File...";
    for (int failing = 1; failing <= calls + 1; ++failing) {
        const bool fails = failing <= calls;
        program.File(title, file);
        program.Box(OverwriteQuestion(title, "a.nlelem"), "Yes");
        FailingFiles files;
        files.FailAt = failing;
        // Alternates between a full and a broken disk. After a denied permission, the save would overwrite
        // the old file.
        files.Cause = failing % 2 == 0 ? std::errc::no_space_on_device : std::errc::io_error;
        const QString cannot = failing == 1 ? "cannot be checked: " : "cannot be written: ";
        const QString why = QString::fromStdString(std::make_error_code(files.Cause).message());
        if (fails)
            program.Box("Error|Error Saving Element File!\na.nlelem: " + cannot + why + "|Warning|OK", "OK");
        program.Choose("mnuSaveAs");
        QVERIFY(bDocumentChanged == fails && program.Title().endsWith('*') == fails);
        QVERIFY((ReadBytes(file) == old) == fails && program.Names() == std::vector<std::string>{"a.nlelem"});
    }
}

void WindowTests::TellsToWaitAndGetsOverLackOfMemory() {
    Program program(Comet);
    bool waits = false;
    ApplyTrackTool([&] { waits = QGuiApplication::overrideCursor() != nullptr; });
    QVERIFY(waits && QGuiApplication::overrideCursor() == nullptr);
    program.Box("Error|There is not enough memory for this document!|Warning|OK", "OK");
    ApplyTrackTool([] { throw std::bad_alloc(); });
    QVERIFY(QGuiApplication::overrideCursor() == nullptr && bDocumentChanged);
    // The panels still show the state before the tool.
    program.Find<QLineEdit>("txtTDSRenamer").setText("other.3ds");
    Track.SceneryObjects = {};
    program.Click("btnTDSRenamer");
    QVERIFY(Track.SceneryObjects.Items.empty());
}

void WindowTests::PassesNamesThroughTheDialogs() {
    // A name that is too long is not offered, but the dialog appears.
    Program program;
    FileDialog dialog = {.sFileName = std::string(260, 'n'),
                         .sFileTitle = "title",
                         .sFilter = "Any|*:All|*",
                         .iFilterIndex = 2,
                         .sDialogTitle = "Pick",
                         .sDefaultExt = "nlelem",
                         .iFlags = 8};
    QString offered = "something";
    program.File("Pick", "", &offered);
    QVERIFY(!ShowSaveFileDialog(dialog));
    QVERIFY(offered.isEmpty() && (dialog.sFileName + dialog.sFileTitle).empty());
    QVERIFY(dialog.iFilterIndex == 0 && dialog.iFlags == 0);
    QCOMPARE(dialog.sFilter, std::string("Any\0*\0All\0*\0\0", 13));
}

void WindowTests::TellsOfNamesThatAreTooLong() {
    // The dialogs accept 259 characters. For one more they report an error and ask again.
    Program program(Comet);
    const std::string folder = program.Path("");
    const std::string most(259 - folder.size() - std::string(".nltrack").size(), 'n');
    program.File(SaveTrackTitle, program.Path(most + "n"))
        .Box(SaveTrackTitle + QString("|The name of this file with its folders is too long.\nIt may have 259 "
                                      "characters.|Warning|OK"),
             "OK")
        .File(SaveTrackTitle, program.Path(most));
    program.Choose("mnuSaveAs");
    QCOMPARE(program.Names(), std::vector{most + ".nltrack"});
}

void WindowTests::SaysWhereTheContentIsThatLostItsFile() {
    Program program(Loop);
    const std::string file = program.Path("a.nlelem");
    WriteBytes(file, {1, 2, 3});
    FailingFiles files;
    files.LosesTheOldFile = true;
    const std::string left = program.Path("kept-1-a.nlelem");
    const QString title = "Save NoLimits Element File...";
    program.File(title, file)
        .Box(OverwriteQuestion(title, "a.nlelem"), "Yes")
        .Box("Error|Error Saving Element File!\na.nlelem: cannot be written: " +
                 QString::fromStdString(std::error_code(1177, std::system_category()).message()) +
                 ", and the file of that name is gone; the new content is in " +
                 QString::fromStdString(left) + "|Warning|OK",
             "OK");
    program.Choose("mnuSaveAs");
    QVERIFY(ReadBytes(left) == ReadBytes(Loop) && program.Names().size() == 1);
}

void WindowTests::OpensAFileThatIsDropped() {
    Program program(Loop);
    const auto drop = [&](const QList<QUrl>& addresses) {
        QMimeData data;
        data.setUrls(addresses);
        // The source offers a move, which would delete its file.
        QDragEnterEvent enter({100, 100}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        enter.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(&program.Window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped({100, 100}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        dropped.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(&program.Window(), &dropped);
        QTest::qWait(1);
        return enter.dropAction() == Qt::CopyAction && dropped.dropAction() == Qt::CopyAction;
    };
    const QUrl comet = QUrl::fromLocalFile(QString::fromStdString(Comet));
    const QUrl other = QUrl::fromLocalFile(QString::fromStdString(program.Path("other.txt")));
    QVERIFY(!drop({}) && !drop({comet, comet}) && !drop({QUrl("page:somewhere")}) && !drop({other}));
    QCOMPARE(program.Title(), QString("Railwright: loop.nlelem"));
    QVERIFY(drop({comet}));
    QCOMPARE(program.Title(), QString("Railwright: harbor-comet.nltrack"));
    // Cancel keeps the changes, and so does a missing name.
    for (const QString answer : {"Cancel", "Yes", "No"}) {
        bDocumentChanged = false;
        Change(program);
        program.Box(UnsavedChanges, answer);
        if (answer == "Yes")
            program.File(SaveTrackTitle, "");
        const QUrl loop = QUrl::fromLocalFile(QString::fromStdString(Loop));
        QVERIFY(drop({loop}));
        QCOMPARE(program.Title() == "Railwright: loop.nlelem", answer == "No");
    }
}

void WindowTests::ClosesAsAnswered() {
    for (const QString answer : {"", "Cancel", "No", "Yes, and no name", "Yes"}) {
        Program program(Comet);
        if (!answer.isEmpty() && Change(program) != 0)
            program.Box(UnsavedChanges, answer.section(',', 0, 0));
        const std::string name = answer == "Yes" ? program.Path("closed.nltrack") : "";
        if (answer.startsWith("Yes"))
            program.File(SaveTrackTitle, name);
        QCOMPARE(program.Window().close(), answer != "Cancel");
        QCOMPARE(std::filesystem::exists(program.Path("closed.nltrack")), answer == "Yes");
    }
}

} // namespace railwright::testing
