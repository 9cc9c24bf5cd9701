#include "shell/Controls.h"
#include "shell/ucFrame.h"
#include "tests/shell/WindowHarness.h"
#include "tests/shell/WindowTests.h"

#include <QAccessible>
#include <QAction>
#include <QDesktopServices>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QUrl>

namespace railwright::testing {
namespace {

/// Every panel: how it is reached, and what it looks like.
struct PanelCase {
    const char* Label;
    const char* Entry;
    int Tab;
    const char* Title;
    bool Previews;
    bool OfElements;
};

constexpr PanelCase Cases[] = {
    {nullptr, "mnuHAbout", 0, "About Railwright...", false, false},
    {"lblTrackTools(0)", "mnuTOverview", 1, "Track Tool: Overview", false, false},
    {"lblTrackTools(1)", "mnuTRemove", 2, "Track Tool: Remove Data", false, false},
    {"lblTrackTools(2)", "mnuTMove", 3, "Track Tool: Move", true, false},
    {"lblTrackTools(3)", "mnuTScale", 4, "Track Tool: Scale", true, false},
    {"lblTrackTools(4)", "mnuTRotate", 5, "Track Tool: Rotate", true, false},
    {"lblTrackTools(5)", "mnuTMirror", 6, "Track Tool: Mirror", true, false},
    {"lblTrackTools(6)", "mnuTTunnel", 7, "Track Tool: Tunnel Test", false, false},
    {"lblTrackTools(7)", "mnuTShuttle", 8, "Track Tool: Shuttle Make", false, false},
    {"lblTrackTools(8)", "mnuTBackwards", 9, "Track Tool: Backwards Rebuild", false, false},
    {"lblElementTools(0)", "mnuEReverse", 10, "Element Tool: Reverse", true, true},
    {"lblElementTools(1)", "mnuERotate", 11, "Element Tool: Rotate", true, true},
    {"lblNolimitsTools(0)", "mnuNLEnvOrganizer", 12, "NoLimits Tool: Environment Organizer", false, false},
    {"lblNolimitsTools(1)", "mnuNLFileAssoc", 13, "NoLimits Tool: File Association", false, false},
    {"lblTrackTools(9)", "mnuTSmoother", 14, "Track Tool: Node Smoother", false, false},
    {"lblTrackTools(10)", "mnuT3dsRenamer", 15, "Track Tool: 3DS Renamer", false, false},
};

/// The panel in front, its title, previews, and the label with the mark beside it, in one line.
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
    return shown.join('|');
}

QString Expected(const PanelCase& panel) {
    const QString view = panel.Previews ? "picture" : "none";
    QStringList expected = {QString::number(panel.Tab), panel.Title, view, view};
    if (panel.Label != nullptr)
        expected += panel.Label;
    return expected.join('|');
}

/// Which of the controls that follow the document are enabled, one letter each.
QString Enabled(Program& program) {
    QString enabled;
    for (const char* const menu : {"mnuT", "mnuE", "mnuNL", "mnuH"})
        enabled += program.Find<QMenu>(menu).isEnabled() ? 'X' : '-';
    for (const char* const entry : {"mnuOpen", "mnuSaveAs", "mnuExit", "mnuNLEnvOrganizer", "mnuNLFileAssoc"})
        enabled += program.Find<QAction>(entry).isEnabled() ? 'X' : '-';
    for (const PanelCase& each : Cases)
        if (each.Label != nullptr)
            enabled += program.Find(each.Label).isEnabled() ? 'X' : '-';
    for (const char* const picture : {"imgToolBar(0)", "imgToolBar(1)"})
        enabled += program.Find(picture).isEnabled() ? 'X' : '-';
    return enabled;
}

} // namespace

void NavigationTests::StartsWithNothing() {
    Program program;
    QCOMPARE(program.Title(), QString("Railwright"));
    QCOMPARE(Shown(program), QString("0|About Railwright...|none|none"));
    QCOMPARE(program.Window().centralWidget()->size(), QSize(633, 445));
    QCOMPARE(program.Window().minimumSize(), program.Window().maximumSize());
    // Save answers with no document too: nothing is asked and the title shows the empty name.
    program.Click("imgToolBar(1)");
    QCOMPARE(program.Title(), QString("Railwright: "));
}

