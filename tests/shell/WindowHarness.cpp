#include "tests/shell/WindowHarness.h"

#include "element/ElementDocument.h"
#include "shell/mMain.h"
#include "track/TrackDocument.h"

#include <filesystem>

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace railwright::testing {
namespace {

/// Milliseconds between two looks for a box, and the looks after which one that was answered must be gone.
constexpr int TimeBetweenLooks = 5;
constexpr int PatienceInLooks = 300;

QString PlainCaption(const QAbstractButton& button) {
    return button.text().remove('&');
}

} // namespace

Answers::Answers() {
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Look(); });
    timer.start(TimeBetweenLooks);
}

QString Answers::Seen(const QWidget& widget) {
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

Answers& Answers::Box(const QString& shown, const QString& caption) {
    expected.push_back({shown, [caption](QWidget& box) {
                            for (QAbstractButton* const button : box.findChildren<QAbstractButton*>())
                                if (PlainCaption(*button) == caption)
                                    QTest::mouseClick(button, Qt::LeftButton);
                        }});
    return *this;
}

Answers& Answers::File(const QString& title, const std::string& name, QString* fieldBefore) {
    expected.push_back({title, [name, fieldBefore](QWidget& dialog) {
                            auto* const field = dialog.findChild<QLineEdit*>("fileNameEdit");
                            if (fieldBefore != nullptr)
                                *fieldBefore = field->text();
                            if (name.empty()) {
                                QTest::keyClick(&dialog, Qt::Key_Escape);
                                return;
                            }
                            // Keys would bring up the list of completions, which takes the next of them.
                            field->setText(QString::fromStdString(name));
                            auto& buttons = *dialog.findChild<QDialogButtonBox*>();
                            const bool saves = buttons.button(QDialogButtonBox::Save) != nullptr;
                            QTest::mouseClick(
                                buttons.button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open),
                                Qt::LeftButton);
                        }});
    return *this;
}

void Answers::Look() {
    QWidget* const shown = QApplication::activeModalWidget();
    if (shown == nullptr)
        return;
    constexpr const char* looks = "looks";
    const int seenBefore = shown->property(looks).toInt();
    shown->setProperty(looks, seenBefore + 1);
    const QString seen = Seen(*shown);
    if (seenBefore == 0 && next < expected.size() && expected[next].Title == seen) {
        // The answer may bring up the next box before it returns, and a timer does not run within itself.
        QTimer::singleShot(0, shown, [shown, answer = expected[next++].Answer] { answer(*shown); });
    } else if (seenBefore == 0 || seenBefore == PatienceInLooks) {
        faults += (seenBefore == 0 ? "not expected: " : "does not go: ") + seen;
        qobject_cast<QDialog*>(shown)->reject();
    }
}

QString Answers::Verdict() const {
    QStringList all = faults;
    for (std::size_t missing = next; missing < expected.size(); ++missing)
        all += "did not come: " + expected[missing].Title;
    return all.join("; ");
}

void PlaceSimulator(bool there) {
    const std::filesystem::path file =
        std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()) / "NoLimitsSimulator.exe";
    if (there)
        WriteBytes(file, {});
    else
        std::filesystem::remove(file);
}

Program::Program(const std::string& commandLine, bool simulator,
                 const std::function<void(Answers&)>& foretell) {
    sNoLimitsPath.clear();
    sDocumentFile.clear();
    iDocumentKind = DocumentKinds::None;
    bDocumentChanged = false;
    ClearTrackDocument();
    ClearElementDocument();
    PlaceSimulator(simulator);
    if (foretell)
        foretell(*answers);
    window = std::make_unique<frmMain>();
    window->Form_Load(commandLine);
    window->show();
    // A process that was killed must not leave a simulator behind for the next.
    PlaceSimulator(false);
    if (!QTest::qWaitForWindowExposed(window.get()))
        qFatal("the window does not show");
}

Program::~Program() {
    if (const QString verdict = answers->Verdict(); !verdict.isEmpty())
        QTest::qFail(qPrintable(verdict), __FILE__, __LINE__);
}

void Program::Click(const QString& button) {
    QWidget& control = Find<QWidget>(button);
    // A check box answers on its mark and its text, not on the empty room beside them.
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(6, control.height() / 2));
}

void Program::Choose(const QString& entry) {
    window->menuBar()->findChild<QAction*>(entry)->trigger();
}

QString Program::Report() {
    return Find<QPlainTextEdit>("txtOverview").toPlainText();
}

std::string Program::CopyOf(const std::string& example) const {
    WriteBytes(folder.File(example), ReadBytes(Example(example)));
    return folder.File(example);
}

} // namespace railwright::testing
