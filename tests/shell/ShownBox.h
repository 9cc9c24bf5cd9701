#pragma once

#include <memory>

#include <QString>

namespace railwright::testing {

/// The box or dialog that the program waits for, as the user sees it: of the toolkit or of the system.
class ShownBox {
public:
    virtual ~ShownBox() = default;
    /// The one in front, null if there is none.
    static std::unique_ptr<ShownBox> InFront();

    /// @return how often this has been called for it before.
    virtual int CountLook() = 0;
    /// The title; for a message box title, text, icon and buttons with "|" between them.
    virtual QString Seen() const = 0;
    virtual void Press(const QString& button) = 0;
    /// Types a name into a file dialog and takes it; an empty name cancels.
    /// @return what stood in the field before.
    virtual QString Name(const QString& name) = 0;
    virtual void GiveUp() = 0;
};

/// What the question looks like that a file dialog asks before it takes the name of a file that exists.
QString OverwriteQuestion(const QString& title, const QString& name);

} // namespace railwright::testing