void NavigationTests::StandsWhereTheTablesSay() {
    Program program;
    const struct {
        const char* Name;
        const char* Container;
        QRect Place;
    } places[] = {
        {"ucFrame1", nullptr, {4, 4, 117, 437}},
        {"ucFrame2", nullptr, {124, 4, 505, 25}},
        {"ucFTab(0)", nullptr, {124, 32, 505, 409}},
        {"ucFTab(15)", nullptr, {124, 32, 505, 409}},
        {"pbView(0)", nullptr, {128, 36, 224, 224}},
        {"pbView(1)", nullptr, {400, 36, 224, 224}},
        {"imgToolBar(1)", "ucFrame2", {28, 4, 16, 16}},
        {"lblTitle", "ucFrame2", {236, 6, 265, 13}},
        {"lblTrackTools(10)", "ucFrame1", {12, 200, 97, 13}},
        {"Image1", "ucFTab(0)", {108, 8, 290, 90}},
        {"txtOverview", "ucFTab(1)", {4, 4, 497, 401}},
        {"btnNLEnvOrganize", "ucFTab(12)", {344, 16, 157, 21}},
        {"pbNLEnvOrganize", "ucFTab(12)", {4, 40, 497, 13}},
        {"Frame3", "ucFTab(13)", {100, 4, 189, 197}},
        {"imgNLAssoc", "Frame3", {148, 12, 36, 36}},
        {"btnNLAssoc", "ucFTab(13)", {156, 204, 133, 21}},
    };
    for (const auto& each : places) {
        const QWidget& control = program.Find(each.Name);
        QCOMPARE(control.geometry(), each.Place);
        if (each.Container != nullptr)
            QCOMPARE(control.parentWidget()->objectName(), QString(each.Container));
    }
    // No control is cut off by its panel, and none of a panel with previews lies behind them.
    for (const PanelCase& each : Cases) {
        const QWidget& panel = program.Find(Indexed("ucFTab", each.Tab));
        for (const QWidget* const control : panel.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            QVERIFY2(panel.rect().contains(control->geometry()), qPrintable(control->objectName()));
            QVERIFY2(!each.Previews || control->y() >= 3420 / 15, qPrintable(control->objectName()));
        }
    }
}

void NavigationTests::ReachesEveryPanel_data() {
    QTest::addColumn<int>("row");
    for (int row = 0; row < 16; ++row)
        QTest::newRow(Cases[row].Title) << row;
}

void NavigationTests::ReachesEveryPanel() {
    QFETCH(int, row);
    const PanelCase& panel = Cases[row];
    Program program(Example(panel.OfElements ? "loop.nlelem" : "harbor-comet.nltrack"));
    program.Choose(panel.Entry);
    QCOMPARE(Shown(program), Expected(panel));
    program.Choose("mnuHAbout");
    QCOMPARE(Shown(program), Expected(Cases[0]));
    if (panel.Label != nullptr) {
        program.Click(panel.Label);
        QCOMPARE(Shown(program), Expected(panel));
    }
}

void NavigationTests::EnablesByTheDocument() {
    // Menus, entries, track labels 0 to 8, element labels, simulator labels, track labels 9 and 10, pictures.
    const QString none = QString("--XX") + "X-XXX" + "---------" + "--" + "XX" + "--" + "XX";
    const QString track = QString("X-XX") + "XXXXX" + "XXXXXXXXX" + "--" + "XX" + "XX" + "XX";
    const QString element = QString("-XXX") + "XXXXX" + "---------" + "XX" + "XX" + "--" + "XX";
    const std::string comet = Example("harbor-comet.nltrack");
    const std::string loop = Example("loop.nlelem");
    Program program;
    QCOMPARE(Enabled(program), none);
    for (const auto& [file, expected] :
         {std::pair(comet, track), std::pair(loop, element), std::pair(comet, track), std::pair(comet, track),
          std::pair(loop, element)}) {
        program.Questions().File("Open NoLimits File...", file);
        program.Choose("mnuOpen");
        QCOMPARE(Enabled(program), expected);
    }
    // A label that is disabled does nothing.
    program.Click("lblTrackTools(2)");
    QCOMPARE(Shown(program), Expected(Cases[0]));
}

