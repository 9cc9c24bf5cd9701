#include "tests/shell/WindowTests.h"

#include "element/ElementDocument.h"
#include "shell/ControlStyle.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QMessageBox>

namespace railwright::testing {
namespace {

QString PlainCaption(const QAbstractButton& button) {
    return button.text().remove('&');
}

QString Seen(const QWidget& widget) {
    const auto* const box = qobject_cast<const QMessageBox*>(&widget);
    if (box == nullptr)
        return widget.windowTitle();
    static const QStringList icons = {"None", "Information", "Warning", "Critical", "Question"};
    QStringList buttons;
    for (const auto button : {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
        if (const QAbstractButton* const there = box->button(button))
            buttons += PlainCaption(*there);
    return QStringList{box->windowTitle(), box->text(), icons[box->icon()], buttons.join(',')}.join('|');
}

} // namespace

Program& Program::Box(const QString& shown, const QString& button) {
    expected.push_back({shown, [button](QWidget& box) {
                            for (QAbstractButton* const each : box.findChildren<QAbstractButton*>())
                                if (PlainCaption(*each) == button)
                                    QTest::mouseClick(each, Qt::LeftButton);
                        }});
    return *this;
}

Program& Program::File(const QString& title, const std::string& name, QString* fieldBefore) {
    expected.push_back({title, [name, fieldBefore](QWidget& dialog) {
                            auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
                            if (fieldBefore != nullptr)
                                *fieldBefore = field->text();
                            // Keys would bring up the list of completions, which takes the next of them.
                            field->setText(QString::fromStdString(name));
                            for (auto* const button : dialog.findChild<QDialogButtonBox*>()->buttons())
                                if ((PlainCaption(*button) == "Cancel") == name.empty())
                                    QTest::mouseClick(button, Qt::LeftButton);
                        }});
    return *this;
}

void Program::Look() {
    QWidget* const shown = QApplication::activeModalWidget();
    if (shown == nullptr)
        return;
    constexpr const char* looks = "looks";
    constexpr int patience = 300;
    const int seenBefore = shown->property(looks).toInt();
    shown->setProperty(looks, seenBefore + 1);
    const QString seen = Seen(*shown);
    if (seenBefore == 0 && next < expected.size() && expected[next].first == seen) {
        // The answer may bring up the next box before it returns, and a timer does not run within itself.
        QTimer::singleShot(0, shown, [shown, answer = expected[next++].second] { answer(*shown); });
    } else if (seenBefore == 0 || seenBefore == patience) {
        faults += (seenBefore == 0 ? "not expected: " : "does not go: ") + seen;
        qobject_cast<QDialog*>(shown)->reject();
    }
}

Program::Program(const std::string& commandLine, bool simulator,
                 const std::function<void(Program&)>& foretell) {
    sNoLimitsPath.clear();
    sDocumentFile.clear();
    iDocumentKind = DocumentKinds::None;
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
    if (!QTest::qWaitForWindowExposed(window.get()))
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
    // A check box answers on its mark and its text, not on the empty room beside them.
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(6, control.height() / 2));
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
