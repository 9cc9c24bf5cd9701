#pragma once

#include "platform/FilePath.h"
#include "shell/Controls.h"
#include "shell/frmMain.h"
#include "shell/mMain.h"
#include "tests/shell/ShownBox.h"
#include "tests/support/FailingFiles.h"
#include "tests/support/TemporaryFolder.h"
#include "track/TrackDocument.h"

#include <functional>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <QUrl>

namespace railwright::testing {

/// A new program in its initial state: no document, the simulator's folder found, the window visible. Answers
/// the expected message boxes and file dialogs in order. A missing, unexpected or different one fails the
/// test.
class Program {
public:
    /// @param simulator whether the program is in the simulator's folder.
    /// @param foretell runs before the start.
    explicit Program(const std::string& commandLine = "", bool simulator = true,
                     const std::function<void(Program&)>& foretell = {});
    ~Program();
    /// Expects a message box with this title, text, icon and buttons, and presses a button.
    Program& Box(const QString& shown, const QString& button);
    /// Expects a file dialog, types a name and accepts it. An empty name cancels.
    Program& File(const QString& title, const std::string& name, QString* fieldBefore = nullptr);
    frmMain& Window() { return *window; }
    /// Returns a control by name. Aborts if it is missing.
    template <class Control = QWidget>
    Control& Find(const QString& name) {
        if (auto* const control = window->findChild<Control*>(name))
            return *control;
        qFatal("no control %s", qPrintable(name));
    }
    void Click(const QString& button);
    bool IsEnabled(const QString& name) { return Find<QObject>(name).property("enabled").toBool(); }
    void Choose(const QString& entry) { Find<QAction>(entry).trigger(); }
    QString Title() const { return window->windowTitle(); }
    /// Returns the text of the Overview panel, then shows the previous panel again.
    QString Report();
    /// Returns the state of an array of check boxes: X ticked, - not; x and . if disabled.
    QString Marks(const char* name, int count);
    /// Returns the path of a file in the test's folder, as a user would type it.
    std::string Path(const std::string& name) const { return folder.File(name); }
    std::vector<std::string> Names() const { return folder.Names(); }

private:
    void Look();
    TemporaryFolder folder;
    std::vector<std::pair<QString, std::function<void(ShownBox&)>>> expected;
    std::size_t next = 0;
    QStringList faults;
    QTimer timer;
    std::unique_ptr<frmMain> window;
};

/// Opens a file. The path is as a user would type it.
inline bool Open(const std::string& file) {
    return OpenNoLimitsFile(FilePath::FromUser(file));
}

const std::string Comet = Example("harbor-comet.nltrack");
const std::string Loop = Example("loop.nlelem");

class WindowTests final : public QObject {
    Q_OBJECT
private slots:
    void ReachesEveryPanel();
    void EnablesByTheDocument();
    void DrawsFrameAndPreviewsSharp();
    void PaintsAsIfNothingWereLeftOut();
    void ShowsTextsWhole();
    void StartsWithFileAndSimulator();
    void FailsToOpen();
    void Saves();
    void KeepsTheOldFileOfASaveThatFails();
    void TellsToWaitAndGetsOverLackOfMemory();
    void PassesNamesThroughTheDialogs();
    void TellsOfNamesThatAreTooLong();
    void SaysWhereTheContentIsThatLostItsFile();
#ifdef Q_OS_WIN
    void OpensFromSharesAndDeepFolders();
    void LeavesAFileAloneThatAnotherProgramHolds();
#endif
    void OpensAFileThatIsDropped();
    void ClosesAsAnswered();
    void ChangesTheDocument();
    void CaptionsFollowTheScrollBars();
    void FollowsTheTrack();
    void RenamesObjects();
    void ChoosesTheFileAssociation();
    void OrganizesTheEnvironments();
    void FitsThumbnailsToTheCurve();
    void OpensMenusAndPages();
public slots:
    void Visit(const QUrl& page) {
        visited = page.toString(QUrl::FullyEncoded);
    }

private:
    QString visited;
};

} // namespace railwright::testing
