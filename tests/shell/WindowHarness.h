#pragma once

#include "shell/frmMain.h"
#include "tests/support/TemporaryFolder.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QStringList>
#include <QTimer>
#include <QWidget>

namespace railwright::testing {

/// Answers the message boxes and file dialogs that come up, in the order in which it was told of them. A
/// box that was not foretold, or that shows something else, is closed and fails the test.
class Answers {
public:
    Answers();
    /// A message box.
    /// @param shown its title, text, icon and buttons, as Seen puts them.
    /// @param button the caption of the button to press.
    Answers& Box(const QString& shown, const QString& button);
    /// A file dialog in which a name is typed and taken; an empty name presses Escape.
    Answers& File(const QString& title, const std::string& name, QString* fieldBefore = nullptr);
    /// @return what went wrong, and which of the foretold did not come; empty if all is well.
    QString Verdict() const;

    /// @return a message box in one line: title, text, icon, buttons.
    static QString Seen(const QWidget& box);

private:
    struct Expected {
        QString Title;
        std::function<void(QWidget&)> Answer;
    };
    void Look();

    std::vector<Expected> expected;
    std::size_t next = 0;
    QStringList faults;
    QTimer timer;
};

/// A fresh program in its start state: no document, the simulator's folder found, the window shown. Anything
/// that was asked without being foretold fails at its end.
class Program {
public:
    /// @param commandLine what stands behind the program's name.
    /// @param simulator whether the simulator lies beside the program.
    explicit Program(const std::string& commandLine = "", bool simulator = true,
                     const std::function<void(Answers&)>& foretell = {});
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    Answers& Questions() { return *answers; }
    frmMain& Window() { return *window; }
    /// A control by its name; a missing one ends the test program.
    template <class Control = QWidget>
    Control& Find(const QString& name) {
        auto* const control = window->findChild<Control*>(name);
        if (control == nullptr)
            qFatal("no control %s", qPrintable(name));
        return *control;
    }
    void Click(const QString& button);
    /// Chooses an entry of the menu bar.
    void Choose(const QString& entry);
    QString Title() const { return window->windowTitle(); }
    QString Report();
    /// Path of a file in this program's own folder, as a user would type it.
    std::string Path(const std::string& name) const { return folder.File(name); }
    /// The path of a copy of an example in that folder.
    std::string CopyOf(const std::string& example) const;

private:
    TemporaryFolder folder;
    std::unique_ptr<Answers> answers = std::make_unique<Answers>();
    std::unique_ptr<frmMain> window;
};

/// Puts a program of the simulator beside this one, or takes it away.
void PlaceSimulator(bool there);

/// The messages of the program, as Answers::Seen puts them.
inline const QString FolderQuestion =
    "Unknown NoLimits Path|Unable to locate your NoLimits Installation Path.\n"
    "This path is required to use some of the Tools featured in this Railwright.\n"
    "Locate this path yourself?|Question|Yes,No";
inline const QString UnsavedQuestion =
    "Unsaved Changes|There are unsaved changes to the file.\nSave changes?|Question|Yes,No,Cancel";

/// An error with an OK button.
inline QString ErrorBox(const QString& text) {
    return "Error|" + text + "|Warning|OK";
}

} // namespace railwright::testing
