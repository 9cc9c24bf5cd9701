#include "tests/shell/WindowTests.h"

#include "element/ElementDocument.h"
#include "shell/ControlStyle.h"

#include <QApplication>
#include <QCheckBox>

namespace railwright::testing {

Program& Program::Box(const QString& shown, const QString& button) {
    expected.push_back({shown, [button](ShownBox& box) { box.Press(button); }});
    return *this;
}

Program& Program::File(const QString& title, const std::string& name, QString* fieldBefore) {
    const std::string typed = FilePath::FromUser(name).Native();
    expected.push_back({title, [typed, fieldBefore](ShownBox& dialog) {
                            dialog.Name(QString::fromStdString(typed), fieldBefore);
                        }});
    return *this;
}

void Program::Look() {
    const std::unique_ptr<ShownBox> shown = ShownBox::InFront();
    if (!shown)
        return;
    constexpr int patience = 300;
    const int looks = shown->CountLook();
    const QString seen = looks == 0 || looks == patience ? shown->Seen() : "";
    if (looks == 0 && next < expected.size() && expected[next].first == seen) {
        expected[next++].second(*shown);
    } else if (!seen.isEmpty()) {
        faults += (looks == 0 ? "not expected: " : "does not go: ") + seen;
        shown->GiveUp();
    }
}

Program::Program(const std::string& commandLine, bool simulator,
                 const std::function<void(Program&)>& foretell) {
    sNoLimitsPath = {};
    sDocumentFile = {};
    iDocumentKind = CurrentDocument::None;
    bDocumentChanged = false;
    ClearTrackDocument();
    ClearElementDocument();
    const auto program = std::filesystem::path(QCoreApplication::applicationDirPath().toStdString());
    if (simulator)
        WriteBytes(program / "NoLimitsSimulator.exe", {});
    if (foretell)
        foretell(*this);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Look(); });
    timer.start(5);
    window = std::make_unique<frmMain>();
    window->Form_Load(commandLine);
    window->show();
    std::filesystem::remove(program / "NoLimitsSimulator.exe");
    // The last panel is built after the first painting.
    if (!QTest::qWaitFor([&] { return window->findChild<QWidget*>("btnTDSRenamer") != nullptr; }))
        qFatal("the window does not show");
}

Program::~Program() {
    for (; next < expected.size(); ++next)
        faults += "did not come: " + expected[next].first;
    if (!faults.empty())
        QTest::qFail(qPrintable(faults.join("; ")), __FILE__, __LINE__);
}

void Program::Click(const QString& button) {
    QWidget& control = Find(button);
    // A check box reacts to clicks on its mark and text, not on the space next to them.
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(6, control.height() / 2));
}

QString Program::Report() {
    std::int16_t before = 0;
    while (!Find(Indexed("ucFTab", before)).isVisible())
        ++before;
    window->ShowTab(Tabs::Overview);
    QString report = Find<QPlainTextEdit>("txtOverview").toPlainText();
    window->ShowTab(before);
    return report;
}

QString Program::Marks(const char* name, int count) {
    QString marks;
    for (int index = 0; index < count; ++index) {
        const auto& box = Find<QCheckBox>(Indexed(name, index));
        marks += QString(box.isEnabled() ? "-X" : ".x")[box.isChecked() ? 1 : 0];
    }
    return marks;
}

} // namespace railwright::testing

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(new railwright::ControlStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    railwright::testing::WindowTests tests;
    return QTest::qExec(&tests, argc, argv);
}