void NavigationTests::IsReachedByTheKeyboard() {
    Program program(Example("harbor-comet.nltrack"));
    const int keys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter};
    int reached = 0;
    program.Find("imgToolBar(0)").setFocus();
    for (const PanelCase& each : Cases) {
        if (each.Label == nullptr || each.OfElements || QString(each.Label).startsWith("lblNo"))
            continue;
        QWidget& label = program.Find(each.Label);
        for (int step = 0; step < 30 && QApplication::focusWidget() != &label; ++step)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &label);
        QTest::keyClick(&label, static_cast<Qt::Key>(keys[++reached % 3]));
        QCOMPARE(Shown(program), Expected(each));
    }
    QCOMPARE(reached, 11);

    const auto nameOf = [&](const char* control) {
        return QAccessible::queryAccessibleInterface(&program.Find(control))->text(QAccessible::Name);
    };
    QCOMPARE(nameOf("lblTrackTools(7)"), QString("Shuttle Make"));
    QCOMPARE(nameOf("imgToolBar(1)"), QString("Save As..."));
    QCOMPARE(nameOf("btnTMirror(0)"), QString("Mirror North & South"));
    QCOMPARE(nameOf("chkRemove(12)"), QString("Wooden Catwalks"));
    QCOMPARE(nameOf("hsTMove"), QString("Distance to Move:"));
    for (const QAction* const action : program.Window().findChildren<QAction*>())
        QVERIFY2(action->shortcut().isEmpty() && !action->text().contains('&'), qPrintable(action->text()));
}

/// Takes the place of the browser.
class PageCollector final : public QObject {
    Q_OBJECT
public:
    QStringList Hosts;
public slots:
    void Open(const QUrl& page) { Hosts += page.toString(); }
};

void NavigationTests::OpensThePagesOfTheInternet() {
    PageCollector pages;
    QDesktopServices::setUrlHandler("https", &pages, "Open");
    Program program;
    for (const char* const entry : {"mnuHINoLimits", "mnuHIVesna", "mnuHIRidehaven", "mnuHISweetgrade",
                                    "mnuHILoopkammer", "mnuHIBrisko"})
        program.Choose(entry);
    QDesktopServices::unsetUrlHandler("https");
    QCOMPARE(pages.Hosts.size(), 6);
    pages.Hosts.removeDuplicates();
    QCOMPARE(pages.Hosts.size(), 6);
    QVERIFY(pages.Hosts[1].startsWith(pages.Hosts[2]));
    for (const QString& page : pages.Hosts)
        QVERIFY(QUrl(page).host().endsWith(".example"));
}

void NavigationTests::DrawsFrameAndPreviewsSharp() {
    QWidget window;
    ucFrame frame(&window);
    frame.resize(40, 30);
    const QImage image = frame.grab().toImage();
    const QRgb light = frame.palette().color(QPalette::Light).rgb();
    const QRgb dark = frame.palette().color(QPalette::Shadow).rgb();
    QCOMPARE(image.pixel(20, 0), light);
    QCOMPARE(image.pixel(0, 15), light);
    QCOMPARE(image.pixel(39, 0), dark);
    QCOMPARE(image.pixel(0, 29), dark);
    QVERIFY(image.pixel(20, 1) != light);
    frame.resize(50, 60);
    QCOMPARE(frame.grab().toImage().pixel(49, 30), dark);

    QtPictureBox box(&window);
    box.Cls();
    box.Line(0, 10, 220, 10, {32, 32, 32});
    box.DrawWidth(3);
    box.PSet(100, 100, {255, 255, 0});
    box.Line(-1e30F, 200, 1e30F, 200, {255, 0, 0});
    for (const int ratio : {1, 2, 3}) {
        const QImage drawn = box.Drawn(ratio).toImage();
        QCOMPARE(drawn.width(), 224 * ratio);
        // A line covers its row of pixels and nothing of the next.
        for (int row = 0; row < ratio; ++row)
            QCOMPARE(drawn.pixelColor(50 * ratio, 10 * ratio + row), QColor(32, 32, 32));
        QCOMPARE(drawn.pixelColor(50 * ratio, 11 * ratio), QColor(Qt::black));
        QCOMPARE(drawn.pixelColor(50 * ratio, 10 * ratio - 1), QColor(Qt::black));
        QCOMPARE(drawn.pixelColor(100 * ratio, 100 * ratio), QColor(255, 255, 0));
        QCOMPARE(drawn.pixelColor(110 * ratio, 199 * ratio), QColor(255, 0, 0));
    }
    // The pen keeps its width over a Cls.
    box.Cls();
    box.Line(0, 100, 220, 100, {255, 0, 0});
    QCOMPARE(box.Drawn(1).toImage().pixelColor(50, 101), QColor(255, 0, 0));
    QCOMPARE(box.Drawn(1).toImage().pixelColor(101, 102), QColor(Qt::black));
}

} // namespace railwright::testing

#include "NavigationTests.moc"
