#pragma once

#include <memory>

#include <QString>

namespace railwright::testing {

/// The modal box or dialog as the user sees it, either of Qt or of the system.
class ShownBox {
public:
    virtual ~ShownBox() = default;
    /// Returns the one in front, or null.
    static std::unique_ptr<ShownBox> InFront();

    /// @return the number of earlier calls for this box.
    virtual int CountLook() = 0;
    /// Returns the title. For a message box, returns title, text, icon and buttons, separated by "|".
    virtual QString Seen() const = 0;
    virtual void Press(const QString& button) = 0;
    /// Types a name into a file dialog and accepts it. An empty name cancels.
    /// @param before receives the previous content of the field, unless it is null.
    virtual void Name(const QString& name, QString* before) = 0;
    virtual void GiveUp() = 0;
};

/// Returns the expected Seen() of the question whether a file dialog may replace an existing file.
QString OverwriteQuestion(const QString& title, const QString& name);

} // namespace railwright::testing
